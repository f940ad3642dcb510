/**
 * Ties texts to the controls that they name. Only a control that some text names gets a DOM id:
 * the two may come in either order.
 */
export class Buddies {
    readonly #named = new Set<number>();
    readonly #control: (id: number) => HTMLElement | undefined;

    constructor(control: (id: number) => HTMLElement | undefined) {
        this.#control = control;
    }

    /** A text names this object; the answer is what its label points at. */
    name(id: number): string {
        this.#named.add(id);
        const control = this.#control(id);
        if (control !== undefined) {
            this.connect(id, control);
        }
        return controlId(id);
    }

    focus(id: number): void {
        this.#control(id)?.focus();
    }

    isNamed(id: number): boolean {
        return this.#named.has(id);
    }

    /** The control of an object that is named has come into being. */
    connect(id: number, control: HTMLElement): void {
        control.id = controlId(id);
        control.removeAttribute('aria-label');
        control.removeAttribute('aria-labelledby');
    }
}

function controlId(id: number): string {
    return `object-${id}`;
}
