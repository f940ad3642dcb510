import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';

import { constants, known, looseWords, unusedConstants } from './library.mjs';
import { places, ways } from './vocabulary.mjs';

/**
 * Everything that the C++ side knows by name has a schema, an example and a row; `exceptions.json`
 * says of what is missing, and why.
 */

const exceptions = JSON.parse(readFileSync(new URL('exceptions.json', import.meta.url), 'utf8'));

const named = (way) => (each, name) => each.get(way).members.has(name);
const stands = (way, member) => (each, name) =>
    each.get(way).texts.get(member)?.has(name) ?? false;

/** How a name of each sort stands in the messages. */
const occurs = {
    kind: stands('down', 'type'),
    property: named('down'),
    member: named('up'),
    event: stands('up', 'event'),
    word: (each, name) => [...each.get('down').texts.values()].some((texts) => texts.has(name)),
    'life cycle': (each, name) => named('up')(each, name) || named('down')(each, name),
    element: stands('model', 'type'),
    'element property': named('model'),
};

function lacking({ sort, name }) {
    return Object.keys(places).filter((place) => !occurs[sort](places[place], name));
}

test('what the C++ side knows is described, shown and replayed, or excused', () => {
    const missing = known.map((entry) => [`${entry.sort} ${entry.name}`, lacking(entry)]);
    const excused = exceptions.names.flatMap(({ sort, names, lacks }) =>
        names.map((name) => [`${sort} ${name}`, lacks]),
    );
    assert.deepEqual(
        Object.fromEntries(missing.filter(([, places]) => places.length > 0)),
        Object.fromEntries(excused),
    );
});

test('what the schemas allow is shown and replayed', () => {
    for (const way of ways) {
        const { members, texts } = places.schema.get(way);
        for (const place of [places.example, places.row]) {
            const found = place.get(way);
            assert.deepEqual([...members].filter((name) => !found.members.has(name)), [], way);
            const events = [...(texts.get('event') ?? [])];
            assert.deepEqual(events.filter((name) => !found.texts.get('event').has(name)), []);
        }
    }
});

test('every excuse gives a reason', () => {
    const lists = Object.values(exceptions).flat();
    assert.deepEqual(lists.filter(({ because }) => !/\w \w/.test(because ?? '')), []);
});

test('no word stands in the library beside the tables, but for these', () => {
    const excused = exceptions.words.map(({ file, words }) => [file, [...words].sort()]);
    const loose = new Map();
    for (const { file, word } of looseWords()) {
        loose.set(file, (loose.get(file) ?? new Set()).add(word));
    }
    const found = [...loose].map(([file, words]) => [file, [...words].sort()]);
    assert.deepEqual(Object.fromEntries(found), Object.fromEntries(excused));
});

test('every name in the tables is used, but for these', () => {
    assert.ok(constants.length > 0);
    assert.deepEqual(
        unusedConstants().map(({ identifier }) => identifier),
        exceptions.unused.map(({ identifier }) => identifier),
    );
});
