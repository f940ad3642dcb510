import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import type { LinkStatus } from '../../src/gateway/LinkListener.ts';
import { Session } from '../../src/gateway/Session.ts';
import { LinkedPage, ups } from '../support/LinkedPage.ts';
import { MemoryGateway } from '../support/MemoryGateway.ts';
import { play } from '../support/steps.mjs';

interface Story {
    readonly name: string;
    readonly steps: unknown[];
}

const stories = JSON.parse(readFileSync('test/unit/link.json', 'utf8')) as Story[];

for (const { name, steps } of stories) {
    test(name, () => play(new LinkedPage(), steps));
}

const downs = ['5:down 1', '5:down 2', '5:down 3', '5:down 4'];

test('a short session, cut anywhere: nothing lost, nothing twice', async () => {
    const whole = new LinkedPage();
    await whole.exchanges();
    const { messages } = whole.gateway;
    assert.ok(messages >= 9, `only ${messages} messages`);
    for (let cutAt = 0; cutAt < messages; cutAt += 1) {
        for (const cutAfter of [false, true]) {
            const page = new LinkedPage(Object.assign(new MemoryGateway(), { cutAt, cutAfter }));
            await page.exchanges();
            const where = `cut ${cutAfter ? 'after' : 'before'} message ${cutAt}`;
            assert.deepEqual(page.seen['texts'], downs, where);
            assert.deepEqual(page.gateway.handled, ['ready page1', ...ups], where);
        }
    }
});

const closings: readonly (readonly [code: number, status: LinkStatus, during?: LinkStatus])[] = [
    [1006, 'open', 'lost'],
    [1001, 'open', 'ended'],
    [4000, 'open'],
    [1012, 'open', 'open'],
    [4003, 'open'],
    [4004, 'open'],
    [1009, 'open'],
    [4001, 'duplicated'],
    [4002, 'takenOver'],
    [1008, 'refused'],
];

for (const [code, status, during] of closings) {
    test(`close code ${code}: ends as ${status}`, async () => {
        const page = new LinkedPage();
        await page.opens();
        page.gateway.hangs = true;
        await page.says('on its way');
        page.gateway.hangs = false;
        page.gateway.close(code);
        assert.equal(page.statuses.at(-1), during ?? status);
        await page.settles();
        assert.equal(page.statuses.at(-1), status);
        assert.equal(page.gateway.queries.length, status === 'open' ? 2 : 1);
        assert.equal(page.link.resumable, status === 'open');
        // The user takes it back, or wants another one.
        page.link.startAfresh();
        await page.settles();
        assert.equal(page.statuses.at(-1), 'open');
        assert.equal(page.gateway.handled.at(-1), `ready ${page.link.clientId}`);
        const told = page.gateway.handled.includes('on its way') ? [[]] : [['on its way']];
        assert.deepEqual(page.unconfirmed.slice(0, 1), told);
    });
}

test('a reload goes on with the same session and sends what was not yet handled', async () => {
    const page = new LinkedPage();
    await page.exchanges();
    page.gateway.close(1006);
    await page.says('while away');
    const session = Session.restore(JSON.parse(JSON.stringify(page.link.session.store())));
    assert.ok(session);
    page.gateway.publish('./5', 'meanwhile');
    const again = new LinkedPage(page.gateway);
    again.link.resume(page.link.clientId, session);
    await again.settles();
    const [before = 0, after = 0] = page.gateway.attempts.slice(-2);
    assert.ok(after > before + 1000, 'those that were made since it was kept do not count');
    assert.deepEqual(again.seen['texts'], ['5:meanwhile']);
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
    assert.deepEqual([session.pending.length, session.pendingCharacters], [50, 1_000_000]);
    assert.equal(session.receive('1,1'), undefined, 'nothing has left yet');
    const frames = session.takeFrames();
    assert.ok(frames.every((frame) => frame.length < 300_000));
    const sent = frames.flatMap((frame) => frame.split('\u001e').slice(1));
    const expected = texts.map((text) => `.\u001f${text}`);
    assert.deepEqual(sent, expected);
    assert.deepEqual(session.takeFrames(), []);
    assert.deepEqual(session.receive('1,49'), []);
    assert.deepEqual([session.pending.length, session.pendingCharacters], [1, 20_000]);
});
