import { firstControl } from '../widgets/focusable.ts';
import type { Renderer } from '../widgets/Renderer.ts';
import { type Scrolled, scrollBack, scrolledIn } from './scrolled.ts';
import type { WindowFrame } from './WindowFrame.ts';

/** Which window lies above which, and which one has the keyboard. The last is on top. */
export class Stack {
    #isReopening = false;
    /** A dialog forgets it when it closes, and a window that is hidden or minimized is closed. */
    readonly #scrolled = new WeakMap<WindowFrame, readonly Scrolled[]>();
    #order: WindowFrame[] = [];
    #active: WindowFrame | undefined;
    readonly #lastFocus = new WeakMap<WindowFrame, number>();
    readonly #renderer: Renderer;
    readonly #topChanged: () => void;
    readonly #activeChanged: () => void;

    constructor(renderer: Renderer, topChanged: () => void, activeChanged: () => void) {
        this.#renderer = renderer;
        this.#topChanged = topChanged;
        this.#activeChanged = activeChanged;
    }

    get order(): readonly WindowFrame[] {
        return this.#order;
    }

    get active(): WindowFrame | undefined {
        return this.#active;
    }

    /** The open modal window that shuts off all others. */
    get topModal(): WindowFrame | undefined {
        return this.#order.findLast((frame) => frame.element.matches(':modal'));
    }

    add(frame: WindowFrame): void {
        this.#order.push(frame);
        this.#showOrder();
    }

    remove(frame: WindowFrame): void {
        this.#order = this.#order.filter((other) => other !== frame);
        frame.element.close();
        frame.element.remove();
        this.#topChanged();
        this.#activateNextOf(frame);
    }

    /** Opens or hides the native dialog as the window's state demands. */
    show(frame: WindowFrame): void {
        const { element } = frame;
        const visible = frame.mode !== 'minimized' && frame.object.values.visible !== false;
        if (visible === element.open && (!visible || element.matches(':modal') === frame.modal)) {
            return;
        }
        this.#reopen(frame, () => {
            if (visible && frame.modal) {
                element.showModal();
            } else {
                // Unlike show() this leaves the focus: the window may not be the active one.
                element.open = visible;
            }
        });
        if (!visible) {
            this.#activateNextOf(frame);
        }
    }

    /** On top of the others of its sort; modal windows lie above all others anyway. */
    raise(frame: WindowFrame): void {
        if (this.#order.at(-1) === frame) {
            return;
        }
        this.#order = [...this.#order.filter((other) => other !== frame), frame];
        this.#showOrder();
        if (frame.element.matches(':modal')) {
            this.#reopen(frame, () => frame.element.showModal());
        }
    }

    /** A dialog that closes hands the focus back for a moment: nobody has gone there. */
    #reopen(frame: WindowFrame, open: () => void): void {
        const focus = this.#renderer.focus.within(frame.element);
        this.#isReopening = true;
        const scrolled = frame.element.open ? scrolledIn(frame.body) : this.#scrolled.get(frame);
        frame.element.close();
        open();
        this.#renderer.focus.restore(frame.element.open ? focus : undefined);
        this.#scrolled.set(frame, scrolled ?? []);
        if (frame.element.open) {
            scrollBack(frame.body, scrolled ?? []);
        }
        this.#isReopening = false;
        if (frame.element.contains(document.activeElement)) {
            this.#setActive(frame);
        }
        this.#topChanged();
    }

    /** On top, and the keyboard goes to where it was in this window, or to its first control. */
    activate(frame: WindowFrame): void {
        this.raise(frame);
        if (!frame.element.open || this.#isShutOff(frame)) {
            return;
        }
        this.#setActive(frame);
        if (!frame.element.contains(document.activeElement) || this.#isOnFrame(frame)) {
            const last = this.#renderer.control(this.#lastFocus.get(frame) ?? 0);
            const control = (last && firstControl(last)) ?? firstControl(frame.body);
            (control ?? frame.element).focus({ preventScroll: true });
        }
    }

    focusWithin(frame: WindowFrame, id: number): void {
        this.#lastFocus.set(frame, id);
        if (frame === this.#active || this.#active === undefined) {
            const control = this.#renderer.control(id);
            (control && firstControl(control))?.focus();
        }
    }

    /** The user went into the window, by pointer or keyboard. */
    entered(frame: WindowFrame, id: number | undefined): void {
        if (this.#isReopening) {
            return;
        }
        if (id !== undefined) {
            this.#lastFocus.set(frame, id);
        }
        this.#setActive(frame);
        this.raise(frame);
    }

    #isShutOff(frame: WindowFrame): boolean {
        const modal = this.topModal;
        return modal !== undefined && modal !== frame;
    }

    /** A dialog that opens takes the focus itself, which is not yet where one can work. */
    #isOnFrame(frame: WindowFrame): boolean {
        return !frame.body.contains(document.activeElement);
    }

    #setActive(frame: WindowFrame | undefined): void {
        if (frame !== this.#active) {
            this.#active?.element.classList.remove('active');
            frame?.element.classList.add('active');
            this.#active = frame;
            this.#activeChanged();
        }
    }

    #activateNextOf(gone: WindowFrame): void {
        if (this.#active === gone) {
            this.#setActive(undefined);
            const next = this.#order.findLast((frame) => frame.element.open && frame !== gone);
            if (next !== undefined) {
                this.activate(next);
            }
        }
    }

    #showOrder(): void {
        this.#order.forEach((frame, index) => (frame.element.style.zIndex = String(index + 1)));
    }
}
