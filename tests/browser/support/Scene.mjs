import assert from 'node:assert/strict';
import { cp, mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { Program } from './Program.mjs';

const require = createRequire(new URL('../../../client/package.json', import.meta.url));
const { chromium } = require('playwright-core');

/** A file of this repository. */
export const inTree = (path) => fileURLToPath(new URL(`../../../${path}`, import.meta.url));

/** Debian's Chromium, without anything that reaches beyond this machine. */
export function launchBrowser(...args) {
    return chromium.launch({
        executablePath: process.env['CHROMIUM'] ?? '/usr/bin/chromium',
        args: [
            '--no-sandbox',
            '--headless',
            '--disable-gpu',
            '--disable-quic',
            '--no-first-run',
            '--disable-background-networking',
            '--disable-component-update',
            '--disable-sync',
            ...args,
        ],
    });
}

/** jsonpad on a copy of a file, and the pages of one person's browser. */
export class Scene {
    /** `t` is the test, with which it ends. */
    static async on(t, browser, source = inTree('examples/jsonpad/sample.json')) {
        const folder = await mkdtemp(join(tmpdir(), 'jsonpad-'));
        const file = join(folder, basename(source));
        await cp(source, file);
        return Scene.onFile(t, browser, folder, file);
    }

    static async onText(t, browser, text) {
        const folder = await mkdtemp(join(tmpdir(), 'jsonpad-'));
        const file = join(folder, 'written.json');
        await writeFile(file, text);
        return Scene.onFile(t, browser, folder, file);
    }

    static async onFile(t, browser, folder, file) {
        const program = await Program.start(file);
        const context = await browser.newContext({ viewport: { width: 1000, height: 800 } });
        const scene = new Scene(folder, file, program, context);
        t.after(() => scene.end());
        return scene;
    }

    constructor(folder, file, program, context) {
        this.folder = folder;
        this.file = file;
        this.name = basename(file);
        this.program = program;
        this.m_context = context;
        this.m_faults = [];
    }

    /** The same program as seen from another browser. */
    async inBrowser(browser) {
        await this.m_context.close();
        this.m_context = await browser.newContext({ viewport: { width: 1000, height: 800 } });
        return this;
    }

    /** Opens the printed address in a new tab and waits for the dialog. */
    async open() {
        const page = await this.m_context.newPage();
        page.on('pageerror', (error) => this.m_faults.push(error.message));
        page.on('console', (message) => {
            if (/Content Security Policy|Trusted/.test(message.text())) {
                this.m_faults.push(message.text());
            }
        });
        await page.goto(this.program.address);
        await this.dialog(page).waitFor();
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

    text() {
        return readFile(this.file, 'utf8');
    }

    /** Ends everything; fails when a page threw or broke its policy. */
    async end() {
        await this.m_context.close();
        await this.program.end();
        await rm(this.folder, { recursive: true });
        assert.deepEqual(this.m_faults, []);
    }
}
