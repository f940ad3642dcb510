import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import type { Browser, Locator } from 'playwright-core';
import { launchBrowser, onStage, openWindow, widget } from '../support/browser.ts';
import { everyKind, eventsOf, page as tabPage, settled, untilEvents } from '../support/scene.ts';

/** Combo boxes, group boxes and tabs, and what the model document says of them. */

let browser: Browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

interface Scenario {
    readonly name: string;
    readonly window?: object;
    /** What the program writes first. */
    readonly writes?: readonly (readonly [id: number, values: object])[];
    /** The element that has the focus, and the keys that are pressed there. */
    readonly at: string;
    readonly keys: readonly string[];
    readonly events: unknown[][];
    /** What the element says afterwards. */
    readonly shows: unknown;
}

function value(locator: Locator): Promise<unknown> {
    return locator.evaluate((element) => {
        const { value, textContent } = element as HTMLInputElement;
        return element.matches('input, select') ? value : textContent.replace('×', '').trim();
    });
}

const pick = (index: number, text: string): unknown[] => ['onSelectionChange', index, text];
const turn = (index: number): unknown[] => ['tabchanged', index];

const scenarios = JSON.parse(readFileSync('test/browser/kinds.json', 'utf8')) as Scenario[];

function idOf(at: string): number {
    return Number(/\d+/.exec(at)?.[0]);
}

for (const scenario of scenarios) {
    test(scenario.name, () =>
        onStage(browser, async (stage) => {
            const { page, gateway } = stage;
            await openWindow(stage, 1, scenario.window ?? {}, [...everyKind]);
            for (const [id, values] of scenario.writes ?? []) {
                gateway.write(1, id, values as Record<string, unknown>);
            }
            await settled(stage);
            await page.locator(scenario.at).focus();
            for (const key of scenario.keys) {
                await page.keyboard.press(key);
            }
            await untilEvents(stage, idOf(scenario.at), scenario.events);
            await settled(stage);
            assert.deepEqual(await value(page.locator(scenario.at)), scenario.shows);
            assert.deepEqual(eventsOf(stage, idOf(scenario.at)), scenario.events);
            assert.deepEqual(gateway.messages('.'), [], 'the window was asked to close');
        }),
    );
}

test('the pointer opens the list, chooses in it and closes it', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { modal: true }, [...everyKind]);
        const { page, gateway } = stage;
        const field = page.getByRole('combobox', { name: 'Town' });
        await page.locator('[data-id="18"] > .opener').click();
        gateway.write(1, 18, { entries: ['red', 'pink', 'blue'] });
        await page.getByRole('option', { name: 'pink' }).click();
        await untilEvents(stage, 18, [pick(1, 'pink')]);
        assert.equal(await field.inputValue(), 'pink');
        assert.equal(await field.evaluate((e) => document.activeElement === e), true);
        await page.locator('[data-id="18"] > .opener').click();
        const list = (await page.getByRole('listbox').boundingBox()) ?? { y: 0, height: 0 };
        assert.ok(list.y >= 0 && list.y + list.height <= 600, 'the list is in sight');
        await page.mouse.click(450, 40);
        assert.equal(await page.getByRole('listbox').count(), 0);
        assert.equal(eventsOf(stage, 18).length, 1);
    }));

