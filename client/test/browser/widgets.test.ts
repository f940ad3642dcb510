import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Browser } from 'playwright-core';
import { launchBrowser, onStage, openWindow, widget, type Stage } from '../support/browser.ts';

let browser: Browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

function events(stage: Stage, id: number): unknown[] {
    const messages = stage.gateway.messages('./1') as {
        id?: string;
        event?: string;
        value?: unknown;
    }[];
    return messages
        .filter((message) => message.id === String(id) && message.event !== undefined)
        .map(({ event, value }) => (value === undefined ? event : [event, value]));
}

async function untilEvents(stage: Stage, id: number, count: number): Promise<unknown[]> {
    await stage.gateway.until(() => events(stage, id).length >= count, `${count} events of ${id}`);
    return events(stage, id);
}

/** The program's own side of an edit: it sends back what was typed. */
function echo(stage: Stage, id: number): void {
    for (const event of events(stage, id) as [string, string][]) {
        if (event[0] === 'onEdit') {
            stage.gateway.write(1, id, { type: 'Edit', text: event[1] });
        }
    }
}

const form = [
    widget(10, 'Text', { text: 'Name', buddy: '11' }),
    widget(11, 'Edit', { text: '' }),
    widget(12, 'CheckBox', { label: 'Agree', checked: false }),
    widget(13, 'Button', { label: 'Push', icon: '', defaultbutton: false }),
    widget(14, 'Button', { label: 'Go', icon: '', defaultbutton: true }),
];

test('a person types, toggles and clicks; Enter presses the default button', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, form);
        const { page } = stage;
        await page.getByLabel('Name').pressSequentially('ab');
        await page.keyboard.press('Enter');
        assert.deepEqual(await untilEvents(stage, 11, 3), [
            ['onEdit', 'a'],
            ['onEdit', 'ab'],
            ['onEditFinish', 'ab'],
        ]);
        assert.deepEqual(await untilEvents(stage, 14, 1), ['onClick']);
        await page.getByLabel('Agree').check();
        assert.deepEqual(await untilEvents(stage, 12, 1), [['onToggle', true]]);
        await page.getByRole('button', { name: 'Push' }).click();
        assert.deepEqual(await untilEvents(stage, 13, 1), ['onClick']);
        assert.equal(events(stage, 11).length, 3, 'the edit had ended already');
    }));

test('a checkable button stays down, toggles, then clicks', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, form);
        stage.gateway.write(1, 13, { type: 'Button', checkable: true });
        const button = stage.page.getByRole('button', { name: 'Push', pressed: false });
        await button.click();
        assert.deepEqual(await untilEvents(stage, 13, 2), [['onToggle', true], 'onClick']);
        await stage.page.getByRole('button', { name: 'Push', pressed: true }).waitFor();
    }));

test('echoes never rewind, and nothing overwrites what is being typed', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, form);
        const edit = stage.page.getByLabel('Name');
        await edit.pressSequentially('abc');
        await untilEvents(stage, 11, 3);
        await edit.pressSequentially('d');
        echo(stage, 11);
        stage.gateway.write(1, 11, { type: 'Edit', text: 'from the program' });
        stage.gateway.write(1, 13, { type: 'Button', label: 'mark 1' });
        await stage.page.getByRole('button', { name: 'mark 1' }).waitFor();
        assert.equal(await edit.inputValue(), 'abcd');
        await stage.page.keyboard.press('Enter');
        stage.gateway.write(1, 11, { type: 'Edit', text: 'after the end' });
        stage.gateway.write(1, 13, { type: 'Button', label: 'mark 2' });
        await stage.page.getByRole('button', { name: 'mark 2' }).waitFor();
        assert.equal(await edit.inputValue(), 'after the end');
    }));

test('a subtree shown anew keeps the focus, the caret and what is being typed', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, form);
        const { page, gateway } = stage;
        await page.getByLabel('Name').pressSequentially('hello');
        await page.keyboard.press('ArrowLeft');
        const layout = { id: '2', type: 'BoxLayout', contents: form };
        gateway.send(['./1', { ...layout, msgType: 'refresh', parentId: '1' }]);
        gateway.write(1, 13, { type: 'Button', label: 'mark' });
        await page.getByRole('button', { name: 'mark' }).waitFor();
        await page.keyboard.type('X');
        assert.equal(await page.getByLabel('Name').inputValue(), 'hellXo');
    }));

