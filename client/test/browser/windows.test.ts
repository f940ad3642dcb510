import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import type { Rect } from '../../src/protocol/geometry.ts';
import { META_STANDARD_BUTTON_SET } from '../../src/protocol/names.ts';
import { onStage, type Stage, widget } from '../support/Stage.ts';
import { tabPage } from '../support/scene.ts';

const content = [widget(12, 'Edit', { text: '' }), widget(13, 'Button', { label: 'OK' })];
const place = { geometry: '[200,150,300,120]' };

async function box(stage: Stage, id: number): Promise<Rect> {
    const rect = await stage.at(id).boundingBox();
    assert.ok(rect);
    return rect;
}

async function drag(stage: Stage, x: number, y: number, by: readonly [number, number]) {
    const { mouse } = stage.page;
    await mouse.move(x, y);
    await mouse.down();
    await mouse.move(x + by[0], y + by[1], { steps: 4 });
    await mouse.up();
}

onStage('a window is moved by its title bar and resized by its border', async (stage) => {
    await stage.open(1, place, content);
    const before = await box(stage, 1);
    await drag(stage, before.x + 60, before.y + 20, [50, 30]);
    const moved = { ...before, x: before.x + 50, y: before.y + 30 };
    await stage.untilKnown(1, 'frameGeometry', moved);
    assert.equal(stage.known(1)['resize'], undefined);
    await drag(stage, moved.x + moved.width - 2, moved.y + moved.height - 2, [40, 20]);
    const resized = { ...moved, width: moved.width + 40, height: moved.height + 20 };
    await stage.untilKnown(1, 'frameGeometry', resized);
    assert.equal(stage.known(1)['resize'], true);
    await stage.at(1).locator('.grip').focus();
    for (const keys of ['ArrowRight', 'Control+ArrowDown', 'Shift+ArrowRight']) {
        await stage.page.keyboard.press(keys);
    }
    const { x, y, width, height } = resized;
    const last = { x: x + 16, y: y + 1, width: width + 16, height };
    await stage.untilKnown(1, 'frameGeometry', last);
});

onStage('a window of the size asked for is on the page with all its buttons', async (stage) => {
    const captions = ['Append', 'Put first', 'Remove', 'Clear all'];
    const buttons = captions.map((label, at) => widget(13 + at, 'Button', { label }));
    const row = { id: '12', type: 'BoxLayout', contents: buttons };
    await stage.open(1, { resize: '[200,520]' }, [row]);
    assert.equal((await box(stage, 1)).height > 520, true);
    for (const id of [1, 13, 14, 15, 16]) {
        const { x, y, width, height } = await box(stage, id);
        const within = await box(stage, id === 1 ? 1 : 12);
        const fits = x >= within.x && x + width <= within.x + within.width && y + height <= 600;
        assert.ok(fits, `${id}: ${x}, ${y}, ${width} x ${height}`);
    }
});

onStage('a window is maximized, minimized and brought back', async (stage) => {
    await stage.open(1, place, content);
    const before = await box(stage, 1);
    await stage.at(1).locator('.grip').dblclick();
    await stage.untilKnown(1, 'maximized', true);
    await stage.untilKnown(1, 'frameGeometry', { x: 0, y: 0, width: 900, height: 600 });
    await stage.button('Restore').click();
    await stage.untilKnown(1, 'maximized', false);
    await stage.button('Minimize').click();
    await stage.untilKnown(1, 'minimized', true);
    assert.equal(await stage.at(1).isVisible(), false);
    const bar = stage.page.getByRole('navigation');
    await bar.getByRole('button', { name: 'Window 1' }).press('Enter');
    await stage.untilKnown(1, 'minimized', false);
    assert.deepEqual(await box(stage, 1), before);
});

onStage('windows lie above each other as they are used and raised', async (stage) => {
    await stage.open(1, { geometry: '[100,100,300,150]' }, content);
    await stage.open(30, { geometry: '[250,150,300,150]' }, [widget(32, 'Edit', { text: '' })]);
    const topAt = (x: number, y: number): Promise<unknown> =>
        stage.page.evaluate(`document.elementFromPoint(${x}, ${y}).closest('.window').dataset.id`);
    assert.equal(await topAt(300, 200), '30');
    await stage.page.mouse.click(150, 220);
    assert.equal(await topAt(300, 200), '1');
    await stage.at(12).focus();
    stage.write(30, 30, { raise: true });
    await stage.settled();
    assert.equal(await topAt(300, 200), '30');
    const focused = await stage.page.evaluate('document.activeElement.dataset.id');
    assert.equal(focused, '12', 'raising leaves the focus where the user works');
});

