import type { Clock } from './transport.ts';

/** So long after an action the other side is told how far it should have come, if need be again. */
const TAIL = 1_000;
/** So long after an action the user hears that there is no answer yet. */
const SLOW = 2_000;
/** So long after an action the connection is given up; the user knows within five seconds. */
const PATIENCE = 4_500;
/** Long texts take their time on a slow line: for each 20 characters a millisecond. */
const CHARACTERS_PER_MILLISECOND = 20;
/** A line so thin that nothing came in time gets more of it with each connection. */
const MOST_PATIENCE = 16;
/** Silence of this length is broken by a question ... */
const QUIET = 10_000;
/** ... and of this length means that nobody is there. */
const SILENCE = 25_000;
/** A timer that is later than this tells that the page was asleep, not the other side. */
const ASLEEP = 2_000;
/** What came meanwhile is heard in this time. */
const WAKING = 1_000;

/** A connection, as its watch sees it. */
interface Watched {
    /** A number that changes with every answer; undefined when no answer is owed. */
    awaited(): number | undefined;
    /** How many characters may still be on their way up. */
    charactersAway(): number;
    /** Sends a question that is answered at once. */
    ask(): void;
    /** What was done is not answered, or now it is. */
    slow(slow: boolean): void;
    /** Nobody is there any more. */
    hangs(): void;
}

/**
 * Notices that a connection hangs: a pulled cable closes nothing, and neither does a program that
 * is stuck. One timer looks after what was sent, another after the silence; both are left running,
 * because a timer made and cancelled for every click costs as much as the click.
 */
export class Watch {
    readonly #clock: Clock;
    readonly #watched: Watched;
    #awaited: number | undefined;
    #since = 0;
    #heardAt = 0;
    #askedAt: number | undefined;
    #mustAnswerBy = 0;
    /** Old gateways answer no question: their silence means nothing. */
    #isAnswered = false;
    #isAnsweredHere = false;
    #isSlow = false;
    #fruitless = 0;
    #cancelAction: (() => void) | undefined;
    #cancelSilence: (() => void) | undefined;

    constructor(clock: Clock, watched: Watched) {
        this.#clock = clock;
        this.#watched = watched;
    }

    /** A connection is being opened: its greeting is awaited. */
    begin(): void {
        this.#isAnsweredHere = false;
        this.#heardAt = this.#clock.now();
        this.#fruitless += 1;
        this.sent();
    }

    /** The greeting has come. Whether questions are answered is found out at once. */
    greeted(): void {
        this.#heardSomething();
        this.#ask();
        this.#lookLater();
    }

    /** A frame has come, which says something or is nothing but an answer. */
    heard(isAnswer: boolean): void {
        this.#fruitless = 0;
        if (isAnswer && this.#askedAt !== undefined) {
            this.#isAnswered = true;
            this.#isAnsweredHere = true;
        }
        this.#heardSomething();
    }

    /** Something was sent that asks for an answer. */
    sent(): void {
        if (this.#awaited === undefined) {
            this.#awaited = this.#watched.awaited();
            this.#since = this.#clock.now();
        }
        if (this.#awaited !== undefined && this.#cancelAction === undefined) {
            this.#cancelAction = this.#after(TAIL, (late) => this.#lookAtAction(late));
        }
    }

    /** There is a reason to doubt: an answer is wanted as soon as after an action. */
    doubt(): void {
        const by = this.#clock.now() + PATIENCE;
        if (this.#isAnswered && (this.#askedAt === undefined || by < this.#mustAnswerBy)) {
            this.#ask();
            this.#mustAnswerBy = by;
            this.#cancelSilence?.();
            this.#cancelSilence = this.#after(PATIENCE, (late) => this.#lookAtSilence(late));
        }
    }

    end(): void {
        this.#cancelAction?.();
        this.#cancelAction = undefined;
        this.#cancelSilence?.();
        this.#cancelSilence = undefined;
        this.#awaited = undefined;
        this.#askedAt = undefined;
        this.#isSlow = false;
    }

    #heardSomething(): void {
        this.#heardAt = this.#clock.now();
        this.#askedAt = undefined;
        const awaited = this.#watched.awaited();
        if (awaited !== this.#awaited) {
            this.#awaited = awaited;
            this.#since = this.#heardAt;
            this.#setSlow(false);
        }
    }

    #setSlow(slow: boolean): void {
        if (slow !== this.#isSlow) {
            this.#isSlow = slow;
            this.#watched.slow(slow);
        }
    }

    #ask(): void {
        const now = this.#clock.now();
        this.#askedAt ??= now;
        this.#mustAnswerBy = Math.max(this.#heardAt + SILENCE, now + PATIENCE);
        this.#watched.ask();
    }

    get #patience(): number {
        const factor = Math.min(MOST_PATIENCE, 2 ** Math.max(0, this.#fruitless - 1));
        const away = this.#watched.charactersAway() / CHARACTERS_PER_MILLISECOND;
        return PATIENCE * factor + away;
    }

    #lookAtAction(late: boolean): void {
        this.#cancelAction = undefined;
        if (this.#awaited === undefined) {
            return;
        }
        const waited = this.#clock.now() - this.#since;
        if (waited >= this.#patience && !late) {
            this.#watched.hangs();
            return;
        }
        this.#setSlow(waited >= SLOW);
        const next = late ? WAKING : this.#nextLook(waited);
        if (waited >= TAIL && !this.#isSlow) {
            this.#watched.ask();
        }
        this.#cancelAction = this.#after(next, (again) => this.#lookAtAction(again && !late));
    }

    #nextLook(waited: number): number {
        if (waited < TAIL) {
            return TAIL - waited;
        }
        return this.#isSlow ? this.#patience - waited : SLOW - waited;
    }

    #lookLater(): void {
        this.#cancelSilence ??= this.#after(QUIET, (late) => this.#lookAtSilence(late));
    }

    #lookAtSilence(late: boolean): void {
        this.#cancelSilence = undefined;
        const now = this.#clock.now();
        if (this.#askedAt === undefined ? now - this.#heardAt >= QUIET : !this.#isAnswered) {
            this.#ask();
        } else if (this.#askedAt !== undefined && now >= this.#mustAnswerBy && !late) {
            this.#isAnswered = this.#isAnsweredHere;
            this.#watched.hangs();
            return;
        }
        const due = this.#askedAt === undefined ? this.#heardAt + QUIET : this.#mustAnswerBy;
        const wait = late ? WAKING : this.#isAnswered ? due - now : QUIET;
        this.#cancelSilence = this.#after(wait, (again) => this.#lookAtSilence(again && !late));
    }

    /** Calls later, and says whether that was much later than asked for. */
    #after(milliseconds: number, call: (late: boolean) => void): () => void {
        const wait = Math.max(1, Math.ceil(milliseconds));
        const due = this.#clock.now() + wait;
        return this.#clock.after(wait, () => call(this.#clock.now() - due > ASLEEP));
    }
}
