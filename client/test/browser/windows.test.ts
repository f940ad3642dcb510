import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Browser, Locator } from 'playwright-core';
import type { Rect } from '../../src/protocol/geometry.ts';
import { META_BUTTON_SET } from '../../src/protocol/names.ts';
import { launchBrowser, onStage, openWindow, widget, type Stage } from '../support/browser.ts';

let browser: Browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

const content = [widget(12, 'Edit', { text: '' }), widget(13, 'Button', { label: 'OK' })];

function frame(stage: Stage, id: number): Locator {
    return stage.page.locator(`.window[data-id="${id}"]`);
}

async function box(stage: Stage, id: number): Promise<Rect> {
    const rect = await frame(stage, id).boundingBox();
    assert.ok(rect);
    return rect;
}

/** What the program knows of a window: all that was reported, the latest of each. */
function known(stage: Stage, id: number): Record<string, unknown> {
    return Object.assign({}, ...(stage.gateway.messages(`./${id}`) as object[])) as Record<
        string,
        unknown
    >;
}

async function untilKnown(stage: Stage, id: number, name: string, value: unknown): Promise<void> {
    const same = (): boolean => JSON.stringify(known(stage, id)[name]) === JSON.stringify(value);
    await stage.gateway.until(same, `${name} ${JSON.stringify(value)}`);
}

test('a window is moved by its title bar and resized by its border', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { geometry: '[200,150,300,120]' }, content);
        const { mouse } = stage.page;
        const before = await box(stage, 1);
        await mouse.move(before.x + 60, before.y + 20);
        await mouse.down();
        await mouse.move(before.x + 110, before.y + 50, { steps: 4 });
        await mouse.up();
        const moved = { ...before, x: before.x + 50, y: before.y + 30 };
        await untilKnown(stage, 1, 'frameGeometry', moved);
        assert.equal(known(stage, 1)['resize'], undefined);
        await mouse.move(moved.x + moved.width - 2, moved.y + moved.height - 2);
        await mouse.down();
        await mouse.move(moved.x + moved.width + 38, moved.y + moved.height + 18, { steps: 4 });
        await mouse.up();
        await untilKnown(stage, 1, 'frameGeometry', {
            ...moved,
            width: moved.width + 40,
            height: moved.height + 20,
        });
        assert.equal(known(stage, 1)['resize'], true);
    }));

test('a window is moved and resized by the keyboard', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { geometry: '[200,150,300,120]' }, content);
        const before = await box(stage, 1);
        await frame(stage, 1).locator('.grip').focus();
        await stage.page.keyboard.press('ArrowRight');
        await stage.page.keyboard.press('Control+ArrowDown');
        await stage.page.keyboard.press('Shift+ArrowRight');
        await untilKnown(stage, 1, 'frameGeometry', {
            x: before.x + 16,
            y: before.y + 1,
            width: before.width + 16,
            height: before.height,
        });
    }));

test('a window is maximized, minimized and brought back', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { geometry: '[200,150,300,120]' }, content);
        const before = await box(stage, 1);
        await frame(stage, 1).locator('.grip').dblclick();
        await untilKnown(stage, 1, 'maximized', true);
        await untilKnown(stage, 1, 'frameGeometry', { x: 0, y: 0, width: 900, height: 600 });
        await stage.page.getByRole('button', { name: 'Restore' }).click();
        await untilKnown(stage, 1, 'maximized', false);
        await stage.page.getByRole('button', { name: 'Minimize' }).click();
        await untilKnown(stage, 1, 'minimized', true);
        assert.equal(await frame(stage, 1).isVisible(), false);
        await stage.page
            .getByRole('navigation')
            .getByRole('button', { name: 'Window 1' })
            .press('Enter');
        await untilKnown(stage, 1, 'minimized', false);
        assert.deepEqual(await box(stage, 1), before);
    }));

interface Placing {
    readonly write: object;
    readonly known: string;
    readonly expected: unknown;
}

