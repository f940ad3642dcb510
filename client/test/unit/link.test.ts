import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Channel } from '../../src/gateway/channel.ts';
import { rootChannel, windowChannel } from '../../src/gateway/channel.ts';
import { Link, type LinkListener, type LinkStatus } from '../../src/gateway/Link.ts';
import { Session } from '../../src/gateway/Session.ts';
import { MemoryGateway, TestClock } from '../support/MemoryGateway.ts';

class Page implements LinkListener {
    readonly clock = new TestClock();
    readonly got: string[] = [];
    readonly statuses: LinkStatus[] = [];
    readonly link: Link;
    private m_ids = 0;

    constructor(gateway: MemoryGateway) {
        const makeClientId = (): string => `page${(this.m_ids += 1)}`;
        const { connect } = gateway;
        this.link = new Link({ connect, clock: this.clock, listener: this, makeClientId });
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
}

/** Lets promises, then timers run until nothing is left to do. */
async function settle(page: Page): Promise<void> {
    do {
        await new Promise((done) => setImmediate(done));
    } while (page.clock.step());
}

/** Four texts down and four actions up, in turn, with the connection cut at the given message. */
async function shortSession(gateway: MemoryGateway, page: Page): Promise<void> {
    page.link.start();
    await settle(page);
    for (let round = 1; round <= 4; round += 1) {
        gateway.publish('./5', `down ${round}`);
        page.link.send(windowChannel(5), `up ${round}`);
        await new Promise((done) => setImmediate(done));
    }
    await settle(page);
}

const ups = ['up 1', 'up 2', 'up 3', 'up 4'];
const downs = ['5:down 1', '5:down 2', '5:down 3', '5:down 4'];

test('a short session, cut before and after every message: nothing lost, nothing twice', async () => {
    const whole = new MemoryGateway();
    await shortSession(whole, new Page(whole));
    assert.ok(whole.messages >= 9, `only ${whole.messages} messages`);
    for (let cutAt = 0; cutAt < whole.messages; cutAt += 1) {
        for (const cutAfter of [false, true]) {
            const gateway = Object.assign(new MemoryGateway(), { cutAt, cutAfter });
            const page = new Page(gateway);
            await shortSession(gateway, page);
            const where = `cut ${cutAfter ? 'after' : 'before'} message ${cutAt}`;
            assert.deepEqual(page.texts(), downs, where);
            assert.deepEqual(gateway.handled, ['ready page1', ...ups], where);
        }
    }
});

test('a session that the gateway no longer knows begins afresh under a new name', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    await shortSession(gateway, page);
    gateway.forgetSessions();
    gateway.close(1006);
    await settle(page);
    assert.deepEqual(gateway.queries.slice(1), ['client=page1&received=4', 'client=page2']);
    assert.equal(gateway.handled.at(-1), 'ready page2');
    assert.deepEqual(page.texts(), []);
});

const closings: readonly (readonly [code: number, status: LinkStatus, connections: number])[] = [
    [1006, 'open', 2],
    [1001, 'open', 2],
    [4000, 'open', 2],
    [4003, 'open', 2],
    [4004, 'open', 2],
    [1009, 'open', 2],
    [4001, 'duplicated', 1],
    [4002, 'takenOver', 1],
    [1008, 'refused', 1],
];

for (const [code, status, connections] of closings) {
    test(`close code ${code}: ends as ${status} after ${connections} connections`, async () => {
        const gateway = new MemoryGateway();
        const page = new Page(gateway);
        page.link.start();
        await settle(page);
        gateway.close(code);
        await settle(page);
        assert.equal(page.statuses.at(-1), status);
        assert.equal(gateway.queries.length, connections);
    });
}

test('the person takes a session back that another page took over', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    gateway.close(4002);
    await settle(page);
    assert.equal(page.link.resumable, false);
    page.link.startAfresh();
    await settle(page);
    assert.equal(page.statuses.at(-1), 'open');
    assert.deepEqual(gateway.handled, ['ready page1', 'ready page2']);
});

const wrongFrames: readonly (readonly [name: string, text: string])[] = [
    ['no frame', 'hello'],
    ['a gap', '3,0\u001e.\u001f{}'],
    ['an acknowledgement of what was never sent', '1,99'],
];

for (const [name, text] of wrongFrames) {
    test(`a gateway that sends ${name} is left, and the page starts afresh`, async () => {
        const gateway = new MemoryGateway();
        const page = new Page(gateway);
        page.link.start();
        await settle(page);
        gateway.raw(text);
        await settle(page);
        assert.equal(gateway.queries.at(-1), 'client=page2');
        assert.equal(page.statuses.at(-1), 'open');
    });
}

test('a text is acknowledged within 200 ms although the page has nothing to say', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    const before = page.clock.now();
    gateway.publish('.', 'a');
    assert.equal(page.link.session.unacknowledged, 1);
    assert.ok(page.clock.step());
    assert.equal(page.link.session.unacknowledged, 0);
    assert.ok(page.clock.now() - before <= 200);
});

