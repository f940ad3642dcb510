import type { AskWhy, Clock, Connect, SocketListener } from '../../src/gateway/transport.ts';
import { Peer } from './Peer.ts';

/** Time that passes when a test says so. */
export class TestClock implements Clock {
    #now = 0;
    #timers: { at: number; call: () => void }[] = [];

    now(): number {
        return this.#now;
    }

    after(milliseconds: number, call: () => void): () => void {
        const timer = { at: this.#now + milliseconds, call };
        this.#timers.push(timer);
        return () => (this.#timers = this.#timers.filter((other) => other !== timer));
    }

    /** Runs the next timer, if there is one within so many milliseconds. */
    step(within = Infinity): boolean {
        const next = this.#timers.sort((a, b) => a.at - b.at)[0];
        if (next === undefined || next.at > this.#now + within) {
            return false;
        }
        this.#timers.shift();
        this.#now = Math.max(this.#now, next.at);
        next.call();
        return true;
    }

    /** Time passes in which no timer runs: the machine sleeps. */
    sleep(milliseconds: number): void {
        this.#now += milliseconds;
    }
}

/**
 * A gateway in memory. `cutAt` counts every message on the wire, in both directions; with that one
 * the connection breaks, before or after it has got through.
 */
export class MemoryGateway {
    readonly peer = new Peer();
    readonly handled: string[] = [];
    readonly queries: string[] = [];
    /** How the page has numbered its connections. */
    readonly attempts: number[] = [];
    cutAt = -1;
    cutAfter = false;
    /** The cable is pulled: nothing gets through, and nobody is told. */
    hangs = false;
    /** Nobody listens, and whoever tries is told so. */
    refuses = false;
    /** Why it does, as whoever asks is told. */
    why: Awaited<ReturnType<AskWhy>>;
    /** An old gateway leaves questions unanswered. */
    isOld = false;
    /** The program takes what comes and says nothing yet. */
    isLate = false;
    /** So many messages get lost on their way, and nobody is told. */
    loses = 0;
    messages = 0;
    #listener: SocketListener | undefined;

    readonly connect: Connect = (query, listener) => {
        this.attempts.push(Number(query.get('attempt')));
        query.delete('attempt');
        this.queries.push(query.toString());
        this.#listener = listener;
        const isCurrent = (): boolean => this.#listener === listener;
        queueMicrotask(() => {
            if (isCurrent() && this.refuses) {
                this.close(1006);
            } else if (isCurrent()) {
                this.peer.greet(query).forEach((text) => this.raw(text));
            }
        });
        return {
            send: (text) => isCurrent() && this.#carry(() => this.#frameUp(text)),
            close: () => {
                this.#listener = isCurrent() ? undefined : this.#listener;
            },
        };
    };

    readonly askWhy: AskWhy = () => Promise.resolve(this.why);

    /** A text of the program for the page; kept until the page has acknowledged it. */
    publish(channel: string, text: string): void {
        this.raw(this.peer.publish([{ channel, text }]));
    }

    /** A frame, or what should be one, as it is. */
    raw(text: string): void {
        this.#carry(() => this.#listener?.message(text));
    }

    close(code: number): void {
        const listener = this.#listener;
        this.#listener = undefined;
        listener?.closed(code, '');
    }

    #frameUp(text: string): void {
        const fresh = this.peer.take(text);
        if (typeof fresh === 'number') {
            this.close(fresh);
        } else if (fresh.length > 0 || (this.peer.asked && !this.isOld)) {
            this.handled.push(...fresh.map((record) => record.text));
            const answer = this.peer.publish([]);
            queueMicrotask(() => this.isLate || this.raw(answer));
        }
    }

    #carry(deliver: () => void): void {
        const cut = this.messages === this.cutAt;
        this.messages += 1;
        const isLost = this.loses > 0;
        this.loses -= isLost ? 1 : 0;
        if (this.#listener !== undefined && !this.hangs && !isLost && (!cut || this.cutAfter)) {
            deliver();
        }
        if (cut) {
            this.close(1006);
        }
    }
}
