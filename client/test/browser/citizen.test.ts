import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import type { Browser, CDPSession, Page } from 'playwright-core';
import { launchBrowser, onStage, openWindow, widget, type Stage } from '../support/browser.ts';
import { everyKind, eventsOf, settled, untilEvents } from '../support/scene.ts';

/** What every page owes its visitors, whatever it shows. */

let browser: Browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

const require = createRequire(join(process.cwd(), 'package.json'));
const axe = readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');

interface AxeRun {
    readonly violations: readonly {
        readonly id: string;
        readonly nodes: readonly { readonly html: string }[];
    }[];
    readonly passes: readonly unknown[];
}

async function assertAccessible(page: Page, what: string): Promise<void> {
    await page.evaluate(axe);
    const run = await page.evaluate(async () => {
        const { axe } = window as unknown as { axe: { run: (options: object) => Promise<AxeRun> } };
        const values = ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa'];
        return axe.run({ runOnly: { type: 'tag', values } });
    });
    const found = run.violations.map(({ id, nodes }) => [id, ...nodes.map((node) => node.html)]);
    assert.deepEqual(found, [], what);
    assert.ok(
        run.passes.length > 8,
        `${what}: only ${run.passes.length} rules had something to look at`,
    );
}

for (const colorScheme of ['light', 'dark'] as const) {
    for (const direction of ['ltr', 'rtl']) {
        test(`nothing stands in anyone's way, ${colorScheme}, ${direction}`, () =>
            onStage(browser, async (stage) => {
                const { page, gateway } = stage;
                await page.emulateMedia({ colorScheme, reducedMotion: 'reduce' });
                await page.evaluate((dir) => (document.documentElement.dir = dir), direction);
                await assertAccessible(page, 'an empty desktop');
                await openWindow(stage, 1, {}, [...everyKind]);
                await assertAccessible(page, 'every kind');
                await page.locator('[data-id="18"] > .opener').click();
                await assertAccessible(page, 'an open list');
                await page.keyboard.press('Escape');
                gateway.write(1, 30, { tabposition: 'West', documentmode: true });
                gateway.write(1, 20, { title: '', flat: true });
                gateway.write(1, 13, { checkable: true, checked: true });
                gateway.send([
                    './1',
                    { type: 'messagebox', level: 'warning', title: 'T', body: 'B' },
                ]);
                await page.getByRole('alertdialog').waitFor();
                await assertAccessible(page, 'tabs at the side and a message');
                await page.getByRole('alertdialog').getByRole('button').click();
                await page.getByRole('button', { name: 'Minimize' }).click();
                await assertAccessible(page, 'the task bar');
            }));
    }
}

/** The tree that assistive tools see of a window with every kind. */
const tree = `
- dialog "Window 1":
  - textbox "Name": Ada
  - checkbox "Agree" [checked]
  - button "Push"
  - button "Go"
  - combobox "Colour":
    - option "green" [selected]
  - combobox "Town": grey
  - group "Options":
    - checkbox "In a box"
  - tablist:
    - tab "First" [selected]
    - tab "Second"
    - tab "Third"
  - tabpanel "First":
    - button "On the first"
  - button "Off" [disabled]
`;

test('every widget has its role, its name and its state', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [...everyKind]);
        const snapshot = await stage.page.getByRole('dialog').ariaSnapshot();
        const lines = snapshot.split('\n').map((line) => line.trim().replace(/:$/, ''));
        const expected = tree
            .trim()
            .split('\n')
            .map((line) => line.trim().replace(/:$/, ''));
        assert.deepEqual(
            expected.filter((line) => !lines.includes(line)),
            [],
            snapshot,
        );
    }));

async function composing(
    stage: Stage,
    play: (session: CDPSession) => Promise<void>,
): Promise<void> {
    const session = await stage.page.context().newCDPSession(stage.page);
    await play(session);
    await session.detach();
}

const compose = (session: CDPSession, text: string): Promise<unknown> =>
    session.send('Input.imeSetComposition', {
        text,
        selectionStart: text.length,
        selectionEnd: text.length,
    });

