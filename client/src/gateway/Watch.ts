import type { Clock } from './transport.ts';

/** So long after an action the person hears that there is no answer yet. */
const SLOW = 2_000;
/** So long after an action the connection is given up; the person knows within five seconds. */
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
export interface Watched {
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
    private readonly m_clock: Clock;
    private readonly m_watched: Watched;
    private m_awaited: number | undefined;
    private m_since = 0;
    private m_heardAt = 0;
    private m_askedAt: number | undefined;
    private m_mustAnswerBy = 0;
    /** Old gateways answer no question: their silence means nothing. */
    private m_isAnswered = false;
    private m_isAnsweredHere = false;
    private m_isSlow = false;
    private m_fruitless = 0;
    private m_cancelAction: (() => void) | undefined;
    private m_cancelSilence: (() => void) | undefined;

    constructor(clock: Clock, watched: Watched) {
        this.m_clock = clock;
        this.m_watched = watched;
    }

    /** A connection is being opened: its greeting is awaited. */
    begin(): void {
        this.m_isAnsweredHere = false;
        this.m_heardAt = this.m_clock.now();
        this.m_fruitless += 1;
        this.sent();
    }

    /** The greeting has come. Whether questions are answered is found out at once. */
    greeted(): void {
        this.heardSomething();
        this.ask();
        this.lookLater();
    }

    /** A frame has come, which says something or is nothing but an answer. */
    heard(isAnswer: boolean): void {
        this.m_fruitless = 0;
        if (isAnswer && this.m_askedAt !== undefined) {
            this.m_isAnswered = true;
            this.m_isAnsweredHere = true;
        }
        this.heardSomething();
    }

    /** Something was sent that asks for an answer. */
    sent(): void {
        if (this.m_awaited === undefined) {
            this.m_awaited = this.m_watched.awaited();
            this.m_since = this.m_clock.now();
        }
        if (this.m_awaited !== undefined && this.m_cancelAction === undefined) {
            this.m_cancelAction = this.after(SLOW, (late) => this.lookAtAction(late));
        }
    }

    /** There is a reason to doubt: an answer is wanted as soon as after an action. */
    doubt(): void {
        const by = this.m_clock.now() + PATIENCE;
        if (this.m_isAnswered && (this.m_askedAt === undefined || by < this.m_mustAnswerBy)) {
            this.ask();
            this.m_mustAnswerBy = by;
            this.m_cancelSilence?.();
            this.m_cancelSilence = this.after(PATIENCE, (late) => this.lookAtSilence(late));
        }
    }

    end(): void {
        this.m_cancelAction?.();
        this.m_cancelAction = undefined;
        this.m_cancelSilence?.();
        this.m_cancelSilence = undefined;
        this.m_awaited = undefined;
        this.m_askedAt = undefined;
        this.m_isSlow = false;
    }

    private heardSomething(): void {
        this.m_heardAt = this.m_clock.now();
        this.m_askedAt = undefined;
        const awaited = this.m_watched.awaited();
        if (awaited !== this.m_awaited) {
            this.m_awaited = awaited;
            this.m_since = this.m_heardAt;
            this.setSlow(false);
        }
    }

    private setSlow(slow: boolean): void {
        if (slow !== this.m_isSlow) {
            this.m_isSlow = slow;
            this.m_watched.slow(slow);
        }
    }

    private ask(): void {
        const now = this.m_clock.now();
        this.m_askedAt ??= now;
        this.m_mustAnswerBy = Math.max(this.m_heardAt + SILENCE, now + PATIENCE);
        this.m_watched.ask();
    }

    private get patience(): number {
        const factor = Math.min(MOST_PATIENCE, 2 ** Math.max(0, this.m_fruitless - 1));
        const away = this.m_watched.charactersAway() / CHARACTERS_PER_MILLISECOND;
        return PATIENCE * factor + away;
    }

    private lookAtAction(late: boolean): void {
        this.m_cancelAction = undefined;
        if (this.m_awaited === undefined) {
            return;
        }
        const waited = this.m_clock.now() - this.m_since;
        if (waited >= this.patience && !late) {
            this.m_watched.hangs();
            return;
        }
        this.setSlow(waited >= SLOW);
        const rest = this.m_isSlow ? this.patience - waited : SLOW - waited;
        const next = late ? WAKING : rest;
        this.m_cancelAction = this.after(next, (again) => this.lookAtAction(again && !late));
    }

    private lookLater(): void {
        this.m_cancelSilence ??= this.after(QUIET, (late) => this.lookAtSilence(late));
    }

    private lookAtSilence(late: boolean): void {
        this.m_cancelSilence = undefined;
        const now = this.m_clock.now();
        if (this.m_askedAt === undefined ? now - this.m_heardAt >= QUIET : !this.m_isAnswered) {
            this.ask();
        } else if (this.m_askedAt !== undefined && now >= this.m_mustAnswerBy && !late) {
            this.m_isAnswered = this.m_isAnsweredHere;
            this.m_watched.hangs();
            return;
        }
        const due = this.m_askedAt === undefined ? this.m_heardAt + QUIET : this.m_mustAnswerBy;
        const wait = late ? WAKING : this.m_isAnswered ? due - now : QUIET;
        this.m_cancelSilence = this.after(wait, (again) => this.lookAtSilence(again && !late));
    }

    /** Calls later, and says whether that was much later than asked for. */
    private after(milliseconds: number, call: (late: boolean) => void): () => void {
        const wait = Math.max(1, Math.ceil(milliseconds));
        const due = this.m_clock.now() + wait;
        return this.m_clock.after(wait, () => call(this.m_clock.now() - due > ASLEEP));
    }
}
