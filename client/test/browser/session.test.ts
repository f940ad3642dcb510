import assert from 'node:assert/strict';
import type { Page } from 'playwright-core';
import { onStage, widget } from '../support/Stage.ts';

const content = [
    widget(11, 'Text', { text: 'Name', buddy: '12' }),
    widget(12, 'Edit', { text: '' }),
    widget(13, 'Button', { label: 'OK' }),
];

/** The texts and selections of a page's edits. */
function selections(page: Page): Promise<string[]> {
    const tell = (edits: (SVGElement | HTMLElement)[]): string[] =>
        (edits as unknown as HTMLInputElement[]).map(
            ({ value, selectionStart, selectionEnd, selectionDirection }) =>
                `${value}: ${selectionStart} to ${selectionEnd} ${selectionDirection}`,
        );
    return page.locator('.edit').evaluateAll(tell);
}

onStage('a reload shows everything as it was and goes on with the session', async (stage) => {
    await stage.open(1, {}, content);
    const second = [
        widget(32, 'Text', { text: 'second' }),
        widget(33, 'Edit', { text: 'elsewhere' }),
    ];
    await stage.open(30, { geometry: '[500,300,200,100]' }, second);
    const { page } = stage;
    await page.getByLabel('second').focus();
    for (const key of ['Home', 'ArrowRight', 'Shift+ArrowRight', 'Shift+ArrowRight']) {
        await page.keyboard.press(key);
    }
    const told = { type: 'messagebox', level: 'warning', title: 'Careful', body: 'x' };
    stage.gateway.send(['./1', told]);
    await page.getByRole('alertdialog').waitFor();
    await page.getByLabel('Name').focus();
    await page.keyboard.type('typed');
    for (const key of ['ArrowLeft', 'Shift+ArrowLeft', 'Shift+ArrowLeft']) {
        await page.keyboard.press(key);
    }
    await page.getByRole('heading', { name: 'Careful' }).waitFor();
    const box = await stage.at(30).boundingBox();
    await page.reload();
    const selected = ['elsewhere: 1 to 3 forward', 'typed: 2 to 4 backward'];
    assert.deepEqual((await selections(page)).sort(), selected);
    await page.keyboard.press('Shift+ArrowRight');
    await page.keyboard.type('X');
    assert.equal(await page.getByLabel('Name').inputValue(), 'typXd');
    assert.deepEqual(await stage.at(30).boundingBox(), box);
    await page.getByRole('alertdialog', { name: 'Careful' }).waitFor();
    stage.write(30, 32, { text: 'after the reload' });
    await page.getByText('after the reload').waitFor();
    assert.equal(stage.announced, 1, 'the same session');
    assert.equal(stage.gateway.closeCode, 1001, 'the gateway can tell it from an accident');
});

onStage('a page thrown away in the background comes back with what was typed', async (stage) => {
    await stage.open(1, {}, content);
    const { page, gateway } = stage;
    await page.getByLabel('Name').pressSequentially('typed');
    await page.evaluate(() => {
        Object.defineProperty(document, 'visibilityState', { value: 'hidden' });
        document.dispatchEvent(new Event('visibilitychange'));
        // What is done from here on is more than a page can do that is thrown away.
        const unheard = (event: Event): void => event.stopImmediatePropagation();
        addEventListener('pagehide', unheard, true);
        document.addEventListener('visibilitychange', unheard, true);
    });
    stage.write(1, 13, { label: 'written meanwhile' });
    stage.write(1, 12, { text: 'Typed' });
    await stage.settled();
    await gateway.until(() => gateway.peer.isAcknowledged, 'the last acknowledgement');
    await page.reload();
    await stage.button('written meanwhile').waitFor();
    assert.equal(await page.getByLabel('Name').inputValue(), 'Typed');
    assert.equal(stage.announced, 2, 'the same session: one answer to a ping');
});