onStage('a modal window shuts the others off until it is closed', async (stage) => {
    await stage.open(1, {}, content);
    await stage.open(30, { modal: true }, [widget(32, 'Edit', { text: '' })]);
    await stage.page.keyboard.type('in front');
    assert.equal(await stage.at(32).inputValue(), 'in front');
    await assert.rejects(stage.at(13).click({ trial: true, timeout: 300 }), 'it can be clicked');
    await stage.page.keyboard.press('Escape');
    await stage.page.keyboard.press('Escape');
    const asked = (): boolean => stage.gateway.messages('.').length === 2;
    await stage.gateway.until(asked, 'the request to close');
    assert.equal(await stage.at(30).isVisible(), true, 'only the program closes it');
    await stage.close(30);
    await stage.at(13).click();
    // The last window gone, one can start again.
    await stage.button('Close').click();
    await stage.gateway.until(() => stage.gateway.messages('.').length === 3, 'another request');
    assert.deepEqual(stage.gateway.messages('.').at(-1), { dialogDestroyed: '1' });
    stage.write(1, 1, { command: 'close' });
    const before = stage.announced;
    await stage.button('Start again').click();
    await stage.untilAnnounced(before + 1);
    const [first, last] = [0, -1].map((index) => stage.gateway.messages('/dova2/web').at(index));
    assert.notDeepEqual(first, last);
});

onStage('Ctrl with + and - asks for another font size and scales the window', async (stage) => {
    await stage.open(1, {}, content);
    const size = (): Promise<unknown> => stage.at(13).evaluate((e) => getComputedStyle(e).fontSize);
    const before = await size();
    await stage.at(12).focus();
    await stage.page.keyboard.press('Control+=');
    await stage.untilKnown(1, 'increaseFontSize', true);
    assert.notEqual(await size(), before);
    await stage.page.keyboard.press('Control+-');
    await stage.untilKnown(1, 'decreaseFontSize', true);
    await stage.page.keyboard.press('Control+=');
    await stage.page.keyboard.press('Control+0');
    assert.equal(await size(), before);
});

onStage('the focus of a group goes to its first control that can take it', async (stage) => {
    const group = [
        widget(21, 'Edit', { visible: false }),
        widget(22, 'Edit', { enable: false }),
        { id: '23', type: 'Panel', enable: false, contents: [widget(24, 'Edit', {})] },
        widget(25, 'ComboBox', { entries: ['a'], currentindex: 0 }),
        widget(26, 'Edit', {}),
    ];
    await stage.open(1, place, [...content, { id: '20', type: 'GroupBox', contents: group }]);
    stage.write(1, 20, { setFocus: true });
    await stage.settled();
    const focused = await stage.page.evaluate(
        'document.activeElement.closest("[data-id]").dataset.id',
    );
    assert.equal(focused, '25');
});

onStage('a message is shown above everything and gives the focus back', async (stage) => {
    await stage.open(1, { modal: true }, content);
    await stage.at(12).focus();
    const text = { type: 'messagebox', level: 'error', title: 'No', body: '<i>not</i> saved' };
    stage.gateway.send(['./1', text]);
    const message = stage.page.getByRole('alertdialog', { name: 'No' });
    await message.getByText('<i>not</i> saved').waitFor();
    await stage.page.keyboard.press('Escape');
    await message.waitFor({ state: 'detached' });
    await stage.page.keyboard.type('on');
    assert.equal(await stage.at(12).inputValue(), 'on');
});

const rows = (first: number, count: number): object[] =>
    Array.from({ length: count }, (_, index) => widget(first + index, 'Edit', { text: 'x' }));
const holder = (id: number, type: string, contents: object[]): object =>
    widget(id, type, { contents });
const buttons = widget(5, 'Panel', {
    meta: META_STANDARD_BUTTON_SET,
    contents: [widget(6, 'Button', { label: 'OK' })],
});

/** A widget, or so many edits from an identifier on, in a container if there is a type. */
interface Given extends Record<string, unknown> {
    readonly id: number;
    readonly type?: string;
    readonly edits?: readonly [first: number, count: number];
}

function made({ id, type, edits, ...values }: Given): object[] {
    const contents = edits === undefined ? {} : { contents: rows(...edits) };
    const all = { ...values, ...contents };
    return type === undefined ? (contents.contents ?? []) : [widget(id, type, all)];
}

