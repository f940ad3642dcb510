import assert from 'node:assert/strict';
import { describe } from 'node:test';
import { setTimeout as pass } from 'node:timers/promises';
import { openTab } from '../../client/test/support/chromium.mjs';
import { CuttableProxy } from './support/CuttableProxy.mjs';
import { chromiumOnly, everyEngine, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';

const OUTAGE = 60_000;
/** So long after the network's return the page is back at the latest. */
const SOON = 5_000;

/** The gallery in front of a user who looks at its texts, behind a line that can be cut. */
async function openTexts(browser, t, faults) {
    const program = await Program.start('gallery');
    t.after(() => program.end());
    const proxy = await CuttableProxy.before(program);
    t.after(() => proxy.end());
    const page = await openTab(await browser.newContext(), faults);
    await page.goto(proxy.address);
    await page.getByRole('tab', { name: 'Texts', exact: true }).click();
    return { program, proxy, page };
}

/** From now on the page notes each change of what it says of the connection. */
function noteStatus(page) {
    return page.getByRole('status').evaluate((banner) => {
        window.said = [];
        const note = () => {
            const { width, height, top } = banner.getBoundingClientRect();
            const seen = width > 100 && height > 10 && top >= 0 && banner.checkVisibility();
            window.said.push([banner.textContent.trim(), seen]);
        };
        new MutationObserver(note).observe(banner, {
            attributes: true,
            characterData: true,
            childList: true,
            subtree: true,
        });
    });
}

async function outlive(browser, t) {
    const faults = [];
    const { program, proxy, page } = await openTexts(browser, t, faults);
    const name = page.getByLabel('Name', { exact: true });
    const star = page.getByRole('button', { name: 'One star more' });
    const status = page.getByRole('status');
    await name.fill('L');
    await page.getByText('1. Name: L').waitFor();
    const before = await page.locator('[data-type="Dialog"]').getAttribute('data-id');
    await noteStatus(page);

    const began = Date.now();
    proxy.cut();
    await status.getByText('Connection lost.').waitFor();
    await name.pressSequentially('in');
    await star.click();
    await pass(OUTAGE / 2);
    assert.ok(await status.getByText('what you do meanwhile is sent').isVisible());
    await star.click();
    await name.press('End');
    await name.pressSequentially('da');
    assert.equal(await page.getByText('**').count(), 0, 'nothing gets through');
    await pass(began + OUTAGE - Date.now());
    assert.ok(await status.getByText('Connection lost.').isVisible());

    const restored = Date.now();
    proxy.restore();
    await status.getByText('Connected again.').waitFor();
    assert.ok(Date.now() - restored < SOON, `back after ${Date.now() - restored} ms`);
    await page.getByText('***', { exact: true }).waitFor();
    await page.getByText('6. Name: Linda').waitFor();
    await status.getByText('Connected again.').waitFor({ state: 'detached' });
    assert.equal(await name.inputValue(), 'Linda');

    // Whatever came a second time would stand between, or be counted.
    await star.click();
    await page.getByText('****', { exact: true }).waitFor();
    await page.getByText(/^7\. The name is Linda\s6\. Name: Linda\s5\. Name: Lind$/).waitFor();
    assert.equal(await page.locator('[data-type="Dialog"]').getAttribute('data-id'), before);
    const said = await page.evaluate(() => window.said);
    const notices = said.map(([text, seen]) => (seen ? text.replace(/\..*/, '') : 'hidden'));
    const changes = notices.filter((notice, index) => notice !== notices[index - 1]);
    assert.deepEqual(changes, ['Connection lost', 'Connected again', 'hidden']);
    await page.context().close();
    assert.equal(await program.end(), 0);
    assert.equal(program.errors, '');
    assert.deepEqual(faults, []);
}

// Most of it is waiting, so the engines wait side by side.
describe('an outage of a minute', { concurrency: true }, () => {
    inEach(everyEngine, 'the same window, nothing typed or clicked is lost', outlive);
});

inEach(
    chromiumOnly,
    'a program that stands still handles all when it goes on',
    async (browser, t) => {
        const faults = [];
        const { program, page } = await openTexts(browser, t, faults);
        const status = page.getByRole('status');
        await noteStatus(page);
        for (const [stars, said] of [
            ['**', 'Waiting for the program. What you did is handled when it answers.'],
            ['***', 'No answer: the connection is lost or the program is busy.'],
        ]) {
            process.kill(program.pid, 'SIGSTOP');
            await page.getByRole('button', { name: 'One star more' }).click();
            await status.getByText(said).waitFor();
            process.kill(program.pid, 'SIGCONT');
            await page.getByText(stars, { exact: true }).waitFor();
        }
        await status.getByText('The program answers again.').waitFor();
        const said = await page.evaluate(() => window.said.map(([text]) => text).join());
        assert.doesNotMatch(said, /Connection lost|Connected again|another tab/);
        assert.equal(await page.getByRole('region', { name: 'Not in the program' }).count(), 0);
        assert.deepEqual(faults, []);
    },
);
