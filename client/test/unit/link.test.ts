import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Channel } from '../../src/gateway/channel.ts';
import { rootChannel, windowChannel } from '../../src/gateway/channel.ts';
import type { FrameRecord } from '../../src/gateway/frame.ts';
import { Link } from '../../src/gateway/Link.ts';
import type { LinkListener, LinkStatus } from '../../src/gateway/LinkListener.ts';
import { Session } from '../../src/gateway/Session.ts';
import { MemoryGateway, TestClock } from '../support/MemoryGateway.ts';

class Page implements LinkListener {
    readonly clock = new TestClock();
    readonly got: string[] = [];
    readonly statuses: LinkStatus[] = [];
    /** What nobody has confirmed of the sessions that are over. */
    readonly unconfirmed: string[][] = [];
    readonly gateway: MemoryGateway;
    readonly link: Link;
    private m_ids = 0;

    constructor(gateway = new MemoryGateway()) {
        this.gateway = gateway;
        const makeClientId = (): string => `page${(this.m_ids += 1)}`;
        const { connect, askWhy } = gateway;
        const { clock } = this;
        this.link = new Link({ connect, askWhy, clock, listener: this, makeClientId });
    }

    /** A page whose session has begun. */
    static async opened(): Promise<Page> {
        const page = new Page();
        page.link.start();
        await page.settle();
        return page;
    }

    over(records: readonly FrameRecord[]): void {
        this.unconfirmed.push(records.map((record) => record.text));
    }

    began(clientId: string): void {
        this.got.length = 0;
        this.link.send(rootChannel, `ready ${clientId}`);
    }

    received(channel: Channel, text: string): void {
        this.got.push(channel.kind === 'window' ? `${channel.id}:${text}` : text);
    }

    settled(): void {
        this.got.push('|');
    }

    status(status: LinkStatus): void {
        this.statuses.push(status);
    }

    texts(): string[] {
        return this.got.filter((text) => text !== '|');
    }

    send(text: string): void {
        this.link.send(windowChannel(5), text);
    }

    /** Lets promises, then timers run until only the questions of an idle page are left. */
    async settle(): Promise<void> {
        do {
            await turn();
        } while (this.clock.step(8_000));
    }

    /** Lets the clock run until the page has this status; how long that took. */
    async until(status: LinkStatus): Promise<number> {
        const before = this.clock.now();
        await turn();
        while (this.statuses.at(-1) !== status) {
            assert.ok(this.clock.now() < before + 100_000 && this.clock.step(), `never ${status}`);
            await turn();
        }
        return this.clock.now() - before;
    }

    /** Four texts down and four actions up, in turn. */
    async shortSession(): Promise<void> {
        this.link.start();
        await this.settle();
        for (let round = 1; round <= 4; round += 1) {
            this.gateway.publish('./5', `down ${round}`);
            this.send(`up ${round}`);
            await turn();
        }
        await this.settle();
    }

    /** Lets the clock run on until the page has connected again; how long that took. */
    untilReconnected(): number {
        const before = this.clock.now();
        const connections = this.gateway.queries.length;
        while (this.gateway.queries.length === connections) {
            assert.ok(this.clock.step(), 'the page waits for nothing any more');
        }
        return this.clock.now() - before;
    }
}

function turn(): Promise<unknown> {
    return new Promise((done) => setImmediate(done));
}

const ups = ['up 1', 'up 2', 'up 3', 'up 4'];
const downs = ['5:down 1', '5:down 2', '5:down 3', '5:down 4'];

test('a short session, cut anywhere: nothing lost, nothing twice', async () => {
    const whole = new Page();
    await whole.shortSession();
    const { messages } = whole.gateway;
    assert.ok(messages >= 9, `only ${messages} messages`);
    for (let cutAt = 0; cutAt < messages; cutAt += 1) {
        for (const cutAfter of [false, true]) {
            const page = new Page(Object.assign(new MemoryGateway(), { cutAt, cutAfter }));
            await page.shortSession();
            const where = `cut ${cutAfter ? 'after' : 'before'} message ${cutAt}`;
            assert.deepEqual(page.texts(), downs, where);
            assert.deepEqual(page.gateway.handled, ['ready page1', ...ups], where);
        }
    }
});

