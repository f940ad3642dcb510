import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';

import { constants, known, looseWords, unusedConstants } from './library.mjs';
import { handles } from './page.mjs';
import { api, examples, messagesOn, schemas } from './protocol.mjs';
import { forms } from './texts.mjs';

/**
 * Everything that the C++ side knows by name has a schema, an example, a row and something that the
 * page does with it; `exceptions.json` says of what is missing, and why.
 */

const exceptions = JSON.parse(readFileSync(new URL('exceptions.json', import.meta.url), 'utf8'));

/** Names of members, and which texts stand under each. */
class Vocabulary {
    members = new Set();
    texts = new Map();

    put(member, text) {
        this.members.add(member);
        if (typeof text === 'string') {
            this.texts.set(member, (this.texts.get(member) ?? new Set()).add(text));
        }
    }

    /** Takes over a value as it stands on the wire; a path of a patch names a property, too. */
    takeValue(value) {
        if (typeof value !== 'object' || value === null) {
            return;
        }
        for (const [member, inner] of Object.entries(value)) {
            if (!Array.isArray(value)) {
                this.put(member, inner);
            }
            if (member === 'path' && inner.split('/').length > 2) {
                this.put(inner.split('/')[2]);
            }
            this.takeValue(inner);
        }
    }

    /** Takes over what a schema allows, with all that it refers to. */
    takeSchema(schema, file, seen = new Set()) {
        if (typeof schema !== 'object' || schema === null || seen.has(schema)) {
            return;
        }
        seen.add(schema);
        const { $ref, properties = {}, ...rest } = schema;
        if (typeof $ref === 'string') {
            const [other, pointer] = $ref.split('#');
            const target = other === '' ? file : other.replace('./schemas/', '');
            const steps = (pointer ?? '').split('/').slice(1);
            const found = steps.reduce((value, step) => value[step], schemas.get(target));
            this.takeSchema(found, target, seen);
        }
        for (const [member, inner] of Object.entries(properties)) {
            [inner.const, ...(inner.enum ?? [])].forEach((text) => this.put(member, text));
            this.takeSchema(inner, file, seen);
        }
        Object.entries(rest)
            .filter(([keyword]) => !['definitions', 'not'].includes(keyword))
            .forEach(([, inner]) => this.takeSchema(inner, file, seen));
    }
}

const ways = ['down', 'up', 'model'];

/** Which way a message goes, what travels about the model by itself; those of the socket: none. */
function wayOf(message) {
    const goes = (channels, action) =>
        channels.some((channel) => messagesOn(channel, action).includes(message));
    const windows = ['root', 'client', 'window'];
    return [
        goes(windows, 'send') && 'down',
        goes(windows, 'receive') && 'up',
        goes(['model'], 'send') && 'model',
    ].find(Boolean);
}

/** A vocabulary for each way, from `[message, ...]` entries. */
function vocabularies(entries, take) {
    const each = new Map(ways.map((way) => [way, new Vocabulary()]));
    for (const [message, ...rest] of entries) {
        const vocabulary = each.get(wayOf(message));
        if (vocabulary !== undefined) {
            take(vocabulary, ...rest);
        }
    }
    return each;
}

const takeValue = (vocabulary, value) => vocabulary.takeValue(value);
// A garbled text is no row of what it was made from.
const replayed = [forms.library, forms.frames, forms.model].flatMap(({ rows, texts }) =>
    rows.flatMap(texts).filter(({ kind, conforms }) => kind !== undefined && conforms),
);

const places = {
    schema: vocabularies(
        Object.entries(api.components.messages).map(([name, { payload }]) => [name, payload]),
        (vocabulary, payload) => vocabulary.takeSchema(payload, ''),
    ),
    example: vocabularies(examples.map(({ message, payload }) => [message, payload]), takeValue),
    row: vocabularies(replayed.map(({ kind, payload }) => [kind, payload]), takeValue),
};

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

function lacking(entry) {
    const absent = Object.keys(places).filter(
        (place) => !occurs[entry.sort](places[place], entry.name),
    );
    return handles(entry) ? absent : [...absent, 'page'];
}

test('what the C++ side knows is described, shown, replayed and handled, or excused', () => {
    const missing = known.map((entry) => [`${entry.sort} ${entry.name}`, lacking(entry)]);
    const excused = exceptions.names.flatMap(({ sort, names, lacks }) =>
        names.map((name) => [`${sort} ${name}`, lacks]),
    );
    assert.deepEqual(
        Object.fromEntries(missing.filter(([, places]) => places.length > 0)),
        Object.fromEntries(excused),
    );
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
