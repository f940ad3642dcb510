import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdtempSync } from 'node:fs';
import { rm } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createInterface } from 'node:readline';

const require = createRequire(new URL('../../client/package.json', import.meta.url));
const { WebSocket } = require('ws');

/**
 * Chromium, driven with nothing but what runs a function in a page (the DevTools protocol's
 * domains Target, Page and Runtime). A library for tests also listens to the network: then the
 * browser hands it a copy of every frame, which takes the machine as long as the page takes.
 */
export class Chromium {
    #nextCall = 1;
    #calls = new Map();
    #process;
    #socket;
    #profile = mkdtempSync(join(tmpdir(), 'dova-bench-'));

    static async launch() {
        const browser = new Chromium();
        await browser.#start();
        return browser;
    }

    /** A page at `address` in which `script`, a function, ran before any other. */
    open(address, script) {
        return this.#open(address, script, {});
    }

    /** The same by itself, as in a browser that has never been there: nothing is cached. */
    async openAlone(address, script) {
        const context = await this.#call('Target.createBrowserContext', { disposeOnDetach: true });
        return this.#open(address, script, context);
    }

    async #open(address, script = () => {}, context) {
        const { targetId } = await this.#call('Target.createTarget', {
            url: 'about:blank',
            ...context,
        });
        const { sessionId } = await this.#call('Target.attachToTarget', {
            targetId,
            flatten: true,
        });
        const page = new Page(
            (method, params) => this.#call(method, params, sessionId),
            () => this.#call('Target.closeTarget', { targetId }),
        );
        await page.load(address, script);
        return page;
    }

    async close() {
        const ended = once(this.#process, 'exit');
        await this.#call('Browser.close');
        await ended;
        // Its children write for a moment longer.
        await rm(this.#profile, { recursive: true, force: true, maxRetries: 10 });
    }

    async #start() {
        this.#process = spawn(
            '/usr/bin/chromium',
            [
                '--headless',
                '--no-sandbox',
                '--disable-gpu',
                '--disable-quic',
                '--no-first-run',
                '--disable-background-networking',
                '--disable-component-update',
                '--disable-sync',
                '--remote-debugging-port=0',
                `--user-data-dir=${this.#profile}`,
                'about:blank',
            ],
            { stdio: ['ignore', 'ignore', 'pipe'] },
        );
        process.on('exit', () => this.#process.kill('SIGKILL'));
        for await (const line of createInterface({ input: this.#process.stderr })) {
            const address = /DevTools listening on (ws:.*)/.exec(line)?.[1];
            if (address) {
                this.#process.stderr.resume();
                await this.#connect(address);
                return;
            }
        }
        throw new Error('Chromium does not start');
    }

    async #connect(address) {
        this.#socket = new WebSocket(address, { perMessageDeflate: false, maxPayload: 0 });
        this.#socket.on('message', (data) => {
            const answer = JSON.parse(data.toString());
            const call = this.#calls.get(answer.id);
            this.#calls.delete(answer.id);
            if (answer.error) call?.reject(new Error(`${call.method}: ${answer.error.message}`));
            else call?.resolve(answer.result);
        });
        await once(this.#socket, 'open');
    }

    #call(method, params, sessionId) {
        const id = this.#nextCall++;
        this.#socket.send(JSON.stringify({ id, method, params, sessionId }));
        return new Promise((resolve, reject) => this.#calls.set(id, { method, resolve, reject }));
    }
}

/** So long, in milliseconds, a page is waited for: what hangs is to be told, not to hold all up. */
const PATIENCE = 120_000;

class Page {
    #call;
    close;

    constructor(call, close) {
        this.#call = call;
        this.close = close;
    }

    async load(address, script) {
        await this.#call('Page.enable');
        await this.#call('Page.addScriptToEvaluateOnNewDocument', { source: `(${script})()` });
        const { errorText } = await this.#call('Page.navigate', { url: address });
        if (errorText) throw new Error(`${address}: ${errorText}`);
    }

    /** What `run(argument)` gives, or what its promise comes to, in the page. */
    async evaluate(run, argument) {
        let timer;
        const late = new Promise((_, reject) => {
            const error = new Error(`${run.name}: the page has not come to an end`);
            timer = setTimeout(() => reject(error), PATIENCE);
        });
        const expression = `(${run})(${JSON.stringify(argument) ?? ''})`;
        const what = { expression, awaitPromise: true, returnByValue: true };
        const { result, exceptionDetails } = await Promise.race([
            this.#call('Runtime.evaluate', what),
            late,
        ]).finally(() => clearTimeout(timer));
        if (exceptionDetails)
            throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
        return result.value;
    }
}
