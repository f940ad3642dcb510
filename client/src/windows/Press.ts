import type { Clock } from '../gateway/transport.ts';

/** A browser's own list swallows the end of the press; a window that is moved is not pressed. */
const PRESSED = '.body, .tool, .messagebox, .taskbar';
const NOT_PRESSED = 'select';
/** The click follows at once, after a finger's touch a moment later. */
const CLICK_COMES_WITHIN = 60;
/** Whoever holds on for so long drags or selects, and wants to see what goes on meanwhile. */
const LONGEST = 3000;

/** Whether a user presses something at this moment that is to be there until it is a click. */
export class Press {
    readonly #clock: Clock;
    #waiting: (() => void)[] = [];
    #isDown = false;
    #cancelEnd: (() => void) | undefined;

    constructor(root: HTMLElement, clock: Clock) {
        this.#clock = clock;
        root.addEventListener('pointerdown', (event) => this.#begin(event), { capture: true });
        const endWithin = (time: number) => (): void => this.#endWithin(time);
        const options = { capture: true };
        document.addEventListener('pointerup', endWithin(CLICK_COMES_WITHIN), options);
        document.addEventListener('click', endWithin(0), options);
        document.addEventListener('pointercancel', endWithin(0), options);
        addEventListener('blur', endWithin(0));
    }

    get isDown(): boolean {
        return this.#isDown;
    }

    /** Calls it when nothing is pressed any more: at once if nothing is. */
    whenUp(call: () => void): void {
        if (this.#isDown) {
            this.#waiting.push(call);
        } else {
            call();
        }
    }

    #begin({ target, isPrimary }: PointerEvent): void {
        const isPressed =
            isPrimary &&
            target instanceof Element &&
            target.closest(PRESSED) !== null &&
            !target.matches(NOT_PRESSED);
        if (isPressed) {
            this.#isDown = true;
            this.#endWithin(LONGEST);
        }
    }

    #endWithin(time: number): void {
        this.#cancelEnd?.();
        if (this.#isDown) {
            this.#cancelEnd = this.#clock.after(time, () => this.#end());
        }
    }

    #end(): void {
        this.#isDown = false;
        this.#cancelEnd = undefined;
        const waiting = this.#waiting;
        this.#waiting = [];
        waiting.forEach((call) => call());
    }
}
