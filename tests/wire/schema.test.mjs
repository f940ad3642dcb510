import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { describe, test } from 'node:test';

import { compact, identifiersOf, readRows, stepsOf, textOf } from './rows.mjs';
import {
    api, clientEvents, examples, flattened, folder, kindOf, labelOf, messagesOn, missingFrom,
    properties, readJson, schemas, validators,
} from './protocol.mjs';

/** The documentation, its schemas and examples, and the rows say the same. */

// ---- what the rows put on the wire

const defaultChannel = '/dova2/web/page/${window}';

/** A channel as rows write it: that of a window ends with the placeholder of an object. */
function channelKind(address) {
    if (address === '/dova2/web') {
        return 'root';
    }
    return /\$\{\w+\}$/.test(address) ? 'window' : 'client';
}

function parse(text) {
    try {
        return JSON.parse(text);
    } catch {
        return undefined;
    }
}

function entryOf(row, channel, action, text, conforms) {
    const isPlain = channel === 'socket' && !row.first;
    const payload = isPlain ? text : parse(text);
    const kind = kindOf(channel, action, payload);
    return { row, channel, action, text, payload, conforms, kind };
}

function* publishedBy(step) {
    yield* step.publishes ?? (step.sends ?? []).map((text) => [defaultChannel, text]);
}

function* libraryTexts(row) {
    const identifiers = identifiersOf(row);
    for (const step of stepsOf(row)) {
        for (const [address, value] of publishedBy(step)) {
            yield entryOf(row, channelKind(address), 'send', textOf(value, identifiers), true);
        }
        if (step.text !== undefined) {
            const text = textOf(step.text, identifiers);
            const channel = channelKind(step.channel ?? defaultChannel);
            yield entryOf(row, channel, 'receive', text, step.conforms ?? true);
        }
    }
}

function garbledText(row) {
    const text = textOf(row.text, identifiersOf(row));
    const channel = channelKind(row.channel ?? defaultChannel);
    return entryOf(row, channel, 'send', text, row.conforms ?? true);
}

function frameText(row) {
    const action = row.direction === 'up' ? 'receive' : 'send';
    return entryOf(row, 'socket', action, textOf(row.frame, new Map()), row.conforms ?? true);
}

const libraryRows = ['outgoing', 'descriptions', 'incoming', 'lifecycle'].flatMap(readRows);
const garbledRows = readRows('garbled');
const frameRows = readRows('frames');
const texts = [
    ...libraryRows.flatMap((row) => [...libraryTexts(row)]),
    ...garbledRows.filter((row) => row.applies !== 'any').map(garbledText),
    ...frameRows.map(frameText),
];
const conforming = texts.filter((entry) => entry.kind !== undefined);

// ---- rows and schemas

describe('rows', () => {
    for (const rows of [libraryRows, garbledRows, frameRows]) {
        for (const file of new Set(rows.map((row) => row.file))) {
            test(`${file} agrees with the schemas`, () => {
                const wrong = texts
                    .filter((entry) => entry.row.file === file)
                    .filter((entry) => (entry.kind !== undefined) !== entry.conforms)
                    .map(({ row, kind, text }) => [row.name, kind, text?.slice(0, 200)]);
                assert.deepEqual(wrong, []);
            });
        }
    }

    test('every message, property and event has a row', () => {
        assert.deepEqual(missingFrom(conforming), []);
    });

    const without = (isWanted) => missingFrom(conforming.filter((entry) => !isWanted(entry)));
    const someObject = (payload, is) =>
        [payload].flat().filter((value) => typeof value === 'object').flatMap(flattened).some(is);

    test('a message, property or event without rows would be noticed', () => {
        for (const name of validators.keys()) {
            assert.ok(without((entry) => entry.kind === name).includes(name), name);
        }
        for (const property of properties) {
            const has = (object) => property.name in object;
            const missing = without(({ payload }) => someObject(payload, has));
            assert.ok(missing.includes(labelOf(property)), labelOf(property));
        }
        for (const { name, isIn } of clientEvents) {
            assert.ok(without(({ payload }) => someObject(payload, isIn)).includes(name), name);
        }
    });

    test('texts written out in full stand as the library writes them', () => {
        const full = libraryRows.flatMap(stepsOf).flatMap((step) => [...publishedBy(step)]);
        const raw = full.map(([, text]) => text).filter((text) => typeof text === 'string');
        assert.ok(raw.length > 0);
        for (const text of raw) {
            assert.equal(compact(JSON.parse(text)), text);
        }
    });

    const keys = {
        library: [
            'name', 'file', 'scene', 'client', 'online', 'scale', 'applicationRoot', 'listeners',
            'unusable', 'handlers', 'steps', 'calls', 'channel', 'text', 'conforms', 'action',
            'sends', 'publishes', 'events', 'anyOrder', 'state',
        ],
        garbled: ['name', 'file', 'channel', 'text', 'conforms', 'applies'],
        frames: [
            'name', 'file', 'direction', 'first', 'received', 'sent', 'frame', 'conforms',
            'records', 'acknowledged', 'canonical', 'close', 'restart', 'session',
        ],
    };
    const forms = { library: libraryRows, garbled: garbledRows, frames: frameRows };
    for (const [form, rows] of Object.entries(forms)) {
        test(`${form} rows have unique names and no unknown keys`, () => {
            const names = rows.map((row) => `${row.file}: ${row.name}`);
            assert.deepEqual(names.filter((name, index) => names.indexOf(name) !== index), []);
            const used = rows.flatMap((row) => [row, ...stepsOf(row)]).flatMap(Object.keys);
            assert.deepEqual([...new Set(used)].filter((key) => !keys[form].includes(key)), []);
        });
    }

    test('library rows name only objects of their scene', () => {
        for (const row of libraryRows) {
            const known = new Set(['program', ...identifiersOf(row).keys()]);
            const handlers = (row.handlers ?? []).flatMap(({ on, calls }) => [on, ...calls]);
            const named = stepsOf(row).flatMap((step) => [
                ...(step.calls ?? []),
                ...(step.events ?? []),
                ...(step.state ?? []),
                ...(step.action ? [step.action] : []),
            ]);
            for (const [name] of [...handlers, ...named]) {
                assert.ok(known.has(name), `${row.file}: ${row.name}: ${name}`);
            }
        }
    });
});

