import type { StoredObject } from '../../store/StoredObject.ts';

const GAP = 2;

/**
 * The open list of an editable box. It stands in the box, so that it belongs to its window, and
 * in the top layer, so that no window cuts it off. The focus stays in the field.
 */
export class ChoiceList {
    private static readonly s_open = new WeakMap<HTMLElement, ChoiceList>();
    private readonly m_box: HTMLElement;
    private readonly m_field: HTMLInputElement;
    private readonly m_element = document.createElement('div');
    private readonly m_end = new AbortController();
    private m_active: number | undefined;

    static of(box: HTMLElement): ChoiceList | undefined {
        return ChoiceList.s_open.get(box);
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
        ChoiceList.s_open.set(box, list);
        return list;
    }

    private constructor(box: HTMLElement, field: HTMLInputElement, object: StoredObject) {
        this.m_box = box;
        this.m_field = field;
        this.m_element.className = 'choices';
        this.m_element.popover = 'manual';
        this.m_element.id = `choices-${object.id}`;
        this.m_element.setAttribute('role', 'listbox');
        this.m_element.setAttribute('aria-label', 'Choices');
        box.append(this.m_element);
        this.show(object);
        field.setAttribute('aria-expanded', 'true');
        field.setAttribute('aria-controls', this.m_element.id);
        field.focus({ preventScroll: true });
        this.m_element.showPopover();
        this.place();
        this.activate(object.values.currentindex ?? -1);
        this.listen();
    }

    /** The item that the keyboard stands on. */
    get active(): number | undefined {
        return this.m_active;
    }

    /** The items as they are now; the keyboard stands where it stood. */
    show(object: StoredObject): void {
        const { entries = [], currentindex } = object.values;
        this.m_element.replaceChildren(
            ...entries.map((text, index) => {
                const item = document.createElement('div');
                item.setAttribute('role', 'option');
                item.setAttribute('aria-selected', String(index === currentindex));
                item.id = `${this.m_element.id}-${index}`;
                item.textContent = text;
                return item;
            }),
        );
        this.activate(this.m_active ?? -1);
    }

    /** From nowhere the first step down is to the first item, and up to the last. */
    move(by: number): void {
        const count = this.m_element.childElementCount;
        const start = this.m_active ?? (by > 0 ? -1 : count);
        this.activate(Math.max(0, Math.min(count - 1, start + by)));
    }

    indexOf(target: Element): number | undefined {
        const item = target.closest('[role="option"]');
        const index = item ? [...this.m_element.children].indexOf(item) : -1;
        return index < 0 ? undefined : index;
    }

    close(): void {
        this.m_end.abort();
        ChoiceList.s_open.delete(this.m_box);
        this.m_field.setAttribute('aria-expanded', 'false');
        this.m_field.removeAttribute('aria-controls');
        this.m_field.removeAttribute('aria-activedescendant');
        this.m_element.remove();
    }

    private activate(index: number): void {
        this.m_element.querySelector('[data-active]')?.removeAttribute('data-active');
        const item = this.m_element.children[index];
        this.m_active = item && index;
        if (item === undefined) {
            this.m_field.removeAttribute('aria-activedescendant');
            return;
        }
        item.setAttribute('data-active', '');
        item.scrollIntoView({ block: 'nearest' });
        this.m_field.setAttribute('aria-activedescendant', item.id);
    }

    /** Below the field, or above it where there is more room. */
    private place(): void {
        const box = this.m_box.getBoundingClientRect();
        const below = innerHeight - box.bottom - GAP;
        const above = box.top - GAP;
        const { style } = this.m_element;
        style.minWidth = `${box.width}px`;
        style.left = `${Math.min(box.left, innerWidth - this.m_element.offsetWidth)}px`;
        if (below >= Math.min(this.m_element.offsetHeight, above)) {
            style.top = `${box.bottom + GAP}px`;
            style.maxHeight = `${below}px`;
        } else {
            style.bottom = `${innerHeight - above}px`;
            style.maxHeight = `${above}px`;
        }
    }

    /** A list that no longer stands at its field, or that somebody turned away from, goes. */
    private listen(): void {
        const { signal } = this.m_end;
        const elsewhere = (event: Event): void => {
            if (!this.m_box.contains(event.target as Node)) {
                this.close();
            }
        };
        document.addEventListener('pointerdown', elsewhere, { signal, capture: true });
        document.addEventListener('scroll', elsewhere, { signal, capture: true });
        addEventListener('resize', () => this.close(), { signal });
        // The focus stays in the field while the pointer chooses.
        this.m_element.addEventListener('mousedown', (event) => event.preventDefault(), { signal });
    }
}