test('the pointer turns and closes tabs, and what has the focus stays in sight', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [...everyKind]);
        const { page, gateway } = stage;
        await page.getByRole('tab', { name: 'Second' }).click();
        await page.getByRole('tab', { name: 'Third' }).locator('.tab-close').click();
        await page.getByRole('button', { name: 'On the second' }).focus();
        await untilEvents(stage, 30, [turn(1), ['close', 2]]);
        gateway.write(1, 30, { currentindex: 0 });
        await settled(stage);
        const focused = page.getByRole('tab', { name: 'First', selected: true });
        assert.equal(await focused.evaluate((e) => document.activeElement === e), true);
        const added = tabPage(37, 'Fourth', widget(38, 'Text', { text: 'On the fourth' }));
        gateway.write(1, 33, { command: 'close' });
        gateway.send(['./1', { ...added, msgType: 'refresh', parentId: '30' }]);
        await page.getByRole('tab', { name: 'Fourth' }).click();
        await untilEvents(stage, 30, [turn(1), ['close', 2], turn(3)]);
        await page.reload();
        await page.getByRole('tabpanel', { name: 'Fourth' }).getByText('On the fourth').waitFor();
        await page.getByRole('tab', { name: 'Third' }).click();
        await untilEvents(stage, 30, [turn(1), ['close', 2], turn(3), turn(2)]);
    }));

interface Look {
    readonly name: string;
    readonly id: number;
    readonly write: object;
    readonly read: (element: HTMLElement) => unknown;
    readonly expected: unknown;
}

const place = (e: Element): number[] => {
    const [tabs, shown] = [e.querySelector('.tablist'), e.querySelector('.page:not([hidden])')];
    const [a, b] = [tabs?.getBoundingClientRect(), shown?.getBoundingClientRect()];
    return [Math.sign((a?.x ?? 0) - (b?.x ?? 0)), Math.sign((a?.y ?? 0) - (b?.y ?? 0))];
};

const colours = { style: { backgroundColor: 'rgb(1,2,3)', color: 'rgb(4,5,6)' } };
const coloured = (e: Element): string =>
    getComputedStyle(e).backgroundColor + getComputedStyle(e).color;

const looks: readonly Look[] = [
    {
        name: 'title',
        id: 20,
        write: { title: '<b>More</b>' },
        read: (e) => e.querySelector('legend')?.innerText,
        expected: '<b>More</b>',
    },
    {
        name: 'no title',
        id: 20,
        write: { title: '' },
        read: (e) => e.querySelector('legend')?.checkVisibility(),
        expected: false,
    },
    {
        name: 'flat',
        id: 20,
        write: { flat: true },
        read: (e) => getComputedStyle(e).borderLeftWidth,
        expected: '0px',
    },
    {
        name: 'a disabled group',
        id: 20,
        write: { enable: false },
        read: (e) => e.querySelectorAll('input:disabled').length,
        expected: 1,
    },
    {
        name: 'a grid of three columns',
        id: 20,
        write: { layoutGrid: [1, 3] },
        read: (e) => getComputedStyle(e).display,
        expected: 'grid',
    },
    ...[16, 18, 20, 30, 31].map((id) => ({
        name: `colours ${id}`,
        id,
        write: colours,
        read: coloured,
        expected: 'rgb(1, 2, 3)rgb(4, 5, 6)',
    })),
    ...[16, 18, 20, 30, 31].map((id) => ({
        name: `hidden ${id}`,
        id,
        write: { visible: false },
        read: (e: HTMLElement) => e.checkVisibility(),
        expected: false,
    })),
    ...[16, 18, 20, 30, 31].map((id) => ({
        name: `tooltip ${id}`,
        id,
        write: { tooltip: 'Tip' },
        read: (e: HTMLElement) => e.title,
        expected: 'Tip',
    })),
    ...[16, 18, 20, 30].map((id) => ({
        name: `sizes ${id}`,
        id,
        write: {
            setMinimumHeight: '77',
            setMaximumHeight: '77',
            setMinimumWidth: '90',
            setMaximumWidth: '91',
        },
        read: (e: HTMLElement) =>
            e.offsetHeight === 77 && e.offsetWidth >= 90 && e.offsetWidth <= 91,
        expected: true,
    })),
    {
        name: 'a disabled box',
        id: 16,
        write: { enable: false },
        read: (e) => e.matches(':disabled'),
        expected: true,
    },
    {
        name: 'disabled tabs',
        id: 30,
        write: { enable: false },
        read: (e) => e.querySelectorAll('.tab:disabled').length,
        expected: 3,
    },
    {
        name: 'a disabled page',
        id: 31,
        write: { enable: false },
        read: (e) => e.inert,
        expected: true,
    },
    {
        name: 'a hidden tab',
        id: 33,
        write: { visible: false },
        read: () => document.getElementById('tab-33')?.checkVisibility(),
        expected: false,
    },
    {
        name: 'a renamed page',
        id: 33,
        write: { name: '<i>x' },
        read: () => document.getElementById('tab-33')?.innerText.trim(),
        expected: '<i>x ×'.replace(' ', '\n'),
    },
    {
        name: 'a page without frame',
        id: 30,
        write: { documentmode: true },
        read: (e) => getComputedStyle(e.querySelector('.page') as Element).borderLeftWidth,
        expected: '0px',
    },
    { name: 'tabs above', id: 30, write: { tabposition: 'North' }, read: place, expected: [0, -1] },
    { name: 'tabs below', id: 30, write: { tabposition: 'South' }, read: place, expected: [0, 1] },
    {
        name: 'tabs at the left',
        id: 30,
        write: { tabposition: 'West' },
        read: place,
        expected: [-1, 0],
    },
    {
        name: 'tabs at the right',
        id: 30,
        write: { tabposition: 'East' },
        read: place,
        expected: [1, 0],
    },
    {
        name: 'no current page',
        id: 30,
        write: { currentindex: -1 },
        read: (e) => e.querySelectorAll('.page:not([hidden])').length,
        expected: 0,
    },
];

