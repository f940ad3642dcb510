import { asCount, asId, isObject, type JsonObject } from '../protocol/guards.ts';

type Direction = 'forward' | 'backward' | 'none';

/** What is selected in an edit; a caret is a selection of nothing. */
interface Selection {
    readonly start: number;
    readonly end: number;
    /** At which end the caret is that Shift and the arrow keys move. */
    readonly direction: Direction;
}

/** Where the user is: the object that has the focus, and the selection if it is an edit. */
interface Focus extends Partial<Selection> {
    readonly id: number;
}

/** Brings the focus back to the same object when its element had to give way to another. */
export class FocusKeeper {
    readonly #control: (id: number) => HTMLElement | undefined;

    constructor(control: (id: number) => HTMLElement | undefined) {
        this.#control = control;
    }

    /** The focus, if it is on an object within the element. */
    within(element: Element): Focus | undefined {
        const active = document.activeElement;
        const owner = active?.closest<HTMLElement>('[data-id]');
        const id = asId(owner?.dataset['id']);
        if (!active || id === undefined || !element.contains(active)) {
            return undefined;
        }
        return { id, ...selectionIn(active) };
    }

    restore(stored: unknown): void {
        const id = isObject(stored) ? asId(stored['id']) : undefined;
        const control = id === undefined ? undefined : this.#control(id);
        control?.focus({ preventScroll: true });
        select(control, stored);
    }

    /**
     * The focus in `root`, and each selection that differs from that of an edit just made: one
     * without the focus has its caret all the same.
     */
    store(root: Element): JsonObject {
        const selections = [...root.querySelectorAll<HTMLInputElement>('input.edit[data-id]')]
            .filter((input) => input.selectionStart !== input.value.length)
            .map((input) => ({ id: Number(input.dataset['id']), ...selectionIn(input) }));
        return { focus: this.within(root), selections };
    }

    takeUp(stored: unknown): void {
        const { focus, selections } = isObject(stored) ? stored : {};
        for (const selection of Array.isArray(selections) ? (selections as unknown[]) : []) {
            const id = isObject(selection) ? asId(selection['id']) : undefined;
            select(id === undefined ? undefined : this.#control(id), selection);
        }
        this.restore(focus);
    }
}

function selectionIn(element: Element): Selection | undefined {
    const typing = element instanceof HTMLInputElement && element.type === 'text';
    return typing
        ? {
              start: element.selectionStart ?? 0,
              end: element.selectionEnd ?? 0,
              direction: element.selectionDirection ?? 'none',
          }
        : undefined;
}

function select(control: HTMLElement | undefined, stored: unknown): void {
    if (isObject(stored) && control instanceof HTMLInputElement && control.type === 'text') {
        const start = asCount(stored['start']) ?? 0;
        control.setSelectionRange(
            start,
            asCount(stored['end']) ?? start,
            stored['direction'] === 'backward' ? 'backward' : 'forward',
        );
    }
}
