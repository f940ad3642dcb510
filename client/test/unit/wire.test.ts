import assert from 'node:assert/strict';
import { test } from 'node:test';
import { decodeGreeting } from '../../src/gateway/control.ts';
import { Session, type StoredSession } from '../../src/gateway/Session.ts';
import * as events from '../../src/protocol/events.ts';
import type { Rect } from '../../src/protocol/geometry.ts';
import { type JsonObject, parseJson } from '../../src/protocol/guards.ts';
import { dialogDestroyed, dialogReady } from '../../src/protocol/lifecycle.ts';
import { Event, Kind, Up } from '../../src/protocol/names.ts';
import { propertyNames } from '../../src/protocol/properties.ts';
import { type EventMembers, type EventName, triggers } from '../../src/protocol/values.ts';
import { assertApplied, objectsIn, structure } from '../support/applied.ts';
import { changes, WirePage } from '../support/WirePage.ts';
import {
    arrivalsIn,
    type FrameRow,
    type Ids,
    type Row,
    rows,
    shortChannel,
} from '../support/wireRows.ts';

/** The same messages that the program's side replays, at this end of the wire. */

const absent = new Set<string>();
const outgoing = ['outgoing', 'descriptions'].flatMap((folder) => rows.readRows(folder));

function* textsOf(row: Row, ids: Ids): Generator<readonly [address: string, text: string]> {
    for (const step of rows.stepsOf(row)) {
        yield* arrivalsIn(row, step, ids);
    }
}

for (const row of outgoing) {
    test(`${row.file}: ${row.name}; cut short nothing happens, and a reload keeps it`, () => {
        const page = new WirePage(row);
        for (const [address, text] of textsOf(row, page.ids)) {
            const before = page.state();
            page.told.length = 0;
            for (let length = 0; length < text.length; length += 1) {
                page.arrives(address, text.slice(0, length));
            }
            assert.deepEqual([page.state(), page.told], [before, []]);
            page.arrives(address, text);
            for (const message of [JSON.parse(text)].flat() as JsonObject[]) {
                if (!assertApplied(page, row, message)) {
                    absent.add(row.name);
                }
            }
        }
        const shown = page.state();
        page.reload();
        assert.deepEqual(page.state(), shown);
    });
}

test('the objects that the rows write to are in the page', () => {
    // They were never described: the page learns of them with the next description.
    assert.deepEqual(
        [...absent],
        [
            'a widget added after the show is served by the window',
            'adding the first page makes it current, unsent',
        ],
    );
});

// What a page must survive.

for (const row of rows.readRows('garbled')) {
    test(`${row.file}: ${row.name}`, () => {
        const page = new WirePage(row);
        const before = page.state();
        for (const [address, text] of textsOf(row, page.ids)) {
            page.arrives(address, text);
        }
        if (row.applies !== 'any') {
            assert.deepEqual(changes(before, page.state()), [...(row.applies ?? [])].sort());
        }
        assert.deepEqual(row.tells ?? page.told, page.told);
        const [button, other] = ['otherButton', 'other'].map((name) => page.ids.get(name));
        page.arrives(`./${other}`, `[{"id":"${button}","label":"still there"}]`);
        assert.equal(page.state()['otherButton.label'], 'still there');
    });
}

test('a description deeper than any dialog is cut off, not followed', () => {
    const page = new WirePage({ name: '', file: '' });
    const levels = Array.from({ length: 1000 }, (_, index) => index + 100).reverse();
    const deep = levels.reduce<object[]>(
        (contents, id) => [{ id: String(id), type: 'Dialog', contents }],
        [],
    );
    page.arrives('.', JSON.stringify(deep[0]));
    const depth = Object.keys(page.state()).filter((key) => /^\d+\.contents/.test(key)).length;
    assert.ok(depth >= 50 && depth <= 200, `depth ${depth}`);
});

// Frames.

/** A session on a new connection that has no news of it yet. */
function sessionOf(stored: StoredSession): Session {
    const session = Session.restore(stored);
    assert.ok(session !== undefined);
    assert.ok(session.resume(stored.firstPending - 1));
    return session;
}

