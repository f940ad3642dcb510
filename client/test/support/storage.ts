import { TabStorage } from '../../src/store/TabStorage.ts';

export function refuse(): never {
    throw new Error('QuotaExceededError');
}

/** A tab's storage with what is in it; `set` may refuse. */
export function storageOf(items: Map<string, string>, set = items.set.bind(items)): TabStorage {
    return new TabStorage(() => ({
        getItem: (name) => items.get(name) ?? null,
        setItem: (name, text) => void set(name, text),
        removeItem: (name) => void items.delete(name),
    }));
}
