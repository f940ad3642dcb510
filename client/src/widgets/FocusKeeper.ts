import { asId, asNumber, isObject } from '../protocol/guards.ts';

/** Where the person is: the object that has the focus, and the selection in it. */
export interface Focus {
    readonly id: number;
    readonly start: number;
    readonly end: number;
}

/** Brings the focus back to the same object when its element had to give way to another. */
export class FocusKeeper {
    private readonly m_control: (id: number) => HTMLElement | undefined;

    constructor(control: (id: number) => HTMLElement | undefined) {
        this.m_control = control;
    }

    /** The focus, if it is on an object within the element. */
    within(element: Element): Focus | undefined {
        const active = document.activeElement;
        const owner = active?.closest<HTMLElement>('[data-id]');
        const id = asId(owner?.dataset['id']);
        if (!active || id === undefined || !element.contains(active)) {
            return undefined;
        }
        const typing = active instanceof HTMLInputElement && active.type === 'text';
        const start = typing ? (active.selectionStart ?? 0) : 0;
        return { id, start, end: typing ? (active.selectionEnd ?? 0) : 0 };
    }

    restore(stored: unknown): void {
        const id = isObject(stored) ? asId(stored['id']) : undefined;
        const control = id === undefined ? undefined : this.m_control(id);
        if (!isObject(stored) || control === undefined) {
            return;
        }
        control.focus({ preventScroll: true });
        if (control instanceof HTMLInputElement && control.type === 'text') {
            const start = asNumber(stored['start']) ?? 0;
            control.setSelectionRange(start, asNumber(stored['end']) ?? start);
        }
    }
}
