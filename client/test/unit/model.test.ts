import assert from 'node:assert/strict';
import { beforeEach, test } from 'node:test';
import { clientChannel, modelChannel, windowChannel } from '../../src/gateway/channel.ts';
import { Inbox } from '../../src/page/Inbox.ts';
import { ObjectStore } from '../../src/store/ObjectStore.ts';

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

function arrives(message: unknown): void {
    inbox.received(modelChannel, typeof message === 'string' ? message : JSON.stringify(message));
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
    inbox.received(clientChannel, JSON.stringify(window1));
    inbox.model.begin();
});

/** What is shown of the three: the edit's placeholder, the box's items, the button's state. */
function shown(): unknown[] {
    const of = (id: number): ReturnType<ObjectStore['get']> => store.get(id);
    return [
        of(11)?.values.placeholder,
        of(12)?.values.entries?.join(),
        of(13)?.values.checkable,
    ];
}

const edit = { type: 'Edit', tag: '11', placeholder: 'p' };
const box = { type: 'ComboBox', tag: '12', items: ['a', 'b'], placeholder: 'q' };
const button = { type: 'Button', tag: '13', checkable: true };
const full = { version: 4, snapshot: { e: edit, 'c/~': box, b: button } };
const filled = ['p', 'a,b', true];
const empty = [undefined, 'a', undefined];

function patch(version: number, ...operations: (readonly [string, string, unknown?])[]): object {
    return { version, patch: operations.map(([op, path, value]) => ({ op, path, value })) };
}

type Row = readonly [name: string, messages: unknown[], expected: unknown[], asks?: number];

const rows: readonly Row[] = [
    ['a snapshot fills what the description left out', [full], filled],
    ['defaults take values back', [full, { version: 9, snapshot: { e: { type: 'Edit', tag: '11' } } }], ['', 'a,b', true]],
    ['what comes before the first snapshot is in it', [patch(4, ['remove', '/e']), full], filled],
    ['a version that is there already is skipped', [full, patch(4, ['remove', '/e'])], filled],
    [
        'patches in order, every operation',
        [
            full,
            patch(5, ['replace', '/e/placeholder', 'x'], ['add', '/c~1~0/items/-', 'c']),
            patch(6, ['add', '/c~1~0/items/0', 'z'], ['remove', '/c~1~0/items/2']),
            patch(7, ['remove', '/b/checkable'], ['remove', '/e/placeholder']),
        ],
        ['', 'z,a,c', false],
    ],
    [
        'an element and its tag in one patch, in either order',
        [
            { version: 1, snapshot: {} },
            patch(2, ['add', '/e', { type: 'Edit' }], ['add', '/e/tag', '11'], ['add', '/e/placeholder', 'p']),
            patch(3, ['add', '/c', box], ['add', '/b', button]),
        ],
        filled,
    ],
    [
        'an object goes by the element that bears its tag now',
        [full, patch(5, ['remove', '/e'], ['add', '/f', { ...edit, placeholder: 'new' }])],
        ['new', 'a,b', true],
    ],
    ['a replaced sequence', [full, patch(5, ['replace', '/c~1~0/items', []])], ['p', '', true]],
    ['a gap asks again, and the answer is taken', [full, patch(6, ['remove', '/b']), full], filled, 2],
    ['nothing is applied between a gap and the answer', [full, patch(6), patch(7, ['replace', '/e/placeholder', 'no'])], filled, 2],
    ...[
        patch(5, ['remove', '/nobody']),
        patch(5, ['add', '/c~1~0/items/9', 'x']),
        patch(5, ['replace', '', {}]),
        patch(5, ['replace', 'e', {}]),
        patch(5, ['explode', '/e']),
        patch(5, ['add', '/e/placeholder/x/y', 1]),
        { version: 5, patch: [null] },
        { version: 5, patch: [{ op: 'add', path: 7 }] },
    ].map((wrong): Row => [`${JSON.stringify(wrong)} asks again once`, [full, wrong, wrong], filled, 2]),
    ...['', 'null', '{"version":5}', '{"version":"5","snapshot":{}}', '{"version":5,"snapshot":[]}', '{"version":5,"patch":{}}'].map(
        (text): Row => [`${text || 'nothing'} is dropped`, [full, text], filled],
    ),
    [
        'wrong kinds count as defaults, unknown elements are kept',
        [{ version: 1, snapshot: { e: { ...edit, placeholder: 7 }, x: 5, y: { tag: '11' }, c: { ...box, items: [1] } } }],
        [undefined, '', undefined],
    ],
    ['nothing that is inherited is an element', [patch(1, ['add', '/__proto__/tag', '11'])], empty],
];

for (const [name, messages, expected, asks = 1] of rows) {
    test(`model: ${name}`, () => {
        messages.forEach(arrives);
        assert.deepEqual(shown(), expected);
        assert.equal(asked, asks);
    });
}

test('only what differs is told, and a window described later is filled too', () => {
    arrives(full);
    assert.deepEqual(changed, ['11 placeholder', '12 entries placeholder', '13 checkable']);
    arrives(full);
    inbox.received(clientChannel, JSON.stringify(window1));
    assert.deepEqual(shown(), filled);
    const again = { ...contents[0], msgType: 'refresh', parentId: '1' };
    inbox.received(windowChannel(1), JSON.stringify(again));
    assert.deepEqual(shown(), filled);
    store.flush();
    assert.equal(changed.length, 3 + 3 + 1);
});

test('a session that begins anew forgets what was known', () => {
    arrives(full);
    store.clear();
    inbox.model.begin();
    inbox.received(clientChannel, JSON.stringify(window1));
    assert.deepEqual(shown(), empty);
    assert.equal(asked, 2);
});

test('ten thousand items in one patch are one change of the list', () => {
    arrives(full);
    changed.length = 0;
    const items = Array.from({ length: 10_000 }, (_, index) => `item ${index}`);
    arrives(patch(5, ...items.map((item) => ['add', '/c~1~0/items/-', item] as const)));
    assert.equal(store.get(12)?.values.entries?.length, 10_002);
    assert.deepEqual(changed, ['12 entries']);
});
