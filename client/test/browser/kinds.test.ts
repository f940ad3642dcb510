import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { onStage, widget } from '../support/Stage.ts';
import { everyKind, tabPage } from '../support/scene.ts';

/** Combo boxes and tabs in a user's hands, and what the model document says of them. */

interface Scenario {
    readonly name: string;
    readonly window?: object;
    /** What the program writes first. */
    readonly writes?: readonly (readonly [id: number, values: Record<string, unknown>])[];
    /** The element that has the focus, and the keys that are pressed there. */
    readonly at: string;
    readonly keys: readonly string[];
    readonly events: unknown[];
    /** What the element says afterwards. */
    readonly shows: string;
}

const guide = readFileSync('../docs/protocol/README.md', 'utf8');

function said(element: Element): string {
    const { value, textContent } = element as HTMLInputElement;
    return element.matches('input, select') ? value : textContent.replace('×', '').trim();
}

const scenarios = JSON.parse(readFileSync('test/browser/kinds.json', 'utf8')) as Scenario[];

onStage('combo boxes and tabs by the keyboard', async (stage) => {
    for (const { name, window, writes, at, keys, events, shows } of scenarios) {
        await stage.open(1, { ...window }, everyKind);
        writes?.forEach(([id, values]) => stage.write(1, id, values));
        await stage.settled();
        const id = Number(/\d+/.exec(at)?.[0]);
        await stage.page.locator(at).focus();
        for (const key of keys) {
            await stage.page.keyboard.press(key);
        }
        await stage.gateway.until(() => stage.events(id).length >= events.length, name);
        await stage.settled();
        const asked = stage.gateway.messages('.');
        const found = [stage.events(id), await stage.page.locator(at).evaluate(said), asked];
        assert.deepEqual(found, [events, shows, []], name);
        stage.write(1, 1, { command: 'close' });
        stage.gateway.up.length = 0;
    }
});

/** What stands in code in each cell of each row of the guide's table of combo boxes. */
function* orders(): Generator<readonly (readonly string[])[]> {
    const [, table = ''] = /^\| Described \| Then .*\n\|-.*\n((?:\|.*\n)*)/m.exec(guide) ?? [];
    for (const row of table.split('\n').slice(0, -1)) {
        const cells = row.split('|').slice(1, -1);
        yield cells.map((cell) => cell.split('`').filter((_code, at) => at % 2 === 1));
    }
}

type Arrival = readonly [channel: string, message: object];

/** The window with such a combo box, and what the program then says of that. */
function arrivals(
    isEditable: boolean,
    given: readonly string[],
    then: readonly string[],
): Arrival[] {
    const values = (text: string): object => JSON.parse(`{${text}}`) as object;
    const start = { text: '', currentindex: -1, entries: ['a', 'b', 'c'], editable: isEditable };
    const box = widget(18, 'ComboBox', { ...start, ...values(given.join()) });
    const says = (written: string): Arrival =>
        written.includes('entries')
            ? ['/tdom', element({ type: 'ComboBox', ...values(written) })]
            : ['./1', [{ id: '18', ...values(written) }]];
    return [['.', { id: '1', type: 'Dialog', contents: [box] }], ...then.map(says)];
}

let version = 1;
const element = (values: object): object => {
    const patch = [{ op: 'add', path: '/box', value: { tag: '18', ...values } }];
    version += 1;
    return { version, patch };
};

onStage('combo boxes show what the guide says, in each order of what arrives', async (stage) => {
    const at = stage.page.locator('[data-id="18"]:is(select), [data-id="18"] > input');
    const ways = [
        [false, true],
        [true, false],
        [true, true],
    ] as const;
    stage.gateway.send(['/tdom', { version, snapshot: {} }]);
    for (const [given = [], then = [], fixed = [], editable = [], reports = []] of orders()) {
        for (const [isEditable, isTogether] of ways) {
            const all = arrivals(isEditable, given, then);
            for (const records of isTogether ? [all] : all.map((each) => [each])) {
                stage.gateway.send(...records);
                await stage.settled();
            }
            const shows = (isEditable ? editable : fixed).join();
            const told = stage.events(18).map((event) => (event as string[])[1]);
            const last = isEditable && told.length > 0 ? [shows] : [];
            const name = [...given, ...then].join(' then ');
            assert.equal(await at.evaluate(said), shows, name);
            assert.deepEqual(isTogether ? told.slice(-1) : told, isTogether ? last : reports, name);
            stage.gateway.send(['/tdom', element({})], ['./1', [{ id: '1', command: 'close' }]]);
            stage.gateway.up.length = 0;
        }
    }
});