test('a session that the gateway no longer knows begins afresh under a new name', async () => {
    const page = new Page();
    await page.shortSession();
    page.gateway.peer.forgetSessions();
    page.gateway.close(1006);
    await page.settle();
    assert.deepEqual(page.gateway.queries.slice(1), ['client=page1&received=4', 'client=page2']);
    assert.equal(page.gateway.handled.at(-1), 'ready page2');
    assert.deepEqual(page.texts(), []);
});

test('a session that the gateway begins anew in its own mind begins anew here', async () => {
    const page = new Page();
    await page.shortSession();
    const { peer } = page.gateway;
    const greet = peer.greet.bind(peer);
    peer.greet = () => greet(new URLSearchParams({ client: 'page1' }));
    page.gateway.close(1006);
    await page.settle();
    page.gateway.publish('.', 'afresh');
    assert.deepEqual(page.texts(), ['afresh']);
    assert.deepEqual(page.unconfirmed, [[]]);
});

const closings: readonly (readonly [code: number, status: LinkStatus, during?: LinkStatus])[] = [
    [1006, 'open', 'lost'],
    [1001, 'open', 'ended'],
    [4000, 'open'],
    [4003, 'open'],
    [4004, 'open'],
    [1009, 'open'],
    [4001, 'duplicated'],
    [4002, 'takenOver'],
    [1008, 'refused'],
];

for (const [code, status, during] of closings) {
    test(`close code ${code}: ends as ${status}`, async () => {
        const page = await Page.opened();
        page.gateway.hangs = true;
        page.send('on its way');
        await turn();
        page.gateway.hangs = false;
        page.gateway.close(code);
        assert.equal(page.statuses.at(-1), during ?? status);
        await page.settle();
        assert.equal(page.statuses.at(-1), status);
        assert.equal(page.gateway.queries.length, status === 'open' ? 2 : 1);
        assert.equal(page.link.resumable, status === 'open');
        // The person takes it back, or wants another one.
        page.link.startAfresh();
        await page.settle();
        assert.equal(page.statuses.at(-1), 'open');
        assert.equal(page.gateway.handled.at(-1), `ready ${page.link.clientId}`);
        const told = page.gateway.handled.includes('on its way') ? [[]] : [['on its way']];
        assert.deepEqual(page.unconfirmed.slice(0, 1), told);
    });
}

test('a gateway that sends what does not fit is left, and the page starts afresh', async () => {
    for (const text of ['hello', '3,0\u001e.\u001f{}', '1,99']) {
        const page = await Page.opened();
        page.gateway.raw(text);
        await page.settle();
        assert.equal(page.gateway.queries.at(-1), 'client=page2', text);
        assert.equal(page.statuses.at(-1), 'open', text);
    }
});

test('a text is acknowledged within 200 ms although the page has nothing to say', async () => {
    const page = await Page.opened();
    const before = page.clock.now();
    page.gateway.publish('.', 'a');
    assert.equal(page.link.session.unacknowledged, 1);
    assert.ok(page.clock.step());
    assert.equal(page.link.session.unacknowledged, 0);
    assert.ok(page.clock.now() - before <= 200);
});

test('a frame is settled once, and a record that comes again is handled once', async () => {
    const page = await Page.opened();
    page.got.length = 0;
    page.gateway.raw('1,1\u001e.\u001fa\u001e.\u001fb\u001e/elsewhere\u001fc');
    assert.deepEqual(page.got, ['a', 'b', '|']);
    page.gateway.raw('1,1\u001e.\u001fa');
    page.gateway.raw('3,1\u001e.\u001fc\u001e.\u001fd');
    assert.deepEqual(page.texts(), ['a', 'b', 'd']);
});

test('a reload goes on with the same session and sends what was not yet handled', async () => {
    const page = new Page();
    await page.shortSession();
    page.gateway.close(1006);
    page.send('while away');
    const session = Session.restore(JSON.parse(JSON.stringify(page.link.session.store())));
    assert.ok(session);
    page.gateway.publish('./5', 'meanwhile');
    const again = new Page(page.gateway);
    again.link.resume(page.link.clientId, session);
    await again.settle();
    const [before = 0, after = 0] = page.gateway.attempts.slice(-2);
    assert.ok(after > before + 1000, 'those that were made since it was kept do not count');
    assert.deepEqual(again.texts(), ['5:meanwhile']);
    assert.deepEqual(page.gateway.handled, ['ready page1', ...ups, 'while away']);
});

