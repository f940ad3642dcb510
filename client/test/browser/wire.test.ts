import assert from 'node:assert/strict';
import { onStage, type Stage } from '../support/Stage.ts';
import { arrivalsIn, type Ids, type Row, rows, shownWindows } from '../support/wireRows.ts';

/** What the messages of `tests/wire` do to the document; the README there says what is asked. */

const folders = ['outgoing', 'descriptions'];
const showing = folders
    .flatMap((folder) => rows.readRows(folder))
    .filter((row) => rows.stepsOf(row).some((step) => step.shows));

/** A computed style, or a member of the element by its path. */
function look(element: Element, question: string): unknown {
    const [path = '', style = ''] = question.split(' ');
    const member = (of: unknown, name: string): unknown => (of as Record<string, unknown>)[name];
    return path === 'css'
        ? getComputedStyle(element).getPropertyValue(style)
        : (path.split('.').reduce(member, element as unknown) ?? null);
}

async function ask(stage: Stage, id: number, question: string): Promise<unknown> {
    const element = stage.at(id);
    if (question === 'focused') {
        return element.evaluate((e) => e === document.activeElement);
    }
    return question === 'aria'
        ? (await element.ariaSnapshot()).split('\n')[0]?.replace(/^- /, '')
        : element.evaluate(look, question);
}

async function show(stage: Stage, row: Row, ids: Ids): Promise<void> {
    for (const window of shownWindows(row, ids)) {
        await stage.show(window);
    }
}

/** Everything is forgotten before the next row. */
function closeAll(stage: Stage, ids: readonly number[]): void {
    ids.forEach((id) => stage.write(id, id, { command: 'close' }));
    stage.gateway.up.length = 0;
}

async function replay(stage: Stage, row: Row, ids: Ids): Promise<void> {
    for (const step of rows.stepsOf(row)) {
        stage.gateway.send(...arrivalsIn(row, step, ids));
        await stage.settled();
        for (const [object, question, answer] of step.shows ?? []) {
            const id = ids.get(object) ?? 0;
            if (question.startsWith('told ')) {
                await stage.untilKnown(id, question.slice(5), answer);
            } else {
                const where = `${row.file}: ${row.name}: ${object} ${question}`;
                assert.deepEqual(await ask(stage, id, question), answer, where);
            }
        }
    }
}

onStage('what the program says shows', async (stage) => {
    for (const row of showing) {
        const ids = rows.identifiersOf(row);
        await show(stage, row, ids);
        await replay(stage, row, ids);
        closeAll(stage, [...ids.values()]);
    }
});

onStage('what a page must survive leaves the page as it is', async (stage) => {
    for (const row of rows.readRows('garbled').filter(({ applies }) => applies !== 'any')) {
        const ids = rows.identifiersOf(row);
        await show(stage, row, ids);
        const [other = 0, button = 0] = ['other', 'otherButton'].map((name) => ids.get(name));
        stage.gateway.send(...rows.stepsOf(row).flatMap((step) => arrivalsIn(row, step, ids)));
        stage.write(other, button, { label: row.name });
        await stage.page.getByText(row.name, { exact: true }).waitFor();
        closeAll(stage, [...ids.values(), 4294967290]);
    }
});
