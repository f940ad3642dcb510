import { isObject, type JsonObject, parseJson } from '../protocol/guards.ts';
import type { TabStorage } from '../store/TabStorage.ts';

const NAME = 'dialogs';
const VERSION = 1;

/**
 * What the page shows, kept over a reload. It lies in the storage only while the page is away:
 * a tab that is duplicated meanwhile must not find it and take the same session up.
 */
export class Keep {
    readonly #storage: TabStorage;

    constructor(storage: TabStorage) {
        this.#storage = storage;
    }

    /** False when it could not be kept, because it is too large or nothing may be kept here. */
    put(state: JsonObject): boolean {
        const isKept = this.#storage.write(NAME, JSON.stringify({ ...state, version: VERSION }));
        if (!isKept) {
            this.clear();
        }
        return isKept;
    }

    /** What was kept, once; undefined when there is nothing of use. */
    take(): JsonObject | undefined {
        const state = parseJson(this.#storage.read(NAME));
        this.clear();
        return isObject(state) && state['version'] === VERSION ? state : undefined;
    }

    clear(): void {
        this.#storage.remove(NAME);
    }
}
