import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { mkdir, mkdtemp, readFile, rm, rmdir, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { openTab } from '../../../client/test/support/chromium.mjs';
import { CuttableProxy } from './CuttableProxy.mjs';
import { Program } from './Program.mjs';
import { User } from './User.mjs';

export function pathInTree(path) {
    return fileURLToPath(new URL(`../../../${path}`, import.meta.url));
}

/** The text of a file of this repository. */
export function inTree(path) {
    return readFileSync(pathInTree(path), 'utf8');
}

/** A text with parts replaced, each of which has to be there. */
function changed(text, [from, to]) {
    assert.ok(text.includes(from), from);
    return text.replace(from, () => to);
}

/** Presses the button of a row and types into its field before the row has gone: a slow line. */
function removeAndType(group, index) {
    const field = group.querySelectorAll('input')[index];
    const buttons = [...group.querySelectorAll('button')];
    buttons.filter((each) => each.textContent === 'Remove')[index].click();
    field.value = '99';
    field.dispatchEvent(new InputEvent('input', { bubbles: true }));
    field.dispatchEvent(new Event('change', { bubbles: true }));
}

/** A user with jsonpad on a file, at one of their pages. */
export class Scene extends User {
    m_faults = [];
    m_pages = [];

    /** jsonpad is started with the options on this text, else on that of a file of the tree. */
    static async in(browser, story) {
        const { text, file: source = 'examples/jsonpad/sample.json', options = [] } = story;
        const scene = new Scene();
        scene.m_folder = await mkdtemp(join(tmpdir(), 'jsonpad-'));
        scene.name = basename(source);
        scene.file = join(scene.m_folder, scene.name);
        scene.before = text ?? inTree(source);
        await writeFile(scene.file, scene.before);
        scene.m_options = options.map((each) => (each.startsWith('--') ? each : pathInTree(each)));
        if (story.restarts) {
            await scene.keepToken();
        }
        scene.program = await Program.start('jsonpad', ...scene.m_options, scene.file);
        const viewport = { width: 1000, height: 800 };
        scene.m_context = await browser.newContext({ viewport, ...story.context });
        return scene;
    }

    /** Its address is the same when it is started again. */
    async keepToken() {
        const token = join(this.m_folder, 'token');
        await writeFile(token, '0123456789abcdef0123', { mode: 0o600 });
        this.m_options.push('--token-file', token);
    }

    /** Ends everything; fails when a page threw or broke its policy. */
    async end() {
        await this.m_context?.close();
        await this.m_proxy?.end();
        await this.program.end();
        await rm(this.m_folder, { recursive: true });
        assert.deepEqual(this.m_faults, []);
    }

    // Pages and the program.

    /** Opens one more page at the printed address, or at another one that leads there. */
    async opens(address = this.program.address) {
        this.page = await openTab(this.m_context, this.m_faults);
        this.m_pages.push(this.page);
        await this.page.goto(address);
        await this.dialog().waitFor();
    }

    async opensBehindProxy() {
        this.m_proxy = await CuttableProxy.before(this.program);
        await this.opens(this.m_proxy.address);
    }

    waitsAtMost = (milliseconds) => this.m_context.setDefaultTimeout(milliseconds);
    looksAt = (number) => (this.page = this.m_pages[number]);
    isCut = () => this.m_proxy.cut();
    isRestored = () => this.m_proxy.restore();
    errors = (text) => assert.match(this.program.errors, new RegExp(text));
    printed = (lines) => assert.equal(this.program.output.length, lines);

    async programEnds(signal, code) {
        assert.equal(await this.program.stop(signal), code);
    }

    /** It dies without a word. */
    async isKilled() {
        await this.programEnds('SIGKILL', null);
        await this.reads('Connection lost.');
    }

    async isStartedAgain() {
        this.program = await this.program.startAgain();
    }

    async cannotReload() {
        if (this.program.nginx !== undefined) {
            await this.page.reload();
            return this.reads('502 Bad Gateway');
        }
        await assert.rejects(this.page.reload(), /REFUSED/);
        await this.page.waitForURL('chrome-error://**');
    }

    async hidesItsToken() {
        assert.equal(await this.page.evaluate(() => location.hash), '');
    }

    // The file.

    async fileHas(...changes) {
        assert.equal(await readFile(this.file, 'utf8'), changes.reduce(changed, this.before));
    }

    fileBecomes = (...changes) => writeFile(this.file, changes.reduce(changed, this.before));

    async fileBecomesFolder() {
        await rm(this.file);
        await mkdir(this.file);
    }

    async folderBecomesFile() {
        await rmdir(this.file);
        await this.fileBecomes();
    }

    // The window with the file's members.

    /** In the given state: "modified", "saved" or neither, or in any. */
    dialog(state) {
        const name = state === undefined ? this.name : `${this.name} (${state})`;
        return this.page.getByRole('dialog', { name, exact: state !== undefined });
    }

    /** The window has two buttons of the name: its own, in the title bar, and the program's. */
    button = (name) => this.dialog().getByRole('button', { name, exact: true });
    push = (name) => this.button(name).click();
    closeByButton = () => this.button('Close').last().click();
    closeByTitleBar = () => this.button('Close').first().click();
    untitled = (state) => this.dialog(state).waitFor({ state: 'detached' });
    titled = (state) =>
        (state === undefined ? this.named('dialog', this.name) : this.dialog(state)).waitFor();

    async save() {
        await this.push('Save');
        await this.titled('saved');
    }

    async pushUnanswered(name) {
        const wentUp = this.m_proxy.swallowAnswers();
        await this.push(name);
        await wentUp;
    }

    async cannotClick(name) {
        await assert.rejects(this.field(name).click({ timeout: 500, trial: true }));
    }

    /** Pushes the button of a question or a message, which then goes. */
    async answers(role, name, button) {
        const question = this.named(role, name);
        await question.getByRole('button', { name: button, exact: true }).click();
        await question.waitFor({ state: 'detached' });
    }

    // A list: a group with a field in each row.

    fields = (group) =>
        this.named('group', group).locator('input, select').filter({ visible: true });
    pushAt = (group, name, index) =>
        this.named('group', group).getByRole('button', { name, exact: true }).nth(index).click();
    fillAt = (group, index, text) => this.fields(group).nth(index).fill(text);
    chooseAt = (group, index, item) => this.fields(group).nth(index).selectOption(item);
    goneAt = (group, index) => this.fields(group).nth(index).waitFor({ state: 'detached' });
    removesWhileTyping = (group, index) =>
        this.named('group', group).evaluate(removeAndType, index);

    async standsAt(group, index, value) {
        assert.equal(await this.fields(group).nth(index).inputValue(), value);
    }

    async addsUpTo(group, count) {
        for (let index = await this.fields(group).count(); index < count; ++index) {
            await this.pushAt(group, 'Add', 0);
            await this.fillAt(group, index, `${index + 1}`);
        }
    }

    // What the page lists as not in the program.

    list = () => this.page.getByRole('region', { name: /^Not in the program/ });
    isListed = (text) => this.list().getByText(text).first().waitFor();
    pushListed = (field, name) =>
        this.list()
            .getByRole('listitem')
            .filter({ hasText: field })
            .getByRole('button', { name })
            .click();

    async pastes(text) {
        assert.equal(await this.page.evaluate('navigator.clipboard.readText()'), text);
    }
}
