import type { Clock } from './transport.ts';

/** The gateway answers within a fraction of a second; a slow network may need a few. */
const PATIENCE = 10_000;

/**
 * Notices that a connection hangs: a pulled cable closes nothing. What is awaited is a number
 * that changes with every answer. One timer looks now and then instead of one for each record, so
 * a hanging connection is noticed after one to two times the patience.
 */
export class Watch {
    private readonly m_clock: Clock;
    private readonly m_awaited: () => number | undefined;
    private readonly m_hangs: () => void;
    private m_cancel: (() => void) | undefined;

    /** `awaited` is undefined when the connection owes no answer. */
    constructor(clock: Clock, awaited: () => number | undefined, hangs: () => void) {
        this.m_clock = clock;
        this.m_awaited = awaited;
        this.m_hangs = hangs;
    }

    /** Something was sent that asks for an answer. */
    begin(): void {
        const awaited = this.m_awaited();
        if (this.m_cancel === undefined && awaited !== undefined) {
            this.m_cancel = this.m_clock.after(PATIENCE, () => this.look(awaited));
        }
    }

    end(): void {
        this.m_cancel?.();
        this.m_cancel = undefined;
    }

    private look(before: number): void {
        this.m_cancel = undefined;
        if (this.m_awaited() === before) {
            this.m_hangs();
        } else {
            this.begin();
        }
    }
}
