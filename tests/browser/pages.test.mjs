import assert from 'node:assert/strict';
import { mkdir, rm } from 'node:fs/promises';
import { CuttableProxy } from './support/CuttableProxy.mjs';
import { chromiumOnly, everyEngine, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';
import { jana, onScene, onSceneEverywhere } from './support/Scene.mjs';

inEach(everyEngine, 'hello greets who tells a name, by button and by Enter', async (browser, t) => {
    const program = await Program.start('hello');
    t.after(() => program.end());
    const page = await browser.newPage();
    t.after(() => page.close());
    await page.goto(program.address);
    await page.getByLabel('Your name').fill('Ada');
    await page.getByRole('button', { name: 'Greet' }).click();
    await page.getByText('Hello, Ada!').waitFor();
    await page.getByLabel('Your name').fill('Grace');
    await page.keyboard.press('Enter');
    await page.getByText('Hello, Grace!').waitFor();
    assert.equal(await program.end(), 0);
});

inEach(chromiumOnly, 'the example of the README works as it stands, and can be closed', async (browser, t) => {
    const program = await Program.start('readme_example');
    t.after(() => program.end());
    const page = await browser.newPage();
    t.after(() => page.close());
    await page.goto(program.address);
    for (let round = 0; round < 2; ++round) {
        await page.getByRole('textbox').fill('Ada');
        await page.getByRole('button', { name: 'Greet' }).click();
        await page.getByText('Hello, Ada!').waitFor();
        await page.getByRole('button', { name: 'Close' }).click();
        await page.getByRole('button', { name: 'Start again' }).click();
    }
});

onSceneEverywhere('a reload keeps what was typed half, and it can be saved', async (scene) => {
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jan');
    await page.getByLabel('port').fill('18x');
    assert.equal(await page.evaluate(() => location.hash), '', 'the token is for nobody to read off');
    await page.reload();
    await scene.dialog(page, 'modified').waitFor();
    assert.equal(await page.getByLabel('operator').inputValue(), 'Jan');
    assert.equal(await page.getByLabel('port').inputValue(), '18x');
    await page.getByLabel('operator').press('End');
    await page.getByLabel('operator').pressSequentially('a');
    await page.getByLabel('port').fill('18');
    await scene.save(page);
    await scene.assertText(jana, ['1883', '18']);
});

onSceneEverywhere('a second page takes over with the unsaved edits, the first one says so', async (scene) => {
    const first = await scene.openEdited();
    await first.getByLabel('port').fill('18x');
    await scene.button(first, 'Close').last().click();
    await first.getByRole('dialog', { name: 'Unsaved changes' }).waitFor();
    const second = await scene.open();
    await first.getByText('Another page has taken over.').waitFor();
    await scene.dialog(second, 'modified').waitFor();
    assert.equal(await second.getByRole('dialog').count(), 1, 'the question is gone');
    assert.equal(await second.getByLabel('operator').inputValue(), 'Jana');
    assert.equal(await second.getByLabel('port').inputValue(), '18x');

    await second.getByLabel('port').fill('18');
    await first.getByRole('button', { name: 'Take it back' }).click();
    await second.getByText('Another page has taken over.').waitFor();
    await scene.dialog(first, 'modified').waitFor();
    assert.equal(await first.getByLabel('port').inputValue(), '18');
    await scene.save(first);
});

const ends = [
    ['SIGTERM', 0, 'The program has ended.'],
    ['SIGKILL', null, 'Connection lost.'],
];
for (const [signal, code, notice] of ends) {
    onScene(`after ${signal} the page says "${notice}"`, async (scene) => {
        const page = await scene.open();
        assert.equal(await scene.program.end(signal), code);
        await page.getByText(notice).waitFor();
    });
}

function behindProxy(name, play) {
    onSceneEverywhere(name, async (scene) => {
        const proxy = await CuttableProxy.before(scene.program);
        try {
            await play(scene, proxy);
        } finally {
            await proxy.end();
        }
    });
}

behindProxy('what is done while the connection is cut arrives later', async (scene, proxy) => {
    const page = await scene.open(proxy.address);
    await page.getByLabel('operator').fill('J');
    await scene.dialog(page, 'modified').waitFor();
    proxy.cut();
    await page.getByText('Connection lost.').waitFor();
    await page.getByLabel('operator').pressSequentially('ana');
    await page.getByLabel('enabled').uncheck();
    await scene.press(page, 'Save');
    await scene.assertText();
    proxy.restore();
    await page.getByText('Connected again.').waitFor();
    await scene.dialog(page, 'saved').waitFor();
    await scene.assertText(jana, ['"enabled": true', '"enabled": false']);
});

behindProxy('an action whose answer was lost is not done again', async (scene, proxy) => {
    const page = await scene.openEdited(proxy.address);
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
});
