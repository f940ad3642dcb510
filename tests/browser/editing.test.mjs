import assert from 'node:assert/strict';
import { basename } from 'node:path';
import { inTree, onScene, onSceneEverywhere } from './support/Scene.mjs';

/** Each a file of another shape, with fields to change and what that does to its text. */
const files = {
    'examples/jsonpad/sample.json': {
        fields: { operator: 'Jana "JD" Dvořáková', altitude: '-4.130e+02' },
        boxes: ['enabled', 'calibrated'],
        edits: [
            ['"Šárka Nováková"', '"Jana \\"JD\\" Dvořáková"'],
            ['412.50', '-4.130e+02'],
            ['"enabled": true', '"enabled": false'],
            ['"calibrated": false', '"calibrated": true'],
        ],
    },
    'client/package.json': {
        fields: { description: 'Ein Text mit <b>Zeichen</b> & mehr' },
        boxes: ['private'],
        edits: [
            ["The page that shows a program's dialogs in a browser",
                'Ein Text mit <b>Zeichen</b> & mehr'],
            ['"private": true', '"private": false'],
        ],
    },
    'CMakePresets.json': { fields: { version: '7' }, boxes: [], edits: [['n": 6', 'n": 7']] },
};

for (const [source, { fields, boxes, edits }] of Object.entries(files)) {
    const saves = async (scene) => {
        const page = await scene.open();
        for (const [key, value] of Object.entries(fields)) {
            await page.getByLabel(key, { exact: true }).fill(value);
        }
        for (const key of boxes) {
            await page.getByLabel(key, { exact: true }).click();
        }
        await scene.dialog(page, 'modified').waitFor();
        await scene.assertText();
        await scene.save(page);
        await scene.assertText(...edits);
        assert.equal(await scene.program.end(), 0);
        assert.equal(scene.program.errors, '');
        assert.equal(scene.program.output.length, 1);
    };
    const name = `${source}: what is typed and toggled is saved, nothing else changes`;
    onSceneEverywhere(name, saves, inTree(source), basename(source));
}

onSceneEverywhere('every kind of value is shown as what it is, and revert brings it back', async (scene) => {
    const page = await scene.open();
    const shown = async () => {
        const values = ['serial', 'interval', 'operator', 'port'].map((key) =>
            page.getByLabel(key).inputValue(),
        );
        const boxes = ['enabled', 'calibrated'].map((key) => page.getByLabel(key).isChecked());
        return Promise.all([...values, ...boxes]);
    };
    const expected = ['90071992547409931234', '1.5e1', 'Šárka Nováková', '1883', true, false];
    assert.deepEqual(await shown(), expected);
    await page.getByText('14 members').waitFor();

    await page.getByLabel('operator').fill('nobody');
    await page.getByLabel('port').fill('x');
    await page.getByLabel('enabled').uncheck();
    await scene.dialog(page, 'modified').waitFor();
    await scene.press(page, 'Revert');
    await page.getByText('14 members').waitFor();
    await page.locator('[data-type="CheckBox"] input:checked').waitFor();
    assert.deepEqual(await shown(), expected);
    await page.getByRole('dialog', { name: scene.name, exact: true }).waitFor();
    await scene.save(page);
    await scene.assertText();
});

const odd = {
    '<b>key</b>': '<img src=x onerror=alert(1)>',
    n: [[' & <i>nested</i>']],
    poem: 'one\ntwo',
};

const showsOdd = async (scene) => {
    const page = await scene.open();
    assert.equal(await page.getByLabel('<b>key</b>').inputValue(), odd['<b>key</b>']);
    await page.getByText('[[" & <i>nested</i>"]]').waitFor();
    await page.getByText('one\ntwo').waitFor();
    assert.equal(await page.locator('input').count(), 1, 'the poem is only shown');
};
onScene('what a file holds is never markup nor cut by a field', showsOdd, JSON.stringify(odd));

onScene('a number that is none is refused, named and not saved, all else is', async (scene) => {
    const page = await scene.open();
    const port = page.getByLabel('port');
    await port.fill('18x3');
    await page.getByText('Not a number: "port"').waitFor();
    await page.getByLabel('broker').fill('localhost');
    await scene.press(page, 'Save');
    const box = page.getByRole('alertdialog', { name: 'Not everything is saved' });
    await box.getByRole('button', { name: 'OK' }).click();
    const broker = ['mqtt.example.org', 'localhost'];
    await scene.assertText(broker);
    assert.equal(await port.inputValue(), '18x3');
    assert.match(await port.getAttribute('title'), /not a number/);
    await scene.dialog(page, 'modified').waitFor();

    await port.fill('1884');
    await page.getByText('14 members').waitFor();
    await scene.save(page);
    await scene.assertText(broker, ['"port": 1883', '"port": 1884']);
});

const member = (index) => `  "key ${index}": ${index % 2 === 0 ? `"text ${index}"` : index}`;
const many = `{\n${Array.from({ length: 10_000 }, (_, index) => member(index)).join(',\n')}\n}\n`;

const savesLast = async (scene) => {
    const page = await scene.open();
    page.setDefaultTimeout(120_000);
    await page.getByLabel('key 9999', { exact: true }).fill('1e400');
    await page.keyboard.press('Enter');
    await scene.dialog(page, 'saved').waitFor();
    await scene.assertText(['"key 9999": 9999', '"key 9999": 1e400']);
};
onScene('ten thousand members can be shown, edited and saved', savesLast, many);