type Control = HTMLInputElement & HTMLLabelElement & HTMLButtonElement;

interface Look {
    readonly name: string;
    readonly id: number;
    readonly write: Readonly<Record<string, unknown>>;
    readonly read: (element: Control) => unknown;
    readonly expected: unknown;
}

const looks: readonly Look[] = [
    {
        name: 'text is no markup',
        id: 10,
        write: { text: '<img src=x>&amp;' },
        read: (e) => e.textContent,
        expected: '<img src=x>&amp;',
    },
    {
        name: 'label is no markup',
        id: 13,
        write: { label: '<b>x</b>' },
        read: (e) => e.innerText,
        expected: '<b>x</b>',
    },
    {
        name: 'hidden',
        id: 13,
        write: { visible: false },
        read: (e) => e.checkVisibility(),
        expected: false,
    },
    {
        name: 'disabled button',
        id: 13,
        write: { enable: false },
        read: (e) => e.disabled,
        expected: true,
    },
    {
        name: 'disabled check box',
        id: 12,
        write: { enable: false },
        read: (e) => (e.control as HTMLInputElement).disabled,
        expected: true,
    },
    { name: 'tooltip', id: 11, write: { tooltip: 'Tip' }, read: (e) => e.title, expected: 'Tip' },
    {
        name: 'placeholder',
        id: 11,
        write: { placeholder: 'Here' },
        read: (e) => e.placeholder,
        expected: 'Here',
    },
    {
        name: 'colours, and nothing but colours',
        id: 10,
        write: { style: { color: 'rgb(255,0,16)', backgroundColor: 'url(x)' } },
        read: (e) => getComputedStyle(e).color + getComputedStyle(e).backgroundColor,
        expected: 'rgb(255, 0, 16)rgba(0, 0, 0, 0)',
    },
    {
        name: 'minimum height',
        id: 13,
        write: { setMinimumHeight: '123' },
        read: (e) => e.offsetHeight,
        expected: 123,
    },
    {
        name: 'size',
        id: 13,
        write: { resize: '[200.000000,60.000000]' },
        read: (e) => `${e.offsetWidth},${e.offsetHeight}`,
        expected: '200,60',
    },
    {
        name: 'checked',
        id: 12,
        write: { checked: true },
        read: (e) => (e.control as HTMLInputElement).checked,
        expected: true,
    },
    {
        name: 'buddy gone',
        id: 10,
        write: { buddy: '4294967295' },
        read: (e) => e.control,
        expected: null,
    },
    {
        name: 'spacing',
        id: 2,
        write: { spacing: 21 },
        read: (e) => getComputedStyle(e).rowGap,
        expected: '21px',
    },
    {
        name: 'object name',
        id: 13,
        write: { objectName: 'push' },
        read: (e) => e.dataset['name'],
        expected: 'push',
    },
    {
        name: 'focus',
        id: 11,
        write: { setFocus: true },
        read: (e) => document.activeElement === e,
        expected: true,
    },
];

test('every property shows', () =>
    onStage(browser, async (stage) => {
        for (const look of looks) {
            await openWindow(stage, 1, {}, form);
            stage.gateway.write(1, look.id, look.write);
            stage.gateway.write(1, 14, { label: `mark ${look.name}` });
            await stage.page.getByRole('button', { name: `mark ${look.name}` }).waitFor();
            const element = stage.page.locator(`[data-id="${look.id}"]`);
            const read = look.read as (element: SVGElement | HTMLElement) => unknown;
            assert.equal(await element.evaluate(read), look.expected, look.name);
        }
    }));

test('updates that are held back show when they are allowed again', () =>
    onStage(browser, async (stage) => {
        const panel = { id: '20', type: 'Panel', contents: [widget(21, 'Text', { text: 'old' })] };
        await openWindow(stage, 1, {}, [panel, ...form]);
        const { page, gateway } = stage;
        gateway.write(1, 20, { updateEnabled: false });
        gateway.write(1, 21, { text: 'new' });
        gateway.write(1, 14, { label: 'mark' });
        await page.getByRole('button', { name: 'mark' }).waitFor();
        assert.equal(await page.locator('[data-id="21"]').textContent(), 'old');
        gateway.write(1, 20, { updateEnabled: true });
        await page.getByText('new', { exact: true }).waitFor();
    }));

