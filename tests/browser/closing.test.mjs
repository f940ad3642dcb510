import assert from 'node:assert/strict';
import { mkdir, rm, rmdir, writeFile } from 'node:fs/promises';
import { jana, onScene, onSceneEverywhere } from './support/Scene.mjs';

const question = (page) => page.getByRole('dialog', { name: 'Unsaved changes' });
const allClosed = (page) => page.getByText('All dialogs are closed.').waitFor();

async function answer(page, name) {
    await question(page).getByRole('button', { name, exact: true }).click();
    await question(page).waitFor({ state: 'detached' });
}

/** The window has two buttons of this name: its own, in the title bar, and the program's. */
const ways = {
    'the button': (scene, page) => scene.button(page, 'Close').last().click(),
    'the title bar': (scene, page) => scene.button(page, 'Close').first().click(),
};

for (const [way, close] of Object.entries(ways)) {
    onSceneEverywhere(`closed by ${way}, a dialog goes at once, an edited one asks`, async (scene) => {
        const page = await scene.open();
        await close(scene, page);
        await allClosed(page);
        assert.equal(await page.getByRole('dialog').count(), 0);
        await page.getByRole('button', { name: 'Start again' }).click();
        await page.getByLabel('operator').fill('Jana');
        for (let round = 0; round < 2; ++round) {
            await close(scene, page);
            await answer(page, 'Cancel');
            await scene.dialog(page, 'modified').waitFor();
            assert.equal(await page.getByLabel('operator').inputValue(), 'Jana');
        }
        await close(scene, page);
        await answer(page, 'Discard');
        await allClosed(page);
        await scene.assertText();

        const again = await scene.open();
        assert.equal(await again.getByLabel('operator').inputValue(), jana[0]);
        await again.getByLabel('operator').fill('Jana');
        await close(scene, again);
        await answer(again, 'Save');
        await allClosed(again);
        await scene.assertText(jana);
        const last = await scene.open();
        assert.equal(await last.getByLabel('operator').inputValue(), 'Jana');
        await scene.program.end();
        assert.equal(scene.program.errors, '');
    });
}

onSceneEverywhere('the question keeps the user from the dialog below it', async (scene) => {
    const page = await scene.openEdited();
    await ways['the button'](scene, page);
    await question(page).waitFor();
    await assert.rejects(page.getByLabel('broker').click({ timeout: 500, trial: true }));
    // Its own window closed means: do nothing.
    await answer(page, 'Close');
    await page.getByLabel('broker').fill('localhost');
});

onScene('a save that fails says so over the dialog and loses nothing', async (scene) => {
    const page = await scene.openEdited();
    await rm(scene.file);
    await mkdir(scene.file);
    await scene.press(page, 'Save');
    const box = page.getByRole('alertdialog', { name: 'Not saved' });
    assert.match(await box.textContent(), /sample\.json/);
    await box.getByRole('button', { name: 'OK' }).click();
    await scene.dialog(page, 'modified').waitFor();

    await rmdir(scene.file);
    await writeFile(scene.file, scene.before);
    await scene.save(page);
    await scene.assertText(jana);
});

onScene('a file that another program changed is overwritten only when told', async (scene) => {
    const page = await scene.openEdited();
    await writeFile(scene.file, scene.before.replace('1883', '8883'));
    const changed = page.getByRole('dialog', { name: 'Changed by another program' });
    await scene.press(page, 'Save');
    await changed.getByRole('button', { name: 'Cancel' }).click();
    await changed.waitFor({ state: 'detached' });
    await scene.assertText(['1883', '8883']);

    await scene.press(page, 'Save');
    await changed.getByRole('button', { name: 'Overwrite' }).click();
    await scene.dialog(page, 'saved').waitFor();
    await scene.assertText(jana);
});

onScene('a program that ends with unsaved edits names them', async (scene) => {
    const page = await scene.openEdited();
    await page.getByLabel('enabled').uncheck();
    await scene.dialog(page, 'modified').waitFor();
    assert.equal(await scene.program.end('SIGINT'), 0);
    await page.getByText('The program has ended.').waitFor();
    assert.match(scene.program.errors, /^jsonpad: .*"operator", "enabled".*\n$/);
    await scene.assertText();
});