interface LongContent {
    readonly name: string;
    readonly window?: object;
    /** The last edit of each is number 199. */
    readonly widgets: readonly Given[];
    /** What has to be seen without scrolling, beside the button. */
    readonly seen: readonly number[];
}

interface Growth {
    readonly name: string;
    readonly window?: object;
    /** What a user presses on the title bar before. */
    readonly key?: string;
    readonly change: keyof typeof changes;
    /** Which sides grow; none when what is new has to be scrolled to. */
    readonly grows: '' | 'width' | 'height' | 'width,height';
}

const { longContents, growths } = JSON.parse(readFileSync('test/browser/windows.json', 'utf8')) as {
    longContents: LongContent[];
    growths: Growth[];
};

/** Neither cut off nor covered, above nor below. */
function inSight(stage: Stage, id: number): Promise<boolean> {
    return stage.at(id).evaluate((element) => {
        const { left, right, top, bottom } = element.getBoundingClientRect();
        const at = (y: number): boolean =>
            element.contains(document.elementFromPoint((left + right) / 2, y));
        return at(top + 1) && at(bottom - 1);
    });
}

onStage('what is too long scrolls, and the buttons stay in sight', async (stage) => {
    for (const { name, window, widgets, seen } of longContents) {
        await stage.open(1, { ...window }, [...widgets.flatMap(made), buttons]);
        for (const height of [800, 330, 600]) {
            await stage.page.setViewportSize({ width: 900, height });
            for (const id of [...seen, 6]) {
                assert.ok(await inSight(stage, id), `${name}: ${id} at ${height}`);
            }
            await stage.at(199).focus();
            assert.ok(await inSight(stage, 199), `${name}: what has the focus, at ${height}`);
            assert.ok(await inSight(stage, 6), `${name}: the button, at ${height}`);
            await stage.at(seen[0] ?? 0).focus();
            await stage.at(140).focus();
        }
        await stage.close(1);
    }
});

/** What was asked for has been laid out, and the windows have followed. */
async function laidOut(stage: Stage): Promise<void> {
    await stage.settled();
    const frame = () => new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
    await stage.page.evaluate(frame);
    await stage.page.evaluate(frame);
}

/** Whether something in window 1 can only be seen by scrolling. */
function scrolls(stage: Stage): Promise<boolean> {
    return stage.page.evaluate(() =>
        [...document.querySelectorAll('.body, .body .gives')].some(
            (e) => e.scrollHeight > e.clientHeight || e.scrollWidth > e.clientWidth,
        ),
    );
}

const tabs = widget(30, 'TabContainer', {
    currentindex: 0,
    contents: [
        tabPage(31, 'Small', widget(32, 'Button', { label: 'Small' })),
        tabPage(33, 'Large', holder(34, 'Panel', [holder(35, 'BoxLayout', rows(60, 9))])),
    ],
});
const form = [widget(40, 'Text', { text: 'Hello' }), widget(41, 'Button', { label: 'Go' }), tabs];
const changes = {
    text: (s: Stage) => s.write(1, 40, { text: 'It does not fit any more. '.repeat(30) }),
    button: (s: Stage) => s.write(1, 41, { label: 'W'.repeat(60) }),
    panel: (s: Stage) => s.refresh(widget(50, 'Panel', { contents: rows(51, 4) })),
};

onStage('a window follows what it holds, unless the user gave it another size', async (stage) => {
    await stage.page.setViewportSize({ width: 900, height: 900 });
    for (const { name, window, key, change, grows } of growths) {
        await stage.open(1, { ...window }, [...form, buttons]);
        if (key !== undefined) {
            await stage.at(1).locator('.grip').press(key);
        }
        await laidOut(stage);
        const before = await box(stage, 1);
        await stage.page.getByRole('tab', { name: 'Large' }).click();
        await laidOut(stage);
        assert.deepEqual(await box(stage, 1), before, 'it has room for the largest page');
        changes[change](stage);
        await laidOut(stage);
        const { x, y, width, height } = await box(stage, 1);
        const grown = [width > before.width && 'width', height > before.height && 'height'];
        assert.equal(grown.filter(Boolean).join(), grows, name);
        assert.equal(await scrolls(stage), grows === '', name);
        await stage.untilKnown(1, 'frameGeometry', { x, y, width, height });
        await stage.close(1);
    }
});

