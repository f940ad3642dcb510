import assert from 'node:assert/strict';
import { onStage, type Stage, widget } from '../support/Stage.ts';

/** A window of ten thousand rows, which the page makes and lays out in parts, is one like others. */

const ROWS = 10_000;
const ALL = 900;
const SAVE = 901;
const label = (row: number): number => 1000 + 2 * row;
const field = (row: number): number => label(row) + 1;

const rows = Array.from({ length: ROWS }, (_, row) => [
    widget(label(row), 'Text', { buddy: String(field(row)), text: `Label of row ${row}` }),
    widget(field(row), 'Edit', { text: `value ${row}` }),
]).flat();

/** Opens it; what the program does is done while most of it is not there yet. */
async function openRows(
    stage: Stage,
    whileItComes: () => void = () => {},
    type = 'GridLayout',
): Promise<void> {
    const layout = { id: String(ALL), type, contents: rows };
    const below = { id: '3', type: 'BoxLayout', contents: [widget(SAVE, 'Button', {})] };
    const contents = [{ id: '2', type: 'BoxLayout', contents: [layout, below] }];
    const box = type === 'BoxLayout' ? [layout] : contents;
    stage.gateway.send(['.', { id: '1', type: 'Dialog', title: 'Rows', contents: box }]);
    whileItComes();
    await stage.at(field(ROWS - 1)).waitFor({ state: 'attached' });
    await stage.settled();
}

/** The widths that columns have while rows come, and how many rows there are before the button. */
function watchArrival({ page }: Stage): Promise<() => Promise<[string[], number]>> {
    return page
        .evaluateHandle((id) => {
            const widths = new Set<string>();
            const seen = { widths, before: 0 };
            const look = (): void => {
                const grid = document.querySelector<HTMLElement>('.in-blocks');
                widths.add(grid?.style.getPropertyValue('--columns') ?? '');
                if (document.querySelector(`[data-id="${id}"]`) === null) {
                    seen.before = document.querySelectorAll('input').length;
                }
            };
            const what = { childList: true, attributes: true, subtree: true };
            new MutationObserver(look).observe(document.body, what);
            return seen;
        }, SAVE)
        .then((seen) => () => seen.evaluate(({ widths, before }) => [[...widths], before]));
}

/** Whether all blocks are laid out, or some are left for later. */
function isLaid(all: boolean): boolean {
    return (document.querySelector('.block:not(.laid)') === null) === all;
}

/** Where label and field of a row begin, once the row was scrolled to. */
async function columnsAt({ page }: Stage, row: number): Promise<unknown> {
    await page.evaluate((id) => {
        document.querySelector(`[data-id="${id}"]`)?.scrollIntoView({ block: 'center' });
        return new Promise((painted) => requestAnimationFrame(() => setTimeout(painted)));
    }, field(row));
    return page.evaluate(
        (ids) =>
            ids.map((id) => {
                const box = document.querySelector(`[data-id="${id}"]`)?.getBoundingClientRect();
                return [Math.round(box?.left ?? 0), Math.round(box?.right ?? 0)];
            }),
        [label(row), field(row)],
    );
}

onStage('ten thousand rows: columns line up, however far one scrolls', async (stage) => {
    const patch = Array.from({ length: ROWS }, (_, row) => {
        const value = { type: 'Edit', tag: String(field(row)), placeholder: `about ${row}` };
        return { op: 'add', path: `/${row}`, value };
    });
    stage.gateway.send(['/tdom', { version: 1, snapshot: {} }]);
    const arrival = await watchArrival(stage);
    await openRows(stage, () => stage.gateway.send(['/tdom', { version: 2, patch }]));
    const last = stage.at(field(ROWS - 1));
    assert.equal(await last.getAttribute('placeholder'), `about ${ROWS - 1}`);
    const [widths, before] = await arrival();
    assert.equal(widths.filter((width) => width !== '').length, 1, widths.join(', '));
    assert.ok(before < 500, `${before} rows before the button below them`);
    const first = await columnsAt(stage, 0);
    for (const row of [39, 40, 5000, ROWS - 1]) {
        assert.deepEqual(await columnsAt(stage, row), first, `row ${row}`);
    }
    stage.write(1, label(7000), { text: 'A label that is wider than all the others are' });
    await stage.settled();
    const wider = await columnsAt(stage, 0);
    assert.notDeepEqual(wider, first);
    assert.deepEqual(await columnsAt(stage, 7000), wider, 'behind the widest label');
});