for (const [kind, id, at] of [
    ['edit', 11, '[data-id="11"]'],
    ['editable box', 18, '[data-id="18"] > input'],
] as const) {
    test(`a text being composed in an ${kind} is told once, and nothing disturbs it`, () =>
        onStage(browser, async (stage) => {
            await openWindow(stage, 1, {}, [...everyKind]);
            const { page, gateway } = stage;
            const field = page.locator(at);
            await field.fill('');
            await untilEvents(stage, id, [['onEdit', '']]);
            await composing(stage, async (session) => {
                await compose(session, 'に');
                await compose(session, 'にほ');
                gateway.write(1, id, { text: 'from the program', currentindex: 1 });
                const layout = { id: '2', type: 'BoxLayout', contents: everyKind };
                gateway.send(['./1', { ...layout, msgType: 'refresh', parentId: '1' }]);
                gateway.send(['/dova2/web', { ping: -1 }]);
                await gateway.until(() => gateway.messages('/dova2/web').length > 0, 'a word');
                await compose(session, 'にほん');
                assert.equal(await field.inputValue(), 'にほん');
                assert.equal(eventsOf(stage, id).length, 1);
                await session.send('Input.insertText', { text: '日本' });
            });
            await untilEvents(stage, id, [
                ['onEdit', ''],
                ['onEdit', '日本'],
            ]);
            await gateway.until(
                () => gateway.messages('/dova2/web').length > 1,
                'the answer to the ping',
            );
            await settled(stage);
            assert.equal(await page.locator(at).inputValue(), '日本');
            assert.equal(
                await page.locator(at).evaluate((e) => document.activeElement === e),
                true,
            );
        }));
}

test('texts are selected with the pointer, copied and pasted', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [
            widget(10, 'Text', { text: 'Copy me' }),
            ...everyKind.slice(1),
        ]);
        const { page } = stage;
        await page.locator('[data-id="10"]').selectText();
        const box = await page.locator('[data-id="10"]').boundingBox();
        assert.ok(box);
        await page.mouse.move(box.x + 1, box.y + box.height / 2);
        await page.mouse.down();
        await page.mouse.move(box.x + 100, box.y + box.height / 2, { steps: 5 });
        await page.mouse.up();
        assert.equal(await page.evaluate(() => getSelection()?.toString()), 'Copy me');
        await page.keyboard.press('Control+C');
        await page.locator('[data-id="11"]').focus();
        await page.keyboard.press('Control+A');
        await page.keyboard.press('Control+V');
        await untilEvents(stage, 11, [['onEdit', 'Copy me']]);
    }));

test('the search of the browser finds what stands on a page behind', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [...everyKind]);
        const { page } = stage;
        const panel = page.locator('[data-id="33"]');
        assert.equal(await panel.getAttribute('hidden'), 'until-found');
        assert.equal(await page.getByRole('button', { name: 'On the second' }).count(), 0);
        await page.evaluate(() => (location.hash += ':~:text=third'));
        await panel.evaluate((e) => e.dispatchEvent(new Event('beforematch', { bubbles: true })));
        await untilEvents(stage, 30, [['tabchanged', 1]]);
        await page.getByRole('button', { name: 'On the second' }).waitFor();
    }));

const long = Array.from({ length: 40 }, (_, index) =>
    widget(100 + index, 'CheckBox', { label: `Row ${index}` }),
);

test('at 200 % zoom nothing is cut off: the window fits and scrolls one way only', () =>
    onStage(
        browser,
        async (stage) => {
            const wide = widget(50, 'Text', { text: 'word '.repeat(60) + 'x'.repeat(120) });
            await openWindow(stage, 1, {}, [wide, ...everyKind, ...long]);
            const cut = await stage.page.evaluate(() => {
                const body = document.querySelector('.body') as HTMLElement;
                const page = document.documentElement;
                const out = [...body.querySelectorAll<HTMLElement>('[data-id]')].filter(
                    (element) => {
                        const { left, right } = element.getBoundingClientRect();
                        return element.checkVisibility() && (left < 0 || right > innerWidth);
                    },
                );
                return [
                    page.scrollWidth > innerWidth && 'the page scrolls sideways',
                    body.scrollWidth > body.clientWidth && 'the window scrolls sideways',
                    body.scrollHeight <= body.clientHeight && 'nothing to scroll',
                    ...out.map((element) => element.outerHTML),
                ].filter(Boolean);
            });
            assert.deepEqual(cut, []);
        },
        { viewport: { width: 320, height: 256 }, deviceScaleFactor: 2 },
    ));

