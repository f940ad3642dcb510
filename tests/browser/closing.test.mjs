import assert from 'node:assert/strict';
import { mkdir, readFile, rm, rmdir, writeFile } from 'node:fs/promises';
import { after, before, test } from 'node:test';
import { launchBrowser, Scene } from './support/Scene.mjs';

let browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

const question = (page) => page.getByRole('dialog', { name: 'Unsaved changes' });
const answer = (page, name) =>
    question(page).getByRole('button', { name, exact: true }).click();

/** The window has two buttons of this name: its own, in the title bar, and the program's. */
const ways = {
    'the button': (scene, page) => scene.button(page, 'Close').last().click(),
    'the title bar': (scene, page) => scene.button(page, 'Close').first().click(),
};

for (const [way, close] of Object.entries(ways)) {
    test(`closed by ${way}, an unedited dialog goes at once and comes back anew`, async (t) => {
        const scene = await Scene.on(t, browser);
        const page = await scene.open();
        await close(scene, page);
        await page.getByText('All dialogs are closed.').waitFor();
        assert.equal(await page.getByRole('dialog').count(), 0);
        await page.getByRole('button', { name: 'Start again' }).click();
        await scene.dialog(page).waitFor();
        await close(scene, page);
        await page.getByText('All dialogs are closed.').waitFor();
        await scene.open();
    });

    test(`closed by ${way}, an edited dialog asks, and stays when told`, async (t) => {
        const scene = await Scene.on(t, browser);
        const before = await scene.text();
        const page = await scene.open();
        await page.getByLabel('operator').fill('Jana');
        for (let round = 0; round < 2; ++round) {
            await close(scene, page);
            await answer(page, 'Cancel');
            await question(page).waitFor({ state: 'detached' });
            await scene.dialog(page, 'modified').waitFor();
            assert.equal(await page.getByLabel('operator').inputValue(), 'Jana');
        }
        await page.getByLabel('broker').fill('localhost');
        await scene.press(page, 'Save');
        await scene.dialog(page, 'saved').waitFor();
        assert.equal(
            await scene.text(),
            before.replace('Šárka Nováková', 'Jana').replace('mqtt.example.org', 'localhost'),
        );
    });

    for (const [choice, saved] of [['Save', true], ['Discard', false]]) {
        test(`closed by ${way}, "${choice}" ends the edits`, async (t) => {
            const scene = await Scene.on(t, browser);
            const before = await scene.text();
            const page = await scene.open();
            await page.getByLabel('operator').fill('Jana');
            await close(scene, page);
            await answer(page, choice);
            await page.getByText('All dialogs are closed.').waitFor();
            const expected = saved ? before.replace('Šárka Nováková', 'Jana') : before;
            assert.equal(await scene.text(), expected);
            const again = await scene.open();
            const shown = await again.getByLabel('operator').inputValue();
            assert.equal(shown, saved ? 'Jana' : 'Šárka Nováková');
            await scene.program.end();
            assert.equal(scene.program.errors, '');
        });
    }
}

test('the question keeps the user from the dialog below it', async (t) => {
    const scene = await Scene.on(t, browser);
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jana');
    await ways['the button'](scene, page);
    await question(page).waitFor();
    await assert.rejects(page.getByLabel('broker').click({ timeout: 500, trial: true }));
    // Its own window closed means: do nothing.
    await question(page).getByRole('button', { name: 'Close', exact: true }).click();
    await question(page).waitFor({ state: 'detached' });
    await page.getByLabel('broker').fill('localhost');
});

test('a save that fails says so over the dialog and loses nothing', async (t) => {
    const scene = await Scene.on(t, browser);
    const before = await scene.text();
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jana');
    await rm(scene.file);
    await mkdir(scene.file);
    await scene.press(page, 'Save');
    const box = page.getByRole('alertdialog', { name: 'Not saved' });
    assert.match(await box.textContent(), /sample\.json/);
    await box.getByRole('button', { name: 'OK' }).click();
    await scene.dialog(page, 'modified').waitFor();

    await rmdir(scene.file);
    await writeFile(scene.file, before);
    await scene.press(page, 'Save');
    await scene.dialog(page, 'saved').waitFor();
    assert.equal(await scene.text(), before.replace('Šárka Nováková', 'Jana'));
});

test('a file that another program changed is overwritten only when the user says so', async (t) => {
    const scene = await Scene.on(t, browser);
    const before = await scene.text();
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jana');
    const foreign = before.replace('1883', '8883');
    await writeFile(scene.file, foreign);
    const changed = page.getByRole('dialog', { name: 'Changed by another program' });
    await scene.press(page, 'Save');
    await changed.getByRole('button', { name: 'Cancel' }).click();
    await changed.waitFor({ state: 'detached' });
    assert.equal(await scene.text(), foreign);

    await scene.press(page, 'Save');
    await changed.getByRole('button', { name: 'Overwrite' }).click();
    await scene.dialog(page, 'saved').waitFor();
    assert.equal(await scene.text(), before.replace('Šárka Nováková', 'Jana'));
});

test('a program that ends with unsaved edits names them', async (t) => {
    const scene = await Scene.on(t, browser);
    const page = await scene.open();
    await page.getByLabel('operator').fill('Jana');
    await page.getByLabel('enabled').uncheck();
    await scene.dialog(page, 'modified').waitFor();
    assert.equal(await scene.program.end('SIGINT'), 0);
    await page.getByText('The program has ended.').waitFor();
    assert.match(scene.program.errors, /^jsonpad: .*"operator", "enabled".*\n$/);
    assert.match(await readFile(scene.file, 'utf8'), /Šárka/);
});
