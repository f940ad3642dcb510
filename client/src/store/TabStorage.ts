/** Where a tab keeps things until it is closed; may refuse with an exception. */
export interface TabStorage {
    getItem(name: string): string | null;
    setItem(name: string, text: string): void;
    removeItem(name: string): void;
}
