import assert from 'node:assert/strict';
import { randomFillSync } from 'node:crypto';
import { test } from 'node:test';
import { imageAddress, isClientId, makeClientId, tokenOf } from '../../src/page/identity.ts';
import { Keep, type TabStorage } from '../../src/page/Keep.ts';

class Storage implements TabStorage {
    readonly items = new Map<string, string>();
    full = false;

    getItem(name: string): string | null {
        return this.items.get(name) ?? null;
    }

    setItem(name: string, text: string): void {
        if (this.full) {
            throw new Error('QuotaExceededError');
        }
        this.items.set(name, text);
    }

    removeItem(name: string): void {
        this.items.delete(name);
    }
}

test('what is kept is found once, so that a duplicated tab does not find it', () => {
    const keep = new Keep(new Storage());
    assert.equal(keep.put({ a: [1] }), true);
    assert.deepEqual(keep.take()?.['a'], [1]);
    assert.equal(keep.take(), undefined);
});

test('what does not fit is not kept, nor what was kept before', () => {
    const storage = new Storage();
    const keep = new Keep(storage);
    keep.put({ a: 1 });
    storage.full = true;
    assert.equal(keep.put({ a: 2 }), false);
    assert.equal(keep.take(), undefined);
});

test('a tab that may not keep anything works all the same', () => {
    const keep = new Keep(undefined);
    assert.equal(keep.put({}), false);
    assert.equal(keep.take(), undefined);
});

for (const text of ['', '{', '7', '[]', '{"version":0}']) {
    test(`nothing is taken from ${text || 'an empty item'}`, () => {
        const storage = new Storage();
        storage.items.set('dialogs', text);
        assert.equal(new Keep(storage).take(), undefined);
        assert.equal(storage.items.size, 0);
    });
}

test('page names differ and are what the gateway takes', () => {
    const ids = Array.from({ length: 200 }, () => makeClientId((bytes) => randomFillSync(bytes)));
    assert.equal(new Set(ids).size, 200);
    assert.ok(ids.every((id) => id.length === 12 && isClientId(id)));
});

const images: readonly (readonly [path: string, address: string | undefined])[] = [
    ['/opt/app/a b.png', '/icon/opt/app/a%20b.png?token=T%26'],
    ['C:\\icons\\a.png', '/icon/C%3A/icons/a.png?token=T%26'],
    ['a.png?x#y', '/icon/a.png%3Fx%23y?token=T%26'],
    ['//evil.example/a.png', '/icon/evil.example/a.png?token=T%26'],
    ['javascript:alert(1)', '/icon/javascript%3Aalert(1)?token=T%26'],
    ['/opt/../../etc/passwd', undefined],
    ['', undefined],
    ['/', undefined],
];

for (const [path, address] of images) {
    test(`image ${path}`, () => assert.equal(imageAddress(path, 'T&'), address));
}

test('the token is read from the fragment, whatever stands there', () => {
    assert.deepEqual(['#abc', '', '#', '#a%20b', '#%'].map(tokenOf), ['abc', '', '', 'a b', '']);
});
