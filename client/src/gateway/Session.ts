import { asCount, asText, isObject } from '../protocol/guards.ts';
import { decodeFrame, encodeFrame, type FrameRecord } from './frame.ts';

/** What the page keeps over a reload to go on with the same session. */
export interface StoredSession {
    readonly received: number;
    readonly attempts?: number;
    readonly firstPending: number;
    readonly pending: readonly FrameRecord[];
}

/** Frames stay well below what the gateway accepts (1 MiB), even when all text is three-byte. */
const FRAME_CHARACTERS = 250_000;

/** More than a page makes between two times that it is kept; it may come back from the first. */
const ATTEMPTS_UNKNOWN = 1_000_000;

/**
 * The numbers of one session: records up are kept until the gateway acknowledges them, records
 * down are handled once and in order. It knows no socket: a connection takes the frames that
 * `takeFrames` hands out and brings what came to `receive`.
 */
export class Session {
    /** How many connections were begun, so that the gateway knows a late one from the last. */
    attempts = 0;
    #pending: FrameRecord[] = [];
    #firstPending = 1;
    #nextToSend = 1;
    #received = 0;
    #acknowledged = 0;
    #pendingCharacters = 0;
    #known = 0;

    static restore(stored: unknown): Session | undefined {
        if (!isObject(stored) || !Array.isArray(stored['pending'])) {
            return undefined;
        }
        const received = asCount(stored['received']);
        const firstPending = asCount(stored['firstPending']);
        const pending = (stored['pending'] as unknown[]).map(asRecord);
        if (received === undefined || firstPending === undefined || firstPending < 1) {
            return undefined;
        }
        if (!pending.every((record) => record !== undefined)) {
            return undefined;
        }
        const session = new Session();
        session.attempts = (asCount(stored['attempts']) ?? 0) + ATTEMPTS_UNKNOWN;
        session.#received = received;
        session.#firstPending = firstPending;
        pending.forEach((record) => session.push(record.channel, record.text));
        return session;
    }

    store(): StoredSession {
        return {
            received: this.#received,
            attempts: this.attempts,
            firstPending: this.#firstPending,
            pending: this.#pending,
        };
    }

    /** What the gateway has not acknowledged. */
    get pending(): readonly FrameRecord[] {
        return this.#pending;
    }

    /** The number of the last record that the gateway has acknowledged. */
    get confirmed(): number {
        return this.#firstPending - 1;
    }

    /** Forgets what is not acknowledged; the session is of no use then. */
    takePending(): readonly FrameRecord[] {
        this.#pendingCharacters = 0;
        return this.#pending.splice(0);
    }

    get received(): number {
        return this.#received;
    }

    /** Up to which record the program knew the page's when it said what came last. */
    get known(): number {
        return this.#known;
    }

    get pendingCharacters(): number {
        return this.#pendingCharacters;
    }

    /** How many records came since the last acknowledgement left. */
    get unacknowledged(): number {
        return this.#received - this.#acknowledged;
    }

    /** The number of the first record that was sent and not acknowledged; undefined: none was. */
    get firstAwaited(): number | undefined {
        return this.#nextToSend > this.#firstPending ? this.#firstPending : undefined;
    }

    /** Answers the number of the record. */
    push(channel: string, text: string): number {
        this.#pending.push({ channel, text });
        this.#pendingCharacters += text.length;
        return this.#firstPending + this.#pending.length - 1;
    }

    /**
     * A new connection takes the session over, whose other end has everything up to `handled`.
     * False when the two ends do not fit together: the session is of no use any more.
     */
    resume(handled: number): boolean {
        if (!this.#drop(handled)) {
            return false;
        }
        this.#nextToSend = this.#firstPending;
        return true;
    }

    /** Everything not yet sent on this connection, and the acknowledgement that is due. */
    takeFrames(): string[] {
        const frames: string[] = [];
        while (this.#nextToSend < this.#firstPending + this.#pending.length) {
            frames.push(this.#frameOf(this.#takeRecords()));
        }
        if (frames.length === 0 && this.unacknowledged > 0) {
            frames.push(this.#frameOf([]));
        }
        return frames;
    }

    /** A frame that says nothing; whoever gets it answers. */
    question(): string {
        return this.#frameOf([]);
    }

    /**
     * The records of a frame that are new, counted as received; 'gap' when something before it went
     * missing. Undefined for a frame that cannot belong to this session: no frame, an
     * acknowledgement of what was never sent.
     */
    receive(text: string): readonly FrameRecord[] | 'gap' | undefined {
        const frame = decodeFrame(text);
        if (frame !== undefined && frame.sequence > this.#received + 1) {
            return 'gap';
        }
        if (
            frame === undefined ||
            frame.acknowledged >= this.#nextToSend ||
            !this.#drop(Math.max(frame.acknowledged, this.#firstPending - 1))
        ) {
            return undefined;
        }
        const old = this.#received + 1 - frame.sequence;
        const fresh = old === 0 ? frame.records : frame.records.slice(old);
        this.#received += fresh.length;
        this.#known = frame.acknowledged;
        return fresh;
    }

    #drop(handled: number): boolean {
        const count = handled - this.#firstPending + 1;
        if (count === 0) {
            return true;
        }
        if (count < 0 || count > this.#pending.length) {
            return false;
        }
        for (const record of this.#pending.splice(0, count)) {
            this.#pendingCharacters -= record.text.length;
        }
        this.#firstPending += count;
        return true;
    }

    #takeRecords(): FrameRecord[] {
        const start = this.#nextToSend - this.#firstPending;
        let end = start;
        let characters = 0;
        do {
            characters += this.#pending[end]?.text.length ?? 0;
            end += 1;
        } while (
            end < this.#pending.length &&
            characters + (this.#pending[end]?.text.length ?? 0) <= FRAME_CHARACTERS
        );
        return this.#pending.slice(start, end);
    }

    #frameOf(records: FrameRecord[]): string {
        const sequence = this.#nextToSend;
        this.#nextToSend += records.length;
        this.#acknowledged = this.#received;
        return encodeFrame({ sequence, acknowledged: this.#received, records });
    }
}

function asRecord(value: unknown): FrameRecord | undefined {
    const channel = isObject(value) ? asText(value['channel']) : undefined;
    const text = isObject(value) ? asText(value['text']) : undefined;
    return channel !== undefined && text !== undefined ? { channel, text } : undefined;
}
