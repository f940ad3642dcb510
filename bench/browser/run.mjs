// Speed as a page sees it, each figure as a ratio to a floor of the same run:
// run.mjs FOLDER_WITH_BENCHMARKS. Exits 1 when a limit is missed.

import { spawn } from 'node:child_process';
import { createRequire } from 'node:module';
import { once } from 'node:events';
import { createInterface } from 'node:readline';
import * as inPage from './in_page.mjs';

const require = createRequire(new URL('../../client/package.json', import.meta.url));
const { chromium } = require('playwright-core');

const folder = process.argv[2];
if (!folder) {
  console.error('run.mjs: usage: run.mjs FOLDER');
  process.exit(2);
}

const clicks = { warmUp: 20, counted: 300 };
const writes = 10000;
const loads = 2;

let missed = 0;
function report(what, value, limit, unit = '') {
  const kept = value <= limit;
  missed += kept ? 0 : 1;
  console.log(`${what.padEnd(60)} ${value.toFixed(2).padStart(8)}${unit}  at most ${limit}  ${kept ? 'kept' : 'MISSED'}`);
}

const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];

/** Starts a program and gives the one line that it prints first. */
async function start(name, ...args) {
  const child = spawn(`${folder}/${name}`, args.map(String), { stdio: ['ignore', 'pipe', 'inherit'] });
  process.on('exit', () => child.kill('SIGKILL'));
  const [line] = await once(createInterface({ input: child.stdout }), 'line');
  return { line, stop: () => child.kill('SIGTERM') };
}

/** Clocks of isolated pages tick in 5 microseconds, those of others in 100. */
async function isolate(route) {
  const response = await route.fetch();
  const headers = { ...response.headers(), 'cross-origin-embedder-policy': 'require-corp' };
  await route.fulfill({ response, headers });
}

async function openBlank(browser) {
  const page = await browser.newPage();
  await page.route('http://127.0.0.1:9/', (route) =>
    route.fulfill({
      contentType: 'text/html',
      headers: { 'cross-origin-opener-policy': 'same-origin', 'cross-origin-embedder-policy': 'require-corp' },
      body: '<!doctype html><button>Click</button><span>0</span>',
    }),
  );
  await page.goto('http://127.0.0.1:9/');
  return page;
}

/** Counts what the page's socket carries: header, mask (upward only) and payload of each frame. */
function countBytes(page) {
  const bytes = { up: 0, down: 0 };
  const size = (payload, mask) => {
    const length = Buffer.byteLength(payload);
    return length + mask + (length < 126 ? 2 : length < 65536 ? 4 : 10);
  };
  page.on('websocket', (socket) => {
    socket.on('framesent', (frame) => (bytes.up += size(frame.payload, 4)));
    socket.on('framereceived', (frame) => (bytes.down += size(frame.payload, 0)));
  });
  return bytes;
}

async function openProgram(browser, address) {
  const page = await browser.newPage();
  const bytes = countBytes(page);
  await page.addInitScript(inPage.watchSocket);
  await page.route((url) => url.pathname === '/', isolate);
  await page.goto(address);
  await page.getByRole('button', { name: 'Click', exact: true }).waitFor();
  return { page, bytes };
}

async function clickTimes(browser, open) {
  const times = [];
  for (let load = 0; load < loads; ++load) {
    const page = await open();
    times.push(...(await page.evaluate(inPage.timeClicks, clicks)));
    await page.close();
  }
  return times;
}

async function echoTimes(browser, port) {
  return clickTimes(browser, async () => {
    const page = await openBlank(browser);
    await page.evaluate(inPage.connectEcho, port);
    return page;
  });
}

async function programTimes(browser, widgets) {
  const program = await start('bench_program', widgets, 0, 0);
  const total = { up: 0, down: 0 };
  const times = await clickTimes(browser, async () => {
    const { page, bytes } = await openProgram(browser, program.line);
    const atStart = { ...bytes };
    page.on('close', () => {
      total.up += bytes.up - atStart.up;
      total.down += bytes.down - atStart.down;
    });
    return page;
  });
  program.stop();
  const handled = loads * (clicks.warmUp + clicks.counted);
  return { time: median(times), up: total.up / handled, down: total.down / handled };
}

