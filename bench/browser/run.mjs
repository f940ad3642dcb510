// Speed as a page sees it, each figure as a ratio to a floor of the same run:
// run.mjs FOLDER_WITH_BENCHMARKS. Exits 1 when a limit is missed.

import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { createServer } from 'node:http';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';
import { Chromium } from './Chromium.mjs';
import { timeFirstWindow } from './first_window.mjs';
import * as inPage from './in_page.mjs';
import { measureLarge } from './large.mjs';

const folder = process.argv[2];
if (!folder) {
    console.error('run.mjs: usage: run.mjs FOLDER');
    process.exit(2);
}

const clicks = { warmUp: 20, counted: 300 };
const writes = 10000;
const loads = 7;

let missed = 0;
function report(what, value, limit, unit = '') {
    const kept = value <= limit;
    missed += kept ? 0 : 1;
    console.log(
        `${what.padEnd(60)} ${value.toFixed(2).padStart(8)}${unit}  at most ${limit}  ${kept ? 'kept' : 'MISSED'}`,
    );
}

const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];

/** None outlives the bench. */
const children = new Set();
process.once('exit', () => children.forEach((child) => child.kill('SIGKILL')));

/** Starts a program and gives the one line that it prints first. */
async function start(name, ...args) {
    const child = spawn(`${folder}/${name}`, args.map(String), {
        stdio: ['ignore', 'pipe', 'inherit'],
    });
    children.add(child);
    const failed = once(child, 'exit').then(() => {
        throw new Error(`${name} has not started`);
    });
    const [line] = await Promise.race([
        once(createInterface({ input: child.stdout }), 'line'),
        failed,
    ]);
    failed.catch(() => {});
    return { line, stop: () => child.kill('SIGTERM') };
}

/** A page for the floors, isolated like the program's: clocks of others tick 20 times slower. */
async function serveBlank() {
    const server = createServer((_request, response) => {
        response.writeHead(200, {
            'content-type': 'text/html',
            'cross-origin-opener-policy': 'same-origin',
            'cross-origin-embedder-policy': 'require-corp',
        });
        response.end('<!doctype html><button>Click</button><span>0</span>');
    });
    server.listen(0, '127.0.0.1').unref();
    await once(server, 'listening');
    return `http://127.0.0.1:${server.address().port}/`;
}

async function openPage(address) {
    const page = await browser.open(address, inPage.watchSocket);
    await page.evaluate(inPage.waitForDialog);
    return page;
}

/** A page without a program. */
function openBlank() {
    return openPage(blank);
}

async function openDialog(address) {
    const page = await openPage(address);
    await page.evaluate(inPage.waitForDocument);
    return page;
}

async function openEcho() {
    const page = await openPage(blank);
    await page.evaluate(inPage.connectEcho, bare.line);
    return page;
}

/** The times of all clicks on a page, and the bytes of an average one. */
async function measureClick(page) {
    const before = await page.evaluate(inPage.countBytes);
    const times = await page.evaluate(inPage.timeClicks, clicks);
    const after = await page.evaluate(inPage.countBytes);
    await page.close();
    const handled = clicks.warmUp + clicks.counted;
    return {
        time: median(times),
        up: (after.up - before.up) / handled,
        down: (after.down - before.down) / handled,
    };
}

/** Each in turn, because what the machine does beside changes with time. */
async function measureClicks() {
    const program = await start('bench_program', 0, 0, 0);
    const crowded = await start('bench_program', 1000, 0, 0);
    const results = { echo: [], small: [], large: [] };
    for (let load = 0; load < loads; ++load) {
        results.echo.push(await measureClick(await openEcho()));
        results.small.push(await measureClick(await openDialog(program.line)));
        results.large.push(await measureClick(await openDialog(crowded.line)));
    }
    program.stop();
    crowded.stop();
    const of = (name, member) => median(results[name].map((result) => result[member]));
    const floor = of('echo', 'time');
    console.log(
        `click, bare echo ${floor.toFixed(3)} ms, program ${of('small', 'time').toFixed(3)} ms, with 1,000 widgets ${of('large', 'time').toFixed(3)} ms`,
    );
    report('click to changed text / bare echo', of('small', 'time') / floor, 1.5);
    report('the same with 1,000 more widgets', of('large', 'time') / floor, 1.6);
    for (const [name, what] of [
        ['small', ''],
        ['large', ', 1,000 widgets'],
    ]) {
        report(`bytes up for a click${what}`, of(name, 'up'), 100, ' B');
        report(`bytes down for a click${what}`, of(name, 'down'), 100, ' B');
    }
}