test('what came in one frame is settled once', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    page.got.length = 0;
    gateway.raw('1,1\u001e.\u001fa\u001e.\u001fb\u001e/elsewhere\u001fc');
    assert.deepEqual(page.got, ['a', 'b', '|']);
});

test('a record that comes again is handled once', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    gateway.raw('1,1\u001e.\u001fa\u001e.\u001fb');
    gateway.raw('1,1\u001e.\u001fa');
    gateway.raw('2,1\u001e.\u001fb\u001e.\u001fc');
    assert.deepEqual(page.texts(), ['a', 'b', 'c']);
});

test('a reload goes on with the same session and sends what was not yet handled', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    await shortSession(gateway, page);
    gateway.close(1006);
    page.link.send(windowChannel(5), 'while away');
    const stored = JSON.parse(JSON.stringify(page.link.session.store())) as unknown;
    const again = new Page(gateway);
    const session = Session.restore(stored);
    assert.ok(session);
    gateway.publish('./5', 'meanwhile');
    again.link.resume(page.link.clientId, session);
    await settle(again);
    assert.deepEqual(again.texts(), ['5:meanwhile']);
    assert.deepEqual(gateway.handled, ['ready page1', ...ups, 'while away']);
});

const unusable: readonly (readonly [name: string, stored: unknown])[] = [
    ['nothing', undefined],
    ['a number', 7],
    ['no list', { received: 1, firstPending: 1, pending: {} }],
    ['a fraction', { received: 1.5, firstPending: 1, pending: [] }],
    ['negative', { received: -1, firstPending: 1, pending: [] }],
    ['a number that is none', { received: 1, firstPending: '1', pending: [] }],
    ['a broken action', { received: 1, firstPending: 1, pending: [{ channel: '.' }] }],
];

for (const [name, stored] of unusable) {
    test(`no session is made of ${name}`, () => assert.equal(Session.restore(stored), undefined));
}

test('a long queue leaves in frames that the gateway takes, in order', () => {
    const session = new Session();
    const texts = Array.from({ length: 50 }, (_, index) => `${index}`.padEnd(20_000, 'x'));
    texts.forEach((text) => session.push('.', text));
    const frames = session.takeFrames();
    assert.ok(frames.every((frame) => frame.length < 300_000));
    const sent = frames.flatMap((frame) => frame.split('\u001e').slice(1));
    assert.deepEqual(
        sent,
        texts.map((text) => `.\u001f${text}`),
    );
    assert.deepEqual(session.takeFrames(), []);
});

/** Lets the clock run on until the page has connected again; how long that took. */
function untilReconnected(gateway: MemoryGateway, page: Page): number {
    const before = page.clock.now();
    const connections = gateway.queries.length;
    while (gateway.queries.length === connections) {
        assert.ok(page.clock.step(), 'the page waits for nothing any more');
    }
    return page.clock.now() - before;
}

test('a connection that hangs is given up when what was done is not acknowledged', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    gateway.hangs = true;
    page.link.send(windowChannel(5), 'up');
    await new Promise((done) => setImmediate(done));
    const noticed = untilReconnected(gateway, page);
    assert.ok(noticed > 1000 && noticed <= 20_500, `after ${noticed} ms`);
    assert.ok(page.statuses.includes('lost'));
    gateway.hangs = false;
    await settle(page);
    assert.equal(page.statuses.at(-1), 'open');
    assert.deepEqual(gateway.handled, ['ready page1', 'up']);
    assert.equal(gateway.queries.at(-1), 'client=page1&received=0');
});

test('what was done a moment before the page looks has time to be acknowledged', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    page.link.start();
    await settle(page);
    page.link.send(windowChannel(5), 'acknowledged');
    await new Promise((done) => setImmediate(done));
    page.clock.after(9_900, () => {
        gateway.hangs = true;
        page.link.send(windowChannel(5), 'on its way');
    });
    page.clock.step();
    await new Promise((done) => setImmediate(done));
    const noticed = untilReconnected(gateway, page);
    assert.ok(noticed >= 5_000 && noticed <= 20_500, `after ${noticed} ms`);
});

test('a connection that never comes about is tried again', () => {
    const gateway = Object.assign(new MemoryGateway(), { hangs: true });
    const page = new Page(gateway);
    page.link.start();
    assert.ok(untilReconnected(gateway, page) <= 20_500);
    assert.ok(untilReconnected(gateway, page) <= 20_500);
});

test('a connection that owes nothing may be silent for ever', async () => {
    const gateway = new MemoryGateway();
    const page = new Page(gateway);
    await shortSession(gateway, page);
    gateway.hangs = true;
    gateway.publish('.', 'lost on the way');
    await settle(page);
    assert.equal(gateway.queries.length, 1);
    assert.equal(page.statuses.at(-1), 'open');
});
