import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { describe, test } from 'node:test';

import { messages } from '../../protocol/table.mjs';
import {
    api,
    examples,
    flattened,
    folder,
    isUsable,
    kindOf,
    messagesOn,
    readJson,
    schemas,
    validators,
} from './protocol.mjs';
import { stepsOf } from './rows.mjs';
import { forms, libraryTexts, parse } from './texts.mjs';

/** The documentation, its schemas and examples, and the rows say the same. */

/** What each form of row may have. */
const keys = JSON.parse(readFileSync(new URL('keys.json', import.meta.url), 'utf8'));

/** The messages that are none of these. */
function messagesBeside(kinds) {
    return [...validators.keys()].filter((name) => !kinds.includes(name));
}

// ---- the rows

describe('rows', () => {
    for (const [form, { rows, texts }] of Object.entries(forms)) {
        test(`${form} rows agree with the schemas`, () => {
            const wrong = rows
                .flatMap(texts)
                .filter(({ kind, conforms }) => (kind !== undefined) !== conforms)
                .map(({ row, kind, text }) => [row.file, row.name, kind, text?.slice(0, 200)]);
            assert.deepEqual(wrong, []);
        });

        test(`${form} rows have unique names and no unknown keys`, () => {
            const names = rows.map((row) => `${row.file}: ${row.name}`);
            assert.deepEqual(
                names.filter((name, index) => names.indexOf(name) !== index),
                [],
            );
            const used = rows.flatMap((row) => [row, ...stepsOf(row)]).flatMap(Object.keys);
            assert.deepEqual(
                [...new Set(used)].filter((key) => !keys[form].includes(key)),
                [],
            );
        });
    }

    test('every message has a row', () => {
        const texts = Object.values(forms).flatMap((form) => form.rows.flatMap(form.texts));
        assert.deepEqual(messagesBeside(texts.map(({ kind }) => kind)), []);
    });

    test('the values that no page can use, and only these, are marked', () => {
        for (const row of forms.library.rows) {
            const members = libraryTexts(row)
                .flatMap(({ action, payload }) => (action === 'send' ? payload : []))
                .flatMap(flattened)
                .flatMap(Object.entries);
            const useless = members.filter(([name, value]) => !isUsable({ [name]: value }));
            const names = new Set(useless.map(([name]) => name));
            assert.deepEqual([...names], row.unusable ?? [], `${row.file}: ${row.name}`);
        }
    });
});

// ---- the document

function resolves(path, [, file, pointer]) {
    const names = pointer.split('/').slice(1);
    const steps = names.map((name) => name.replaceAll('~1', '/').replaceAll('~0', '~'));
    const whole = readJson(file === '' ? path : join(dirname(path), file));
    return steps.reduce((value, step) => value?.[step], whole) !== undefined;
}

describe('document', () => {
    test('all references resolve', () => {
        for (const path of ['asyncapi.json', ...[...schemas.keys()].map((f) => `schemas/${f}`)]) {
            const text = JSON.stringify(readJson(path));
            const references = [...text.matchAll(/"\$ref":"([^"#]*)#?([^"]*)"/g)];
            const broken = references.filter((reference) => !resolves(path, reference));
            assert.deepEqual(
                broken.map(([reference]) => reference),
                [],
                path,
            );
        }
    });

    test('every operation uses messages of its channel, every message has an operation', () => {
        const used = Object.values(api.operations).flatMap(({ channel, messages }) =>
            messages.map(({ $ref }) => {
                assert.ok($ref.startsWith(`${channel.$ref}/messages/`), $ref);
                return $ref.slice($ref.lastIndexOf('/') + 1);
            }),
        );
        assert.deepEqual(
            [...validators.keys()].filter((name) => !used.includes(name)),
            [],
        );
    });

    test('the examples are valid, travel where they say, and leave nothing out', () => {
        for (const { name, message, channel, payload } of examples) {
            const [kind] = Object.entries(api.channels).find(([, { address }]) =>
                new RegExp(`^${address.replace(/\{\w+\}/g, '[^/]+')}$`).test(channel),
            );
            const allowed = ['send', 'receive'].flatMap((action) => messagesOn(kind, action));
            assert.ok(allowed.includes(message), `${name}: ${message} on ${channel}`);
            assert.ok(validators.get(message)(payload), name);
        }
        for (const [name, { examples: within }] of Object.entries(api.components.messages)) {
            assert.ok(within.length > 0, name);
            assert.ok(
                within.every(({ payload }) => validators.get(name)(payload)),
                name,
            );
        }
        assert.deepEqual(messagesBeside(examples.map(({ message }) => message)), []);
    });
});

// ---- the guide

const guide = readFileSync(join(folder, 'README.md'), 'utf8');

test('the guide names every member of a message that is no property', () => {
    const names = [...messages.down.members, ...messages.model.members];
    assert.deepEqual(
        names.filter((name) => !new RegExp(`["\`]${name}["\`]`).test(guide)),
        [],
    );
});

test('the conversation in the guide keeps the rules', () => {
    const next = { '>': 1, '<': 1 };
    const kinds = { '.': 'client', '/dova2/web': 'root' };
    for (const [, side, line] of guide.matchAll(/^([<>]) (.+)$/gm)) {
        const action = side === '>' ? 'receive' : 'send';
        const [head, ...records] = line.split('␞');
        const frame = line.replaceAll('␞', '\x1e').replaceAll('␟', '\x1f');
        assert.ok(kindOf('socket', action, parse(frame) ?? frame), frame);
        if (!frame.startsWith('{')) {
            const [sequence, acknowledged] = head.split(',').map(Number);
            assert.equal(sequence, next[side], frame);
            assert.ok(acknowledged < next[side === '>' ? '<' : '>'], frame);
            next[side] += records.length;
        }
        for (const record of records) {
            const [channel, text] = record.split('␟');
            assert.ok(kindOf(kinds[channel] ?? 'window', action, parse(text)), record);
        }
    }
    assert.deepEqual(next, { '>': 10, '<': 7 });
});
