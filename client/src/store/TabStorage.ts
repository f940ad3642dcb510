type Items = Pick<Storage, 'getItem' | 'setItem' | 'removeItem'>;

/** Where a tab keeps texts until it is closed: all of them, only so much, or nothing at all. */
export class TabStorage {
    readonly #items: () => Items;

    /** `items` may throw, as a browser does that keeps nothing for this page. */
    constructor(items: () => Items) {
        this.#items = items;
    }

    /** Empty when there is none. */
    read(name: string): string {
        return this.#try((items) => items.getItem(name)) ?? '';
    }

    /** False when it could not be kept. */
    write(name: string, text: string): boolean {
        const isKept = this.#try((items) => {
            items.setItem(name, text);
            return true;
        });
        return isKept ?? false;
    }

    remove(name: string): void {
        this.#try((items) => items.removeItem(name));
    }

    #try<Result>(use: (items: Items) => Result): Result | undefined {
        try {
            return use(this.#items());
        } catch {
            return undefined;
        }
    }
}