test('on a screen of two pixels to the unit, edges lie on pixels', () =>
    onStage(
        browser,
        async (stage) => {
            await openWindow(stage, 1, {}, [...everyKind]);
            const { page } = stage;
            await page.mouse.move(430, 40);
            await page.mouse.down();
            await page.mouse.move(400.3, 61.7, { steps: 3 });
            await page.mouse.up();
            const uneven = await page.evaluate(() =>
                ['.window', '.bar', '.grip', '.tool', '.body'].filter((selector) => {
                    const { x, y } = (
                        document.querySelector(selector) as Element
                    ).getBoundingClientRect();
                    return [x * 2, y * 2].some((edge) => Math.abs(edge - Math.round(edge)) > 0.01);
                }),
            );
            assert.deepEqual(uneven, []);
        },
        { viewport: { width: 901, height: 601 }, deviceScaleFactor: 2 },
    ));

test('a finger moves a window, presses, toggles and turns pages', () =>
    onStage(
        browser,
        async (stage) => {
            await openWindow(stage, 1, { geometry: '[100,80,300,480]' }, [...everyKind]);
            const { page, gateway } = stage;
            const window = page.locator('.window');
            await page.getByRole('button', { name: 'Go', exact: true }).tap();
            await page.getByLabel('Agree').tap();
            await page.getByRole('tab', { name: 'Second' }).tap();
            await page.locator('[data-id="18"] > .opener').tap();
            await page.locator('.choices').getByText('green').tap();
            await untilEvents(stage, 14, [['onClick']]);
            await untilEvents(stage, 12, [['onToggle', false]]);
            await untilEvents(stage, 30, [['tabchanged', 1]]);
            await untilEvents(stage, 18, [['onSelectionChange', 1, 'green']]);
            const start = await window.boundingBox();
            assert.ok(start);
            const session = await page.context().newCDPSession(page);
            const finger = (
                type: 'touchStart' | 'touchMove' | 'touchEnd',
                by: number,
            ): Promise<unknown> =>
                session.send('Input.dispatchTouchEvent', {
                    type,
                    touchPoints:
                        type === 'touchEnd' ? [] : [{ x: start.x + 60 + by, y: start.y + 20 + by }],
                });
            await finger('touchStart', 0);
            for (const by of [10, 20, 30, 40]) {
                await finger('touchMove', by);
            }
            const up = page.evaluate(
                () =>
                    new Promise((done) =>
                        document.addEventListener('pointerup', () => done(0), {
                            capture: true,
                            once: true,
                        }),
                    ),
            );
            await finger('touchEnd', 0);
            await up;
            const moved = JSON.stringify({ ...start, x: start.x + 40, y: start.y + 40 });
            await gateway.until(
                () =>
                    gateway
                        .messages('./1')
                        .some(
                            (message) =>
                                JSON.stringify(
                                    (message as { frameGeometry?: object }).frameGeometry,
                                ) === moved,
                        ),
                'the place where the finger left it',
            );
        },
        { viewport: { width: 900, height: 600 }, hasTouch: true },
    ));

test('the wheel scrolls a long window and changes no value', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [...everyKind, ...long]);
        const { page } = stage;
        const box = await page.locator('select').boundingBox();
        assert.ok(box);
        await page.locator('select').focus();
        await page.mouse.move(box.x + 20, box.y + 10);
        await page.mouse.wheel(0, 200);
        await page.waitForFunction(() => (document.querySelector('.body')?.scrollTop ?? 0) > 100);
        await settled(stage);
        assert.deepEqual(eventsOf(stage, 16), []);
    }));

test('by the keyboard alone everything is reached, in the order in which it stands', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, [...everyKind]);
        const { page } = stage;
        await page.locator('.grip').focus();
        const reached: string[] = [];
        for (let step = 0; step < 14; step += 1) {
            await page.keyboard.press('Tab');
            reached.push(
                await page.evaluate(() => {
                    const at = document.activeElement;
                    return at?.closest('.body')
                        ? (at.closest<HTMLElement>('[data-id]')?.dataset['id'] ?? '')
                        : (at?.ariaLabel ?? '');
                }),
            );
        }
        assert.deepEqual(reached.slice(0, 12), [
            'Minimize',
            'Maximize',
            'Close',
            '11',
            '12',
            '13',
            '14',
            '16',
            '18',
            '22',
            '30',
            '32',
        ]);
    }));
