import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { openTab } from '../../../client/test/support/chromium.mjs';
import { chromiumOnly, everyEngine, inEach } from './engines.mjs';
import { Program } from './Program.mjs';

export function pathInTree(path) {
    return fileURLToPath(new URL(`../../../${path}`, import.meta.url));
}

/** The text of a file of this repository. */
export function inTree(path) {
    return readFileSync(pathInTree(path), 'utf8');
}

const sample = inTree('examples/jsonpad/sample.json');

/** A test with jsonpad on a file with this text, started with further options, in Chromium. */
export function onScene(name, play, ...program) {
    inEach(chromiumOnly, name, (browser) => playOn(browser, play, ...program));
}

/** The same in every engine. */
export function onSceneEverywhere(name, play, ...program) {
    inEach(everyEngine, name, (browser) => playOn(browser, play, ...program));
}

async function playOn(browser, play, text = sample, fileName = 'sample.json', options = []) {
    const folder = await mkdtemp(join(tmpdir(), 'jsonpad-'));
    const file = join(folder, fileName);
    await writeFile(file, text);
    const scene = new Scene(file, text, await Program.start('jsonpad', ...options, file));
    try {
        await scene.in(browser);
        await play(scene);
    } finally {
        await scene.end();
        await rm(folder, { recursive: true });
    }
}

/** jsonpad on a file, and the pages of one person's browser. */
export class Scene {
    /** `before` is the file's text in the beginning. */
    constructor(file, before, program) {
        Object.assign(this, { file, before, program, name: basename(file) });
        this.m_faults = [];
    }

    /** The person uses this browser. */
    async in(browser) {
        this.m_context = await browser.newContext({ viewport: { width: 1000, height: 800 } });
    }

    /** Opens the printed address, or another one that leads there, and waits for the dialog. */
    async open(address = this.program.address) {
        const page = await openTab(this.m_context, this.m_faults);
        await page.goto(address);
        await this.dialog(page).waitFor();
        return page;
    }

    /** Opens it and types the operator's name, which is then not saved yet. */
    async openEdited(address) {
        const page = await this.open(address);
        await page.getByLabel('operator').fill('Jana');
        await this.dialog(page, 'modified').waitFor();
        return page;
    }

    /** The window with the file's members, in the given state: "modified", "saved" or neither. */
    dialog(page, state) {
        const name = state === undefined ? this.name : `${this.name} (${state})`;
        return page.getByRole('dialog', { name, exact: state !== undefined });
    }

    button(page, name) {
        return this.dialog(page).getByRole('button', { name, exact: true });
    }

    async press(page, name) {
        await this.button(page, name).click();
    }

    async save(page) {
        await this.press(page, 'Save');
        await this.dialog(page, 'saved').waitFor();
    }

    /** The file holds what it held in the beginning, with these parts replaced, each once. */
    async assertText(...changes) {
        const changed = (text, [from, to]) => {
            assert.ok(text.includes(from), from);
            return text.replace(from, () => to);
        };
        assert.equal(await readFile(this.file, 'utf8'), changes.reduce(changed, this.before));
    }

    /** Ends everything; fails when a page threw or broke its policy. */
    async end() {
        await this.m_context?.close();
        await this.program.end();
        assert.deepEqual(this.m_faults, []);
    }
}

/** The operator, typed over. */
export const jana = ['Šárka Nováková', 'Jana'];