onStage('windows come back into a page that became smaller', async (stage) => {
    const place = { geometry: '[560,380,300,180]' };
    await stage.open(1, place, [widget(40, 'Text', { text: 'Hello' }), buttons]);
    const before = await box(stage, 1);
    await stage.page.setViewportSize({ width: 400, height: 300 });
    await laidOut(stage);
    assert.ok(await inSight(stage, 6), 'the button');
    await stage.page.setViewportSize({ width: 900, height: 600 });
    await laidOut(stage);
    assert.deepEqual(await box(stage, 1), before);
});

onStage('in a low window one thing scrolls, and what the program says is seen', async (stage) => {
    const grid = holder(10, 'GridLayout', rows(140, 30));
    const status = widget(7, 'Text', { text: 'Not a number' });
    await stage.open(1, {}, [grid, holder(11, 'Panel', rows(60, 6)), status, buttons]);
    for (const height of [300, 250, 700]) {
        await stage.page.setViewportSize({ width: 500, height });
        await laidOut(stage);
        const scrollers = await stage.page.evaluate(() =>
            [...document.querySelectorAll('.body, .body *')]
                .filter((e) => e.scrollHeight > e.clientHeight + 1)
                .filter((e) => getComputedStyle(e).overflowY === 'auto')
                .map((e) => e.clientHeight > 110),
        );
        assert.deepEqual(scrollers, [true], `one, of some height, at ${height}`);
        assert.ok((await inSight(stage, 7)) && (await inSight(stage, 6)), `${height}`);
    }
});

onStage('a window that grows moves up, so that its end stays in sight', async (stage) => {
    await stage.open(1, {}, [holder(10, 'Panel', rows(20, 2)), buttons]);
    stage.refresh(holder(10, 'Panel', rows(180, 20)));
    await laidOut(stage);
    const { y, height } = await box(stage, 1);
    assert.ok(y > 0 && y + height <= 600, `${y} + ${height}`);
    assert.ok(await inSight(stage, 6));
});

onStage('what a user has scrolled to stays, however its window is shown anew', async (stage) => {
    const { page, gateway } = stage;
    const panel = holder(10, 'Panel', rows(20, 60));
    const layout = { id: '2', type: 'BoxLayout', contents: [panel, buttons] };
    const more = { ...layout, contents: [panel, widget(7, 'Text', { text: 'More' }), buttons] };
    const steps: Record<string, () => unknown> = {
        'other objects': () => gateway.send(['.', { id: '1', type: 'Dialog', contents: [more] }]),
        'its layout again': () => stage.refresh(layout, 1),
        'its panel again': () => stage.refresh(panel),
        'one object more': () => stage.refresh(widget(8, 'Text', { text: 'Last' })),
        adjusted: () => stage.write(1, 1, { adjustsize: true }),
        modal: () => stage.write(1, 1, { modal: true }),
        hidden: () => stage.write(1, 1, { visible: false }),
        'shown again': () => stage.write(1, 1, { visible: true }),
        reloaded: () => page.reload(),
    };
    await stage.open(1, {}, [panel, buttons]);
    for (const [height, scroller] of Object.entries({ 200: '.body', 600: '.gives' })) {
        await page.setViewportSize({ width: 900, height: Number(height) });
        await laidOut(stage);
        await page.locator(scroller).evaluate((e) => e.scrollTo(0, 50));
        for (const [step, take] of Object.entries(steps)) {
            await take();
            await laidOut(stage);
            const scrolled = await page.locator(scroller).evaluate((e) => e.scrollTop);
            assert.equal(scrolled, step === 'hidden' ? 0 : 50, `${scroller}: ${step}`);
        }
    }
});

onStage('what a user presses neither moves nor gives way before it is a click', async (stage) => {
    const { page, gateway } = stage;
    await stage.open(1, {}, [widget(8, 'Text', { text: 'short' }), buttons]);
    const ok = stage.at(6);
    const place = await ok.boundingBox();
    await ok.hover();
    await page.mouse.down();
    stage.write(1, 8, { text: 'long '.repeat(99) });
    stage.write(1, 1, { moveTo: '[0,0]' });
    gateway.send(['./1', { ...buttons, msgType: 'refresh', parentId: '2' }]);
    gateway.send(['.', { id: '20', type: 'Dialog', modal: true, title: 'Over it' }]);
    await gateway.until(() => gateway.peer.isAcknowledged, 'all of it');
    await laidOut(stage);
    assert.deepEqual(await ok.boundingBox(), place);
    await page.mouse.up();
    await stage.untilEvents(6, ['onClick']);
    await page.getByRole('dialog', { name: 'Over it' }).waitFor();
    assert.notDeepEqual(await ok.boundingBox(), place);
});