async function measureClicks(browser, port) {
  const before = median(await echoTimes(browser, port));
  const small = await programTimes(browser, 0);
  const large = await programTimes(browser, 1000);
  const floor = (before + median(await echoTimes(browser, port))) / 2;
  console.log(`click, bare echo ${floor.toFixed(3)} ms, program ${small.time.toFixed(3)} ms, with 1,000 widgets ${large.time.toFixed(3)} ms`);
  report('click to changed text / bare echo', small.time / floor, 1.5);
  report('the same with 1,000 more widgets', large.time / floor, 1.6);
  for (const [name, measured] of [['', small], [', 1,000 widgets', large]]) {
    report(`bytes up for a click${name}`, measured.up, 100, ' B');
    report(`bytes down for a click${name}`, measured.down, 100, ' B');
  }
}

/** Milliseconds from the arrival of a window of rows to all of them in the document, and by hand.
 * Each is measured on a page of its own, just loaded: the second ten thousand elements of a page
 * find memory and compiled code for which the first had to wait, and take less than half as long. */
async function windowTime(browser, rows) {
  const program = await start('bench_program', 0, rows, 0);
  const mine = [];
  const hand = [];
  for (let load = 0; load < 7; ++load) {
    const { page } = await openProgram(browser, program.line);
    mine.push(await page.evaluate(inPage.timeWindow, rows));
    const list = await page.evaluate(inPage.listRows);
    if (list.length !== rows) throw new Error(`${list.length} rows in the document`);
    await page.close();
    const { page: byHand } = await openProgram(browser, program.line);
    hand.push(await byHand.evaluate(inPage.timeByHand, list));
    await byHand.close();
  }
  program.stop();
  return { mine: median(mine), hand: median(hand) };
}

async function measureWindows(browser) {
  const small = await windowTime(browser, 1000);
  const large = await windowTime(browser, 10000);
  console.log(`10,000 widgets: ${large.mine.toFixed(1)} ms, by hand ${large.hand.toFixed(1)} ms; 1,000: ${small.mine.toFixed(1)} ms, by hand ${small.hand.toFixed(1)} ms`);
  report('10,000 widgets in the document / by hand', large.mine / large.hand, 1.5);
  report('10,000 widgets / 1,000 widgets', large.mine / small.mine, 12);
}

/** On a page of its own, like the program's: a page that has done it before has its code compiled. */
async function bareBurst(browser, port, size) {
  const page = await openBlank(browser);
  await page.evaluate(inPage.connectEcho, port);
  const time = await page.evaluate(inPage.timeBareBurst, { writes, size });
  await page.close();
  return time;
}

async function measureBurst(browser, port) {
  const program = await start('bench_program', 0, 0, writes);
  const floors = [];
  const bursts = [];
  for (let load = 0; load < 15; ++load) {
    const { page } = await openProgram(browser, program.line);
    const burst = await page.evaluate(inPage.timeBurst, writes);
    if (burst.received !== writes || !burst.inOrder) throw new Error(`of ${writes} writes ${burst.received} arrived, in order: ${burst.inOrder}`);
    bursts.push(burst);
    await page.close();
    floors.push(await bareBurst(browser, port, burst.size));
  }
  program.stop();
  const of = (member) => median(bursts.map((burst) => burst[member]));
  const [time, floor] = [of('time'), median(floors)];
  console.log(`${writes} writes: ${time.toFixed(1)} ms to the last one shown (first frame ${of('first').toFixed(1)}, last ${of('last').toFixed(1)}, ${of('frames')} frames), bare sender ${floor.toFixed(1)} ms`);
  report('writes in one go, time / bare sender', time / floor, 2);
}

const bare = await start('bare_server');
const browser = await chromium.launch({
  executablePath: '/usr/bin/chromium',
  args: ['--no-sandbox', '--headless', '--disable-gpu', '--disable-quic', '--no-first-run',
    '--disable-background-networking', '--disable-component-update', '--disable-sync',
    // Pages that the benchmark answers for have no address of their own.
    '--disable-features=LocalNetworkAccessChecks'],
});
try {
  await measureClicks(browser, bare.line);
  await measureWindows(browser);
  await measureBurst(browser, bare.line);
} finally {
  await browser.close();
  bare.stop();
}
process.exitCode = missed > 0 ? 1 : 0;