onStage('the pointer opens the list, chooses in it and closes it', async (stage) => {
    await stage.open(1, { modal: true }, everyKind);
    const { page } = stage;
    const field = page.getByRole('combobox', { name: 'Town' });
    const opener = page.locator('[data-id="18"] > .opener');
    await opener.click();
    stage.write(1, 18, { entries: ['red', 'pink', 'blue'] });
    await page.getByRole('option', { name: 'pink' }).click();
    await stage.untilEvents(18, [['onSelectionChange', 1, 'pink']]);
    assert.equal(await field.inputValue(), 'pink');
    assert.equal(await field.evaluate((e) => document.activeElement === e), true);
    await opener.click();
    const list = (await page.getByRole('listbox').boundingBox()) ?? { y: -1, height: 0 };
    assert.ok(list.y >= 0 && list.y + list.height <= 600, 'the list is in sight');
    await page.mouse.click(450, 40);
    assert.equal(await page.getByRole('listbox').count(), 0);
    assert.equal(stage.events(18).length, 1);
});

onStage('the pointer turns and closes tabs, and the focus stays in sight', async (stage) => {
    await stage.open(1, {}, everyKind);
    const { page } = stage;
    const tab = (name: string) => page.getByRole('tab', { name });
    await tab('Second').click();
    await tab('Third').locator('.tab-close').click();
    await stage.button('On the second').focus();
    const told: unknown[] = [
        ['tabchanged', 1],
        ['close', 2],
    ];
    await stage.untilEvents(30, told);
    stage.write(1, 30, { currentindex: 0 });
    await stage.settled();
    const focused = page.getByRole('tab', { name: 'First', selected: true });
    assert.equal(await focused.evaluate((e) => document.activeElement === e), true);
    const added = tabPage(37, 'Fourth', widget(38, 'Text', { text: 'On the fourth' }));
    stage.write(1, 33, { command: 'close' });
    stage.refresh(added, 30);
    await tab('Fourth').click();
    await stage.untilEvents(30, [...told, ['tabchanged', 3]]);
    await page.reload();
    await page.getByRole('tabpanel', { name: 'Fourth' }).getByText('On the fourth').waitFor();
    await tab('Third').click();
    told.push(['tabchanged', 3], ['tabchanged', 2]);
    await stage.untilEvents(30, told);
    // The one that has gone between First and Third keeps its number, too.
    const pages = [41, 31, 42, 35, 37].map((id) => tabPage(id, `Page ${id}`, {}));
    const container = { id: '30', type: 'TabContainer', msgType: 'refresh', currentindex: 0 };
    stage.gateway.send(['./1', { ...container, contents: pages }]);
    for (const [id, number] of [
        [42, 3],
        [37, 5],
        [31, 1],
    ] as const) {
        await tab(`Page ${id}`).click();
        told.push(['tabchanged', number]);
    }
    await stage.untilEvents(30, told);
});

onStage('the model document is asked for, shown, followed, and after a reload', async (stage) => {
    const { page, gateway } = stage;
    const asked = (count: number): Promise<void> =>
        gateway.until(() => gateway.messages('/tdom').length === count, `request ${count}`);
    const patch = (version: number, path: string, value: unknown): void =>
        gateway.send(['/tdom', { version, patch: [{ op: 'add', path, value }] }]);
    const snapshot = (version: number, entries: string[]): void => {
        const box = { type: 'ComboBox', tag: '16', entries };
        const edit = { type: 'Edit', tag: '11', placeholder: 'Your name' };
        gateway.send(['/tdom', { version, snapshot: { u: box, v: edit } }]);
    };
    const items = (): Promise<string[]> => page.locator('select option').allTextContents();
    snapshot(1, ['red']);
    await stage.open(1, {}, everyKind);
    await page.getByPlaceholder('Your name').waitFor();
    stage.write(1, 16, { currentindex: 1 });
    patch(2, '/u/entries/-', 'mauve');
    patch(3, '/w', { type: 'Button', tag: '14', checkable: true });
    await page.getByRole('button', { name: 'Go', pressed: false }).waitFor();
    assert.deepEqual(await items(), ['red', 'mauve']);
    assert.equal(await page.locator('select').inputValue(), 'mauve');
    patch(5, '/u/entries/-', 'lost');
    await asked(2);
    snapshot(5, ['new']);
    await page.reload();
    await asked(3);
    snapshot(6, ['newer']);
    await stage.settled();
    assert.deepEqual(await items(), ['newer']);
    gateway.send(['/tdom', { version: 7, patch: [{ op: 'remove', path: '/v' }] }]);
    await page.getByPlaceholder('Your name').waitFor({ state: 'detached' });
    assert.equal(stage.announced, 2, 'the session goes on: one word at the start, one answer');
});