test('every property of groups, boxes and tabs shows', () =>
    onStage(browser, async (stage) => {
        for (const look of looks) {
            await openWindow(stage, 1, {}, [...everyKind]);
            stage.gateway.write(1, look.id, look.write as Record<string, unknown>);
            await settled(stage);
            const read = look.read as (element: SVGElement | HTMLElement) => unknown;
            const element = stage.page.locator(`[data-id="${look.id}"]`);
            assert.deepEqual(await element.evaluate(read), look.expected, look.name);
        }
    }));

test('the model document is asked for, shown, followed, and asked for again after a reload', () =>
    onStage(browser, async (stage) => {
        const { page, gateway } = stage;
        const asked = (): number => gateway.messages('/tdom').length;
        const patch = (version: number, path: string, value: unknown): void =>
            gateway.send(['/tdom', { version, patch: [{ op: 'add', path, value }] }]);
        const box = { type: 'ComboBox', tag: '16', entries: ['red'] };
        const edit = { type: 'Edit', tag: '11', placeholder: 'Your name' };
        gateway.send(['/tdom', { version: 1, snapshot: { u: box, v: edit } }]);
        await openWindow(stage, 1, {}, [...everyKind]);
        await page.getByPlaceholder('Your name').waitFor();
        const items = (): Promise<string[]> => page.locator('select option').allTextContents();
        gateway.send(['./1', [{ id: '16', currentindex: 1 }]]);
        patch(2, '/u/entries/-', 'mauve');
        patch(3, '/w', { type: 'Button', tag: '14', checkable: true });
        await page.getByRole('button', { name: 'Go', pressed: false }).waitFor();
        assert.deepEqual(await items(), ['red', 'mauve']);
        assert.equal(await page.locator('select').inputValue(), 'mauve');
        patch(5, '/u/entries/-', 'lost');
        await gateway.until(() => asked() === 2, 'a second request');
        gateway.send(['/tdom', { version: 5, snapshot: { u: { ...box, entries: ['new'] } } }]);
        await page.reload();
        await gateway.until(() => asked() === 3, 'a third request');
        gateway.send(['/tdom', { version: 6, snapshot: { u: { ...box, entries: ['newer'] } } }]);
        await settled(stage);
        assert.deepEqual(await items(), ['newer']);
        assert.equal(gateway.messages('/dova2/web').length, 1, 'the same session');
    }));
