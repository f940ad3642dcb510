import assert from 'node:assert/strict';
import { test } from 'node:test';
import { actionsIn } from '../../src/losses/action.ts';
import { bestMatch, caption, type Field } from '../../src/losses/field.ts';
import { asPlainText, deed, type Loss } from '../../src/losses/Loss.ts';
import { LossList } from '../../src/losses/LossList.ts';
import { happened } from '../../src/protocol/events.ts';
import { dialogDestroyed, dialogReady } from '../../src/protocol/lifecycle.ts';
import { refuse, storageOf } from '../support/storage.ts';

test('of what was sent a user did only some, and of a value the last one counts', () => {
    const sent = [
        dialogReady(5),
        happened(8, 'onEdit', { value: 'a' }),
        happened(9, 'onClick', {}),
        happened(8, 'onEdit', { value: 'ab' }),
        happened(7, 'onToggle', { value: true }),
        happened(7, 'onToggle', { value: false }),
        happened(9, 'onClick', {}),
        happened(6, 'onSelectionChange', { index: 2, value: 'blue' }),
        happened(8, 'onEditFinish', { value: 'ab' }),
        ...['{"id":"5","geometry":{"x":1,"y":1,"width":1,"height":1},"resize":true}', 'no JSON'],
    ].map((text) => ({ channel: './5', text }));
    const others = [
        { channel: '/dova2/web', text: '{"clientReady":"me"}' },
        { channel: '.', text: dialogDestroyed(5) },
    ];
    const actions = actionsIn([...sent, ...others]);
    const told = actions.map(({ id, what, value, times }) => [id, what, value, times]);
    assert.deepEqual(told, [
        [7, 'toggled', 'false', 2],
        [9, 'pressed', '', 2],
        [6, 'chosen', 'blue', 1],
        [8, 'typed', 'ab', 3],
        [5, 'closed', '', 1],
    ]);
});

function field(window: string, name: string, path = '/0/1', objectName = ''): Field {
    return { window, kind: 'Edit', name, objectName, path };
}

const sought = field('sample.json (modified)', 'port');
const matches: Readonly<Record<string, readonly [Field, readonly Field[], number?]>> = {
    'the same': [sought, [field('', 'port'), sought], 1],
    'a title that changed': [sought, [field('sample.json', 'port'), field('x', 'host')], 0],
    'a title that changed, elsewhere': [sought, [field('sample.json', 'port', '/0/2')]],
    'the same name in another window': [sought, [field('other.json', 'port')]],
    'moved within its window': [sought, [field('sample.json (modified)', 'port', '/9')], 0],
    'one of two': [sought, ['/7', '/8'].map((path) => field(sought.window, 'port', path))],
    'another kind': [sought, [{ ...sought, kind: 'ComboBox' }]],
    'by its object name': [field('w', 'Port', '/1', 'p'), [field('w', 'Puerto', '/2', 'p')], 0],
    'no name, the same place': [field('w', ''), [field('w', '', '/3'), field('w', '')], 1],
    'no name, another place': [field('w', ''), [field('w', '', '/3')]],
};

test('a text is put back only where one field is the same', () => {
    for (const [name, [wanted, fields, expected]] of Object.entries(matches)) {
        const candidates = fields.map((other, index) => [index, other] as const);
        assert.equal(bestMatch(wanted, candidates), expected, name);
    }
});

function loss(value: string, more: Partial<Loss> = {}): Loss {
    const plain = { field: sought, what: 'typed', times: 1, confirmed: false } as const;
    return { ...plain, isBack: false, value, ...more };
}

test('the list is there after a reload and a second loss, until it is put away', () => {
    const items = new Map<string, string>();
    const storage = storageOf(items);
    new LossList(storage).add([loss('first')]);
    const again = new LossList(storage);
    again.add([loss('second', { confirmed: true }), loss('first')]);
    again.add([loss('', { what: 'pressed', times: 2 })]);
    const list = new LossList(storage);
    assert.deepEqual(list.losses, again.losses);
    const lines = asPlainText(list.losses).split('\n');
    const texts = ['second', 'first', 'pressed, 2 times'];
    assert.deepEqual(
        lines,
        texts.map((text) => `${caption(sought)}: ${text}`),
    );
    list.clear();
    assert.deepEqual([new LossList(storage).losses, items.size], [[], 0]);
    items.set('losses', '[7,{"field":{}},{"field":null,"what":"typed"}]');
    assert.deepEqual(new LossList(storage).losses, [], 'what is damaged is no loss');
    const full = new LossList(storageOf(items, refuse));
    full.add([loss('too long')]);
    assert.deepEqual([full.isKept, full.losses.map(deed)], [false, ['typed']]);
});
