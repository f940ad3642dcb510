import type { Clock } from '../gateway/transport.ts';
import { placeChange, type WindowPlace } from '../protocol/events.ts';
import type { WindowFrame } from './WindowFrame.ts';

const INTERVAL = 100;

/** Tells the program where its windows are: what changed, and not too often while they move. */
export class PlaceReporter {
    private readonly m_clock: Clock;
    private readonly m_send: (window: WindowFrame, message: string) => void;
    private readonly m_told = new Map<number, WindowPlace>();
    private readonly m_waiting = new Map<number, () => void>();

    constructor(clock: Clock, send: (window: WindowFrame, message: string) => void) {
        this.m_clock = clock;
        this.m_send = send;
    }

    /** At once, or within the interval while a gesture goes on. */
    changed(window: WindowFrame, last: boolean): void {
        const { id } = window.object;
        if (last) {
            this.m_waiting.get(id)?.();
            this.m_waiting.delete(id);
            this.tell(window);
        } else if (!this.m_waiting.has(id)) {
            const cancel = this.m_clock.after(INTERVAL, () => this.changed(window, true));
            this.m_waiting.set(id, cancel);
        }
    }

    /** The program has set the place itself and knows it only in its own form: tell all again. */
    forget(id: number): void {
        this.m_waiting.get(id)?.();
        this.m_waiting.delete(id);
        this.m_told.delete(id);
    }

    private tell(window: WindowFrame): void {
        const before = this.m_told.get(window.object.id);
        const measured = window.element.open ? window.report() : before;
        if (measured === undefined || !window.measured) {
            return;
        }
        const now = { ...measured, minimized: window.mode === 'minimized' };
        const message = placeChange(window.object.id, now, before);
        this.m_told.set(window.object.id, now);
        if (message !== undefined) {
            this.m_send(window, message);
        }
    }
}
