import type { AskWhy, Clock, Refusal } from './transport.ts';

const FIRST_WAIT = 200;
/** Somebody waits before the page: once the network is back it should not take longer than this. */
const LAST_WAIT = 2000;
/** Nothing will change soon where the page is not let in, and each attempt stands in a log. */
const REFUSED_WAIT = 15_000;
const LASTING: ReadonlySet<string> = new Set<Refusal>(['outdated', 'barred']);
/** With fewer of them it may be chance that the program answers and the socket does not. */
const FAILURES_BEFORE_DOUBT = 3;

interface RetrySetup {
    readonly clock: Clock;
    readonly askWhy: AskWhy;
    readonly query: () => URLSearchParams;
    readonly open: () => void;
    /** Why no connection comes about. */
    readonly told: (status: Refusal | 'lost', reason: string) => void;
}

/** When the next attempt to connect is made, and why the last one came to nothing. */
export class Retry {
    readonly #setup: RetrySetup;
    #failures = 0;
    #asking = false;
    #cancel: (() => void) | undefined;

    constructor(setup: RetrySetup) {
        this.#setup = setup;
    }

    get isWaiting(): boolean {
        return this.#cancel !== undefined;
    }

    later(): void {
        this.#wait(Math.min(LAST_WAIT, FIRST_WAIT * 2 ** this.#failures));
        this.#failures += 1;
    }

    cancel(): void {
        this.#cancel?.();
        this.#cancel = undefined;
    }

    /** All is well: the next failure is a first one. */
    reset(): void {
        this.#failures = 0;
    }

    /** A socket does not say why it was refused: that is asked by other means. */
    async findOutWhy(): Promise<void> {
        if (this.#asking) {
            return;
        }
        this.#asking = true;
        const answer = await this.#setup.askWhy(this.#setup.query());
        this.#asking = false;
        // Had the program come back only now, a single attempt that fails would not say much.
        const isYoung = answer?.why === 'blocked' && this.#failures < FAILURES_BEFORE_DOUBT;
        if (isYoung) {
            return;
        }
        const status = answer?.why ?? 'lost';
        this.#setup.told(status, answer?.reason ?? '');
        if (LASTING.has(status) && this.isWaiting) {
            this.#wait(REFUSED_WAIT);
        }
    }

    #wait(milliseconds: number): void {
        this.cancel();
        this.#cancel = this.#setup.clock.after(milliseconds, () => {
            this.#cancel = undefined;
            this.#setup.open();
        });
    }
}
