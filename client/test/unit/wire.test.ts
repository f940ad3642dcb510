import assert from 'node:assert/strict';
import { test } from 'node:test';
import { decodeGreeting } from '../../src/gateway/control.ts';
import { Session } from '../../src/gateway/Session.ts';
import * as events from '../../src/protocol/events.ts';
import { parseJson, type JsonObject } from '../../src/protocol/guards.ts';
import { dialogDestroyed, dialogReady } from '../../src/protocol/lifecycle.ts';
import { Event, Kind, Up } from '../../src/protocol/names.ts';
import { propertyNames, triggers } from '../../src/protocol/properties.ts';
import type { Rect } from '../../src/protocol/geometry.ts';
import type { StoredObject } from '../../src/store/StoredObject.ts';
import { shortChannel, WirePage } from '../support/WirePage.ts';
import { rows, type FrameRow, type Row, type Step } from '../support/wireRows.ts';

/** The same messages that the program's side replays, at this end of the wire. */

const WINDOW_CHANNEL = '/dova2/web/page/${window}';
const structure = new Set(['id', 'type', 'contents', 'msgType', 'parentId', 'command', 'version']);
const triggerNames: ReadonlySet<string> = new Set(triggers);
const rectNames = new Set(['geometry', 'frameGeometry', 'saveGeometry']);

interface Arrival {
    readonly address: string;
    readonly text: string;
}

function* arrivals(page: WirePage, steps: readonly Step[]): Generator<Arrival> {
    for (const step of steps) {
        const sends = (step.sends ?? []).map((text) => [WINDOW_CHANNEL, text] as const);
        for (const [address, value] of step.publishes ?? sends) {
            yield { address, text: rows.textOf(value, page.ids) ?? '' };
        }
    }
}

/** Every object in a message of the program, with what it says of it. */
function* objectsIn(message: unknown): Generator<JsonObject> {
    for (const object of [message].flat() as JsonObject[]) {
        yield object;
        yield* objectsIn(object['contents'] ?? []);
    }
}

// What the program says: every property in it is applied.

function assertApplied(page: WirePage, row: Row, message: JsonObject): void {
    if (message['type'] === 'messagebox') {
        const box = page.boxes.at(-1);
        assert.deepEqual([box?.title, box?.body], [message['title'], message['body']]);
        assert.equal(box?.modal, message['modal'] === 'true');
        return;
    }
    const object = page.store.get(Number(message['id']));
    if (message['command'] === 'close') {
        assert.equal(object, undefined, 'a closed window is still there');
    } else if (object !== undefined) {
        assertProperties(page, row, object, message);
    }
}

function assertProperties(
    page: WirePage,
    row: Row,
    object: StoredObject,
    message: JsonObject,
): void {
    for (const [name, sent] of Object.entries(message)) {
        const isRect = !rectNames.has(name) || /^\[.+\]$/.test(String(sent));
        if (triggerNames.has(name)) {
            const told = page.triggered.includes(`${object.id} ${name}`);
            assert.ok(told || object.triggers.some((trigger) => trigger === name), name);
        } else if (!structure.has(name)) {
            const expected = row.unusable || !isRect ? undefined : sent;
            assert.deepEqual(page.value(object, name), expected, name);
        }
    }
    if ('msgType' in message) {
        assert.equal(object.parent?.id, Number(message['parentId']));
    }
    const contents = (message['contents'] ?? []) as JsonObject[];
    if (contents.length > 0 || 'msgType' in message) {
        const inner = object.children.map((child) => String(child.id));
        assert.deepEqual(
            inner,
            contents.map((content) => content['id']),
        );
    }
}

for (const row of ['outgoing', 'descriptions'].flatMap((folder) => rows.readRows(folder))) {
    test(`${row.file}: ${row.name}`, () => {
        const page = new WirePage(row);
        for (const { address, text } of arrivals(page, rows.stepsOf(row))) {
            page.triggered.length = 0;
            page.arrives(address, text);
            for (const message of objectsIn(JSON.parse(text))) {
                assertApplied(page, row, message);
            }
        }
    });

    test(`${row.file}: ${row.name}, cut short anywhere: nothing happens`, () => {
        const page = new WirePage(row);
        const before = page.state();
        for (const { address, text } of arrivals(page, rows.stepsOf(row))) {
            for (let length = 0; length < text.length; length += 1) {
                page.arrives(address, text.slice(0, length));
            }
        }
        assert.deepEqual(page.state(), before);
        assert.deepEqual([page.triggered, page.boxes], [[], []]);
    });
}