test('hostile texts on every channel leave the page as it is', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, form);
        const deep = '['.repeat(100_000);
        const texts = ['', '{', 'null', '7', '"x"', '[]', '[[]]', '{}', '[null,7,"x"]', deep];
        texts.push('[{"id":"11","text":null}]', '[{"id":"__proto__","text":"x"}]');
        texts.push('{"id":"10","type":"Dialog","contents":[{"id":"1"}]}');
        texts.push('{"msgType":"refresh","parentId":"77","id":"78","contents":[{"id":"11"}]}');
        texts.push(`[{"id":"10","text":${JSON.stringify('x'.repeat(200_000))}}]`);
        texts.push('[{"id":"10","text":"Name"}]');
        for (const channel of ['/dova2/web', '.', './1', './77', './10']) {
            stage.gateway.send(...texts.map((text) => [channel, text] as const));
        }
        stage.gateway.write(1, 14, { label: 'mark' });
        await stage.page.getByRole('button', { name: 'mark' }).waitFor();
        assert.equal(await stage.page.locator('.window[data-id="1"] [data-id]').count(), 6);
    }));

const named: readonly (readonly [name: string, values: object])[] = [
    ['Open', { label: 'Open', icon: 'a/file.png', objectName: 'open1' }],
    ['Tip', { label: '', tooltip: 'Tip', icon: 'a/file.png' }],
    ['zoom in', { label: '', icon: 'C:\\icons\\zoom-in.svg', objectName: 'b3' }],
    ['okButton', { label: '', icon: '', objectName: 'okButton' }],
];

test('a button without caption is named by what is known of it', () =>
    onStage(browser, async (stage) => {
        const buttons = named.map(([, values], index) => widget(20 + index, 'Button', values));
        await openWindow(stage, 1, {}, buttons);
        for (const [index, [name]] of named.entries()) {
            const button = stage.page.getByRole('button', { name, exact: true });
            assert.equal(await button.getAttribute('data-id'), String(20 + index));
        }
        stage.gateway.write(1, 22, { label: 'Larger' });
        await stage.page.getByRole('button', { name: 'Larger', exact: true }).waitFor();
    }));

test('without a layout a child stands where the program puts it', () =>
    onStage(browser, async (stage) => {
        const children = [
            widget(21, 'Button', { label: 'A', moveTo: '[30,40]' }),
            widget(22, 'Button', { label: 'B' }),
        ];
        await openWindow(stage, 1, {}, [{ id: '20', type: 'Panel', contents: children }]);
        stage.gateway.write(1, 22, { geometry: '[5,90,80,25]' });
        stage.gateway.write(1, 22, { label: 'mark' });
        await stage.page.getByRole('button', { name: 'mark' }).waitFor();
        const places = await stage.page.locator('[data-id="20"]').evaluate((panel) => {
            const { x, y } = panel.getBoundingClientRect();
            const padding = parseFloat(getComputedStyle(panel).paddingLeft);
            return [...panel.children].map((child) => {
                const place = child.getBoundingClientRect();
                return [place.x - x - padding, place.y - y - padding];
            });
        });
        assert.deepEqual(places, [
            [30, 40],
            [5, 90],
        ]);
    }));

test('a refreshed field keeps the name that the text before it gives it', () =>
    onStage(browser, async (stage) => {
        const row = [widget(21, 'Text', { text: 'Town' }), widget(22, 'Edit', { text: 'old' })];
        await openWindow(stage, 1, {}, row);
        const again = widget(22, 'Edit', { text: 'new' });
        stage.gateway.send(['./1', { ...again, msgType: 'refresh', parentId: '2' }]);
        stage.gateway.write(1, 21, { tooltip: 'mark' });
        await stage.page.getByTitle('mark').waitFor();
        assert.equal(await stage.page.getByLabel('Town').inputValue(), 'new');
    }));
