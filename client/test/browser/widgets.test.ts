import assert from 'node:assert/strict';
import { onStage, widget } from '../support/Stage.ts';

const form = [
    widget(10, 'Text', { text: 'Name', buddy: '11' }),
    widget(11, 'Edit', { text: '' }),
    widget(12, 'CheckBox', { label: 'Agree', checked: false }),
    widget(13, 'Button', { label: 'Push', icon: '', defaultbutton: false }),
    widget(14, 'Button', { label: 'Go', icon: '', defaultbutton: true }),
    widget(15, 'Text', { text: 'Terms', buddy: '12' }),
    widget(16, 'Text', { text: 'Last step', buddy: '14' }),
];

onStage('a user types, toggles and clicks; Enter presses the default button', async (stage) => {
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
    const before = stage.said(1).length;
    for (const [label, id] of Object.entries({ Terms: 12, 'Last step': 14 })) {
        await page.getByText(label).click();
        const focused = stage
            .at(id)
            .locator('xpath=descendant-or-self::*[self::input or self::button]');
        assert.ok(await focused.evaluate((e) => e === document.activeElement), label);
    }
    await stage.settled();
    assert.equal(stage.said(1).length, before, 'a text presses and switches nothing');
});

onStage('what the user did last outdates what the program said before', async (stage) => {
    const { page, gateway } = stage;
    const tabs = { contents: ['A', 'B'].map((name, at) => widget(31 + at, 'Tab', { name })) };
    const choice = widget(20, 'ComboBox', { entries: ['a', 'b', 'c'], currentindex: 0 });
    const container = widget(30, 'TabContainer', { currentindex: 0, ...tabs });
    await stage.open(1, {}, [...form, choice, container]);
    const edit = page.getByLabel('Name');
    const shown = async (): Promise<unknown[]> => [
        await edit.inputValue(),
        await page.getByLabel('Agree').isChecked(),
        await stage.at(20).inputValue(),
        (await page.getByRole('tab', { selected: true }).textContent())?.trim(),
    ];
    gateway.peer.known = gateway.up.length;
    await page.getByLabel('Agree').evaluate((box: HTMLInputElement) => box.click());
    await stage.at(20).selectOption('c');
    await page.getByRole('tab', { name: 'B' }).evaluate((tab: HTMLElement) => tab.click());
    await edit.pressSequentially('abcd');
    await page.keyboard.press('ArrowLeft');
    await stage.gateway.until(() => stage.events(11).length === 4, 'what was typed');
    const say = async (): Promise<unknown[]> => {
        stage.write(1, 11, { text: 'ABCD' });
        stage.write(1, 12, { checked: false });
        [20, 30].forEach((id) => stage.write(1, id, { currentindex: 0 }));
        await stage.settled();
        return shown();
    };
    assert.deepEqual(await say(), ['abcd', true, 'c', 'B']);
    gateway.peer.known = undefined;
    assert.deepEqual(await say(), ['ABCD', false, 'a', 'A']);
    await page.keyboard.type('x');
    assert.equal(await edit.inputValue(), 'ABCxD', 'the caret stays where it was');
});

onStage('of an item and a text that come together the later one is the text', async (stage) => {
    const box = { entries: ['a', 'b'], currentindex: -1, editable: true, text: '' };
    await stage.open(1, {}, [widget(11, 'ComboBox', box)]);
    stage.gateway.send([
        './1',
        [
            { id: '11', currentindex: 0 },
            { id: '11', text: 'own' },
        ],
    ]);
    await stage.settled();
    assert.equal(await stage.at(11).locator('input').inputValue(), 'own');
    assert.deepEqual(stage.events(11), [], 'the program knows its own text');
});

onStage('a window announced once more stays as the user has it', async (stage) => {
    await stage.open(1, {}, [...form, widget(21, 'Text', { text: 'line\n'.repeat(60) })]);
    const { page } = stage;
    const name = page.getByLabel('Name');
    stage.write(1, 1, { frameGeometry: '[40,50,300,200]' });
    await name.pressSequentially('hello');
    await name.press('ArrowLeft');
    const place = (): Promise<unknown> =>
        name.evaluate((e) => [e.closest('dialog')?.style.cssText, e.getBoundingClientRect().top]);
    await name.evaluate((e) => e.closest('.body')?.scrollBy(0, 5));
    const before = await place();
    const [text, , ...others] = form;
    const described = { id: '1', type: 'Dialog', title: 'Other', showNormal: true };
    const lines = widget(21, 'Text', { text: 'line\n'.repeat(60) });
    for (const more of [[lines], [lines, widget(22, 'Text', { text: 'one more' })]]) {
        const edit = widget(11, 'Edit', { text: await name.inputValue() });
        const all = { id: '2', type: 'BoxLayout', contents: [text, edit, ...others, ...more] };
        stage.gateway.send(['.', { ...described, contents: [all] }]);
        await stage.settled();
        await page.keyboard.type('X');
    }
    assert.equal(await name.inputValue(), 'hellXXo');
    assert.deepEqual(await place(), before);
    await page.getByRole('dialog', { name: 'Other' }).getByText('one more').waitFor();
});

onStage('a subtree shown anew keeps the focus, the caret and what is typed', async (stage) => {
    const row = [widget(21, 'Text', { text: 'Town' }), widget(22, 'Edit', { text: 'old' })];
    await stage.open(1, {}, [...form, ...row]);
    const { page } = stage;
    await page.getByLabel('Name').pressSequentially('hello');
    await page.keyboard.press('ArrowLeft');
    stage.refresh({ id: '2', type: 'BoxLayout', contents: [...form, ...row] }, 1);
    await stage.settled();
    await page.keyboard.type('X');
    assert.equal(await page.getByLabel('Name').inputValue(), 'hellXo');
    // A field alone keeps the name that the text before it gives it.
    stage.refresh(widget(22, 'Edit', { text: 'new' }));
    await stage.settled();
    assert.equal(await page.getByLabel('Town').inputValue(), 'new');
});