test('the objects that the rows write to are in the page', () => {
    const absent: string[] = [];
    for (const row of rows.readRows('outgoing')) {
        const page = new WirePage(row);
        for (const { address, text } of arrivals(page, rows.stepsOf(row))) {
            page.arrives(address, text);
            for (const { id, command } of objectsIn(JSON.parse(text))) {
                if (id !== undefined && command === undefined && !page.store.get(Number(id))) {
                    absent.push(row.name);
                }
            }
        }
    }
    // It was never described: the page learns of it with the next description.
    assert.deepEqual(absent, ['a widget added after the show is served by the window']);
});

// What a page must survive.

for (const row of rows.readRows('garbled')) {
    test(`${row.file}: ${row.name}`, () => {
        const page = new WirePage(row);
        const before = page.state();
        page.arrives(row.channel ?? WINDOW_CHANNEL, rows.textOf(row.text, page.ids) ?? '');
        if (row.applies !== 'any') {
            const changed = [...page.state()].filter(([key, value]) => before.get(key) !== value);
            const expected = (row.applies ?? []).map(([object, name, value]) => [
                `${object}.${name}`,
                value,
            ]);
            assert.deepEqual(changed.sort(), expected.sort());
        }
        const good = `[{"id":"${page.ids.get('button')}","label":"still there"}]`;
        page.arrives(WINDOW_CHANNEL, good);
        assert.equal(page.state().get('button.label'), 'still there');
    });
}

// Frames.

/** A session that has received and sent so many records; a few are not acknowledged yet. */
function sessionAt(received: number, sent: number): Session {
    const waiting = Math.min(sent, 5);
    const pending = Array.from({ length: waiting }, () => ({ channel: '.', text: '{}' }));
    const session = Session.restore({ received, firstPending: sent - waiting + 1, pending });
    assert.ok(session);
    assert.ok(session.resume(sent - waiting));
    session.takeFrames();
    return session;
}

function readDown(row: FrameRow, frame: string): void {
    const session = sessionAt(row.received, row.sent);
    const records = session.receive(frame);
    if (row.restart) {
        assert.equal(records, undefined);
        return;
    }
    const first = session.received - (records?.length ?? 0) + 1;
    assert.deepEqual(
        records?.map(({ channel, text }, index) => [first + index, channel, text]),
        row.records.map(([number, channel, text]) => [number, shortChannel(channel), text]),
    );
    assert.equal(session.store().firstPending - 1, row.acknowledged);
}

function readGreeting(row: FrameRow, frame: string): void {
    const greeting = decodeGreeting(frame);
    assert.equal(greeting?.session, row.session?.session);
    if (greeting?.session === 'resumed') {
        assert.equal(greeting.received, row.session?.received);
    }
}

/** The page as the writer has received what the frame acknowledges. */
function writeUp(row: FrameRow, frame: string): void {
    const next = row.records[0]?.[0] ?? row.received + 1;
    const stored = { received: row.acknowledged, firstPending: next, pending: [] };
    const session = Session.restore(stored);
    assert.ok(session);
    assert.ok(session.resume(next - 1));
    for (const [, channel, text] of row.records) {
        session.push(shortChannel(channel), text);
    }
    assert.deepEqual(session.takeFrames(), [frame]);
}

for (const row of rows.readRows('frames')) {
    const frame = rows.textOf(row.frame, new Map()) ?? '';
    if (row.direction === 'down') {
        test(`frame down: ${row.name}`, () => (row.first ? readGreeting : readDown)(row, frame));
    } else if (row.canonical) {
        test(`frame up: ${row.name}`, () => writeUp(row, frame));
    }
}

// What the page says: exactly what the rows show to be understood.

