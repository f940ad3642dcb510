import assert from 'node:assert/strict';
import { test } from 'node:test';
import { EditText } from '../../src/store/EditText.ts';

/**
 * One edit's life: "+a" the person types, so that "a" is sent; "!" ends the edit; "<a" the program
 * sends "a" to the focused field, "(a" to one without focus; "~" six seconds pass.
 */
function shownAfter(steps: string): string {
    let edit = new EditText();
    let shown = '';
    let now = 0;
    for (const step of steps.split(' ')) {
        const text = step.slice(1);
        if (step.startsWith('+')) {
            shown = text;
            edit.sent(text, now);
        } else if (step === '!') {
            edit.finish();
        } else if (step === '~') {
            now += 6000;
        } else if (step === 'r') {
            edit = EditText.restore(JSON.parse(JSON.stringify(edit.store())));
        } else if (edit.accepts(text, step.startsWith('<'), now)) {
            shown = text;
        }
    }
    return shown;
}

const rows: readonly (readonly [name: string, steps: string, shown: string])[] = [
    ['a text for an untouched field', '(x', 'x'],
    ['a text for a field with the focus, not typed in', '<x', 'x'],
    ['echoes while typing goes on', '+a +ab <a +abc <ab <abc', 'abc'],
    ['late echoes after the end of the edit', '+a +ab +abc ! <a <ab <abc', 'abc'],
    ['late echoes without focus', '+a +ab ! (a (ab', 'ab'],
    ['another text while typing', '+a <x', 'a'],
    ['another text while typing, then its end', '+a <a <x !', 'a'],
    ['another text after the end', '+a <a ! <x', 'x'],
    ['another text for a typed field without focus', '+a (x', 'x'],
    ['an earlier text set again after all echoes', '+a +ab <a <ab ! <a', 'a'],
    ['the same letters typed twice', '+a +ab +a <a <ab <a ! <ab', 'ab'],
    ['a change from before the echo, which the echo outdates', '+a ! <x <a', 'a'],
    ['a program that leaves echoes out', '+a +ab +abc ! <abc <x', 'x'],
    ['a program that never echoes, some time later', '+a +ab ! ~ <a', 'a'],
    ['a program that puts in another form', '+a <a <A ! <A', 'A'],
    ['typing over a reload', '+a +ab r <a <x', 'ab'],
];

for (const [name, steps, shown] of rows) {
    test(`edit: ${name}`, () => assert.equal(shownAfter(steps), shown));
}

test('an edit is made of anything that was kept', () => {
    for (const stored of [undefined, 7, {}, { sent: 1 }, { sent: [7, { text: 1 }], typing: 'x' }]) {
        assert.equal(EditText.restore(stored).accepts('x', true, 0), true);
    }
});
