import assert from 'node:assert/strict';
import { beforeEach, test } from 'node:test';
import { decodeDescription } from '../../src/protocol/description.ts';
import { decodeWindowMessage } from '../../src/protocol/windowMessage.ts';
import { ObjectStore, type StoreObserver } from '../../src/store/ObjectStore.ts';
import { describe } from '../../src/store/snapshot.ts';

let log: string[];
let store: ObjectStore;

const observer: StoreObserver = {
    opened: (window) => log.push(`opened ${window.id}`),
    reopened: (window) => log.push(`reopened ${window.id}`),
    closed: (window) => log.push(`closed ${window.id}`),
    inserted: (object, before) => log.push(`inserted ${object.id} ${before ? 'for old' : 'last'}`),
    removed: (object) => log.push(`removed ${object.id}`),
    changed: (object, names) => log.push(`changed ${object.id} ${[...names].join()}`),
    triggered: (object, trigger) => log.push(`triggered ${object.id} ${trigger}`),
};

function open(description: object): void {
    const decoded = decodeDescription(description);
    assert.ok(decoded);
    store.open(decoded);
}

/** A text on a window's channel, as the page handles it, told at its end. */
function arrives(windowId: number, message: unknown): void {
    const decoded = decodeWindowMessage(JSON.stringify(message));
    if (decoded?.kind === 'writes') {
        decoded.writes.forEach((write) => store.apply(windowId, write));
    } else if (decoded?.kind === 'refresh') {
        store.refresh(windowId, decoded.refresh);
    }
    store.flush();
}

/** The tree in short: 1(2(3,4)). */
function tree(id: number): string {
    const object = store.get(id);
    const inner = object?.children.map((child) => tree(child.id)).join();
    return object ? `${id}${inner ? `(${inner})` : ''}` : '-';
}

beforeEach(() => {
    log = [];
    store = new ObjectStore(observer);
    open({
        id: '1',
        type: 'Dialog',
        contents: [
            {
                id: '2',
                type: 'BoxLayout',
                contents: [
                    { id: '3', type: 'Edit' },
                    { id: '4', type: 'Text' },
                ],
            },
        ],
    });
    open({ id: '10', type: 'Dialog', contents: [{ id: '11', type: 'Button' }] });
    log = [];
});

type Row = readonly [name: string, window: number, message: unknown, tree: string, log: string[]];

const refresh = { msgType: 'refresh' };

