import type { StoredObject } from '../../store/StoredObject.ts';
import { setAttribute } from '../base.ts';

const GAP = 2;

/**
 * The open list of an editable box. It stands in the box, so that it belongs to its window, and
 * in the top layer, so that no window cuts it off. The focus stays in the field.
 */
export class ChoiceList {
    static readonly #open = new WeakMap<HTMLElement, ChoiceList>();
    readonly #box: HTMLElement;
    readonly #field: HTMLInputElement;
    readonly #element = document.createElement('div');
    readonly #end = new AbortController();
    #active: number | undefined;

    static of(box: HTMLElement): ChoiceList | undefined {
        return ChoiceList.#open.get(box);
    }

    static open(
        box: HTMLElement,
        field: HTMLInputElement,
        object: StoredObject,
    ): ChoiceList | undefined {
        if (field.disabled) {
            return undefined;
        }
        const list = new ChoiceList(box, field, object);
        ChoiceList.#open.set(box, list);
        return list;
    }

    private constructor(box: HTMLElement, field: HTMLInputElement, object: StoredObject) {
        this.#box = box;
        this.#field = field;
        this.#element.className = 'choices';
        this.#element.popover = 'manual';
        this.#element.id = `choices-${object.id}`;
        this.#element.setAttribute('role', 'listbox');
        this.#element.setAttribute('aria-label', 'Choices');
        box.append(this.#element);
        this.show(object);
        field.setAttribute('aria-expanded', 'true');
        field.setAttribute('aria-controls', this.#element.id);
        field.focus({ preventScroll: true });
        this.#element.showPopover();
        this.#place();
        this.#activate(object.values.currentindex ?? -1);
        this.#listen();
    }

    /** The item that the keyboard stands on. */
    get active(): number | undefined {
        return this.#active;
    }

    /** The items as they are now; the keyboard stands where it stood. */
    show(object: StoredObject): void {
        const { entries = [], currentindex } = object.values;
        this.#element.replaceChildren(
            ...entries.map((text, index) => {
                const item = document.createElement('div');
                item.setAttribute('role', 'option');
                item.setAttribute('aria-selected', String(index === currentindex));
                item.id = `${this.#element.id}-${index}`;
                item.textContent = text;
                return item;
            }),
        );
        this.#activate(this.#active ?? -1);
    }

    /** From nowhere the first step down is to the first item, and up to the last. */
    move(by: number): void {
        const count = this.#element.childElementCount;
        const start = this.#active ?? (by > 0 ? -1 : count);
        this.#activate(Math.max(0, Math.min(count - 1, start + by)));
    }

    indexOf(target: Element): number | undefined {
        const item = target.closest('[role="option"]');
        const index = item ? [...this.#element.children].indexOf(item) : -1;
        return index < 0 ? undefined : index;
    }

    close(): void {
        this.#end.abort();
        ChoiceList.#open.delete(this.#box);
        this.#field.setAttribute('aria-expanded', 'false');
        this.#field.removeAttribute('aria-controls');
        this.#field.removeAttribute('aria-activedescendant');
        this.#element.remove();
    }

    #activate(index: number): void {
        this.#element.querySelector('[data-active]')?.removeAttribute('data-active');
        const item = this.#element.children[index];
        this.#active = item && index;
        item?.setAttribute('data-active', '');
        item?.scrollIntoView({ block: 'nearest' });
        setAttribute(this.#field, 'aria-activedescendant', item?.id);
    }

    /** Below the field, or above it where there is more room. */
    #place(): void {
        const box = this.#box.getBoundingClientRect();
        const below = innerHeight - box.bottom - GAP;
        const above = box.top - GAP;
        const { style } = this.#element;
        style.minWidth = `${box.width}px`;
        style.left = `${Math.min(box.left, innerWidth - this.#element.offsetWidth)}px`;
        if (below >= Math.min(this.#element.offsetHeight, above)) {
            style.top = `${box.bottom + GAP}px`;
            style.maxHeight = `${below}px`;
        } else {
            style.bottom = `${innerHeight - above}px`;
            style.maxHeight = `${above}px`;
        }
    }

    /** A list that no longer stands at its field, or that the user turned away from, goes. */
    #listen(): void {
        const { signal } = this.#end;
        const elsewhere = (event: Event): void => {
            if (!this.#box.contains(event.target as Node)) {
                this.close();
            }
        };
        document.addEventListener('pointerdown', elsewhere, { signal, capture: true });
        document.addEventListener('scroll', elsewhere, { signal, capture: true });
        addEventListener('resize', () => this.close(), { signal });
        // The focus stays in the field while the pointer chooses.
        this.#element.addEventListener('mousedown', (event) => event.preventDefault(), { signal });
    }
}
