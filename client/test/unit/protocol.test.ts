import assert from 'node:assert/strict';
import { test } from 'node:test';
import { decodeGreeting } from '../../src/gateway/control.ts';
import { placeChange } from '../../src/protocol/events.ts';
import { asLength, asPoint, asRect, asSize } from '../../src/protocol/geometry.ts';
import { asId } from '../../src/protocol/guards.ts';
import { isPing } from '../../src/protocol/lifecycle.ts';
import { decodeWindowMessage } from '../../src/protocol/windowMessage.ts';

type Row = readonly [name: string, input: unknown, expected: unknown];

function table(what: string, decode: (input: unknown) => unknown, rows: readonly Row[]): void {
    for (const [name, input, expected] of rows) {
        test(`${what}: ${name}`, () => assert.deepEqual(decode(input), expected));
    }
}

const rect = { x: -5, y: 0, width: 100, height: 50 };

table('rectangle', asRect, [
    ['text of the program', '[-5,0,100,50]', rect],
    ['object of the page', { x: -5, y: 0, width: 100, height: 50 }, rect],
    ['three numbers', '[1,2,3]', undefined],
    ['five numbers', '[1,2,3,4,5]', undefined],
    ['negative width', '[0,0,-1,5]', undefined],
    ['texts in it', '["1","2","3","4"]', undefined],
    ['infinite', '[1e999,0,1,1]', undefined],
    ['beyond any screen', '[1e9,0,1,1]', undefined],
    ['no JSON', '[1,2,3,', undefined],
    ['null', null, undefined],
]);

table('point', asPoint, [
    ['with blank', '[3, 4]', { x: 3, y: 4 }],
    ['without blank', '[10,-5]', { x: 10, y: -5 }],
    ['one number', '[3]', undefined],
]);

table('size', asSize, [
    ['six decimals', '[100.000000,50.500000]', { width: 100, height: 50.5 }],
    ['negative', '[-1,5]', undefined],
]);

table('length', asLength, [
    ['decimal text', '120', 120],
    ['number', 3, 3],
    ['negative', '-1', undefined],
    ['no number', 'wide', undefined],
]);

table('identifier', asId, [
    ['decimal text', '4294967295', 4294967295],
    ['number', 7, 7],
    ['zero', '0', undefined],
    ['too large', '4294967296', undefined],
    ['fraction', 1.5, undefined],
    ['hexadecimal', '0x10', undefined],
    ['blank', ' 7', undefined],
    ['object', {}, undefined],
]);

table('greeting', (input) => decodeGreeting(String(input)), [
    ['new', '{"session":"new","received":0}', { session: 'new' }],
    ['resumed', '{"session":"resumed","received":4}', { session: 'resumed', received: 4 }],
    ['resumed without number', '{"session":"resumed"}', undefined],
    ['lost', '{"session":"lost","reason":"x"}', { session: 'lost' }],
    ['a frame', '1,0', undefined],
]);

table('ping', (input) => isPing(String(input)), [
    ['ping', '{"ping":-1}', true],
    ['other', '{"pong":1}', false],
    ['array', '[{"ping":1}]', false],
    ['inherited name', '{"constructor":1}', false],
]);

table('message box', (input) => decodeWindowMessage(JSON.stringify(input)), [
    [
        'complete',
        { type: 'messagebox', level: 'Error', title: 'T', body: 'B', modal: 'on' },
        { kind: 'messageBox', box: { level: 'error', title: 'T', body: 'B', modal: true } },
    ],
    [
        'unknown level, not modal, no texts',
        { type: 'messagebox', level: 'odd', modal: 'no', title: 7 },
        { kind: 'messageBox', box: { level: 'information', title: '', body: '', modal: false } },
    ],
]);

function writeOf(properties: Readonly<Record<string, unknown>>): unknown {
    const message = decodeWindowMessage(JSON.stringify([{ id: '7', type: 'X', ...properties }]));
    const write = message?.kind === 'writes' ? message.writes[0] : undefined;
    return write && { values: write.values, triggers: write.triggers, close: write.close };
}

function written(values: object, triggers: readonly string[] = [], close = false): unknown {
    return { values, triggers, close };
}

table('write', (input) => writeOf(input as Readonly<Record<string, unknown>>), [
    ['text', { text: '<b>' }, written({ text: '<b>' })],
    ['text of the wrong kind', { text: 7 }, written({})],
    ['flag of the wrong kind', { visible: 'true' }, written({})],
    [
        'style',
        { style: { color: 'rgb(1,2,3)', x: 1 } },
        written({ style: { color: 'rgb(1,2,3)' } }),
    ],
    ['no buddy', { buddy: '4294967295' }, written({ buddy: 0 })],
    ['buddy', { buddy: '12' }, written({ buddy: 12 })],
    ['spans', { rowSpan: [1, 2] }, written({ rowSpan: [1, 2] })],
    ['spans with a fraction', { rowSpan: [1.5] }, written({})],
    ['minimum', { setMinimumWidth: '120' }, written({ setMinimumWidth: 120 })],
    ['trigger', { refresh: true }, written({}, ['refresh'])],
    ['trigger that is off', { refresh: false }, written({})],
    ['close', { command: 'close' }, written({}, [], true)],
    ['another command', { command: 'explode' }, written({})],
    ['unknown and inherited names', { constructor: true, toString: 'x' }, written({})],
]);

test('a write without identifier is left out, those around it count', () => {
    const message = decodeWindowMessage(
        '[{"id":"1","text":"a"},{"text":"b"},7,{"id":3,"text":"c"}]',
    );
    assert.ok(message?.kind === 'writes');
    assert.deepEqual(
        message.writes.map((write) => write.id),
        [1, 3],
    );
});

const messages = [
    '[{"id":"12","type":"Edit","text":"\u00e4\u{1f600}\\"\\\\"}]',
    '{"msgType":"refresh","parentId":"3","id":"12","type":"Panel","contents":[{"id":"13"}]}',
    '{"type":"messagebox","level":"error","title":"t","body":"b"}',
    '[{"id":"1","type":"Dialog","geometry":"[1,2,3,4]"},{"id":"1","type":"Dialog","command":"close"}]',
];

test('every message cut at every byte is dropped without a word', () => {
    for (const message of messages) {
        const bytes = new TextEncoder().encode(message);
        assert.ok(decodeWindowMessage(message));
        for (let length = 0; length < bytes.length; length += 1) {
            const text = new TextDecoder().decode(bytes.slice(0, length));
            assert.equal(decodeWindowMessage(text), undefined, text);
        }
    }
});

test('the place of a window is told in full first, then what changed', () => {
    const place = { geometry: rect, frameGeometry: rect, maximized: false, minimized: false };
    const larger = { ...rect, width: 120 };
    assert.deepEqual(JSON.parse(placeChange(5, place) ?? ''), {
        id: '5',
        geometry: rect,
        frameGeometry: rect,
    });
    assert.equal(placeChange(5, place, place), undefined);
    assert.deepEqual(JSON.parse(placeChange(5, { ...place, geometry: larger }, place) ?? ''), {
        id: '5',
        geometry: larger,
        resize: true,
    });
    assert.deepEqual(JSON.parse(placeChange(5, { ...place, maximized: true }, place) ?? ''), {
        id: '5',
        maximized: true,
    });
});
