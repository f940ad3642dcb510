import assert from 'node:assert/strict';
import { test } from 'node:test';
import { channelName, parseChannel } from '../../src/gateway/channel.ts';
import { decodeFrame, encodeFrame, type Frame } from '../../src/gateway/frame.ts';

const frames: readonly (readonly [name: string, frame: Frame, text: string])[] = [
    ['nothing but an acknowledgement', { sequence: 1, acknowledged: 7, records: [] }, '1,7'],
    [
        'one record',
        { sequence: 12, acknowledged: 0, records: [{ channel: '.', text: '{"a":1}' }] },
        '12,0\u001e.\u001f{"a":1}',
    ],
    [
        'two records, one of them empty, one beyond the basic plane',
        {
            sequence: 3,
            acknowledged: 2,
            records: [
                { channel: './9', text: '' },
                { channel: '/dova2/web', text: '["\u{1f600},\\u001e"]' },
            ],
        },
        '3,2\u001e./9\u001f\u001e/dova2/web\u001f["\u{1f600},\\u001e"]',
    ],
];

for (const [name, frame, text] of frames) {
    test(`frame: ${name}`, () => {
        assert.equal(encodeFrame(frame), text);
        assert.deepEqual(decodeFrame(text), frame);
    });
}

const broken: readonly (readonly [name: string, text: string])[] = [
    ['empty', ''],
    ['no acknowledgement', '1'],
    ['sequence zero', '0,0'],
    ['negative', '1,-1'],
    ['fraction', '1.5,0'],
    ['blank', '1, 0'],
    ['leading zero', '01,0'],
    ['beyond what a number holds', '9999999999999999,0'],
    ['JSON', '{"session":"new"}'],
    ['record without channel', '1,0\u001e\u001f{}'],
    ['record without text', '1,0\u001e.'],
    ['a field too many', '1,0\u001e.\u001fa\u001fb'],
];

for (const [name, text] of broken) {
    test(`no frame: ${name}`, () => assert.equal(decodeFrame(text), undefined));
}

test('a frame cut at any place is refused or a shorter frame, never an exception', () => {
    const [, , whole] = frames[2] ?? ['', undefined, ''];
    for (let length = 0; length < whole.length; length += 1) {
        const frame = decodeFrame(whole.slice(0, length));
        assert.ok(frame === undefined || frame.records.length <= 2);
    }
});

const channels: readonly (readonly [name: string, text: string, known: boolean])[] = [
    ['root', '/dova2/web', true],
    ['own', '.', true],
    ['window', './4294967295', true],
    ['window zero', './0', false],
    ['no number', './x', false],
    ['deeper', './1/2', false],
    ['foreign', '/dova2/web/other', false],
    ['empty', '', false],
];

for (const [name, text, known] of channels) {
    test(`channel: ${name}`, () => {
        const channel = parseChannel(text);
        assert.equal(channel && channelName(channel), known ? text : undefined);
    });
}
