import { CloseCode, Greeted, Query, SESSION_OVER } from '../protocol/names.ts';
import { channelName, ChannelReader, type Channel } from './channel.ts';
import { decodeGreeting } from './control.ts';
import type { FrameRecord } from './frame.ts';
import { Retry } from './Retry.ts';
import { Session } from './Session.ts';
import type { LinkSetup, LinkStatus } from './LinkListener.ts';
import type { Socket } from './transport.ts';
import { Watch } from './Watch.ts';

const ACKNOWLEDGE_AFTER = 150;
/** So many records are acknowledged at once: the gateway's buffer is bounded. */
const ACKNOWLEDGE_COUNT = 2000;
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
    private readonly m_setup: LinkSetup;
    private readonly m_watch: Watch;
    private readonly m_retry: Retry;
    private m_clientId: string;
    private m_session = new Session();
    /** The gateway has greeted this session once, so it can be resumed. */
    private m_established = false;
    /** The session is given up; another one begins under this name once there is a gateway. */
    private m_nextId: string | undefined;
    private m_socket: Socket | undefined;
    private m_greeted = false;
    private m_gaveUp = false;
    /** The person wants another session. */
    private m_isLeft = false;
    private m_losses = 0;
    private m_flushQueued = false;
    private m_cancelAcknowledge: (() => void) | undefined;
    private readonly m_channels = new ChannelReader();

    constructor(setup: LinkSetup) {
        this.m_setup = setup;
        this.m_clientId = setup.makeClientId();
        this.m_watch = new Watch(setup.clock, {
            awaited: () => (this.m_greeted ? this.m_session.firstAwaited : GREETING),
            charactersAway: () => (this.m_greeted ? this.m_session.pendingCharacters : 0),
            ask: () => this.sendFrames(() => [this.m_session.question()]),
            slow: (slow) => this.m_greeted && setup.listener.status(slow ? 'slow' : 'open', ''),
            hangs: () => this.tryAgain('silent', ''),
        });
        this.m_retry = new Retry({
            clock: setup.clock,
            askWhy: setup.askWhy,
            query: () => this.query(),
            open: () => this.open(),
            told: (status, reason) => {
                if (!this.m_greeted && !this.m_gaveUp) {
                    setup.listener.status(status, reason);
                }
            },
        });
    }

    get clientId(): string {
        return this.m_clientId;
    }

    get session(): Session {
        return this.m_session;
    }

    /** Whether what the page shows belongs to a session that a reload can take up again. */
    get resumable(): boolean {
        return this.m_established && !this.m_gaveUp;
    }

    start(): void {
        this.m_setup.listener.status('connecting', '');
        this.open();
    }

    /** Goes on with a session that an earlier life of this page has kept. */
    resume(clientId: string, session: Session): void {
        this.m_clientId = clientId;
        this.m_session = session;
        this.m_established = true;
        this.start();
    }

    /** Leaves the session, if any, and begins a new one. */
    startAfresh(): void {
        this.m_nextId = this.m_setup.makeClientId();
        this.m_gaveUp = false;
        this.m_isLeft = true;
        this.m_losses = 0;
        this.m_retry.reset();
        this.open();
    }

    /** What nobody has confirmed of a session that is given up; it is not handed out again. */
    takeUnconfirmed(): readonly FrameRecord[] {
        return this.m_session.takePending();
    }

    /**
     * Something has changed about the network or the page. Do not wait longer for a connection, not
     * even for an attempt that was begun before; and see whether the one that is there is alive.
     */
    retryNow(): void {
        if (this.m_retry.isWaiting || (this.m_socket && !this.m_greeted)) {
            this.open();
        } else if (this.m_greeted) {
            this.m_watch.doubt();
        }
    }

    /** Answers the number of the record. */
    send(channel: Channel, text: string): number {
        const record = this.m_session.push(channelName(channel), text);
        if (!this.m_flushQueued) {
            this.m_flushQueued = true;
            queueMicrotask(() => this.flush());
        }
        return record;
    }

    private open(): void {
        this.dropConnection();
        this.m_session.attempts += 1;
        const query = this.query();
        const current = (): boolean => this.m_socket === socket;
        const socket = this.m_setup.connect(query, {
            message: (text) => current() && this.message(text),
            closed: (code, reason) => current() && this.closed(code, reason),
        });
        this.m_socket = socket;
        this.m_watch.begin();
    }

    private query(): URLSearchParams {
        const query = new URLSearchParams({ [Query.client]: this.m_nextId ?? this.m_clientId });
        if (this.m_established && this.m_nextId === undefined) {
            query.set(Query.received, String(this.m_session.received));
        }
        query.set(Query.attempt, String(this.m_session.attempts));
        return query;
    }

    private dropConnection(): void {
        this.m_watch.end();
        this.m_retry.cancel();
        this.m_cancelAcknowledge?.();
        this.m_cancelAcknowledge = undefined;
        this.m_greeted = false;
        const socket = this.m_socket;
        this.m_socket = undefined;
        socket?.close();
    }

    private message(text: string): void {
        if (this.m_greeted) {
            this.frame(text);
        } else {
            this.greeting(text);
        }
    }

    private greeting(text: string): void {
        const greeting = decodeGreeting(text);
        if (greeting?.session === Greeted.fresh) {
            this.replaceSession();
        } else if (greeting?.session !== Greeted.resumed || !this.m_session.resume(greeting.received)) {
            this.sessionLost();
            return;
        }
        this.m_greeted = true;
        this.m_established = true;
        if (greeting.session === Greeted.fresh) {
            this.m_setup.listener.began(this.m_clientId);
        }
        this.m_setup.listener.status('open', '');
        this.m_watch.greeted();
        this.flush();
    }

    /** What was done between two sessions belongs to the first one. */
    private replaceSession(): void {
        const before = this.m_session;
        this.m_session = new Session();
        this.m_session.attempts = before.attempts;
        this.m_clientId = this.m_nextId ?? this.m_clientId;
        this.m_nextId = undefined;
        if (this.m_established || before.pendingCount > 0) {
            this.m_setup.listener.over(before.pending, !this.m_isLeft);
        }
        this.m_isLeft = false;
    }

    private frame(text: string): void {
        const { confirmed } = this.m_session;
        const records = this.m_session.receive(text);
        if (records === undefined) {
            this.sessionLost();
            return;
        }
        this.m_watch.heard(records.length === 0 && this.m_session.confirmed === confirmed);
        this.m_retry.reset();
        this.m_losses = 0;
        this.deliver(records);
        this.m_setup.listener.settled();
        this.acknowledgeSoon();
    }

    private deliver(records: readonly FrameRecord[]): void {
        for (const record of records) {
            const channel = this.m_channels.read(record.channel);
            if (channel !== undefined) {
                this.m_setup.listener.received(channel, record.text);
            }
        }
    }

    /**
     * The timer is left running when something sent has acknowledged meanwhile: a timer made and
     * cancelled for every click costs as much as the click. It may acknowledge a little early.
     */
    private acknowledgeSoon(): void {
        if (this.m_session.unacknowledged >= ACKNOWLEDGE_COUNT) {
            this.flush();
        } else if (this.m_session.unacknowledged > 0 && this.m_cancelAcknowledge === undefined) {
            const { clock } = this.m_setup;
            this.m_cancelAcknowledge = clock.after(ACKNOWLEDGE_AFTER, () => {
                this.m_cancelAcknowledge = undefined;
                this.flush();
            });
        }
    }

    private sendFrames(take: () => readonly string[]): void {
        this.m_setup.listener.aboutToSend?.();
        take().forEach((frame) => this.m_socket?.send(frame));
    }

    private flush(): void {
        this.m_flushQueued = false;
        if (!this.m_greeted) {
            return;
        }
        this.sendFrames(() => this.m_session.takeFrames());
        this.m_watch.sent();
    }

    private closed(code: number, reason: string): void {
        const isRefused = code === CloseCode.abnormal && !this.m_greeted;
        this.dropConnection();
        const gaveUp = GAVE_UP.get(code);
        if (gaveUp !== undefined) {
            this.m_gaveUp = true;
            this.m_setup.listener.status(gaveUp, reason);
        } else if (SESSION_OVER.has(code)) {
            this.sessionLost();
        } else if (isRefused) {
            this.m_retry.later();
            void this.m_retry.findOutWhy();
        } else {
            this.tryAgain(code === CloseCode.programEnded ? 'ended' : 'lost', reason);
        }
    }

    private tryAgain(status: LinkStatus, reason: string): void {
        this.dropConnection();
        this.m_setup.listener.status(status, reason);
        this.m_retry.later();
    }

    /** The first time at once; a gateway that goes on refusing is not asked in a tight loop. */
    private sessionLost(): void {
        this.dropConnection();
        this.m_nextId = this.m_setup.makeClientId();
        this.m_losses += 1;
        if (this.m_losses === 1) {
            this.open();
        } else {
            this.tryAgain('lost', '');
        }
    }
}