const placings: readonly Placing[] = [
    {
        write: { geometry: '[100,120,310,140]' },
        known: 'geometry',
        expected: { x: 100, y: 120, width: 310, height: 140 },
    },
    {
        write: { frameGeometry: '[20,30,410,240]' },
        known: 'frameGeometry',
        expected: { x: 20, y: 30, width: 410, height: 240 },
    },
    {
        write: { move: '[33, 44]' },
        known: 'frameGeometry',
        expected: { x: 33, y: 44, width: 410, height: 240 },
    },
    {
        write: { move: '[-5000, -5000]' },
        known: 'frameGeometry',
        expected: { x: -314, y: 0, width: 410, height: 240 },
    },
    { write: { showMaximized: true }, known: 'maximized', expected: true },
    { write: { showNormal: true }, known: 'maximized', expected: false },
    { write: { showMinimized: true }, known: 'minimized', expected: true },
    { write: { showNormal: true }, known: 'minimized', expected: false },
];

test('the program places a window and learns where it is', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        for (const placing of placings) {
            stage.gateway.write(1, 1, { type: 'Dialog', ...placing.write });
            await untilKnown(stage, 1, placing.known, placing.expected);
        }
    }));

test('windows lie above each other as they are used and raised', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { geometry: '[100,100,300,150]' }, content);
        await openWindow(stage, 30, { geometry: '[250,150,300,150]' }, [
            widget(32, 'Edit', { text: '' }),
        ]);
        const topAt = (x: number, y: number): Promise<unknown> =>
            stage.page.evaluate(
                `document.elementFromPoint(${x}, ${y}).closest('.window').dataset.id`,
            );
        assert.equal(await topAt(300, 200), '30');
        await stage.page.mouse.click(150, 220);
        assert.equal(await topAt(300, 200), '1');
        await stage.page.locator('[data-id="12"]').focus();
        stage.gateway.write(30, 30, { raise: true, title: 'Raised' });
        await stage.page.getByText('Raised').waitFor();
        assert.equal(await topAt(300, 200), '30');
        const focused = await stage.page.evaluate('document.activeElement.dataset.id');
        assert.equal(focused, '12', 'raising leaves the focus where the person works');
    }));

test('a modal window shuts the others off until it is closed', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        await openWindow(stage, 30, { modal: true }, [widget(32, 'Edit', { text: '' })]);
        await stage.page.keyboard.type('in front');
        assert.equal(await stage.page.locator('[data-id="32"]').inputValue(), 'in front');
        await stage.page
            .locator('[data-id="13"]')
            .click({ trial: true, timeout: 300 })
            .then(
                () => assert.fail('the window behind can be clicked'),
                () => undefined,
            );
        await stage.page.keyboard.press('Escape');
        await stage.page.keyboard.press('Escape');
        const asked = (): boolean => stage.gateway.messages('.').length === 2;
        await stage.gateway.until(asked, 'the request to close');
        assert.equal(await frame(stage, 30).isVisible(), true, 'only the program closes it');
        stage.gateway.write(30, 30, { command: 'close' });
        await frame(stage, 30).waitFor({ state: 'detached' });
        await stage.page.locator('[data-id="13"]').click();
    }));

test('closing asks the program; the last window gone, one can start again', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        await stage.page.getByRole('button', { name: 'Close' }).click();
        await stage.gateway.until(() => stage.gateway.messages('.').length > 0, 'dialogDestroyed');
        assert.deepEqual(stage.gateway.messages('.'), [{ dialogDestroyed: '1' }]);
        assert.equal(await frame(stage, 1).isVisible(), true);
        stage.gateway.write(1, 1, { command: 'close' });
        await stage.page.getByRole('button', { name: 'Start again' }).click();
        const ready = (): unknown[] => stage.gateway.messages('/dova2/web');
        await stage.gateway.until(() => ready().length === 2, 'the second announcement');
        assert.notDeepEqual(ready()[0], ready()[1]);
    }));

test('Ctrl with + and - asks the program for another font size and scales the window', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        const size = (): Promise<unknown> =>
            stage.page.locator('[data-id="13"]').evaluate((e) => getComputedStyle(e).fontSize);
        const before = await size();
        await stage.page.locator('[data-id="12"]').focus();
        await stage.page.keyboard.press('Control+=');
        await untilKnown(stage, 1, 'increaseFontSize', true);
        assert.notEqual(await size(), before);
        await stage.page.keyboard.press('Control+-');
        await untilKnown(stage, 1, 'decreaseFontSize', true);
        await stage.page.keyboard.press('Control+=');
        await stage.page.keyboard.press('Control+0');
        assert.equal(await size(), before);
    }));

