import { afterLayout } from './afterLayout.ts';
import { nextTask } from './nextTask.ts';

/** So long, in milliseconds, the page works before it looks whether something else is to be done. */
const SLICE = 8;
/** So much is there at once, however slow the machine: a small window, the screen of a large one. */
const FIRST_STEPS = 8;

interface Work {
    readonly steps: Iterator<void>;
    readonly advanced: () => void;
}

/** Work that goes on for longer than a page may stand still, done in slices. */
export class Slices {
    readonly #works: Work[] = [];
    #isScheduled = false;
    /** What is being made may ask for what is not made yet, and does without. */
    #isWorking = false;

    /** Does its first slice at once; the rest from the next frame on, telling after each slice. */
    begin(steps: Iterator<void>, advanced: () => void): void {
        if (!this.#take(steps, 0, FIRST_STEPS)) {
            this.#works.push({ steps, advanced });
            if (!this.#isScheduled) {
                this.#isScheduled = true;
                afterLayout(() => this.#schedule());
            }
        }
    }

    /** Does all that is left, because somebody needs it now. */
    finish(): void {
        const works = this.#isWorking ? [] : this.#works.splice(0);
        works.forEach((work) => this.#advance(work, Infinity));
    }

    #schedule(): void {
        nextTask(() => this.#goOn());
    }

    #goOn(): void {
        const work = this.#works.shift();
        try {
            if (work !== undefined && !this.#advance(work, SLICE)) {
                this.#works.unshift(work);
            }
        } finally {
            // Also when the work has thrown: the others go on.
            this.#isScheduled = this.#works.length > 0;
            if (this.#isScheduled) {
                this.#schedule();
            }
        }
    }

    #advance({ steps, advanced }: Work, time: number): boolean {
        const isDone = this.#take(steps, time, 0);
        advanced();
        return isDone;
    }

    /** Whether the work is done. */
    #take(steps: Iterator<void>, time: number, least: number): boolean {
        const end = performance.now() + time;
        this.#isWorking = true;
        try {
            for (let step = 1; !steps.next().done; step += 1) {
                if (step > least && performance.now() > end) {
                    return false;
                }
            }
            return true;
        } finally {
            this.#isWorking = false;
        }
    }
}
