import assert from 'node:assert/strict';
import { randomFillSync } from 'node:crypto';
import { test } from 'node:test';
import { type Channel, modelChannel } from '../../src/gateway/channel.ts';
import { Intake } from '../../src/page/Intake.ts';
import { imageAddress, isClientId, makeClientId, tokenOf } from '../../src/page/identity.ts';
import { Keep } from '../../src/page/Keep.ts';
import { TabStorage } from '../../src/store/TabStorage.ts';
import { refuse, storageOf } from '../support/storage.ts';

test('a long text is taken over in slices, what comes after it behind it', async (context) => {
    let now = 0;
    context.mock.method(performance, 'now', () => now);
    const taken: string[] = [];
    let caughtUp = (): void => {};
    let whenUp = (call: () => void): void => call();
    const press = { whenUp: (call: () => void) => whenUp(call) };
    /** So many steps as the text has letters, each of three milliseconds. */
    function* take(_channel: Channel, text: string): Generator<void> {
        for (const letter of text) {
            if (letter === '!') {
                throw new Error('cannot be taken over');
            }
            now += 3;
            taken.push(letter);
            yield;
        }
    }
    const intake = new Intake(press, take, () => caughtUp());
    const receive = (text: string): void => intake.receive(modelChannel, text, 0);
    receive('xyz-');
    receive('!');
    receive('d');
    assert.deepEqual([taken.join(''), intake.isBusy], ['xyz', true], 'a step and a slice');
    const goOn = await new Promise<() => void>((pressed) => (whenUp = pressed));
    assert.equal(taken.join(''), 'xyz', 'not while something is pressed');
    whenUp = (call) => call();
    const done = new Promise<void>((call) => (caughtUp = call));
    assert.throws(goOn, /cannot be/);
    await done;
    assert.deepEqual([taken.join(''), intake.isBusy], ['xyz-d', false]);
    receive('efgh');
    receive('i');
    intake.finish();
    assert.equal(taken.join(''), 'xyz-defghi', 'all at once, if somebody needs it');
    receive('jklm');
    receive('n');
    intake.drop();
    assert.equal(taken.join(''), 'xyz-defghijklm', 'what waits goes, what was begun is done');
});

test('what is kept is found once, so that a duplicated tab does not find it', () => {
    const items = new Map<string, string>();
    const keep = new Keep(storageOf(items));
    assert.equal(keep.put({ a: [1] }), true);
    assert.deepEqual(keep.take()?.['a'], [1]);
    assert.equal(keep.take(), undefined);
    keep.put({ a: 1 });
    assert.equal(new Keep(storageOf(items, refuse)).put({ a: 2 }), false, 'it does not fit');
    assert.equal(keep.take(), undefined, 'nor is what was kept before');
});

test('nothing of use is found where nothing was kept', () => {
    for (const text of ['', '{', '7', '[]', '{"version":0}']) {
        const items = new Map([['dialogs', text]]);
        assert.equal(new Keep(storageOf(items)).take(), undefined, text);
        assert.equal(items.size, 0, text);
    }
    const none = new Keep(new TabStorage(refuse));
    assert.equal(none.put({}), false, 'a tab that may not keep anything');
    assert.equal(none.take(), undefined);
});

test('page names differ and are what the gateway takes', () => {
    const ids = Array.from({ length: 200 }, () => makeClientId((bytes) => randomFillSync(bytes)));
    assert.equal(new Set(ids).size, 200);
    assert.ok(ids.every((id) => id.length === 12 && isClientId(id)));
    assert.deepEqual(['', 'a b', 'a'.repeat(65)].filter(isClientId), []);
});

const images: Readonly<Record<string, string | undefined>> = {
    '/opt/app/a b.png': 'icon/opt/app/a%20b.png',
    'C:\\icons\\a.png': 'icon/C%3A/icons/a.png',
    'a.png?x#y': 'icon/a.png%3Fx%23y',
    '//evil.example/./a.png': 'icon/evil.example/a.png',
    'javascript:alert(1)': 'icon/javascript%3Aalert(1)',
    '/opt/../../etc/passwd': undefined,
    '': undefined,
    '/': undefined,
};

test('an image is asked for at the gateway, wherever its path points', () => {
    const asked = Object.keys(images).map((path) => [path, imageAddress(path)]);
    assert.deepEqual(Object.fromEntries(asked), images);
});

test('the token is read from the fragment, whatever stands there', () => {
    const hashes = ['#aB-_.~9', '', '#', '#a%20b', '#a b', '#a,b', '#%'];
    assert.deepEqual(hashes.map(tokenOf), ['aB-_.~9', '', '', '', '', '', '']);
});
