import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { onStage, type Stage, widget } from '../support/Stage.ts';
import { ofObjects } from '../support/table.ts';

/** Every property of every kind, as the table of the protocol has them, changes what is shown. */

type Values = Readonly<Record<string, unknown>>;
type Samples = Readonly<Record<string, Values>>;

/**
 * Values that fit the windows below better than the table's examples; what has to be so that a
 * change of a property can be seen at all; and what shows only in what it keeps a change from doing
 * that comes with it.
 */
const { instead, before, keepsFrom } = JSON.parse(
    readFileSync('test/browser/properties.json', 'utf8'),
) as { instead: Values; before: Samples; keepsFrom: Samples };
const examples = ofObjects.map(({ name, example }) => [name, example]);
const samples: Values = { ...Object.fromEntries(examples), ...instead };

const inner = [widget(30, 'Text', { text: 'x' }), widget(31, 'Edit', { text: '' })];
const layout = { id: '32', type: 'BoxLayout', contents: inner };
const pages = [20, 21].map((id) => ({ id: String(id), type: 'Tab', name: `${id}` }));
const contentsOf: Readonly<Record<string, readonly object[]>> = {
    ...{ Dialog: inner, BoxLayout: inner, GridLayout: inner },
    ...{ Panel: [layout], GroupBox: [layout], Tab: [layout], TabContainer: pages },
};

/** The window with one object of this kind, and the identifier of that. */
function described(kind: string, values: Values): [window: Values, id: number] {
    const object = { contents: contentsOf[kind] ?? [], entries: ['a', 'b'], type: kind, ...values };
    if (kind === 'Dialog') {
        return [{ ...object, id: '1' }, 1];
    }
    const tested = { ...object, id: '20' };
    const container = { id: '19', type: 'TabContainer', currentindex: 0 };
    const shown = kind === 'Tab' ? { ...container, contents: [tested, pages[1]] } : tested;
    const contents = [widget(11, 'Edit', { text: '' }), shown];
    return [{ id: '1', type: 'Dialog', contents }, 20];
}

/** What is there once the windows have followed what they hold. */
async function look(): Promise<string> {
    const frame = (): Promise<unknown> => new Promise(requestAnimationFrame);
    await frame();
    await frame();
    const controls = [...document.querySelectorAll<HTMLInputElement>('input, select')];
    const values = controls.map(({ value, checked }) => [value, checked]);
    const places = [...document.querySelectorAll('.window')].map((e) => e.getBoundingClientRect());
    const focus = document.activeElement?.closest<HTMLElement>('[data-id]')?.dataset['id'];
    const html = document.body.innerHTML.replace(/<!--[\s\S]*?-->/g, '');
    return JSON.stringify([focus, values, places, document.title, html]);
}

async function hasEffect(stage: Stage, kind: string, name: string, sent: string): Promise<boolean> {
    const [window, id] = described(kind, before[name] ?? {});
    await stage.show(window);
    if (kind === 'Dialog') {
        await stage.show({ id: '40', type: 'Dialog', contents: [widget(41, 'Edit', {})] });
    }
    const values = { [name]: samples[name] };
    const kept = kind === 'Tab' && name === 'enabled' ? undefined : keepsFrom[name];
    const looks: string[] = [];
    for (const changes of [{}, kept ?? values]) {
        if (sent === 'never') {
            stage.gateway.send(['.', described(kind, { ...before[name], ...changes })[0]]);
        } else {
            stage.write(1, id, changes);
        }
        await stage.settled();
        looks.push(await stage.page.evaluate(look));
    }
    const changed = looks[0] !== looks[1];
    [1, 40].forEach((each) => stage.write(each, each, { command: 'close' }));
    stage.gateway.up.length = 0;
    return changed === (kept === undefined);
}

onStage('every property of every kind has its effect, or an excuse', async (stage) => {
    const without: string[] = [];
    const excused: string[] = [];
    for (const { name, entries } of ofObjects) {
        for (const [kind, { sent, ignored }] of entries) {
            if (ignored !== undefined) {
                excused.push(`${kind} ${name}`);
            }
            if (!(await hasEffect(stage, kind, name, sent))) {
                without.push(`${kind} ${name}`);
            }
        }
    }
    assert.deepEqual(without, excused);
});
