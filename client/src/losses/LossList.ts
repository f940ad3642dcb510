import { parseJson } from '../protocol/guards.ts';
import type { TabStorage } from '../store/TabStorage.ts';
import { isGiven } from './action.ts';
import { asLosses, type Loss } from './Loss.ts';

const NAME = 'losses';

/** What was lost in this tab and not put away yet, over reloads and over any number of losses. */
export class LossList {
    readonly #storage: TabStorage;
    #losses: readonly Loss[];
    #isKept = true;

    constructor(storage: TabStorage) {
        this.#storage = storage;
        this.#losses = asLosses(parseJson(storage.read(NAME)));
    }

    get losses(): readonly Loss[] {
        return this.#losses;
    }

    /** Whether a reload finds all of it again: a tab may keep only so much. */
    get isKept(): boolean {
        return this.#isKept;
    }

    /** The latest stand last; the same value of the same field stands there once. */
    add(losses: readonly Loss[]): void {
        const isNew = (old: Loss): boolean => !losses.some((loss) => isSame(loss, old));
        this.#set([...this.#losses.filter(isNew), ...losses]);
    }

    /** The program shows these after all. */
    remove(gone: (loss: Loss) => boolean): void {
        const left = this.#losses.filter((loss) => !gone(loss));
        if (left.length < this.#losses.length) {
            this.#set(left);
        }
    }

    putBack(loss: Loss): void {
        const isBack = { ...loss, isBack: true };
        this.#set(this.#losses.map((other) => (other === loss ? isBack : other)));
    }

    clear(): void {
        this.#set([]);
    }

    #set(losses: readonly Loss[]): void {
        this.#losses = losses;
        this.#isKept = losses.length === 0 || this.#storage.write(NAME, JSON.stringify(losses));
        if (losses.length === 0) {
            this.#storage.remove(NAME);
        }
    }
}

function isSame(a: Loss, b: Loss): boolean {
    const sameField = JSON.stringify(a.field) === JSON.stringify(b.field);
    return sameField && a.what === b.what && isGiven({ ...a, id: 0 }) && a.value === b.value;
}
