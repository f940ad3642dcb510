import { parseJson } from '../protocol/guards.ts';
import type { TabStorage } from '../store/TabStorage.ts';
import { isGiven } from './action.ts';
import { asLosses, type Loss } from './Loss.ts';

const NAME = 'losses';

/** What was lost in this tab and not put away yet, over reloads and over any number of losses. */
export class LossList {
    private readonly m_storage: TabStorage | undefined;
    private m_losses: readonly Loss[];
    private m_isKept = true;

    constructor(storage: TabStorage | undefined) {
        this.m_storage = storage;
        this.m_losses = asLosses(this.read());
    }

    get losses(): readonly Loss[] {
        return this.m_losses;
    }

    /** Whether a reload finds all of it again: a tab may keep only so much. */
    get isKept(): boolean {
        return this.m_isKept;
    }

    /** The latest stand last; the same value of the same field stands there once. */
    add(losses: readonly Loss[]): void {
        const isNew = (old: Loss): boolean => !losses.some((loss) => isSame(loss, old));
        this.set([...this.m_losses.filter(isNew), ...losses]);
    }

    /** The program shows these after all. */
    remove(gone: (loss: Loss) => boolean): void {
        const left = this.m_losses.filter((loss) => !gone(loss));
        if (left.length < this.m_losses.length) {
            this.set(left);
        }
    }

    putBack(loss: Loss): void {
        const isBack = { ...loss, isBack: true };
        this.set(this.m_losses.map((other) => (other === loss ? isBack : other)));
    }

    clear(): void {
        this.set([]);
    }

    private set(losses: readonly Loss[]): void {
        this.m_losses = losses;
        this.m_isKept = this.write();
    }

    private read(): unknown {
        try {
            return parseJson(this.m_storage?.getItem(NAME) ?? '');
        } catch {
            return undefined;
        }
    }

    private write(): boolean {
        try {
            if (this.m_losses.length === 0) {
                this.m_storage?.removeItem(NAME);
            } else {
                this.m_storage?.setItem(NAME, JSON.stringify(this.m_losses));
            }
            return this.m_storage !== undefined || this.m_losses.length === 0;
        } catch {
            return false;
        }
    }
}

function isSame(a: Loss, b: Loss): boolean {
    const sameField = JSON.stringify(a.field) === JSON.stringify(b.field);
    return sameField && a.what === b.what && isGiven({ ...a, id: 0 }) && a.value === b.value;
}
