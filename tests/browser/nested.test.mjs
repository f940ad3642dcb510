import assert from 'node:assert/strict';
import { onScene, onSceneEverywhere, pathInTree } from './support/Scene.mjs';

const group = (page, name) => page.getByRole('group', { name, exact: true });
const fields = (box) => box.locator('input, select').filter({ visible: true });
const button = (box, name, index = 0) => box.getByRole('button', { name, exact: true }).nth(index);

async function editTabs(page) {
    await page.getByLabel('latitude').fill('50.09');
    await page.getByRole('tab', { name: 'logging' }).click();
    await page.getByLabel('level').selectOption('debug');
    const rotation = group(page, 'rotation');
    assert.deepEqual(await rotation.getByLabel('every').locator('option').allTextContents(), [
        'hour', 'day', 'week', 'month',
    ]);
    await rotation.getByLabel('every').selectOption('day');
    await rotation.getByLabel('compress').check();
    await rotation.getByLabel('keep').fill('7x');
    await page.getByText('Not a number: "logging"."rotation"."keep"').waitFor();
    await rotation.getByLabel('keep').fill('14');
    await page.getByText('14 members').waitFor();
}

/** Takes the barometer out and puts a hygrometer to the end, by name; then a text in a free list. */
async function editLists(page) {
    const sensors = group(page, 'sensors');
    await button(sensors, 'Remove', 1).click();
    await fields(sensors).nth(2).waitFor({ state: 'detached' });
    await button(sensors, 'Add').click();
    assert.equal(await fields(sensors).nth(2).inputValue(), 'thermometer');
    await fields(sensors).nth(2).selectOption('hygrometer');
    const targets = group(page, 'targets');
    await fields(targets).nth(1).fill('syslog "local"');
}

const edits = [
    ['["thermometer", "barometer", "rain gauge"]', '["thermometer", "rain gauge", "hygrometer"]'],
    ['50.0875', '50.09'],
    ['"info"', '"debug"'],
    ['"console", "file"', '"console", "syslog \\"local\\""'],
    ['"week"', '"day"'],
    ['"keep": 7', '"keep": 14'],
    ['"compress": false', '"compress": true'],
];

const edits14 = async (scene) => {
    const page = await scene.open();
    await editTabs(page);
    await editLists(page);
    await scene.save(page);
    await scene.assertText(...edits);

    // A new page knows all of it, unsaved edits included; revert goes back to what was saved.
    await button(group(page, 'sensors'), 'Remove').click();
    await scene.dialog(page, 'modified').waitFor();
    const again = await scene.open();
    assert.deepEqual(await fields(group(again, 'sensors')).evaluateAll((all) =>
        all.map((each) => each.value)), ['rain gauge', 'hygrometer']);
    await scene.press(again, 'Revert');
    await scene.dialog(again).waitFor();
    await fields(group(again, 'sensors')).nth(2).waitFor();
    await again.getByRole('tab', { name: 'logging' }).click();
    assert.equal(await again.getByLabel('level').inputValue(), 'debug');
    await scene.save(again);
    await scene.assertText(...edits);
};
const options = ['--schema', pathInTree('examples/jsonpad/sample.schema.json')];
onSceneEverywhere('tabs, groups, choices and lists are edited, nothing else changes', edits14, undefined,
    undefined, options);

const list = '{\n  "in": {\n    "n": [ 1 ],\n    "text": "kept\\u0021"\n  }\n}\n';

onScene('a list grows, and leaves out what is no number', async (scene) => {
    const page = await scene.open();
    const numbers = group(page, 'n');
    for (let count = 2; count <= 12; ++count) {
        await button(numbers, 'Add').click();
        await fields(numbers).nth(count - 1).fill(`${count}`);
    }
    await fields(numbers).nth(4).fill('five');
    await page.getByText('Not a number: "in"."n"').waitFor();
    assert.match(await fields(numbers).nth(4).getAttribute('title'), /not a number/);
    await scene.press(page, 'Save');
    await page.getByRole('alertdialog').getByRole('button', { name: 'OK' }).click();
    await scene.assertText(['1 ]', '1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12 ]']);
    await button(numbers, 'Remove', 4).click();
    await scene.dialog(page, 'modified').waitFor({ state: 'detached' });
    await page.getByLabel('text').fill('new');
    await scene.save(page);
    await scene.assertText(['1 ]', '1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12 ]'], ['kept\\u0021', 'new']);
}, list, 'list.json');

/** On a slow line a row is still there after its Remove was clicked, and takes typing. */
onScene('what is typed into a row that goes reaches no other row', async (scene) => {
    const page = await scene.open();
    const numbers = group(page, 'n');
    await page.getByLabel('text').fill('new');
    for (const last of [2, 1]) {
        await numbers.evaluate((box, index) => {
            const field = box.querySelectorAll('input')[index];
            [...box.querySelectorAll('button')].filter((each) => each.textContent === 'Remove')[index].click();
            field.value = '99';
            field.dispatchEvent(new InputEvent('input', { bubbles: true }));
            field.dispatchEvent(new Event('change', { bubbles: true }));
        }, 1);
        await fields(numbers).nth(last).waitFor({ state: 'detached' });
    }
    await scene.save(page);
    await scene.assertText(['1, 2, 3 ]', '1 ]'], ['kept\\u0021', 'new']);
}, list.replace('1 ]', '1, 2, 3 ]'), 'list.json');