onStage('a reload starts afresh when nothing can be gone on with', async (stage) => {
    await stage.open(1, {}, content);
    stage.gateway.peer.forgetSessions();
    await stage.page.reload();
    await stage.untilAnnounced(2);
    assert.equal(await stage.page.locator('.window').count(), 0);
    await stage.page.evaluate(() => {
        const damage = (): void => {
            const kept = JSON.parse(sessionStorage.getItem('/pad/dialogs') ?? '{}') as object;
            sessionStorage.setItem('/pad/dialogs', JSON.stringify({ ...kept, session: 'damaged' }));
        };
        addEventListener('pagehide', damage);
        document.addEventListener('visibilitychange', damage);
    });
    await stage.page.reload();
    await stage.untilAnnounced(3);
});

onStage('a lost session is told and taken back, over a modal window too', async (stage) => {
    const leavings = [
        [4001, 'opened in another tab', 'Use it here'],
        [4002, 'taken over', 'Take it back'],
    ] as const;
    for (const [code, says, action] of leavings) {
        await stage.open(1, { modal: true }, content);
        const before = stage.announced;
        stage.gateway.close(code);
        const status = stage.page.getByRole('status');
        await status.getByText(says).waitFor();
        await status.getByRole('button', { name: action }).click();
        await stage.untilAnnounced(before + 1);
        assert.equal(await stage.page.locator('.window').count(), 0);
    }
});

onStage('without a token, or with an old one, the page says what to do', async (stage) => {
    const { gateway, page } = stage;
    const bare = page.url().replace(/#.*/, '');
    gateway.token = 'another';
    gateway.close(1001);
    await page.getByRole('status').getByText('The program has ended').waitFor();
    await page.getByRole('status').getByText('out of date').waitFor();
    // The tab keeps its token; another one has none.
    const other = await page.context().newPage();
    await other.goto(bare);
    await other.getByText('open the address that the program printed').waitFor();
});

const shownAgain = [
    ['typed', false],
    ['as it was', true],
] as const;

for (const [text, isLost] of shownAgain) {
    const told = isLost ? 'listed' : 'not lost';
    onStage(`a session ends: "typed" is ${told} where "${text}" is shown`, async (stage) => {
        const { page, gateway } = stage;
        const list = page.getByRole('region', { name: 'Not in the program: 1' });
        await stage.open(1, {}, content);
        await page.getByLabel('Name').fill('typed');
        await stage.untilEvents(12, [['onEdit', 'typed']]);
        gateway.peer.forgetSessions();
        gateway.close(1011);
        await stage.untilAnnounced(2);
        await page.getByRole('status').getByText('The session was lost').waitFor();
        const again = [content[0], widget(12, 'Edit', { text }), content[2]] as object[];
        await stage.open(1, { modal: true }, again);
        assert.equal(await list.count(), Number(isLost));
        if (isLost) {
            await list.getByRole('button', { name: 'Put back' }).click();
            assert.equal(await page.getByLabel('Name').inputValue(), 'typed');
            await list.getByText('put back').waitFor();
            await list.getByRole('button', { name: 'Dismiss' }).click();
            assert.equal(await list.count(), 0);
        }
    });
}

const narrow = { viewport: { width: 400, height: 500 } };
const places = ['[8,40,380,440]', '[8,450,380,300]', '[100,430,250,200]'];

onStage(
    'what the page says covers no title bar, wherever windows stand',
    async (stage) => {
        const { page, gateway } = stage;
        for (const [index, geometry] of places.entries()) {
            await stage.open(1 + index * 10, { geometry }, []);
        }
        gateway.token = 'another';
        gateway.close(1011);
        await page.getByRole('status').getByText('out of date').waitFor();
        const covered = await page.evaluate(() => {
            const banner =
                document.querySelector('.banner')?.getBoundingClientRect() ?? new DOMRect();
            const all = [...document.querySelectorAll('.bar')];
            const bars = all.map((bar) => bar.getBoundingClientRect());
            const meets = (bar: DOMRect): boolean =>
                Math.min(bar.right, banner.right) > Math.max(bar.left, banner.left) &&
                Math.min(bar.bottom, banner.bottom) > Math.max(bar.top, banner.top);
            return [banner.width > 100 && banner.top >= 0, bars.length, bars.filter(meets).length];
        });
        assert.deepEqual(covered, [true, places.length, 0]);
    },
    narrow,
);
