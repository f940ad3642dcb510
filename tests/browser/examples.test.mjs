import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { play } from '../../client/test/support/steps.mjs';
import { chromiumOnly, everyEngine, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';
import { Scene } from './support/Scene.mjs';
import { User } from './support/User.mjs';

/** A test with jsonpad, in every engine unless the story says otherwise. */
function onScene(story, act) {
    const engines = story.engines === undefined ? everyEngine : [story.engines];
    inEach(engines, story.name, async (browser) => {
        const scene = await Scene.in(browser, story);
        try {
            await act(scene);
        } finally {
            await scene.end();
        }
    });
}

/** The story for each of its sets of values, which stand for "$name". */
function told(story) {
    const text = JSON.stringify(story);
    return (story.each ?? [{}]).map((values) =>
        JSON.parse(text, (_key, value) =>
            typeof value !== 'string'
                ? value
                : value.startsWith('$')
                  ? values[value.slice(1)]
                  : value.replace(/\$(\w+)/g, (_found, name) => values[name]),
        ),
    );
}

const stories = JSON.parse(readFileSync(new URL('jsonpad.json', import.meta.url), 'utf8'));
for (const story of stories.flatMap(told)) {
    onScene(story, (scene) => play(scene, story.steps));
}

const member = (index) => `  "key ${index}": ${index % 2 === 0 ? `"text ${index}"` : index}`;
const many = `{\n${Array.from({ length: 10_000 }, (_, index) => member(index)).join(',\n')}\n}\n`;
const large = 'ten thousand members can be shown, edited and saved';

onScene({ name: large, engines: 'chromium', text: many }, async (scene) => {
    scene.waitsAtMost(120_000);
    await scene.opens();
    await scene.reads('key 9999', true);
    // Looking for it by its label takes the driver half a minute here.
    await scene.fill({ css: '.block:last-child > .edit:last-child' }, '1e400');
    await scene.keys('Enter');
    await scene.titled('saved');
    await scene.fileHas(['"key 9999": 9999', '"key 9999": 1e400']);
});

/** A visit to a program that has one window. */
function visits(engines, name, example, steps) {
    inEach(engines, name, async (browser, t) => {
        const program = await Program.start(example);
        t.after(() => program.end());
        const page = await browser.newPage();
        t.after(() => page.close());
        await page.goto(program.address);
        await play(new User(page), steps);
        assert.equal(await program.end(), 0);
    });
}

visits(everyEngine, 'hello greets who tells a name, by button and by Enter', 'hello', [
    ['fill', 'Your name', 'Ada'],
    ['push', 'Greet'],
    ['reads', 'Hello, Ada!'],
    ['fill', 'Your name', 'Grace'],
    ['keys', 'Enter'],
    ['reads', 'Hello, Grace!'],
]);

const round = [
    ['fill', { css: 'input' }, 'Ada'],
    ['push', 'Greet'],
    ['reads', 'Hello, Ada!'],
    ['push', 'Close'],
    ['push', 'Start again'],
];
const readme = 'the example of the README works as it stands, and can be closed';
visits(chromiumOnly, readme, 'readme_example', [...round, ...round]);
