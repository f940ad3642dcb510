import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { mark } from '../../protocol/generate/mark.mjs';
import {
    bases,
    elementBases,
    eventMembers,
    events,
    gateway,
    kinds,
    lifeCycle,
    messages,
    nameOf,
    ofObjects,
    paths,
    properties,
    typeInWrites,
} from '../../protocol/table.mjs';
import { flattened } from './protocol.mjs';
import { scene } from './rows.mjs';
import { forms } from './texts.mjs';

/**
 * What the rows put on the wire is what the table says, no more and no less. What the page does
 * with it, the client's tests find out with the same table.
 */

const textsOf = ({ rows, texts }) => rows.flatMap(texts).filter(({ kind }) => kind !== undefined);
const library = textsOf(forms.library);

/** `kind way property` of everything that the program says of objects in these messages. */
function* saidOfObjects() {
    const ways = { description: 'described', refresh: 'described', propertyWrite: 'sent' };
    for (const { kind, payload } of library.filter(({ kind }) => kind in ways)) {
        for (const object of [payload].flat().flatMap(flattened)) {
            yield* Object.keys(object).map((name) => `${object.type} ${ways[kind]} ${name}`);
        }
    }
}

/** The same of elements; what a patch does to one is said of the kind that came with its UUID. */
function* saidOfElements() {
    for (const row of forms.model.rows) {
        const types = new Map();
        for (const { payload } of forms.model.texts(row)) {
            const added = (payload.patch ?? [])
                .filter(({ value }) => value?.type)
                .map(({ path, value }) => [path.slice(1), value]);
            for (const [uuid, element] of [...Object.entries(payload.snapshot ?? {}), ...added]) {
                types.set(uuid, element.type);
                yield* Object.keys(element).map((name) => `${element.type} element ${name}`);
            }
            const paths = (payload.patch ?? []).map(({ path }) => path.split('/'));
            yield* paths
                .filter(([, , name]) => name !== undefined)
                .map(([, uuid, name]) => `${types.get(uuid)} element ${name}`);
        }
    }
}

const seen = new Set([...saidOfObjects(), ...saidOfElements()]);

/** How the table's entry stands in the messages of each way that it knows, as above. */
function* waysOf(name, entry) {
    if (entry.sent !== 'never') {
        yield [`sent`, `${typeInWrites(entry)} sent ${name}`];
    }
    if (entry.described !== 'never') {
        yield [`described`, `${entry.kind.name} described ${name}`];
    }
    if (entry.element) {
        yield [`element`, `${entry.kind.name} element ${name}`];
    }
}

const entries = properties.flatMap(({ name, entries: all }) =>
    [...all.values()].flatMap((entry) =>
        [...waysOf(name, entry)].map(([way, use]) => ({
            line: `${name} of ${entry.names}, ${way}`,
            use,
        })),
    ),
);

test('every property on the wire stands in the table for that kind and way', () => {
    const uses = new Set(entries.map(({ use }) => use));
    const frame = new Set(['type', ...messages.down.members]);
    const isProperty = (use) =>
        !frame.has(use.split(' ')[2]) || ofObjects.some(({ name }) => use.endsWith(` ${name}`));
    assert.deepEqual(
        [...seen].filter((use) => isProperty(use) && !uses.has(use)),
        [],
    );
});

test('every line of the table has a row for each way that it says', () => {
    const shown = new Set(entries.filter(({ use }) => seen.has(use)).map(({ line }) => line));
    const lines = new Set(entries.map(({ line }) => line));
    assert.ok(lines.size > 100);
    assert.deepEqual(
        [...lines].filter((line) => !shown.has(line)),
        [],
    );
});

test('every kind, message, event and member has a row', () => {
    const types = new Set([...seen].map((use) => use.split(' ')[0]));
    const said = library.flatMap(({ payload, row }) => [payload].flat().map((one) => [one, row]));
    const members = new Set(said.flatMap(([payload]) => Object.keys(payload)));
    const values = new Set(said.flatMap(([payload]) => Object.values(payload)));
    const objectOf = (id, row) => (row.scene ?? scene).objects[Number(id) - 1]?.kind;
    const happened = new Set(
        said.map(([{ event, id }, row]) => `${event} of ${objectOf(id, row)}`),
    );
    const absent = [
        ...kinds.map(nameOf).filter((name) => !types.has(name)),
        ...bases.filter(({ name, unsent }) => !unsent && !types.has(name)),
        ...[...lifeCycle.map(nameOf), ...messages.down.members, ...eventMembers].filter(
            (name) => !members.has(name),
        ),
        ...Object.values(messages.down.types).filter((text) => !values.has(text)),
        ...events
            .flatMap(({ name, of }) => Object.keys(of).map((kind) => `${name} of ${kind}`))
            .filter((use) => !happened.has(use)),
    ];
    assert.deepEqual(absent, []);
});

test('no name of the wire is written by hand in the sources of the library and the platform', () => {
    const root = fileURLToPath(new URL('../..', import.meta.url));
    const rooms = ['include', 'web', 'platform/model', 'platform/gateway', 'platform/runtime'];
    const list = execFileSync('git', ['ls-files', '-co', '--exclude-standard', ...rooms], {
        cwd: root,
    });
    const names = new Set([
        ...[...kinds, ...bases, ...properties, ...events, ...lifeCycle, ...gateway.query].map(
            nameOf,
        ),
        ...[...elementBases, ...messages.down.members, ...messages.model.members, ...eventMembers],
        ...Object.values(messages.channels).map(({ address }) => address),
        ...[...Object.values(paths), gateway.subProtocol],
    ]);
    const sources = list
        .toString()
        .split('\n')
        .filter((path) => /\.(cpp|h)$/.test(path));
    assert.ok(sources.length > 100);
    // What is for scripts has no messages, and the words of patches are those of RFC 6902.
    const own = sources.filter((path) => !/\/scripting\/|\/PatchText/.test(path));
    const found = own.flatMap((path) => {
        const text = readFileSync(`${root}/${path}`, 'utf8');
        const code = text.replace(/\/\/.*/g, '');
        const words = text.includes(mark) ? [] : [...code.matchAll(/"([\w./]+)\\?"/g)];
        return words.filter(([, word]) => names.has(word)).map(([, word]) => `${path}: ${word}`);
    });
    assert.deepEqual(found, []);
});
