import { isObject, type JsonObject, parseJson } from '../protocol/guards.ts';
import type { TabStorage } from '../store/TabStorage.ts';

const NAME = 'dialogs';
const VERSION = 1;

/**
 * What the page shows, kept over a reload. It lies in the storage only while the page is away:
 * a tab that is duplicated meanwhile must not find it and take the same session up.
 */
export class Keep {
    readonly #storage: TabStorage | undefined;

    constructor(storage: TabStorage | undefined) {
        this.#storage = storage;
    }

    /** False when it could not be kept, because it is too large or nothing may be kept here. */
    put(state: JsonObject): boolean {
        try {
            this.#storage?.setItem(NAME, JSON.stringify({ ...state, version: VERSION }));
            return this.#storage !== undefined;
        } catch {
            this.clear();
            return false;
        }
    }

    /** What was kept, once; undefined when there is nothing of use. */
    take(): JsonObject | undefined {
        let state: unknown;
        try {
            state = parseJson(this.#storage?.getItem(NAME) ?? '');
        } catch {
            state = undefined;
        }
        this.clear();
        return isObject(state) && state['version'] === VERSION ? state : undefined;
    }

    clear(): void {
        try {
            this.#storage?.removeItem(NAME);
        } catch {
            return;
        }
    }
}
