import { CloseCode, Greeted, Query, SESSION_OVER } from '../protocol/names.ts';
import { type Channel, ChannelReader, channelName } from './channel.ts';
import { decodeGreeting } from './control.ts';
import type { FrameRecord } from './frame.ts';
import type { LinkSetup, LinkStatus } from './LinkListener.ts';
import { Retry } from './Retry.ts';
import { Session } from './Session.ts';
import type { Socket } from './transport.ts';
import { Watch } from './Watch.ts';

const ACKNOWLEDGE_AFTER = 150;
/** So many records are acknowledged at once: the gateway's buffer is bounded. */
const ACKNOWLEDGE_COUNT = 2000;
/** So often in a row something may go missing before the session is given up. */
const MOST_GAPS = 5;
/** What `awaited` answers until the gateway has said what becomes of the session. */
const GREETING = 0;
const GAVE_UP = new Map<number, LinkStatus>([
    [CloseCode.duplicated, 'duplicated'],
    [CloseCode.takenOver, 'takenOver'],
    [CloseCode.refused, 'refused'],
]);

/**
 * Keeps one session alive over as many connections as it takes. What is sent while there is no
 * connection waits; what cannot be resumed is begun afresh under a new identifier.
 */
export class Link {
    readonly #setup: LinkSetup;
    readonly #watch: Watch;
    readonly #retry: Retry;
    #clientId: string;
    #session = new Session();
    /** The gateway has greeted this session once, so it can be resumed. */
    #established = false;
    /** The session is given up; another one begins under this name once there is a gateway. */
    #nextId: string | undefined;
    #socket: Socket | undefined;
    #greeted = false;
    #gaveUp = false;
    /** The user wants another session. */
    #isLeft = false;
    #losses = 0;
    #gaps = 0;
    #flushQueued = false;
    #cancelAcknowledge: (() => void) | undefined;
    readonly #channels = new ChannelReader();

