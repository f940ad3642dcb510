import type { Clock } from '../gateway/transport.ts';
import { placeChange, type WindowPlace } from '../protocol/events.ts';
import type { WindowFrame } from './WindowFrame.ts';

const INTERVAL = 100;

/** Tells the program where its windows are: what changed, and not too often while they move. */
export class PlaceReporter {
    readonly #clock: Clock;
    readonly #send: (window: WindowFrame, message: string) => void;
    readonly #told = new Map<number, WindowPlace>();
    readonly #waiting = new Map<number, () => void>();

    constructor(clock: Clock, send: (window: WindowFrame, message: string) => void) {
        this.#clock = clock;
        this.#send = send;
    }

    /** At once, or within the interval while a gesture goes on. */
    changed(window: WindowFrame, last: boolean): void {
        const { id } = window.object;
        if (last) {
            this.#waiting.get(id)?.();
            this.#waiting.delete(id);
            this.#tell(window);
        } else if (!this.#waiting.has(id)) {
            const cancel = this.#clock.after(INTERVAL, () => this.changed(window, true));
            this.#waiting.set(id, cancel);
        }
    }

    /** The program has set the place itself and knows it only in its own form: tell all again. */
    forget(id: number): void {
        this.#waiting.get(id)?.();
        this.#waiting.delete(id);
        this.#told.delete(id);
    }

    #tell(window: WindowFrame): void {
        const before = this.#told.get(window.object.id);
        const measured = window.element.open ? window.report() : before;
        if (measured === undefined || !window.place.known) {
            return;
        }
        const now = { ...measured, minimized: window.mode === 'minimized' };
        const message = placeChange(window.object.id, now, before);
        this.#told.set(window.object.id, now);
        if (message !== undefined) {
            this.#send(window, message);
        }
    }
}
