import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Browser, Page } from 'playwright-core';
import { launchBrowser, onStage, openWindow, widget, type Stage } from '../support/browser.ts';

let browser: Browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

const content = [
    widget(11, 'Text', { text: 'Name', buddy: '12' }),
    widget(12, 'Edit', { text: '' }),
    widget(13, 'Button', { label: 'OK' }),
];

function announcements(stage: Stage): number {
    return stage.gateway.messages('/dova2/web').length;
}

/** The texts and selections of a page's edits. */
function selections(page: Page): Promise<string[]> {
    const tell = (edits: (SVGElement | HTMLElement)[]): string[] =>
        (edits as unknown as HTMLInputElement[]).map(
            ({ value, selectionStart, selectionEnd, selectionDirection }) =>
                `${value}: ${selectionStart} to ${selectionEnd} ${selectionDirection}`,
        );
    return page.locator('.edit').evaluateAll(tell);
}

test('a lost connection is told, what is done meanwhile is sent when it is back', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        const { page, gateway } = stage;
        await page.context().setOffline(true);
        gateway.cut();
        await page.getByRole('status').getByText('Connection lost').waitFor();
        await page.getByLabel('Name').fill('offline');
        await page.getByRole('button', { name: 'OK' }).click();
        await page.context().setOffline(false);
        await page.getByRole('status').getByText('Connected again').waitFor();
        const click = { id: '13', event: 'onClick' };
        const clicks = (): unknown[] =>
            gateway
                .messages('./1')
                .filter((message) => JSON.stringify(message) === JSON.stringify(click));
        await gateway.until(() => clicks().length > 0, 'the click');
        assert.equal(clicks().length, 1);
        assert.equal(announcements(stage), 1);
    }));

test('a reload shows everything as it was and goes on with the session', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        await openWindow(stage, 30, { geometry: '[500,300,200,100]' }, [
            widget(32, 'Text', { text: 'second' }),
            widget(33, 'Edit', { text: 'elsewhere' }),
        ]);
        const { page, gateway } = stage;
        await page.getByLabel('second').focus();
        for (const key of ['Home', 'ArrowRight', 'Shift+ArrowRight', 'Shift+ArrowRight']) {
            await page.keyboard.press(key);
        }
        gateway.send([
            './1',
            { type: 'messagebox', level: 'warning', title: 'Careful', body: 'x' },
        ]);
        await page.getByRole('alertdialog').waitFor();
        await page.getByLabel('Name').focus();
        await page.keyboard.type('typed');
        await page.keyboard.press('ArrowLeft');
        await page.keyboard.press('Shift+ArrowLeft');
        await page.keyboard.press('Shift+ArrowLeft');
        await page.getByRole('heading', { name: 'Careful' }).waitFor();
        const box = await page.locator('.window[data-id="30"]').boundingBox();
        await page.reload();
        assert.deepEqual((await selections(page)).sort(), [
            'elsewhere: 1 to 3 forward',
            'typed: 2 to 4 backward',
        ]);
        await page.keyboard.press('Shift+ArrowRight');
        await page.keyboard.type('X');
        assert.equal(await page.getByLabel('Name').inputValue(), 'typXd');
        assert.deepEqual(await page.locator('.window[data-id="30"]').boundingBox(), box);
        await page.getByRole('alertdialog', { name: 'Careful' }).waitFor();
        gateway.write(30, 32, { text: 'after the reload' });
        await page.getByText('after the reload').waitFor();
        assert.equal(announcements(stage), 1, 'the same session');
    }));

test('a reload starts afresh when the session is gone', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        stage.gateway.forgetSessions();
        await stage.page.reload();
        await stage.gateway.until(() => announcements(stage) === 2, 'a new announcement');
        assert.equal(await stage.page.locator('.window').count(), 0);
    }));

test('a reload with damaged storage starts afresh', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        await stage.page.evaluate(() => {
            const damage = (): void => {
                const kept = JSON.parse(sessionStorage.getItem('dialogs') ?? '{}') as object;
                sessionStorage.setItem('dialogs', JSON.stringify({ ...kept, session: 'damaged' }));
            };
            addEventListener('pagehide', damage);
            document.addEventListener('visibilitychange', damage);
        });
        await stage.page.reload();
        await stage.gateway.until(() => announcements(stage) === 2, 'a new announcement');
    }));

const leavings: readonly (readonly [code: number, says: string, action: string])[] = [
    [4001, 'opened in another tab', 'Use it here'],
    [4002, 'taken over', 'Take it back'],
];

for (const [code, says, action] of leavings) {
    test(`close code ${code} is told and can be undone, under a modal window too`, () =>
        onStage(browser, async (stage) => {
            await openWindow(stage, 1, { modal: true }, content);
            stage.gateway.cut(code);
            const status = stage.page.getByRole('status');
            await status.getByText(says).waitFor();
            await status.getByRole('button', { name: action }).click();
            await stage.gateway.until(() => announcements(stage) === 2, 'a new announcement');
            assert.equal(await stage.page.locator('.window').count(), 0);
        }));
}

test('without a token the page says what to do', () =>
    onStage(browser, async ({ page, address }) => {
        await page.goto('about:blank');
        await page.goto(address.replace(/#.*/, ''));
        await page.getByText('open the address that the program printed').waitFor();
    }));

test('a ping is answered, and ten thousand writes in one go show the last', () =>
    onStage(browser, async (stage) => {
        await openWindow(stage, 1, {}, content);
        const { gateway, page } = stage;
        const write = (count: number): readonly [string, unknown] => [
            './1',
            [{ id: '11', type: 'Text', text: `write ${count}` }],
        ];
        gateway.send(...Array.from({ length: 10_000 }, (_, index) => write(index + 1)));
        await page.getByText('write 10000', { exact: true }).waitFor();
        gateway.send(['/dova2/web', { ping: -1 }]);
        await gateway.until(() => announcements(stage) === 2, 'the answer to the ping');
    }));

test('a program that was started again is not waited for in vain', () =>
    onStage(browser, async ({ gateway, page }) => {
        gateway.token = 'another';
        gateway.cut(1001);
        await page.getByRole('status').getByText('The program has ended').waitFor();
        await page.getByRole('status').getByText('out of date').waitFor();
    }));
