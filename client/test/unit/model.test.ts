import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { beforeEach, test } from 'node:test';
import {
    type Channel,
    clientChannel,
    modelChannel,
    windowChannel,
} from '../../src/gateway/channel.ts';
import { Inbox } from '../../src/page/Inbox.ts';
import type { PartialValues } from '../../src/protocol/values.ts';
import { ObjectStore } from '../../src/store/ObjectStore.ts';
import { whole } from '../../src/store/steps.ts';

let asked: number;
let changed: string[];
let store: ObjectStore;
let inbox: Inbox;

const contents = [
    { id: '11', type: 'Edit' },
    { id: '12', type: 'ComboBox', entries: ['a'] },
    { id: '13', type: 'Button' },
];
const window1 = { id: '1', type: 'Dialog', contents };

function said(channel: Channel, text: string): void {
    whole(inbox.received(channel, text));
}

function arrives(message: unknown): void {
    said(modelChannel, typeof message === 'string' ? message : JSON.stringify(message));
    store.flush();
}

beforeEach(() => {
    asked = 0;
    changed = [];
    store = new ObjectStore({
        opened: () => undefined,
        reopened: () => undefined,
        closed: () => undefined,
        inserted: () => undefined,
        removed: () => undefined,
        triggered: () => undefined,
        changed: (object, names) => changed.push(`${object.id} ${[...names].join(' ')}`),
    });
    inbox = new Inbox(store, {
        pinged: () => undefined,
        described: () => undefined,
        told: () => undefined,
        modelNeeded: () => (asked += 1),
    });
    said(clientChannel, JSON.stringify(window1));
    inbox.model.begin();
});

/** What is shown of the three: the edit's placeholder, the box's items, whether the button is down. */
function shown(): unknown[] {
    const of = (id: number, value: (values: PartialValues) => unknown): unknown => {
        const object = store.get(id);
        return object === undefined ? 'gone' : (value(object.values) ?? null);
    };
    return [
        of(11, (values) => values.placeholder),
        of(12, (values) => values.entries?.join()),
        of(13, (values) => values.checkable && values.checked),
    ];
}

const edit = { type: 'Edit', tag: '11', placeholder: 'p' };
const box = { type: 'ComboBox', tag: '12', entries: ['a', 'b'], placeholder: 'q' };
const button = { type: 'Button', tag: '13', checkable: true, checked: true };
const full = { version: 4, snapshot: { e: edit, 'c/~': box, b: button } };
const filled = ['p', 'a,b', true];
const empty = [null, 'a', null];

function patch(version: number, ...operations: (readonly [string, string, unknown?])[]): object {
    return { version, patch: operations.map(([op, path, value]) => ({ op, path, value })) };
}

interface Row {
    readonly name: string;
    /** Texts or what they say; "full" is the snapshot above. */
    readonly messages: readonly unknown[];
    readonly shown: readonly unknown[];
    readonly asks: number;
}

const rows = JSON.parse(readFileSync('test/unit/model.json', 'utf8')) as Row[];

for (const row of rows) {
    test(`model: ${row.name}`, () => {
        row.messages.forEach((message) => arrives(message === 'full' ? full : message));
        assert.deepEqual(shown(), row.shown);
        assert.equal(asked, row.asks);
    });
}

test('only what differs is told, and a window described later is filled too', () => {
    arrives(full);
    assert.deepEqual(changed, ['11 placeholder', '12 entries placeholder', '13 checkable checked']);
    arrives(full);
    said(clientChannel, JSON.stringify(window1));
    assert.deepEqual(shown(), filled);
    const again = { ...contents[0], msgType: 'refresh', parentId: '1' };
    said(windowChannel(1), JSON.stringify(again));
    assert.deepEqual(shown(), filled);
    store.flush();
    assert.equal(changed.length, 3 + 1 + 1);
});

test('what was destroyed while the page was loaded anew is gone', () => {
    inbox.model.begin([11, 12]);
    arrives({ version: 9, snapshot: { e: edit } });
    assert.deepEqual(shown(), ['p', 'gone', null]);
});

test('a session that begins anew forgets what was known', () => {
    arrives(full);
    store.clear();
    inbox.model.begin();
    said(clientChannel, JSON.stringify(window1));
    assert.deepEqual(shown(), empty);
    assert.equal(asked, 2);
});

test('ten thousand items in one patch are one change of the list', () => {
    arrives(full);
    changed.length = 0;
    const items = Array.from({ length: 10_000 }, (_, index) => `item ${index}`);
    arrives(patch(5, ...items.map((item) => ['add', '/c~1~0/entries/-', item] as const)));
    assert.equal(store.get(12)?.values.entries?.length, 10_002);
    assert.deepEqual(changed, ['12 entries']);
});
