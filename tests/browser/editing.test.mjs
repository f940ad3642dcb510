import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { inTree, launchBrowser, Scene } from './support/Scene.mjs';

let browser;
before(async () => (browser = await launchBrowser()));
after(() => browser.close());

/** Each a file of another shape, with fields to change and what that does to its text. */
const files = [
    {
        source: 'examples/jsonpad/sample.json',
        fields: { operator: 'Jana "JD" Dvořáková', altitude: '-4.130e+02' },
        boxes: ['enabled', 'calibrated'],
        edits: [
            ['"Šárka Nováková"', '"Jana \\"JD\\" Dvořáková"'],
            ['412.50', '-4.130e+02'],
            ['"enabled": true', '"enabled": false'],
            ['"calibrated": false', '"calibrated": true'],
        ],
    },
    {
        source: 'client/package.json',
        fields: { description: 'Ein Text mit <b>Zeichen</b> & mehr' },
        boxes: ['private'],
        edits: [
            ['"The page that shows a program\'s dialogs in a browser"',
                '"Ein Text mit <b>Zeichen</b> & mehr"'],
            ['"private": true', '"private": false'],
        ],
    },
    {
        source: 'CMakePresets.json',
        fields: { version: '7' },
        boxes: [],
        edits: [['"version": 6', '"version": 7']],
    },
];

for (const { source, fields, boxes, edits } of files) {
    test(`${source}: what is typed and toggled is saved, and nothing else changes`, async (t) => {
        const scene = await Scene.on(t, browser, inTree(source));
        const before = await scene.text();
        const page = await scene.open();
        for (const [key, value] of Object.entries(fields)) {
            await page.getByLabel(key, { exact: true }).fill(value);
        }
        for (const key of boxes) {
            await page.getByLabel(key, { exact: true }).click();
        }
        await scene.dialog(page, 'modified').waitFor();
        assert.equal(await scene.text(), before);
        await scene.press(page, 'Save');
        await scene.dialog(page, 'saved').waitFor();
        const expected = edits.reduce((text, [from, to]) => text.replace(from, to), before);
        assert.notEqual(expected, before);
        assert.equal(await scene.text(), expected);
        assert.equal(await scene.program.end(), 0);
        assert.equal(scene.program.errors, '');
        assert.equal(scene.program.output.length, 1);
    });
}

test('every kind of value is shown as what it is', async (t) => {
    const scene = await Scene.on(t, browser);
    const page = await scene.open();
    assert.equal(await page.getByLabel('serial').inputValue(), '90071992547409931234');
    assert.equal(await page.getByLabel('interval').inputValue(), '1.5e1');
    assert.equal(await page.getByLabel('enabled').isChecked(), true);
    assert.equal(await page.getByLabel('calibrated').isChecked(), false);
    await page.getByText('["thermometer","barometer","rain gauge"]').waitFor();
    await page.getByText('{"latitude":50.0875,"longitude":14.4214}').waitFor();
    await page.getByText('13 members').waitFor();
});

test('what the program has from a file is never markup', async (t) => {
    const text = '{"<b>key</b>": "<img src=x onerror=alert(1)>", "n": [" & <i>nested</i>"]}';
    const scene = await Scene.onText(t, browser, text);
    const page = await scene.open();
    assert.equal(
        await page.getByLabel('<b>key</b>').inputValue(), '<img src=x onerror=alert(1)>');
    await page.getByText('[" & <i>nested</i>"]').waitFor();
});

test('a text that a one-line field would change is only shown', async (t) => {
    const scene = await Scene.onText(t, browser, '{"poem": "one\\ntwo", "line": "one"}');
    const page = await scene.open();
    await page.getByText('one\ntwo').waitFor();
    assert.equal(await page.locator('input').count(), 1);
});

test('a number that is none is refused, named and not saved, and everything else is', async (t) => {
    const scene = await Scene.on(t, browser);
    const before = await scene.text();
    const page = await scene.open();
    const port = page.getByLabel('port');
    await port.fill('18x3');
    await page.getByText('Not a number: "port"').waitFor();
    await page.getByLabel('broker').fill('localhost');
    await scene.press(page, 'Save');
    const box = page.getByRole('alertdialog', { name: 'Not everything is saved' });
    await box.getByRole('button', { name: 'OK' }).click();
    assert.equal(await scene.text(), before.replace('mqtt.example.org', 'localhost'));
    assert.equal(await port.inputValue(), '18x3');
    assert.match(await port.getAttribute('title'), /not a number/);
    await scene.dialog(page, 'modified').waitFor();

    await port.fill('1884');
    await page.getByText('13 members').waitFor();
    await scene.press(page, 'Save');
    await scene.dialog(page, 'saved').waitFor();
    assert.match(await scene.text(), /"port": 1884,/);
});

test('revert brings back what is in the file', async (t) => {
    const scene = await Scene.on(t, browser);
    const before = await scene.text();
    const page = await scene.open();
    await page.getByLabel('operator').fill('nobody');
    await page.getByLabel('port').fill('x');
    await page.getByLabel('enabled').uncheck();
    await scene.dialog(page, 'modified').waitFor();
    await scene.press(page, 'Revert');
    await page.getByText('13 members').waitFor();
    await page.locator('[data-type="CheckBox"] input:checked').waitFor();
    assert.equal(await page.getByLabel('operator').inputValue(), 'Šárka Nováková');
    assert.equal(await page.getByLabel('port').inputValue(), '1883');
    await page.getByRole('dialog', { name: scene.name, exact: true }).waitFor();
    await scene.press(page, 'Save');
    await scene.dialog(page, 'saved').waitFor();
    assert.equal(await scene.text(), before);
});

test('ten thousand members can be shown, edited and saved', { timeout: 300_000 }, async (t) => {
    const count = 10_000;
    const member = (index) => `  "key ${index}": ${index % 2 === 0 ? `"text ${index}"` : index}`;
    const text = `{\n${Array.from({ length: count }, (_, index) => member(index)).join(',\n')}\n}\n`;
    const scene = await Scene.onText(t, browser, text);
    const page = await scene.open();
    page.setDefaultTimeout(120_000);
    await page.getByLabel('key 9999', { exact: true }).fill('1e400');
    await page.keyboard.press('Enter');
    await scene.dialog(page, 'saved').waitFor();
    assert.equal(await scene.text(), text.replace('"key 9999": 9999', '"key 9999": 1e400'));
});
