import type { Renderer } from '../widgets/Renderer.ts';
import { firstControl } from '../widgets/focusable.ts';
import { scrollBack, scrolledIn, type Scrolled } from './scrolled.ts';
import type { WindowFrame } from './WindowFrame.ts';

/** Which window lies above which, and which one has the keyboard. The last is on top. */
export class Stack {
    private m_isReopening = false;
    /** A dialog forgets it when it closes, and a window that is hidden or minimized is closed. */
    private readonly m_scrolled = new WeakMap<WindowFrame, readonly Scrolled[]>();
    private m_order: WindowFrame[] = [];
    private m_active: WindowFrame | undefined;
    private readonly m_lastFocus = new WeakMap<WindowFrame, number>();
    private readonly m_renderer: Renderer;
    private readonly m_topChanged: () => void;
    private readonly m_activeChanged: () => void;

    constructor(renderer: Renderer, topChanged: () => void, activeChanged: () => void) {
        this.m_renderer = renderer;
        this.m_topChanged = topChanged;
        this.m_activeChanged = activeChanged;
    }

    get order(): readonly WindowFrame[] {
        return this.m_order;
    }

    get active(): WindowFrame | undefined {
        return this.m_active;
    }

    /** The open modal window that shuts off all others. */
    get topModal(): WindowFrame | undefined {
        return this.m_order.findLast((frame) => frame.element.matches(':modal'));
    }

    add(frame: WindowFrame): void {
        this.m_order.push(frame);
        this.showOrder();
    }

    remove(frame: WindowFrame): void {
        this.m_order = this.m_order.filter((other) => other !== frame);
        frame.element.close();
        frame.element.remove();
        this.m_topChanged();
        this.activateNextOf(frame);
    }

    /** Opens or hides the native dialog as the window's state demands. */
    show(frame: WindowFrame): void {
        const { element } = frame;
        const visible = frame.mode !== 'minimized' && frame.object.values.visible !== false;
        if (visible === element.open && (!visible || element.matches(':modal') === frame.modal)) {
            return;
        }
        this.reopen(frame, () => {
            if (visible && frame.modal) {
                element.showModal();
            } else {
                // Unlike show() this leaves the focus: the window may not be the active one.
                element.open = visible;
            }
        });
        if (!visible) {
            this.activateNextOf(frame);
        }
    }

    /** On top of the others of its sort; modal windows lie above all others anyway. */
    raise(frame: WindowFrame): void {
        if (this.m_order.at(-1) === frame) {
            return;
        }
        this.m_order = [...this.m_order.filter((other) => other !== frame), frame];
        this.showOrder();
        if (frame.element.matches(':modal')) {
            this.reopen(frame, () => frame.element.showModal());
        }
    }

    /** A dialog that closes hands the focus back for a moment: nobody has gone there. */
    private reopen(frame: WindowFrame, open: () => void): void {
        const focus = this.m_renderer.focus.within(frame.element);
        this.m_isReopening = true;
        const scrolled = frame.element.open ? scrolledIn(frame.body) : this.m_scrolled.get(frame);
        frame.element.close();
        open();
        this.m_renderer.focus.restore(frame.element.open ? focus : undefined);
        this.m_scrolled.set(frame, scrolled ?? []);
        if (frame.element.open) {
            scrollBack(frame.body, scrolled ?? []);
        }
        this.m_isReopening = false;
        if (frame.element.contains(document.activeElement)) {
            this.setActive(frame);
        }
        this.m_topChanged();
    }

    /** On top, and the keyboard goes to where it was in this window, or to its first control. */
    activate(frame: WindowFrame): void {
        this.raise(frame);
        if (!frame.element.open || this.isShutOff(frame)) {
            return;
        }
        this.setActive(frame);
        if (!frame.element.contains(document.activeElement) || this.isOnFrame(frame)) {
            const last = this.m_renderer.control(this.m_lastFocus.get(frame) ?? 0);
            const control = (last && firstControl(last)) ?? firstControl(frame.body);
            (control ?? frame.element).focus({ preventScroll: true });
        }
    }

    focusWithin(frame: WindowFrame, id: number): void {
        this.m_lastFocus.set(frame, id);
        if (frame === this.m_active || this.m_active === undefined) {
            const control = this.m_renderer.control(id);
            (control && firstControl(control))?.focus();
        }
    }

    /** The person went into the window, by pointer or keyboard. */
    entered(frame: WindowFrame, id: number | undefined): void {
        if (this.m_isReopening) {
            return;
        }
        if (id !== undefined) {
            this.m_lastFocus.set(frame, id);
        }
        this.setActive(frame);
        this.raise(frame);
    }

    private isShutOff(frame: WindowFrame): boolean {
        const modal = this.topModal;
        return modal !== undefined && modal !== frame;
    }

    /** A dialog that opens takes the focus itself, which is not yet where one can work. */
    private isOnFrame(frame: WindowFrame): boolean {
        return !frame.body.contains(document.activeElement);
    }

    private setActive(frame: WindowFrame | undefined): void {
        if (frame !== this.m_active) {
            this.m_active?.element.classList.remove('active');
            frame?.element.classList.add('active');
            this.m_active = frame;
            this.m_activeChanged();
        }
    }

    private activateNextOf(gone: WindowFrame): void {
        if (this.m_active === gone) {
            this.setActive(undefined);
            const next = this.m_order.findLast((frame) => frame.element.open && frame !== gone);
            if (next !== undefined) {
                this.activate(next);
            }
        }
    }

    private showOrder(): void {
        this.m_order.forEach((frame, index) => (frame.element.style.zIndex = String(index + 1)));
    }
}
