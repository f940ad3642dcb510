import { decodeFrame, encodeFrame, type FrameRecord } from '../../src/gateway/frame.ts';

/** One session: what went down, and how much came up. */
interface Ledger {
    readonly down: FrameRecord[];
    received: number;
    acknowledged: number;
}

/** The gateway's half of the protocol, whatever carries the frames. */
export class Peer {
    readonly #sessions = new Map<string, Ledger>();
    /** The last frame said nothing: it wants an answer. */
    asked = false;
    /** Up to which record the program knows the page's, if not all. */
    known: number | undefined;
    #session: Ledger = { down: [], received: 0, acknowledged: 0 };

    /** What a new connection hears first; a session that is not known any more is lost. */
    greet(query: URLSearchParams): readonly string[] {
        const id = query.get('client') ?? '';
        const received = query.get('received');
        const fresh = { down: [], received: 0, acknowledged: 0 };
        const session = received === null ? fresh : this.#sessions.get(id);
        if (session === undefined || Number(received) < session.acknowledged) {
            return ['{"session":"lost","reason":"unknown"}'];
        }
        this.#session = session;
        this.#sessions.set(id, session);
        return received === null
            ? ['{"session":"new","received":0}']
            : [
                  `{"session":"resumed","received":${session.received}}`,
                  this.#frame(Number(received)),
              ];
    }

    /** Whether the page has acknowledged everything: it can resume from nothing less then. */
    get isAcknowledged(): boolean {
        return this.#session.acknowledged === this.#session.down.length;
    }

    forgetSessions(): void {
        this.#sessions.clear();
    }

    /** The frame with these records, which are kept for a page that does not get it. */
    publish(records: readonly FrameRecord[]): string {
        return this.#frame(this.#session.down.push(...records) - records.length);
    }

    /** The records of a frame that are new, or the code to close with when it fits no session. */
    take(text: string): readonly FrameRecord[] | number {
        const { down, received } = this.#session;
        const frame = decodeFrame(text);
        if (!frame || frame.acknowledged > down.length) {
            return 4003;
        }
        if (frame.sequence > received + 1) {
            return 1012;
        }
        const fresh = frame.records.slice(received + 1 - frame.sequence);
        const isNews = frame.acknowledged > this.#session.acknowledged;
        this.asked = frame.records.length === 0 && !isNews;
        this.#session.acknowledged = frame.acknowledged;
        this.#session.received += fresh.length;
        return fresh;
    }

    #frame(from: number): string {
        const { down, received } = this.#session;
        const records = down.slice(from);
        const acknowledged = records.length > 0 ? (this.known ?? received) : received;
        return encodeFrame({ sequence: from + 1, acknowledged, records });
    }
}
