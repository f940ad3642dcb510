import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { onStage, widget, type Stage } from '../support/Stage.ts';

/** Every property of every kind, as the guide to the protocol lists them, changes what is shown. */

const guide = readFileSync('../docs/protocol/README.md', 'utf8');
const exceptions = JSON.parse(readFileSync('../tests/wire/exceptions.json', 'utf8')) as {
    pairs: { kinds: string[]; properties: string[] }[];
};

type Values = Readonly<Record<string, unknown>>;
type Samples = Readonly<Record<string, Values>>;

/**
 * A value for each property, `true` where there is none; what has to be so that a change of it can
 * be seen at all; and what shows only in what it keeps a change from doing that comes with it.
 */
const { samples, before, keepsFrom } = JSON.parse(
    readFileSync('test/browser/properties.json', 'utf8'),
) as { samples: Values; before: Samples; keepsFrom: Samples };

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
    const html = document.body.innerHTML.replace(/<!--[^]*?-->/g, '');
    return JSON.stringify([focus, values, places, document.title, html]);
}

async function hasEffect(stage: Stage, kind: string, name: string, sent: string): Promise<boolean> {
    const [window, id] = described(kind, before[name] ?? {});
    await stage.show(window);
    if (kind === 'Dialog') {
        await stage.show({ id: '40', type: 'Dialog', contents: [widget(41, 'Edit', {})] });
    }
    const values = { [name]: samples[name] ?? true };
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

const layouts = ['BoxLayout', 'GridLayout'];
const everyWidget = [
    ...['Dialog', 'Panel', 'GroupBox', 'TabContainer', 'Tab'],
    ...['Button', 'CheckBox', 'ComboBox', 'Edit', 'Text'],
];

/** `[kind, property, when it is sent]` of each row in the guide's tables. */
function* listed(): Generator<readonly [string, string, string]> {
    const tables = guide.split(/^## /m).find((part) => part.startsWith('Properties'));
    for (const table of tables?.split(/^### /m).slice(1) ?? []) {
        const heading = /^.*/.exec(table)?.[0] ?? '';
        const kinds = heading.startsWith('Every') ? everyWidget : heading.split(', ');
        assert.ok(kinds.every((kind) => [...everyWidget, ...layouts].includes(kind)), heading);
        for (const [, names = '', sent = ''] of table.matchAll(/^\| (`.*?) \|.*?\| (.*?) \|/gm)) {
            for (const [, name = ''] of names.matchAll(/`(\w+)`/g)) {
                yield* kinds.map((kind) => [kind, name, sent] as const);
            }
        }
    }
}

onStage('every property of every kind has its effect, or an excuse', async (stage) => {
    const without: string[] = [];
    for (const [kind, name, sent] of listed()) {
        if (!(await hasEffect(stage, kind, name, sent))) {
            without.push(`${kind} ${name}`);
        }
    }
    const excused = exceptions.pairs.flatMap(({ kinds, properties }) =>
        kinds.flatMap((kind) => properties.map((name) => `${kind} ${name}`)),
    );
    assert.deepEqual(without.sort(), excused.sort());
});
