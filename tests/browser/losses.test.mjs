import assert from 'node:assert/strict';
import { readFile, rm, mkdtemp, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { launchBrowser, openTab } from '../../client/test/support/chromium.mjs';
import { Program } from './support/Program.mjs';
import { inTree } from './support/Scene.mjs';

/** jsonpad on a port and with a token of its own, so that it can be started again for its page. */
class Restarted {
    static async start(t) {
        const folder = await mkdtemp(join(tmpdir(), 'losses-'));
        const [file, token] = [join(folder, 'sample.json'), join(folder, 'token')];
        await writeFile(file, inTree('examples/jsonpad/sample.json'));
        await writeFile(token, '0123456789abcdef0123', { mode: 0o600 });
        const restarted = Object.assign(new Restarted(), { file, token });
        await restarted.again();
        const browser = await launchBrowser();
        const context = await browser.newContext({ permissions: ['clipboard-read'] });
        restarted.faults = [];
        restarted.page = await openTab(context, restarted.faults);
        await restarted.page.goto(restarted.program.address);
        t.after(async () => {
            await browser.close();
            await restarted.program.end();
            await rm(folder, { recursive: true });
        });
        return restarted;
    }

    async again() {
        const port = this.program ? ['--port', new URL(this.program.address).port] : [];
        const { token, file } = this;
        this.program = await Program.start('jsonpad', '--token-file', token, ...port, file);
    }

    /** The program dies without a word. */
    async kill() {
        await this.program.end('SIGKILL');
        await this.page.getByRole('status').getByText('Connection lost.').waitFor();
    }

    field(name) {
        return this.page.getByRole('textbox', { name, exact: true });
    }

    entry(field) {
        return this.list.getByRole('listitem').filter({ hasText: field });
    }

    get list() {
        return this.page.getByRole('region', { name: /^Not in the program/ });
    }
}

test('killed while somebody types: what is lost is said, can be copied and put back', async (t) => {
    const scene = await Restarted.start(t);
    const { page, list } = scene;
    await scene.field('operator').fill('Jana');
    await page.getByRole('dialog', { name: 'sample.json (modified)' }).waitFor();
    await scene.field('note').focus();
    await page.keyboard.press('Control+A');
    await page.keyboard.type('It rained ');
    await scene.kill();
    await page.keyboard.type('all day');
    await page.getByRole('button', { name: 'Save' }).click();
    await scene.again();

    await page.getByRole('status').getByText('The session was lost').waitFor();
    await list.getByText('received before').waitFor();
    assert.equal(await page.getByText('Connected again').count(), 0);
    for (const what of ['It rained all day', 'Save (sample.json (modified)) pressed', 'Jana']) {
        await list.getByText(what).first().waitFor();
    }
    assert.notEqual(await scene.field('note').inputValue(), 'It rained all day');
    assert.equal(await page.getByRole('dialog', { name: '(modified)' }).count(), 0);

    await scene.entry('note').getByRole('button', { name: 'Copy' }).click();
    await list.getByText('Copied.').waitFor();
    assert.equal(await page.evaluate('navigator.clipboard.readText()'), 'It rained all day');
    await scene.entry('note').getByRole('button', { name: 'Put back' }).click();
    await page.getByRole('dialog', { name: 'sample.json (modified)' }).waitFor();
    assert.equal(await scene.field('note').inputValue(), 'It rained all day');
    assert.notEqual(await scene.field('operator').inputValue(), 'Jana');

    // A second loss adds to the first, and a reload takes nothing away, not even in between.
    await scene.kill();
    await scene.field('broker').fill('localhost');
    await assert.rejects(page.reload(), /REFUSED/);
    await page.waitForURL('chrome-error://**');
    await scene.again();
    await page.reload();
    await list.getByText('localhost').waitFor();
    await page.reload();
    await list.getByText('localhost').waitFor();
    await list.getByText('Jana').waitFor();
    await scene.entry('broker').getByRole('button', { name: 'Put back' }).click();
    await page.getByRole('dialog', { name: 'sample.json (modified)' }).waitFor();
    await list.getByRole('button', { name: 'Dismiss' }).click();
    await scene.field('broker').press('Enter');
    await page.getByRole('dialog', { name: 'sample.json (saved)' }).waitFor();
    assert.match(await readFile(scene.file, 'utf8'), /"localhost"/);

    // What was saved is there again, so nothing is lost.
    await scene.kill();
    await scene.again();
    await page.getByRole('dialog', { name: 'sample.json', exact: true }).waitFor();
    assert.equal(await scene.field('broker').inputValue(), 'localhost');
    await page.getByRole('status').getByText('The session was lost').waitFor();
    assert.equal(await list.count(), 0);
    assert.deepEqual(scene.faults, []);
});