test('a message is shown above everything and gives the focus back', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, { modal: true }, content);
        await stage.page.locator('[data-id="12"]').focus();
        const text = { type: 'messagebox', level: 'error', title: 'No', body: '<i>not</i> saved' };
        stage.gateway.send(['./1', text]);
        const message = stage.page.getByRole('alertdialog', { name: 'No' });
        await message.getByText('<i>not</i> saved').waitFor();
        await stage.page.keyboard.press('Escape');
        await message.waitFor({ state: 'detached' });
        await stage.page.keyboard.type('on');
        assert.equal(await stage.page.locator('[data-id="12"]').inputValue(), 'on');
    }));

const rows = (first: number, count: number): object[] =>
    Array.from({ length: count }, (_, index) => widget(first + index, 'Edit', { text: 'x' }));
const holder = (id: number, type: string, contents: object[]): object =>
    widget(id, type, {}, contents);
const buttons = widget(5, 'Panel', { meta: META_BUTTON_SET }, [widget(6, 'Button', { label: 'OK' })]);

interface LongContent {
    readonly name: string;
    readonly window?: object;
    readonly widgets: object[];
    /** What has to be seen without scrolling, beside the button. */
    readonly seen: readonly number[];
}

/** The last edit of each is number 199. */
const longContents: readonly LongContent[] = [
    {
        name: 'a grid above a text',
        widgets: [holder(10, 'GridLayout', rows(140, 60)), widget(7, 'Text', { text: 'x' })],
        seen: [140, 7],
    },
    {
        name: 'a small panel and a large one',
        widgets: [holder(10, 'Panel', rows(20, 2)), holder(11, 'Panel', rows(140, 60))],
        seen: [20, 21, 140],
    },
    { name: 'plain rows', widgets: rows(140, 60), seen: [140] },
    {
        name: 'a window that scrolls as a whole',
        window: { scrollable: true },
        widgets: [holder(10, 'GridLayout', rows(140, 60))],
        seen: [140],
    },
    {
        name: 'a window larger than the screen',
        window: { geometry: '[10,40,3000,4000]', setMinimumHeight: '2000' },
        widgets: [holder(10, 'Panel', rows(140, 60))],
        seen: [140],
    },
];

/** Neither cut off nor covered, above nor below. */
function inSight({ page }: Stage, id: number): Promise<boolean> {
    return page.locator(`[data-id="${id}"]`).evaluate((element) => {
        const { left, right, top, bottom } = element.getBoundingClientRect();
        const at = (y: number): boolean =>
            element.contains(document.elementFromPoint((left + right) / 2, y));
        return at(top + 1) && at(bottom - 1);
    });
}

test('what is too long for the screen scrolls, and the buttons stay in sight', () =>
    onStage(browser, async (stage) => {
        for (const { name, window, widgets, seen } of longContents) {
            await openWindow(stage, 1, { ...window }, [...widgets, buttons]);
            for (const height of [800, 330, 600]) {
                await stage.page.setViewportSize({ width: 900, height });
                for (const id of [...seen, 6]) {
                    assert.ok(await inSight(stage, id), `${name}: ${id} at ${height}`);
                }
                await stage.page.locator('[data-id="199"]').focus();
                assert.ok(await inSight(stage, 199), `${name}: what has the focus, at ${height}`);
                assert.ok(await inSight(stage, 6), `${name}: the button, at ${height}`);
                await stage.page.locator(`[data-id="${seen[0]}"]`).focus();
                await stage.page.locator('[data-id="140"]').focus();
            }
            stage.gateway.write(1, 1, { command: 'close' });
            await frame(stage, 1).waitFor({ state: 'detached' });
        }
    }));

test('a window that its contents make higher moves up, so that its end stays in sight', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [holder(10, 'Panel', rows(20, 2)), buttons]);
        const panel = holder(10, 'Panel', rows(180, 20));
        stage.gateway.send(['./1', { ...panel, msgType: 'refresh', parentId: '2' }]);
        await stage.page.locator('[data-id="199"]').waitFor();
        const { y, height } = await box(stage, 1);
        assert.ok(y > 0 && y + height <= 600, `${y} + ${height}`);
        assert.ok(await inSight(stage, 6));
    }));