test('no session is made of what cannot have been one', () => {
    const unusable: readonly unknown[] = [
        undefined,
        7,
        { received: 1, firstPending: 1, pending: {} },
        { received: 1.5, firstPending: 1, pending: [] },
        { received: -1, firstPending: 1, pending: [] },
        { received: 1, firstPending: 0, pending: [] },
        { received: 1, firstPending: '1', pending: [] },
        { received: 1, firstPending: 1, pending: [{ channel: '.' }] },
    ];
    for (const stored of unusable) {
        assert.equal(Session.restore(stored), undefined, JSON.stringify(stored));
    }
});

test('a long queue leaves in frames that the gateway takes, in order', () => {
    const session = new Session();
    const texts = Array.from({ length: 50 }, (_, index) => `${index}`.padEnd(20_000, 'x'));
    texts.forEach((text) => session.push('.', text));
    assert.deepEqual([session.pendingCount, session.pendingCharacters], [50, 1_000_000]);
    assert.equal(session.receive('1,1'), undefined, 'nothing has left yet');
    const frames = session.takeFrames();
    assert.ok(frames.every((frame) => frame.length < 300_000));
    const sent = frames.flatMap((frame) => frame.split('\u001e').slice(1));
    const expected = texts.map((text) => `.\u001f${text}`);
    assert.deepEqual(sent, expected);
    assert.deepEqual(session.takeFrames(), []);
    assert.deepEqual(session.receive('1,49'), []);
    assert.deepEqual([session.pendingCount, session.pendingCharacters], [1, 20_000]);
});

test('what is done on a line that hangs is told of, kept, and sent on another one', async () => {
    const page = await Page.opened();
    page.gateway.hangs = true;
    page.send('up');
    const told = await page.until('slow');
    assert.ok(told > 1_000 && told <= 3_000, `the program is waited for after ${told} ms`);
    const lost = told + (await page.until('silent'));
    assert.ok(lost <= 5_000, `the line is given up after ${lost} ms`);
    page.untilReconnected();
    // The next connection does not come about either.
    const again = page.untilReconnected();
    assert.ok(again <= 5_000, `after ${again} ms`);
    page.gateway.hangs = false;
    await page.until('open');
    await page.settle();
    assert.deepEqual(page.gateway.handled, ['ready page1', 'up']);
    assert.equal(page.gateway.queries.at(-1), 'client=page1&received=0');
    const counted = page.gateway.attempts.map((_, index) => index + 1);
    assert.deepEqual(page.gateway.attempts, counted, 'an old one cannot be taken for the last');
    assert.deepEqual(page.unconfirmed, []);
});

test('what is done a moment before the page looks has time to be acknowledged', async () => {
    const page = await Page.opened();
    page.send('acknowledged');
    await turn();
    page.clock.after(1_900, () => {
        page.gateway.hangs = true;
        page.send('on its way');
    });
    page.clock.step();
    const told = await page.until('slow');
    assert.ok(told >= 2_000, `after ${told} ms`);
});

test('a program that answers late is not lost, and a long text may take long', async () => {
    const page = await Page.opened();
    page.gateway.hangs = true;
    page.send('x'.repeat(200_000));
    await page.until('slow');
    page.clock.step(6_000);
    await turn();
    page.gateway.hangs = false;
    page.gateway.raw('1,2');
    await page.until('open');
    await page.settle();
    assert.equal(page.gateway.queries.length, 1);
    assert.ok(!page.statuses.includes('silent'));
});

/** How long an idle page takes to leave a line that died, and what else happened to it. */
const silences: Readonly<Record<string, readonly [number, (page: Page) => void]>> = {
    'by itself': [25_000, () => undefined],
    'when the network or the person is back': [5_000, (page) => page.link.retryNow()],
    'after having slept': [25_000, (page) => page.clock.sleep(3_600_000)],
};