    constructor(setup: LinkSetup) {
        this.#setup = setup;
        this.#clientId = setup.makeClientId();
        this.#watch = new Watch(setup.clock, {
            awaited: () => (this.#greeted ? this.#session.firstAwaited : GREETING),
            charactersAway: () => (this.#greeted ? this.#session.pendingCharacters : 0),
            ask: () => this.#sendFrames(() => [this.#session.question()]),
            slow: (slow) => this.#greeted && setup.listener.status(slow ? 'slow' : 'open', ''),
            hangs: () => this.#tryAgain('silent', ''),
        });
        this.#retry = new Retry({
            clock: setup.clock,
            askWhy: setup.askWhy,
            query: () => this.#query(),
            open: () => this.#open(),
            told: (status, reason) => {
                if (!this.#greeted && !this.#gaveUp) {
                    setup.listener.status(status, reason);
                }
            },
        });
    }

    get clientId(): string {
        return this.#clientId;
    }

    get session(): Session {
        return this.#session;
    }

    /** Whether what the page shows belongs to a session that a reload can take up again. */
    get resumable(): boolean {
        return this.#established && !this.#gaveUp;
    }

    start(): void {
        // First of all: what shows the status lays the page out, and the socket takes a while.
        this.#open();
        this.#setup.listener.status('connecting', '');
    }

    /** Goes on with a session that an earlier life of this page has kept. */
    resume(clientId: string, session: Session): void {
        this.#clientId = clientId;
        this.#session = session;
        this.#established = true;
        this.start();
    }

    /** Leaves the session, if any, and begins a new one. */
    startAfresh(): void {
        this.#nextId = this.#setup.makeClientId();
        this.#gaveUp = false;
        this.#isLeft = true;
        this.#losses = 0;
        this.#retry.reset();
        this.#open();
    }

    /**
     * Something has changed about the network or the page. Do not wait longer for a connection, not
     * even for an attempt that was begun before; and see whether the one that is there is alive.
     */
    retryNow(): void {
        if (this.#retry.isWaiting || (this.#socket && !this.#greeted)) {
            this.#open();
        } else if (this.#greeted) {
            this.#watch.doubt();
        }
    }

    /** Answers the number of the record. */
    send(channel: Channel, text: string): number {
        const record = this.#session.push(channelName(channel), text);
        if (!this.#flushQueued) {
            this.#flushQueued = true;
            queueMicrotask(() => this.#flush());
        }
        return record;
    }

    #open(): void {
        this.#dropConnection();
        this.#session.attempts += 1;
        const query = this.#query();
        const current = (): boolean => this.#socket === socket;
        const socket = this.#setup.connect(query, {
            message: (text) => current() && this.#message(text),
            closed: (code, reason) => current() && this.#closed(code, reason),
        });
        this.#socket = socket;
        this.#watch.begin();
    }

    #query(): URLSearchParams {
        const query = new URLSearchParams({ [Query.client]: this.#nextId ?? this.#clientId });
        if (this.#established && this.#nextId === undefined) {
            query.set(Query.received, String(this.#session.received));
        } else {
            query.set(Query.ready, '1');
        }
        query.set(Query.attempt, String(this.#session.attempts));
        return query;
    }

    #dropConnection(): void {
        this.#watch.end();
        this.#retry.cancel();
        this.#cancelAcknowledge?.();
        this.#cancelAcknowledge = undefined;
        this.#greeted = false;
        const socket = this.#socket;
        this.#socket = undefined;
        socket?.close();
    }

    #message(text: string): void {
        if (this.#greeted) {
            this.#frame(text);
        } else {
            this.#greeting(text);
        }
    }

    #greeting(text: string): void {
        const greeting = decodeGreeting(text);
        if (greeting?.session === Greeted.fresh) {
            this.#replaceSession();
        } else if (
            greeting?.session !== Greeted.resumed ||
            !this.#session.resume(greeting.received)
        ) {
            this.#sessionLost();
            return;
        }
        this.#greeted = true;
        this.#established = true;
        if (greeting.session === Greeted.fresh) {
            this.#setup.listener.began(this.#clientId);
        }
        this.#setup.listener.status('open', '');
        this.#watch.greeted();
        this.#flush();
    }

    /** What was done between two sessions belongs to the first one. */
    #replaceSession(): void {
        const before = this.#session;
        this.#session = new Session();
        this.#session.attempts = before.attempts;
        this.#clientId = this.#nextId ?? this.#clientId;
        this.#nextId = undefined;
        if (this.#established || before.pending.length > 0) {
            this.#setup.listener.over(before.pending, !this.#isLeft);
        }
        this.#isLeft = false;
    }

    #frame(text: string): void {
        const { confirmed } = this.#session;
        const records = this.#session.receive(text);
        if (records === undefined) {
            this.#sessionLost();
            return;
        }
        if (records === 'gap') {
            this.#askAgain();
            return;
        }
        this.#watch.heard(records.length === 0 && this.#session.confirmed === confirmed);
        this.#retry.reset();
        this.#losses = 0;
        this.#gaps = 0;
        this.#deliver(records);
        this.#setup.listener.settled();
        this.#acknowledgeSoon();
    }

    #deliver(records: readonly FrameRecord[]): void {
        for (const record of records) {
            const channel = this.#channels.read(record.channel);
            if (channel !== undefined) {
                this.#setup.listener.received(channel, record.text);
            }
        }
    }

    /**
     * The timer is left running when something sent has acknowledged meanwhile: a timer made and
     * cancelled for every click costs as much as the click. It may acknowledge a little early.
     */
    #acknowledgeSoon(): void {
        if (this.#session.unacknowledged >= ACKNOWLEDGE_COUNT) {
            this.#flush();
        } else if (this.#session.unacknowledged > 0 && this.#cancelAcknowledge === undefined) {
            const { clock } = this.#setup;
            this.#cancelAcknowledge = clock.after(ACKNOWLEDGE_AFTER, () => {
                this.#cancelAcknowledge = undefined;
                this.#flush();
            });
        }
    }

    #sendFrames(take: () => readonly string[]): void {
        this.#setup.listener.aboutToSend?.();
        take().forEach((frame) => this.#socket?.send(frame));
    }

    #flush(): void {
        this.#flushQueued = false;
        if (!this.#greeted) {
            return;
        }
        this.#sendFrames(() => this.#session.takeFrames());
        this.#watch.sent();
    }

    #closed(code: number, reason: string): void {
        const isRefused = code === CloseCode.abnormal && !this.#greeted;
        this.#dropConnection();
        const gaveUp = GAVE_UP.get(code);
        if (gaveUp !== undefined) {
            this.#gaveUp = true;
            this.#setup.listener.status(gaveUp, reason);
        } else if (SESSION_OVER.has(code)) {
            this.#sessionLost();
        } else if (code === CloseCode.frameMissing) {
            this.#askAgain();
        } else if (isRefused) {
            this.#retry.later();
            void this.#retry.findOutWhy();
        } else {
            this.#tryAgain(code === CloseCode.programEnded ? 'ended' : 'lost', reason);
        }
    }

    #tryAgain(status: LinkStatus, reason: string): void {
        this.#dropConnection();
        this.#setup.listener.status(status, reason);
        this.#retry.later();
    }

    /** What went missing on the way comes again with the next connection, unless it never does. */
    #askAgain(): void {
        this.#gaps += 1;
        if (this.#gaps > MOST_GAPS) {
            this.#sessionLost();
        } else {
            this.#dropConnection();
            this.#retry.later();
        }
    }

    /** The first time at once; a gateway that goes on refusing is not asked in a tight loop. */
    #sessionLost(): void {
        this.#dropConnection();
        this.#nextId = this.#setup.makeClientId();
        this.#losses += 1;
        if (this.#losses === 1) {
            this.#open();
        } else {
            this.#tryAgain('lost', '');
        }
    }
}
