// From the navigation to the first window, over a line as a telephone may have it.

import { randomBytes } from 'node:crypto';
import { once } from 'node:events';
import { createServer } from 'node:http';
import { createRequire } from 'node:module';
import { Line } from './Line.mjs';

const require = createRequire(new URL('../../client/package.json', import.meta.url));
const { WebSocketServer } = require('ws');

/** 100 ms there and back, 1.6 Mbit/s. */
const line = { delay: 50, bytesPerSecond: 200_000 };

/** Runs in a page before all else: notes when there is a window, and what sockets brought for it. */
function watch() {
    let told = 0;
    const Original = window.WebSocket;
    window.WebSocket = class extends Original {
        constructor(...args) {
            super(...args);
            this.addEventListener('message', ({ data }) => {
                told += data.length;
            });
        }
    };
    window.firstWindow = new Promise((resolve) => {
        const observer = new MutationObserver(() => {
            if (document.querySelector('dialog')) {
                observer.disconnect();
                resolve({ time: performance.now(), told });
            }
        });
        observer.observe(document, { childList: true, subtree: true });
    });
}

/** Runs in the page: that, and the bytes of the files that were fetched until then. */
async function awaitFirstWindow() {
    const result = await window.firstWindow;
    const files = performance.getEntries().filter((entry) => 'encodedBodySize' in entry);
    return { ...result, fetched: files.reduce((sum, file) => sum + file.encodedBodySize, 0) };
}

/** A page of so many bytes, which shows the first text that its socket brings. */
async function serveBare({ fetched, told }) {
    const document = '<!doctype html><body><script src="script.js" defer></script>';
    const code = `new WebSocket('ws://' + location.host).onmessage = ({ data }) => {
        const shown = document.createElement('dialog');
        shown.textContent = data;
        document.body.append(shown);
    }; //`;
    const rest = fetched - document.length - code.length;
    const script = code + randomBytes(rest).toString('hex').slice(0, rest);
    const server = createServer((request, response) => {
        const [type, body] =
            request.url === '/script.js' ? ['text/javascript', script] : ['text/html', document];
        response.writeHead(200, { 'content-type': type, 'content-length': body.length }).end(body);
    });
    new WebSocketServer({ server }).on('connection', (socket) => socket.send('x'.repeat(told)));
    server.listen(0, '127.0.0.1').unref();
    await once(server, 'listening');
    return server.address().port;
}

async function load(browser, address) {
    const page = await browser.openAlone(address, watch);
    const result = await page.evaluate(awaitFirstWindow);
    await page.close();
    return result;
}

/** Milliseconds to the first window of the program and of a bare page, each in turn. */
export async function timeFirstWindow({ browser, start, loads, sample }) {
    const [toProgram, toBare] = [new Line(line), new Line(line)];
    const port = await toProgram.listen();
    const program = await start('jsonpad', sample, '--host', `127.0.0.1:${port}`);
    toProgram.target = Number(new URL(program.line).port);
    const address = program.line.replace(`:${toProgram.target}/`, `:${port}/`);
    const { fetched, told } = await load(browser, address);
    toBare.target = await serveBare({ fetched, told });
    const bare = `http://127.0.0.1:${await toBare.listen()}/`;
    const result = { mine: [], bare: [], fetched, told };
    for (let count = 0; count < loads; ++count) {
        result.mine.push((await load(browser, address)).time);
        result.bare.push((await load(browser, bare)).time);
    }
    program.stop();
    return result;
}
