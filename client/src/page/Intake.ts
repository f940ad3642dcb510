import type { Channel } from '../gateway/channel.ts';
import { nextTask } from '../widgets/nextTask.ts';
import type { Press } from '../windows/Press.ts';

/** So long, in milliseconds, the page takes over what came before it looks for something else. */
const SLICE = 5;
/** A text of more letters takes time to read, too, and what brought it has taken some already. */
const LARGE = 500_000;

/** What came on a channel, and which of the page's records the program knew then. */
export type Arrival = readonly [channel: Channel, text: string, known: number];

/**
 * Takes the program's texts over one after the other: at once, as long as that takes no time that
 * a user would feel. One that tells of ten thousand objects is taken over in slices, between which
 * the page answers and a press becomes a click; what comes after it waits behind it.
 */
export class Intake {
    readonly #press: Pick<Press, 'whenUp'>;
    readonly #take: (...arrival: Arrival) => Iterator<void>;
    readonly #caughtUp: () => void;
    #steps: Iterator<void> | undefined;
    #waiting: Arrival[] = [];

    /** `take` answers what is left to do of a text; `caughtUp` is told when nothing waits any more. */
    constructor(
        press: Pick<Press, 'whenUp'>,
        take: (...arrival: Arrival) => Iterator<void>,
        caughtUp: () => void,
    ) {
        this.#press = press;
        this.#take = take;
        this.#caughtUp = caughtUp;
    }

    /** Whether there is something that came and is not taken over yet. */
    get isBusy(): boolean {
        return this.#steps !== undefined;
    }

    receive(...arrival: Arrival): void {
        const [, text] = arrival;
        if (this.isBusy) {
            this.#waiting.push(arrival);
            return;
        }
        const steps = this.#take(...arrival);
        const isLarge = text.length >= LARGE;
        // Most are taken over in one step: to ask for the time would take as long.
        if (isLarge || !steps.next().done) {
            this.#steps = steps;
            this.#work(isLarge ? 0 : SLICE);
        }
    }

    /** Takes over all that has come, because somebody needs it now. */
    finish(): void {
        if (this.isBusy) {
            this.#work(Infinity);
            this.#caughtUp();
        }
    }

    /** What waits belongs to a session that is gone; what was begun is done. */
    drop(): void {
        this.#waiting = [];
        this.finish();
    }

    #goOn(): void {
        if (this.isBusy) {
            this.#work(SLICE);
            if (!this.isBusy) {
                this.#caughtUp();
            }
        }
    }

    #work(time: number): void {
        const end = performance.now() + time;
        try {
            while (this.#steps !== undefined && performance.now() < end) {
                if (this.#steps.next().done) {
                    const next = this.#waiting.shift();
                    this.#steps = next && this.#take(...next);
                }
            }
        } finally {
            // Also when a text could not be taken over: the others are.
            if (this.isBusy) {
                nextTask(() => this.#press.whenUp(() => this.#goOn()));
            }
        }
    }
}