/** Milliseconds from the arrival of a window of rows until all of them are laid out, and by hand.
 * Each is measured on a page of its own, just loaded: the second ten thousand elements of a page
 * find memory and compiled code for which the first had to wait, and take less than half as long. */
async function windowTime(rows) {
    return timeRows(['bench_program', 0, rows, 0], inPage.timeWindow, rows, rows);
}

async function timeRows(command, timeWindow, rows, widgets) {
    const program = await start(...command);
    const mine = [];
    const hand = [];
    for (let load = 0; load < loads; ++load) {
        const page = await openDialog(program.line);
        mine.push(await page.evaluate(timeWindow, rows));
        const list = await page.evaluate(inPage.listRows);
        if (list.length !== widgets) throw new Error(`${list.length} rows in the document`);
        await page.close();
        const byHand = await openDialog(program.line);
        hand.push(await byHand.evaluate(inPage.timeByHand, list));
        await byHand.close();
    }
    program.stop();
    return { mine: median(mine), hand: median(hand) };
}

async function measureWindows() {
    const small = await windowTime(1000);
    const large = await windowTime(10000);
    console.log(
        `10,000 widgets: ${large.mine.toFixed(1)} ms, by hand ${large.hand.toFixed(1)} ms; 1,000: ${small.mine.toFixed(1)} ms, by hand ${small.hand.toFixed(1)} ms`,
    );
    report('10,000 widgets laid out / by hand in a bare dialog', large.mine / large.hand, 2);
    report('10,000 widgets / 1,000 widgets', large.mine / small.mine, 12);
    const mixed = await timeRows(['bench_program', 0, 0, 0], inPage.timeMixedWindow, 1000, 5000);
    console.log(
        `1,000 rows of text, edit, check box, combo box and button, laid out: ${mixed.mine.toFixed(1)} ms, in a bare dialog ${mixed.hand.toFixed(1)} ms`,
    );
    report('1,000 rows of five kinds laid out / in a bare dialog', mixed.mine / mixed.hand, 1.5);
}

/** On a page of its own, like the program's: a page that has done it before has its code compiled. */
async function bareBurst(size) {
    const page = await openEcho();
    const time = await page.evaluate(inPage.timeBareBurst, { writes, size });
    await page.close();
    return time;
}

async function measureBurst() {
    const program = await start('bench_program', 0, 0, writes);
    const floors = [];
    const bursts = [];
    for (let load = 0; load < loads; ++load) {
        const page = await openDialog(program.line);
        const burst = await page.evaluate(inPage.timeBurst, writes);
        if (burst.received !== writes || !burst.inOrder)
            throw new Error(
                `of ${writes} writes ${burst.received} arrived, in order: ${burst.inOrder}`,
            );
        bursts.push(burst);
        await page.close();
        floors.push(await bareBurst(burst.size));
    }
    program.stop();
    const of = (member) => median(bursts.map((burst) => burst[member]));
    const [time, floor] = [of('time'), median(floors)];
    console.log(
        `${writes} writes: ${time.toFixed(1)} ms to the last one shown (first frame ${of('first').toFixed(1)}, last ${of('last').toFixed(1)}, ${of('frames')} frames), bare sender ${floor.toFixed(1)} ms`,
    );
    report('writes in one go, time / bare sender', time / floor, 2);
}

const range = (values) => `${Math.min(...values).toFixed(0)} to ${Math.max(...values).toFixed(0)}`;

/** With the file that a newcomer sees first. */
async function measureFirstWindow() {
    const sample = fileURLToPath(new URL('../../examples/jsonpad/sample.json', import.meta.url));
    const { mine, bare, fetched, told } = await timeFirstWindow({ browser, start, loads, sample });
    console.log(
        `first window over a line of 100 ms and 1.6 Mbit/s: ${median(mine).toFixed(0)} ms (${range(mine)}), bare page of ${fetched} bytes and a text of ${told} ${median(bare).toFixed(0)} ms (${range(bare)})`,
    );
    report(
        'time to the first window / bare page of the same bytes',
        median(mine) / median(bare),
        1.4,
    );
}

const bare = await start('bare_server');
const blank = await serveBlank();
const browser = await Chromium.launch();
try {
    await measureClicks();
    await measureWindows();
    await measureBurst();
    await measureFirstWindow();
    await measureLarge({ start, openDialog, openBlank, median, report });
} finally {
    await browser.close();
    bare.stop();
}
process.exitCode = missed > 0 ? 1 : 0;
