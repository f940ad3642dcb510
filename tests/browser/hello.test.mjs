import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Program } from './support/Program.mjs';
import { launchBrowser } from './support/Scene.mjs';

test('hello greets who tells a name, by button and by Enter', async (t) => {
    const program = await Program.startExample('hello');
    t.after(() => program.end());
    const browser = await launchBrowser();
    t.after(() => browser.close());
    const page = await browser.newPage();
    await page.goto(program.address);
    await page.getByLabel('Your name').fill('Ada');
    await page.getByRole('button', { name: 'Greet' }).click();
    await page.getByText('Hello, Ada!').waitFor();
    await page.getByLabel('Your name').fill('Grace');
    await page.keyboard.press('Enter');
    await page.getByText('Hello, Grace!').waitFor();
    assert.equal(await program.end(), 0);
});
