import assert from 'node:assert/strict';
import { mkdir, rm } from 'node:fs/promises';
import { after, before, test } from 'node:test';
import { CuttableProxy } from './support/CuttableProxy.mjs';
import { launchBrowser, Scene } from './support/Scene.mjs';

let browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

test('a reload keeps what was typed half, and it can be saved', async (t) => {
    const scene = await Scene.on(t, browser);
    const before = await scene.text();
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jan');
    await page.getByLabel('port').fill('18x');
    await page.reload();
    await scene.dialog(page, 'modified').waitFor();
    assert.equal(await page.getByLabel('operator').inputValue(), 'Jan');
    assert.equal(await page.getByLabel('port').inputValue(), '18x');
    await page.getByLabel('operator').press('End');
    await page.getByLabel('operator').pressSequentially('a');
    await page.getByLabel('port').fill('18');
    await scene.press(page, 'Save');
    await scene.dialog(page, 'saved').waitFor();
    assert.equal(await scene.text(), before.replace('Šárka Nováková', 'Jana').replace('1883', '18'));
});

test('a second page takes over with the unsaved edits, and the first one says so', async (t) => {
    const scene = await Scene.on(t, browser);
    const first = await scene.open();
    await first.getByLabel('operator').fill('Jana');
    await first.getByLabel('port').fill('18x');
    await scene.dialog(first, 'modified').waitFor();
    const second = await scene.open();
    await first.getByText('Another page has taken over.').waitFor();
    await scene.dialog(second, 'modified').waitFor();
    assert.equal(await second.getByLabel('operator').inputValue(), 'Jana');
    assert.equal(await second.getByLabel('port').inputValue(), '18x');

    await second.getByLabel('port').fill('18');
    await first.getByRole('button', { name: 'Take it back' }).click();
    await second.getByText('Another page has taken over.').waitFor();
    await scene.dialog(first, 'modified').waitFor();
    assert.equal(await first.getByLabel('port').inputValue(), '18');
    await scene.press(first, 'Save');
    await scene.dialog(first, 'saved').waitFor();
});

test('a question that was open when another page came is gone, the edits are not', async (t) => {
    const scene = await Scene.on(t, browser);
    const first = await scene.open();
    await first.getByLabel('operator').fill('Jana');
    await scene.button(first, 'Close').last().click();
    await first.getByRole('dialog', { name: 'Unsaved changes' }).waitFor();
    const second = await scene.open();
    await scene.dialog(second, 'modified').waitFor();
    assert.equal(await second.getByRole('dialog').count(), 1);
    assert.equal(await second.getByLabel('operator').inputValue(), 'Jana');
});

const ends = [
    { signal: 'SIGTERM', code: 0, notice: 'The program has ended.' },
    { signal: 'SIGKILL', code: null, notice: 'Connection lost.' },
];
for (const { signal, code, notice } of ends) {
    test(`after ${signal} the page says "${notice}"`, async (t) => {
        const scene = await Scene.on(t, browser);
        const page = await scene.open();
        assert.equal(await scene.program.end(signal), code);
        await page.getByText(notice).waitFor();
    });
}

/** The browser believes to talk to the program's own address. */
async function behindProxy(t, play) {
    const scene = await Scene.on(t, browser);
    const proxy = await CuttableProxy.to(scene.program.port);
    t.after(() => proxy.end());
    const rule = `MAP 127.0.0.1:${scene.program.port} 127.0.0.1:${proxy.port}`;
    const proxied = await launchBrowser(`--host-resolver-rules=${rule}`);
    t.after(() => proxied.close());
    await play(await scene.inBrowser(proxied), proxy);
}

test('what is done while the connection is cut arrives when it is back, once', async (t) => {
    await behindProxy(t, async (scene, proxy) => {
        const before = await scene.text();
        const page = await scene.open();
        await page.getByLabel('operator').fill('J');
        await scene.dialog(page, 'modified').waitFor();
        proxy.cut();
        await page.getByText('Connection lost.').waitFor();
        await page.getByLabel('operator').pressSequentially('ana');
        await page.getByLabel('enabled').uncheck();
        await scene.press(page, 'Save');
        assert.equal(await scene.text(), before);
        proxy.restore();
        await scene.dialog(page, 'saved').waitFor();
        const expected = before.replace('Šárka Nováková', 'Jana');
        assert.equal(await scene.text(), expected.replace('"enabled": true', '"enabled": false'));
    });
});

test('an action whose answer was lost with the connection is not done again', async (t) => {
    await behindProxy(t, async (scene, proxy) => {
        const page = await scene.open();
        await page.getByLabel('operator').fill('Jana');
        await scene.dialog(page, 'modified').waitFor();
        await rm(scene.file);
        await mkdir(scene.file);
        const wentUp = proxy.swallowAnswers();
        await scene.press(page, 'Save');
        await wentUp;
        proxy.cut();
        await page.getByText('Connection lost.').waitFor();
        proxy.restore();
        await page.getByRole('alertdialog', { name: 'Not saved' }).waitFor();
        // What comes after it in the same order is there, so a second one would be there, too.
        await page.getByRole('alertdialog').getByRole('button', { name: 'OK' }).click();
        await page.getByLabel('port').fill('x');
        await page.getByText('Not a number: "port"').waitFor();
        assert.equal(await page.getByRole('alertdialog').count(), 0);
        await rm(scene.file, { recursive: true });
    });
});