// ---- the document

function* referencesIn(value) {
    if (typeof value !== 'object' || value === null) {
        return;
    }
    for (const [key, member] of Object.entries(value)) {
        if (key === '$ref' && typeof member === 'string') {
            yield member;
        }
        yield* referencesIn(member);
    }
}

function resolves(reference, path) {
    const [file, pointer = ''] = reference.split('#');
    let value = readJson(file === '' ? path : join(dirname(path), file));
    for (const part of pointer.split('/').slice(1)) {
        value = value?.[part.replaceAll('~1', '/').replaceAll('~0', '~')];
    }
    return value !== undefined;
}

describe('document', () => {
    for (const path of ['asyncapi.json', ...[...schemas.keys()].map((file) => `schemas/${file}`)]) {
        test(`references of ${path} resolve`, () => {
            const broken = [...referencesIn(readJson(path))].filter((ref) => !resolves(ref, path));
            assert.deepEqual(broken, []);
        });
    }

    test('it has the form of AsyncAPI 3', () => {
        assert.match(api.asyncapi, /^3\.\d+\.\d+$/);
        assert.ok(api.info.title && api.info.version);
        for (const server of Object.values(api.servers)) {
            assert.ok(server.host && server.protocol);
        }
        for (const [name, channel] of Object.entries(api.channels)) {
            const placeholders = [...channel.address.matchAll(/\{(\w+)\}/g)].map(([, key]) => key);
            assert.deepEqual(Object.keys(channel.parameters ?? {}), placeholders, name);
            assert.ok(Object.keys(channel.messages).length > 0, name);
        }
    });

    test('every operation uses messages of its channel, every message has an operation', () => {
        const used = new Set();
        for (const [name, { action, channel, messages }] of Object.entries(api.operations)) {
            assert.ok(['send', 'receive'].includes(action), name);
            for (const { $ref } of messages) {
                assert.ok($ref.startsWith(`${channel.$ref}/messages/`), `${name}: ${$ref}`);
                used.add($ref.slice($ref.lastIndexOf('/') + 1));
            }
        }
        assert.deepEqual([...validators.keys()].filter((name) => !used.has(name)), []);
    });

    test('the example within each message is valid', () => {
        for (const [name, { examples: within }] of Object.entries(api.components.messages)) {
            assert.ok(within.length > 0, name);
            for (const { payload } of within) {
                assert.ok(validators.get(name)(payload), `${name}: ${JSON.stringify(payload)}`);
            }
        }
    });
});

describe('examples', () => {
    const addresses = Object.entries(api.channels).map(([name, { address }]) => ({
        name,
        pattern: new RegExp(`^${address.replace(/\{\w+\}/g, '[^/]+')}$`),
    }));

    for (const { file, name, message, channel, payload } of examples) {
        test(`${file}: ${name}`, () => {
            const { name: kind } = addresses.find(({ pattern }) => pattern.test(channel)) ?? {};
            const allowed = ['send', 'receive'].flatMap((action) => messagesOn(kind, action));
            assert.ok(allowed.includes(message), `${message} does not travel on ${channel}`);
            const isValid = validators.get(message);
            assert.ok(isValid(payload), JSON.stringify(isValid.errors));
        });
    }

    test('every message, property and event has an example', () => {
        const entries = examples.map(({ message, payload }) => ({ kind: message, payload }));
        assert.deepEqual(missingFrom(entries), []);
    });
});

// ---- the guide

const guide = readFileSync(join(folder, 'README.md'), 'utf8');

test('the guide names every message, property and event', () => {
    const names = [...properties, ...clientEvents].map(({ name }) => name);
    const keys = ['ping', 'clientReady', 'clientDestroyed', 'dialogReady', 'dialogDestroyed'];
    const absent = [...names, ...keys].filter((name) => !guide.includes(`\`${name}\``));
    assert.deepEqual(absent, []);
});

test('the conversation in the guide keeps the rules', () => {
    const last = { receive: 0, send: 0 };
    for (const line of guide.matchAll(/^([<>]) (.+)$/gm)) {
        const frame = line[2].replaceAll('␞', '\x1e').replaceAll('␟', '\x1f');
        if (frame.startsWith('{')) {
            assert.equal(kindOf('socket', 'send', parse(frame)), 'greeting', frame);
        } else {
            checkFrame(line[1] === '>' ? 'receive' : 'send', frame, last);
        }
    }
    assert.deepEqual(last, { receive: 9, send: 6 });
});

/** `last`: the number of the last record in each direction so far. */
function checkFrame(action, frame, last) {
    assert.ok(kindOf('socket', action, frame), frame);
    const [head, ...records] = frame.split('\x1e');
    const [sequence, acknowledged] = head.split(',').map(Number);
    assert.equal(sequence, last[action] + 1, frame);
    assert.ok(acknowledged <= last[action === 'send' ? 'receive' : 'send'], frame);
    last[action] += records.length;
    for (const record of records) {
        const [channel, text] = record.split('\x1f');
        const kind = { '.': 'client', '/dova2/web': 'root' }[channel] ?? 'window';
        assert.ok(kindOf(kind, action, parse(text)), record);
    }
}