function place(geometry: Rect, frameGeometry: Rect): events.WindowPlace {
    return { geometry, frameGeometry, maximized: false, minimized: false };
}

const somewhere: Rect = { x: 1, y: 2, width: 3, height: 4 };
const still = place(somewhere, somewhere);

function moved(id: number, geometry: unknown, frame: unknown): string | undefined {
    const { width, height } = geometry as Rect;
    const before = place({ ...somewhere, width, height }, somewhere);
    return events.placeChange(id, place(geometry as Rect, frame as Rect), before);
}

type Say = (id: number, ...values: readonly unknown[]) => string | undefined;

const verbs = new Map<string, Say>([
    ['click', events.clicked],
    ['toggle', (id, value) => events.toggled(id, value as boolean)],
    ['input', (id, value) => events.edited(id, value as string)],
    ['finish', (id, value) => events.editFinished(id, value as string)],
    ['increaseFontSize', (id) => events.fontSizeStep(id, true)],
    ['decreaseFontSize', (id) => events.fontSizeStep(id, false)],
    ['move', moved],
    [
        'resize',
        (id, content, frame) =>
            events.placeChange(id, place(content as Rect, frame as Rect), still),
    ],
    ['maximize', (id) => events.placeChange(id, { ...still, maximized: true }, still)],
    ['minimize', (id) => events.placeChange(id, { ...still, minimized: true }, still)],
    ['close', dialogDestroyed],
    ['ready', dialogReady],
]);

const acting = ['incoming', 'lifecycle'].flatMap((folder) =>
    rows
        .readRows(folder)
        .flatMap((row) => rows.stepsOf(row).map((step) => ({ row, step })))
        .filter(({ step }) => step.action !== undefined),
);

for (const { row, step } of acting) {
    const [object = '', verb = '', ...values] = step.action ?? [];
    test(`${row.file}: ${row.name}: ${verb}`, () => {
        const ids = rows.identifiersOf(row);
        const said = verbs.get(verb)?.(ids.get(object) ?? 0, ...values);
        assert.deepEqual(parseJson(said ?? ''), parseJson(rows.textOf(step.text, ids) ?? ''));
    });
}

// Nothing is known to one side only.

const sent = ['outgoing', 'descriptions'].flatMap((folder) =>
    rows.readRows(folder).flatMap((row) => {
        const page = new WirePage(row);
        return [...arrivals(page, rows.stepsOf(row))].flatMap(({ text }) => [
            ...objectsIn(JSON.parse(text)),
        ]);
    }),
);
const described = sent.filter((object) => 'id' in object && !('command' in object));
const said = acting.map(({ step }) => step.text as JsonObject);

/** What the page tells of a window comes back with the window's next description. */
const owned = said.flatMap(Object.keys).filter((name) => name in Up && isProperty(name));

function propertiesOf(object: JsonObject): string[] {
    return Object.keys(object).filter((name) => !structure.has(name));
}

function isProperty(name: string): boolean {
    return propertyNames.some((known) => known === name);
}

function sorted(values: Iterable<unknown>): string[] {
    return [...new Set(values)].map(String).sort();
}

type Coverage = readonly [what: string, inRows: string[], known: string[]];

const coverage: readonly Coverage[] = [
    ['kind', sorted(described.map((object) => object['type'])), sorted(Object.values(Kind))],
    [
        'property',
        sorted([...owned, ...described.flatMap(propertiesOf)]),
        sorted([...propertyNames, ...triggers]),
    ],
    ['action', sorted(acting.map(({ step }) => step.action?.[1])), sorted(verbs.keys())],
    [
        'event',
        sorted(said.map((text) => text['event']).filter((event) => event !== undefined)),
        sorted(Object.values(Event)),
    ],
    [
        'member of what the page says',
        sorted(said.flatMap(Object.keys).filter((name) => !name.startsWith('dialog'))),
        sorted(Object.values(Up)),
    ],
];

for (const [what, inRows, known] of coverage) {
    test(`every ${what} has a row, and every row's ${what} is known`, () => {
        assert.deepEqual(inRows, known);
    });
}
