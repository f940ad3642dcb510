import assert from 'node:assert/strict';
import { onStage, widget } from '../support/Stage.ts';

const form = [
    widget(10, 'Text', { text: 'Name', buddy: '11' }),
    widget(11, 'Edit', { text: '' }),
    widget(12, 'CheckBox', { label: 'Agree', checked: false }),
    widget(13, 'Button', { label: 'Push', icon: '', defaultbutton: false }),
    widget(14, 'Button', { label: 'Go', icon: '', defaultbutton: true }),
];

onStage('a person types, toggles and clicks; Enter presses the default button', async (stage) => {
    await stage.open(1, {}, form);
    const { page } = stage;
    await page.getByLabel('Name').pressSequentially('ab');
    await page.keyboard.press('Enter');
    await stage.untilEvents(11, [
        ['onEdit', 'a'],
        ['onEdit', 'ab'],
        ['onEditFinish', 'ab'],
    ]);
    await stage.untilEvents(14, ['onClick']);
    await page.getByLabel('Agree').check();
    await stage.untilEvents(12, [['onToggle', true]]);
    await page.keyboard.press('Enter');
    await stage.untilEvents(14, ['onClick', 'onClick']);
    await stage.button('Push').click();
    await stage.untilEvents(13, ['onClick']);
    assert.equal(stage.events(11).length, 3, 'the edit had ended already');
    await page.getByLabel('Name').fill('abc');
    await stage.button('Push').focus();
    await stage.untilEvents(11, [...stage.events(11).slice(0, 4), ['onEditFinish', 'abc']]);
    stage.write(1, 13, { checkable: true });
    await page.getByRole('button', { name: 'Push', pressed: false }).click();
    await stage.untilEvents(13, ['onClick', ['onToggle', true], 'onClick']);
    await page.getByRole('button', { name: 'Push', pressed: true }).waitFor();
});

onStage('echoes never rewind, and nothing overwrites what is being typed', async (stage) => {
    await stage.open(1, {}, form);
    const edit = stage.page.getByLabel('Name');
    await edit.pressSequentially('abc');
    await stage.untilEvents(11, ['a', 'ab', 'abc'].map((text) => ['onEdit', text]));
    await edit.pressSequentially('d');
    ['a', 'ab', 'abc', 'from the program'].forEach((text) => stage.write(1, 11, { text }));
    await stage.settled();
    assert.equal(await edit.inputValue(), 'abcd');
    await stage.page.keyboard.press('Enter');
    stage.write(1, 11, { text: 'after the end' });
    await stage.settled();
    assert.equal(await edit.inputValue(), 'after the end');
});

onStage('a subtree shown anew keeps the focus, the caret and what is typed', async (stage) => {
    const row = [widget(21, 'Text', { text: 'Town' }), widget(22, 'Edit', { text: 'old' })];
    await stage.open(1, {}, [...form, ...row]);
    const { page } = stage;
    await page.getByLabel('Name').pressSequentially('hello');
    await page.keyboard.press('ArrowLeft');
    const layout = { id: '2', type: 'BoxLayout', contents: [...form, ...row] };
    stage.gateway.send(['./1', { ...layout, msgType: 'refresh', parentId: '1' }]);
    await stage.settled();
    await page.keyboard.type('X');
    assert.equal(await page.getByLabel('Name').inputValue(), 'hellXo');
    // A field alone keeps the name that the text before it gives it.
    const again = widget(22, 'Edit', { text: 'new' });
    stage.gateway.send(['./1', { ...again, msgType: 'refresh', parentId: '2' }]);
    await stage.settled();
    assert.equal(await page.getByLabel('Town').inputValue(), 'new');
});
