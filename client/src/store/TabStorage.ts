type Items = Pick<Storage, 'getItem' | 'setItem' | 'removeItem'>;

/** Where a tab keeps texts until it is closed: all of them, only so much, or nothing at all. */
export class TabStorage {
    readonly #items: () => Items;
    readonly #prefix: string;

    /**
     * `items` may throw, as a browser does that keeps nothing for this page. The names of all that
     * is kept there begin with `prefix`.
     */
    constructor(items: () => Items, prefix = '') {
        this.#items = items;
        this.#prefix = prefix;
    }

    /** Empty when there is none. */
    read(name: string): string {
        return this.#try((items) => items.getItem(this.#prefix + name)) ?? '';
    }

    /** False when it could not be kept. */
    write(name: string, text: string): boolean {
        const isKept = this.#try((items) => {
            items.setItem(this.#prefix + name, text);
            return true;
        });
        return isKept ?? false;
    }

    remove(name: string): void {
        this.#try((items) => items.removeItem(this.#prefix + name));
    }

    #try<Result>(use: (items: Items) => Result): Result | undefined {
        try {
            return use(this.#items());
        } catch {
            return undefined;
        }
    }
}
