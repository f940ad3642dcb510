import { asId, isObject } from '../../protocol/guards.ts';
import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';

/**
 * By which number the program knows each page of a tab container. A page that goes keeps its
 * number, so that those of the pages behind it stay; one that comes has the place that its
 * description gives it, and those behind it count one more, as they do in the program.
 */
export class TabPositions {
    readonly #pages = new Map<number, number[]>();

    /** The container's pages by number; undefined where one has gone. */
    pagesOf(container: StoredObject): readonly (StoredObject | undefined)[] {
        const ids = this.#pages.get(container.id) ?? [];
        const pages = container.children.filter((child) => child.type === Kind.tab);
        let place = ids.length;
        for (const page of pages.slice().reverse()) {
            if (ids.includes(page.id)) {
                place = ids.indexOf(page.id);
            } else {
                ids.splice(place, 0, page.id);
            }
        }
        this.#pages.set(container.id, ids);
        return ids.map((id) => pages.find((page) => page.id === id));
    }

    forget(container: number): void {
        this.#pages.delete(container);
    }

    store(): Record<string, readonly number[]> {
        return Object.fromEntries(this.#pages);
    }

    restore(stored: unknown): void {
        for (const [id, pages] of Object.entries(isObject(stored) ? stored : {})) {
            const ids = Array.isArray(pages) ? pages.map(asId) : [undefined];
            if (ids.every((page) => page !== undefined)) {
                this.#pages.set(Number(id), ids);
            }
        }
    }
}