const rows: readonly Row[] = [
    ['a write', 1, [{ id: '3', text: 'x' }], '1(2(3,4))', ['changed 3 text']],
    [
        'many writes to one object are told once',
        1,
        [
            { id: '3', text: 'x' },
            { id: '3', text: 'y' },
            { id: '3', enable: false },
        ],
        '1(2(3,4))',
        ['changed 3 text,enable'],
    ],
    [
        'a trigger comes after the writes before it',
        1,
        [
            { id: '3', visible: true },
            { id: '3', setFocus: true },
            { id: '3', setFocus: true },
        ],
        '1(2(3,4))',
        ['changed 3 visible', 'triggered 3 setFocus', 'triggered 3 setFocus'],
    ],
    ['an unknown object', 1, [{ id: '99', text: 'x' }], '1(2(3,4))', []],
    ["another window's object", 1, [{ id: '11', label: 'x' }], '1(2(3,4))', []],
    [
        'closing',
        1,
        [
            { id: '1', command: 'close' },
            { id: '3', text: 'x' },
        ],
        '-',
        ['closed 1'],
    ],
    ['an inner object closed', 1, [{ id: '2', command: 'close' }], '1', ['removed 2']],
    [
        'a subtree keeps its place',
        1,
        { ...refresh, parentId: '2', id: '3', contents: [{ id: '5' }] },
        '1(2(3(5),4))',
        ['inserted 3 for old'],
    ],
    [
        'a new object comes last',
        1,
        { ...refresh, parentId: '2', id: '6' },
        '1(2(3,4,6))',
        ['inserted 6 last'],
    ],
    [
        'an object moves to another parent',
        1,
        { ...refresh, parentId: '1', id: '3' },
        '1(2(4),3)',
        ['removed 3', 'inserted 3 last'],
    ],
    [
        'a subtree takes an object in from elsewhere',
        1,
        { ...refresh, parentId: '2', id: '4', contents: [{ id: '3' }] },
        '1(2(4(3)))',
        ['removed 3', 'inserted 4 for old'],
    ],
    ['unknown parent', 1, { ...refresh, parentId: '77', id: '6' }, '1(2(3,4))', []],
    ['parent in another window', 1, { ...refresh, parentId: '11', id: '6' }, '1(2(3,4))', []],
    ['object of another window', 1, { ...refresh, parentId: '2', id: '11' }, '1(2(3,4))', []],
    ['into itself', 1, { ...refresh, parentId: '3', id: '2' }, '1(2(3,4))', []],
    ['into its own child', 1, { ...refresh, parentId: '4', id: '1' }, '1', ['reopened 1']],
    [
        'described within itself',
        1,
        { ...refresh, parentId: '1', id: '2', contents: [{ id: '3', contents: [{ id: '2' }] }] },
        '1(2(3))',
        ['inserted 2 for old'],
    ],
    [
        "a child that is another window's stays there",
        1,
        { ...refresh, parentId: '2', id: '3', contents: [{ id: '11' }, { id: '10' }, { id: '5' }] },
        '1(2(3(5),4))',
        ['inserted 3 for old'],
    ],
];

for (const [name, window, message, expected, told] of rows) {
    test(`store: ${name}`, () => {
        arrives(window, message);
        assert.equal(tree(1), expected);
        assert.equal(tree(10), '10(11)');
        assert.deepEqual(log, told);
    });
}

test("a window cannot be described out of another one's objects", () => {
    open({ id: '3', type: 'Dialog' });
    open({ id: '20', type: 'Dialog', contents: [{ id: '4' }, { id: '21' }] });
    assert.equal(tree(1), '1(2(3,4))');
    assert.equal(tree(20), '20(21)');
});

test('a window described again is the same window with other contents', () => {
    open({ id: '1', type: 'Dialog', contents: [{ id: '4' }] });
    assert.equal(tree(1), '1(4)');
    assert.equal(store.get(3), undefined);
    assert.deepEqual(log, ['reopened 1']);
});

test('what is kept of a window describes it as it is', () => {
    arrives(1, [
        { id: '3', text: 'typed' },
        { id: '1', geometry: '[1,2,3,4]' },
    ]);
    const window = store.get(1);
    assert.ok(window);
    const kept = JSON.parse(JSON.stringify(describe(window))) as object;
    store.clear();
    open(kept);
    assert.equal(tree(1), '1(2(3,4))');
    assert.equal(store.get(3)?.values.text, 'typed');
    assert.deepEqual(store.get(1)?.values.geometry, { x: 1, y: 2, width: 3, height: 4 });
});

test('nothing is told of objects that went before the end of the frame', () => {
    const object = store.get(3);
    assert.ok(object);
    store.write(object, 'text', 'x');
    store.clear();
    store.flush();
    assert.deepEqual(log, ['changed 3 text', 'closed 1', 'closed 10']);
});

test('a description deeper than any dialog is cut off, not followed', () => {
    let description: object = { id: '5000' };
    for (let id = 4999; id > 100; id -= 1) {
        description = { id: String(id), contents: [description] };
    }
    open({ id: '100', type: 'Dialog', contents: [description] });
    let depth = 0;
    for (let at = store.get(100); at !== undefined; at = at.children[0]) {
        depth += 1;
    }
    assert.ok(depth >= 50 && depth <= 200, `depth ${depth}`);
});