onStage('ten thousand rows: find, Tab, copy and assistive tools reach each', async (stage) => {
    await openRows(stage);
    const { page } = stage;
    assert.equal(await page.evaluate('find("Label of row 8765")'), true);
    const found = 'getSelection().anchorNode.parentElement.dataset.id';
    assert.equal(await page.evaluate(found), String(label(8765)));

    await stage.at(field(39)).focus();
    await page.keyboard.press('Tab');
    await page.keyboard.type('!');
    await stage.untilEvents(field(40), [['onEdit', '!']]);
    await stage.at(label(41)).click();
    assert.equal(await stage.at(field(41)).evaluate((e) => document.activeElement === e), true);

    const copied = await page.evaluate(
        ([from, to]) => {
            const at = (id?: number) => document.querySelector(`[data-id="${id}"]`) as Element;
            getSelection()?.setBaseAndExtent(at(from), 0, at(to), 1);
            return getSelection()
                ?.toString()
                .match(/Label of row \d+/g)?.length;
        },
        [label(3000), label(3199)],
    );
    assert.equal(copied, 200);

    // For another width only what is in sight is laid out at first.
    await page.setViewportSize({ width: 800, height: 600 });
    await page.waitForFunction(isLaid, false);
    await page.waitForFunction(isLaid, true, { polling: 500, timeout: 120_000 });
    const session = await page.context().newCDPSession(page);
    const last = { expression: `document.querySelector('[data-id="${field(ROWS - 1)}"]')` };
    const { result } = await session.send('Runtime.evaluate', last);
    const of = { objectId: result.objectId ?? '', fetchRelatives: false };
    const { nodes } = await session.send('Accessibility.getPartialAXTree', of);
    assert.deepEqual([nodes[0]?.ignored, nodes[0]?.name?.value], [false, 'Label of row 9999']);
});

onStage('ten thousand rows: what is written, put in and taken out meanwhile', async (stage) => {
    await openRows(stage, () => {
        stage.write(1, field(9000), { text: 'written early', setFocus: true });
        stage.write(1, field(0), { command: 'close' });
        stage.refresh(widget(field(1), 'Edit', { text: 'another' }), ALL);
        stage.refresh(widget(90_000, 'Text', { text: 'The end' }), ALL);
    });
    assert.equal(await stage.at(field(9000)).inputValue(), 'written early');
    assert.equal(await stage.at(field(9000)).evaluate((e) => document.activeElement === e), true);
    assert.equal(await stage.at(field(1)).inputValue(), 'another');
    assert.equal(await stage.at(field(0)).count(), 0);
    const order = await stage.page.evaluate(() =>
        [...document.querySelectorAll('.body [data-type="Text"], .body [data-type="Edit"]')]
            .map((element) => Number(element.getAttribute('data-id')))
            .filter((id, index, all) => index > 0 && id <= (all[index - 1] ?? 0)),
    );
    assert.deepEqual(order, [], 'all in their order, the last one behind them');
    // With the field of row 0 gone, and two more cells hidden, later rows begin with a field.
    stage.write(1, label(1), { visible: false });
    stage.write(1, field(1), { visible: false });
    await stage.settled();
    const broken = (await columnsAt(stage, 5000)) as number[][];
    assert.ok((broken[0]?.[0] ?? 0) > (broken[1]?.[0] ?? 0), JSON.stringify(broken));
    stage.write(1, label(0), { visible: false });
    await stage.settled();
    const whole = (await columnsAt(stage, 5000)) as number[][];
    assert.ok((whole[0]?.[0] ?? 0) < (whole[1]?.[0] ?? 0), JSON.stringify(whole));
});

onStage('ten thousand rows: of a thousand that change those out of sight wait', async (stage) => {
    await openRows(stage);
    const writes = Array.from({ length: 1000 }, (_, n) => ({
        id: String(label(10 * n)),
        text: `row ${n}`,
    }));
    stage.gateway.send(['./1', writes]);
    await stage.page.waitForFunction(isLaid, false);
    assert.deepEqual(
        [await stage.at(label(0)).innerText(), await stage.at(label(9990)).textContent()],
        ['row 0', 'row 999'],
    );
    await stage.page.waitForFunction(isLaid, true, { polling: 500, timeout: 120_000 });
    stage.write(1, label(0), { text: 'one alone' });
    await stage.settled();
    assert.equal(await stage.page.evaluate(isLaid, true), true);
});

onStage('ten thousand rows: on paper stand all of them', async (stage) => {
    await openRows(stage);
    await stage.page.emulateMedia({ media: 'print' });
    const bottom = await stage.page.evaluate(
        (id) => document.querySelector(`[data-id="${id}"]`)?.getBoundingClientRect().bottom,
        field(ROWS - 1),
    );
    assert.ok((bottom ?? 0) > ROWS * 20, `the last row ends at ${bottom}`);
    const height = await stage.page.evaluate(() => document.querySelector('.grid')?.scrollHeight);
    assert.ok(Math.abs((height ?? 0) - (bottom ?? 0)) < 200, `of ${height}`);
});

/** Types into the middle row; how many of the letters were a long task of the page. */
function longLetters({ page }: Stage, letters: number): Promise<number> {
    return page.evaluate(
        async ([id, count]) => {
            const frame = (): Promise<void> =>
                new Promise((painted) => requestAnimationFrame(() => setTimeout(painted)));
            const input = document.querySelector<HTMLInputElement>(`[data-id="${id}"]`);
            input?.focus();
            await frame();
            await frame();
            let tasks = 0;
            const watch = new PerformanceObserver((list) => {
                tasks += list.getEntries().length;
            });
            watch.observe({ type: 'longtask' });
            for (let letter = 0; letter < count; letter += 1) {
                document.execCommand('insertText', false, 'x');
                await frame();
            }
            await new Promise((told) => setTimeout(told, 100));
            return tasks;
        },
        [field(ROWS / 2), letters] as const,
    );
}

for (const type of ['GridLayout', 'BoxLayout']) {
    onStage(`ten thousand rows in a ${type}: a letter is laid out alone`, async (stage) => {
        await openRows(stage, undefined, type);
        const long = await longLetters(stage, 12);
        assert.ok(long < 10, `${long} of 12 letters are long tasks`);
    });
}