for (const [when, [limit, happens]] of Object.entries(silences)) {
    test(`an idle page notices ${when} that nobody is there`, async () => {
        const page = await Page.opened();
        page.clock.after(300_000, () => (page.gateway.hangs = true));
        while (!page.gateway.hangs) {
            page.clock.step();
            await turn();
        }
        assert.equal(page.gateway.queries.length, 1, 'no silence while somebody answers');
        assert.ok(page.gateway.messages < 70, `${page.gateway.messages} messages in 5 minutes`);
        happens(page);
        const noticed = await page.until('silent');
        assert.ok(noticed <= limit, `after ${noticed} ms`);
    });
}

test('what came while the machine slept counts when it wakes', async () => {
    const page = await Page.opened();
    page.gateway.hangs = true;
    page.clock.step();
    page.send('up');
    await turn();
    page.clock.sleep(3_600_000);
    page.clock.step(0);
    page.clock.step(0);
    assert.equal(page.statuses.includes('silent'), false, 'the late timers run first');
    page.gateway.hangs = false;
    page.gateway.raw('1,2');
    await page.settle();
    assert.equal(page.gateway.queries.length, 1);
});

test('the silence of a gateway that answers no questions means nothing', async () => {
    const page = new Page(Object.assign(new MemoryGateway(), { isOld: true }));
    await page.shortSession();
    page.gateway.hangs = true;
    while (page.clock.now() < 300_000) {
        page.clock.step();
        await turn();
    }
    assert.equal(page.gateway.queries.length, 1);
    assert.equal(page.statuses.at(-1), 'open');
});

test('a program that is there again is not waited for twice', async () => {
    const page = await Page.opened();
    page.gateway.refuses = true;
    page.gateway.close(1006);
    await page.until('lost');
    while (page.clock.now() < 20_000) {
        page.clock.step();
        await turn();
    }
    page.send('meanwhile');
    page.gateway.peer.forgetSessions();
    page.gateway.refuses = false;
    page.untilReconnected();
    await turn();
    await turn();
    assert.equal(page.gateway.queries.at(-1), 'client=page2', 'at once');
    assert.equal(page.statuses.at(-1), 'open');
    assert.deepEqual(page.unconfirmed, [['meanwhile']]);
});

const refusals = [
    ['outdated', 15_000],
    ['barred', 15_000],
    ['crowded', 2_000],
    ['blocked', 2_000],
] as const;

for (const [why, wait] of refusals) {
    test(`a page that is ${why} hears that, and nothing of a lost connection`, async () => {
        const page = new Page();
        Object.assign(page.gateway, { refuses: true, why: { why, reason: 'the reason' } });
        page.link.start();
        await page.until(why);
        assert.deepEqual(page.statuses, ['connecting', why]);
        const attempts = page.gateway.queries.length;
        while (page.gateway.queries.length < attempts + 10) {
            page.clock.step();
            await turn();
        }
        const mean = page.clock.now() / page.gateway.queries.length;
        assert.ok(mean > wait / 2 && mean <= wait, `an attempt every ${mean} ms`);
        page.gateway.refuses = false;
        await page.until('open');
    });
}

test('while the network is away the page tries on, and it is back soon after', async () => {
    const page = await Page.opened();
    page.gateway.refuses = true;
    page.gateway.close(1006);
    const tries: number[] = [];
    for (const end = page.clock.now() + 60_000; page.clock.now() < end; ) {
        tries.push(page.untilReconnected());
        await turn();
    }
    assert.ok(Math.max(...tries) <= 2_000, `pauses of ${tries.join(', ')} ms`);
    assert.ok(tries.length < 45, 'not in a tight loop');
    page.gateway.refuses = false;
    await page.settle();
    assert.equal(page.statuses.at(-1), 'open');
});

test('when the browser says that the network is back, no old attempt is waited for', async () => {
    const page = await Page.opened();
    page.gateway.hangs = true;
    page.gateway.close(1006);
    page.untilReconnected();
    page.gateway.hangs = false;
    page.link.retryNow();
    await turn();
    assert.equal(page.statuses.at(-1), 'open');
});
