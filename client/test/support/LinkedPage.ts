import assert from 'node:assert/strict';
import type { Channel } from '../../src/gateway/channel.ts';
import { rootChannel, windowChannel } from '../../src/gateway/channel.ts';
import type { FrameRecord } from '../../src/gateway/frame.ts';
import { Link } from '../../src/gateway/Link.ts';
import type { LinkListener, LinkStatus } from '../../src/gateway/LinkListener.ts';
import { MemoryGateway, TestClock } from './MemoryGateway.ts';

export const ups: readonly string[] = ['up 1', 'up 2', 'up 3', 'up 4'];

function turn(): Promise<unknown> {
    return new Promise((done) => setImmediate(done));
}

/** A page without a document at a gateway in memory; its methods are the words of stories. */
export class LinkedPage implements LinkListener {
    readonly clock = new TestClock();
    readonly got: string[] = [];
    readonly statuses: LinkStatus[] = [];
    /** What nobody has confirmed of the sessions that are over. */
    readonly unconfirmed: string[][] = [];
    readonly link: Link;
    #ids = 0;
    #marked = 0;

    constructor(readonly gateway = new MemoryGateway()) {
        const makeClientId = (): string => {
            this.#ids += 1;
            return `page${this.#ids}`;
        };
        const { connect, askWhy } = gateway;
        const { clock } = this;
        this.link = new Link({ connect, askWhy, clock, listener: this, makeClientId });
    }

    over = (records: readonly FrameRecord[]): unknown =>
        this.unconfirmed.push(records.map((record) => record.text));

    began(clientId: string): void {
        this.got.length = 0;
        this.link.send(rootChannel, `ready ${clientId}`);
    }

    received = (channel: Channel, text: string): unknown =>
        this.got.push(channel.kind === 'window' ? `${channel.id}:${text}` : text);
    settled = (): unknown => this.got.push('|');
    status = (status: LinkStatus): unknown => this.statuses.push(status);

    starts = (): void => this.link.start();
    /** The text of a frame, or what should be one. */
    hears = (text: string): void => this.gateway.raw(text);
    publishes = (text: string, channel = '.'): void => this.gateway.publish(channel, text);
    closes = (code: number): void => this.gateway.close(code);
    isForgotten = (): void => this.gateway.peer.forgetSessions();
    gatewayIs = (how: Partial<MemoryGateway>): unknown => Object.assign(this.gateway, how);
    /** Runs the next timer, if there is one so soon. */
    steps = (within?: number): boolean => this.clock.step(within);
    sleeps = (milliseconds: number): void => this.clock.sleep(milliseconds);

    /** Its session begins. */
    async opens(): Promise<void> {
        this.starts();
        await this.settles();
    }

    /** Its session begins, then four texts come down and four actions go up, in turn. */
    async exchanges(): Promise<void> {
        await this.opens();
        for (const [index, text] of ups.entries()) {
            this.publishes(`down ${index + 1}`, './5');
            await this.says(text);
        }
        await this.settles();
    }

    async says(text: string, times = 1): Promise<void> {
        this.link.send(windowChannel(5), text.repeat(times));
        await turn();
    }

    async retries(): Promise<void> {
        this.link.retryNow();
        await turn();
    }

    /** The gateway takes the next connection for a new session of the same page. */
    isRenewed(): void {
        const { peer } = this.gateway;
        const greet = peer.greet.bind(peer);
        peer.greet = () => greet(new URLSearchParams({ client: 'page1' }));
    }

    /** From here on texts and time count. */
    marks(): void {
        this.got.length = 0;
        this.#marked = this.clock.now();
    }

    /** Lets promises, then timers run until only the questions of an idle page are left. */
    async settles(): Promise<void> {
        do {
            await turn();
        } while (this.clock.step(8_000));
    }

    async waits(milliseconds: number): Promise<void> {
        const end = this.clock.now() + milliseconds;
        do {
            await turn();
        } while (this.clock.step(end - this.clock.now()));
        this.clock.sleep(end - this.clock.now());
    }

    async becomes(status: LinkStatus): Promise<void> {
        const end = this.clock.now() + 100_000;
        await turn();
        while (this.statuses.at(-1) !== status) {
            assert.ok(this.clock.now() < end && this.clock.step(), `never ${status}`);
            await turn();
        }
    }

    /** Lets the clock run on until it has connected so many times more. */
    async reconnects(times = 1): Promise<void> {
        const connections = this.gateway.queries.length + times;
        while (this.gateway.queries.length < connections) {
            assert.ok(this.clock.step(), 'the page waits for nothing any more');
            await turn();
        }
    }

    /** Tries to connect for so long: with pauses of this length at the most, and not so often. */
    async tries(milliseconds: number, longest: number, most: number): Promise<void> {
        const end = this.clock.now() + milliseconds;
        const before = this.gateway.queries.length;
        while (this.clock.now() < end) {
            this.marks();
            await this.reconnects();
            this.within('passed', 0, longest);
        }
        assert.ok(this.gateway.queries.length - before < most, 'in a tight loop');
    }

    /** What stories ask for. */
    get seen(): Readonly<Record<string, unknown>> {
        const { attempts, queries, handled, messages } = this.gateway;
        return {
            ...{ got: this.got, texts: this.got.filter((text) => text !== '|') },
            ...{ statuses: this.statuses, status: this.statuses.at(-1) },
            ...{ queries, query: queries.at(-1), connections: queries.length },
            ...{ handled, messages, unconfirmed: this.unconfirmed },
            unacknowledged: this.link.session.unacknowledged,
            passed: this.clock.now() - this.#marked,
            /** Between two attempts, on average. */
            pause: this.clock.now() / (queries.length - 1),
            /** No old attempt can be taken for the last one. */
            isCounted: attempts.every((attempt, index) => attempt === index + 1),
        };
    }

    sees(what: string, expected: unknown): void {
        assert.deepEqual(this.seen[what], expected, what);
    }

    misses(what: string, unexpected: unknown): void {
        assert.equal((this.seen[what] as unknown[]).includes(unexpected), false, what);
    }

    within(what: string, least: number, most: number): void {
        const value = this.seen[what] as number;
        assert.ok(value >= least && value <= most, `${what}: ${value}`);
    }
}
