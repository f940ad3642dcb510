import assert from 'node:assert/strict';
import { openTab } from '../../client/test/support/chromium.mjs';
import { CuttableProxy } from './support/CuttableProxy.mjs';
import { chromiumOnly, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';

/** LETTERS in the environment for more of them. */
const LETTERS = Number(process.env['LETTERS'] ?? 36);
const A_SECOND = 12;

/** From now on the page notes what was typed whenever another text is put in its place. */
function noteTexts(field) {
    return field.evaluate((input) => {
        window.replaced = [];
        let typed = '';
        input.addEventListener('input', () => (typed = input.value));
        const { get, set } = Object.getOwnPropertyDescriptor(HTMLInputElement.prototype, 'value');
        const put = (text) => {
            window.replaced.push([typed, text]);
            set.call(input, text);
        };
        Object.defineProperty(input, 'value', { get: () => get.call(input), set: put });
    });
}

for (const delay of [0, 50, 300]) {
    inEach(chromiumOnly, `typing in capitals, ${delay} ms from the program`, async (browser, t) => {
        const program = await Program.start('gallery');
        t.after(() => program.end());
        const proxy = await CuttableProxy.before(program);
        t.after(() => proxy.end());
        proxy.delay = delay;
        const faults = [];
        const page = await openTab(await browser.newContext(), faults);
        await page.goto(proxy.address);
        await page.getByRole('tab', { name: 'Texts', exact: true }).click();
        const plate = page.getByLabel('Plate', { exact: true });
        await plate.focus();
        await noteTexts(plate);

        const letters = 'the quick brown fox '.repeat(LETTERS / 20 + 1).slice(0, LETTERS);
        const [begin, end] = [letters.slice(0, LETTERS / 2), letters.slice(LETTERS / 2)];
        await page.keyboard.type(begin, { delay: 1000 / A_SECOND });
        for (let key = 0; key < 3; key += 1) {
            await page.keyboard.press('ArrowLeft');
        }
        await page.keyboard.type(end, { delay: 1000 / A_SECOND });
        const caret = begin.length - 3 + end.length;
        const meant = (begin.slice(0, -3) + end + begin.slice(-3)).toUpperCase();
        const shown = (text) => document.querySelector(':focus').value === text;
        await page.waitForFunction(shown, meant);
        assert.equal(await plate.evaluate((input) => input.selectionStart), caret);
        const replaced = await page.evaluate(() => window.replaced);
        assert.ok(replaced.length > 0);
        for (const [typed, text] of replaced) {
            assert.equal(text, typed.toUpperCase(), 'nothing older is shown');
        }
        assert.deepEqual(faults, []);
    });
}
