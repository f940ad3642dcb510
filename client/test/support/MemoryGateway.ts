import { decodeFrame, encodeFrame, type FrameRecord } from '../../src/gateway/frame.ts';
import type { Clock, Connect, SocketListener } from '../../src/gateway/transport.ts';

/** Time that passes when a test says so. */
export class TestClock implements Clock {
    private m_now = 0;
    private m_timers: { at: number; call: () => void }[] = [];

    now(): number {
        return this.m_now;
    }

    after(milliseconds: number, call: () => void): () => void {
        const timer = { at: this.m_now + milliseconds, call };
        this.m_timers.push(timer);
        return () => (this.m_timers = this.m_timers.filter((other) => other !== timer));
    }

    /** Runs the next timer, if there is one. */
    step(): boolean {
        const next = this.m_timers.sort((a, b) => a.at - b.at).shift();
        this.m_now = next?.at ?? this.m_now;
        next?.call();
        return next !== undefined;
    }
}

interface PeerSession {
    readonly down: FrameRecord[];
    received: number;
}

/**
 * The gateway's half of the protocol in memory. `cutAt` counts every message on the wire, in both
 * directions; with that one the connection breaks, before or after it has got through.
 */
export class MemoryGateway {
    readonly handled: string[] = [];
    readonly queries: string[] = [];
    cutAt = -1;
    cutAfter = false;
    /** The cable is pulled: nothing gets through, and nobody is told. */
    hangs = false;
    messages = 0;
    private readonly m_sessions = new Map<string, PeerSession>();
    private m_listener: SocketListener | undefined;
    private m_session: PeerSession = { down: [], received: 0 };

    readonly connect: Connect = (query, listener) => {
        this.queries.push(query.toString());
        this.m_listener = listener;
        queueMicrotask(() => this.greet(query, listener));
        return {
            send: (text) => {
                if (this.m_listener === listener) {
                    this.carry(() => this.frameUp(text));
                }
            },
            close: () => this.m_listener === listener && (this.m_listener = undefined),
        };
    };

    /** A text of the program for the page; kept until the page has acknowledged it. */
    publish(channel: string, text: string): void {
        this.m_session.down.push({ channel, text });
        this.frameDown(this.m_session.down.length - 1);
    }

    /** A frame, or what should be one, as it is. */
    raw(text: string): void {
        this.carry(() => this.m_listener?.message(text));
    }

    close(code: number): void {
        const listener = this.m_listener;
        this.m_listener = undefined;
        listener?.closed(code, '');
    }

    forgetSessions(): void {
        this.m_sessions.clear();
    }

    private greet(query: URLSearchParams, listener: SocketListener): void {
        if (this.m_listener !== listener) {
            return;
        }
        const id = query.get('client') ?? '';
        const received = query.get('received');
        const known = this.m_sessions.get(id);
        if (received === null) {
            this.m_session = { down: [], received: 0 };
            this.m_sessions.set(id, this.m_session);
            this.raw('{"session":"new","received":0}');
        } else if (known === undefined) {
            this.raw('{"session":"lost","reason":"unknown"}');
        } else {
            this.m_session = known;
            this.raw(`{"session":"resumed","received":${known.received}}`);
            this.frameDown(Number(received));
        }
    }

    private frameDown(from: number): void {
        const records = this.m_session.down.slice(from);
        if (records.length > 0) {
            const acknowledged = this.m_session.received;
            this.raw(encodeFrame({ sequence: from + 1, acknowledged, records }));
        }
    }

    private frameUp(text: string): void {
        const frame = decodeFrame(text);
        const gap = (frame?.sequence ?? Infinity) > this.m_session.received + 1;
        if (frame === undefined || gap || frame.acknowledged > this.m_session.down.length) {
            this.close(4003);
            return;
        }
        const fresh = frame.records.slice(this.m_session.received + 1 - frame.sequence);
        this.m_session.received += fresh.length;
        this.handled.push(...fresh.map((record) => record.text));
        if (fresh.length > 0) {
            queueMicrotask(() => this.acknowledge());
        }
    }

    private acknowledge(): void {
        const { down, received } = this.m_session;
        this.raw(encodeFrame({ sequence: down.length + 1, acknowledged: received, records: [] }));
    }

    private carry(deliver: () => void): void {
        const cut = this.messages === this.cutAt;
        this.messages += 1;
        if (this.m_listener !== undefined && !this.hangs && (!cut || this.cutAfter)) {
            deliver();
        }
        if (cut) {
            this.close(1006);
        }
    }
}