function readDown(row: FrameRow, frame: string): void {
    // A few of what it has sent are not acknowledged yet.
    const pending = Array(Math.min(row.sent, 5)).fill({ channel: '.', text: '' });
    const firstPending = row.sent - pending.length + 1;
    const session = sessionOf({ received: row.received, firstPending, pending });
    session.takeFrames();
    const records = session.receive(frame);
    if (row.restart || row.again || records === 'gap') {
        assert.equal(records, row.again ? 'gap' : undefined);
        return;
    }
    const first = session.received - (records?.length ?? 0) + 1;
    assert.deepEqual(
        records?.map(({ channel, text }, index) => [first + index, channel, text]),
        row.records.map(([number, channel, text]) => [number, shortChannel(channel), text]),
    );
    assert.equal(session.store().firstPending - 1, row.acknowledged);
}

function readGreeting({ session }: FrameRow, frame: string): void {
    const isLast = session?.session === 'resumed';
    const expected = isLast ? session : session && { session: session.session };
    assert.deepEqual(decodeGreeting(frame), expected);
}

/** The page as the writer has received what the frame acknowledges. */
function writeUp(row: FrameRow, frame: string): void {
    const next = row.records[0]?.[0] ?? row.received + 1;
    const session = sessionOf({ received: row.acknowledged, firstPending: next, pending: [] });
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

type Say = (id: number, ...values: readonly unknown[]) => string | undefined;

/** A window that stood elsewhere before, or nowhere yet. */
function placed(before: (now: events.WindowPlace) => events.WindowPlace | undefined): Say {
    return (id, geometry, frame) => {
        const now = place(geometry as Rect, frame as Rect);
        return events.placeChange(id, now, before(now));
    };
}

function says(event: EventName, ...members: readonly string[]): Say {
    return (id, ...values) => {
        const told = Object.fromEntries(members.map((member, index) => [member, values[index]]));
        return events.happened(id, event, told as unknown as EventMembers[EventName]);
    };
}

const verbs = new Map<string, Say>([
    ['click', says(Event.onClick)],
    ['toggle', says(Event.onToggle, 'value')],
    ['input', says(Event.onEdit, 'value')],
    ['finish', says(Event.onEditFinish, 'value')],
    ['select', says(Event.onSelectionChange, 'index', 'value')],
    ['showText', says(Event.textShown, 'value')],
    ['turnTo', says(Event.tabchanged, 'newIndex')],
    ['closeTab', says(Event.close, 'newIndex')],
    ['increaseFontSize', (id) => events.fontSizeStep(id, true)],
    ['decreaseFontSize', (id) => events.fontSizeStep(id, false)],
    ['place', placed(() => undefined)],
    ['move', placed(({ geometry }) => ({ ...still, geometry: { ...geometry, x: -1 } }))],
    ['resize', placed(() => still)],
    ['maximize', (id) => events.placeChange(id, { ...still, maximized: true }, still)],
    ['minimize', (id) => events.placeChange(id, { ...still, minimized: true }, still)],
    ['close', dialogDestroyed],
    ['ready', dialogReady],
]);

const acting = ['outgoing', 'incoming', 'lifecycle'].flatMap((folder) =>
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

test('of a window that stays where it is nothing is told', () => {
    assert.equal(events.placeChange(1, still, still), undefined);
});

// Nothing is known to one side only.

const sent = outgoing
    .flatMap((row) => [...textsOf(row, rows.identifiersOf(row))])
    .flatMap(([, text]) => [...objectsIn(JSON.parse(text))]);
const described = sent.filter((object) => 'id' in object && !('command' in object));
const said = acting.map(({ step }) => step.text as JsonObject);

function sorted(values: Iterable<unknown>): string[] {
    return [...new Set(values)].map(String).sort();
}

const properties = [...propertyNames, ...triggers];

/** Writes to a page of tabs bear the name of what it is made of; its description says what it is. */
const PAGE_WRITES = 'WebContainer2';

const coverage: Readonly<Record<string, readonly [inRows: unknown[], known: unknown[]]>> = {
    kind: [
        described.map((object) => object['type']).filter((type) => type !== PAGE_WRITES),
        Object.values(Kind),
    ],
    property: [described.flatMap(Object.keys).filter((name) => !structure.has(name)), properties],
    action: [acting.map(({ step }) => step.action?.[1]), [...verbs.keys()]],
    event: [said.flatMap((text) => text['event'] ?? []), Object.values(Event)],
    'member of what the page says': [
        said.flatMap(Object.keys).filter((name) => !name.startsWith('dialog')),
        Object.values(Up),
    ],
};

for (const [what, [inRows, known]] of Object.entries(coverage)) {
    test(`every ${what} has a row, and every row's ${what} is known`, () => {
        assert.deepEqual(sorted(inRows), sorted(known));
    });
}
