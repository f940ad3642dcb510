import assert from 'node:assert/strict';
import { mkdtemp, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { openTab } from '../../client/test/support/chromium.mjs';
import { chromiumOnly, everyEngine, inEach } from './support/engines.mjs';
import { builtProgram, Program } from './support/Program.mjs';

/** A service with hello for each of these visitors; `page(name)` opens it as one of them. */
async function serve(browser, t, visitors, ...options) {
    const names = visitors.flatMap((name) => ['--visitor', name]);
    const service = await Program.start('dova-serve', ...names, ...options, builtProgram('hello'));
    t.after(() => service.end());
    await service.echoes(`${visitors.at(-1)} `);
    const addressOf = (name) =>
        service.output.find((line) => line.startsWith(`${name} `)).slice(name.length + 1);
    const page = async (name) => {
        const tab = await openTab(await browser.newContext(), []);
        await tab.goto(addressOf(name));
        return tab;
    };
    const pidOf = (name) => {
        const starts = service.errors.matchAll(/(\w+): process (\d+) is started/g);
        return Number([...starts].filter(([, visitor]) => visitor === name).at(-1)[2]);
    };
    return { service, page, pidOf, addressOf };
}

/** Asks the service as monitoring does. */
async function statusOf(service) {
    await service.echoes('status http');
    const address = service.output.find((line) => line.startsWith('status ')).slice(7);
    return async (path, headers = {}) => (await fetch(address + path, { headers })).text();
}

async function greet(page, name) {
    await page.getByLabel('Your name').fill(name);
    await page.getByRole('button', { name: 'Greet' }).click();
    await page.getByText(`Hello, ${name}!`).waitFor();
}

async function apart(browser, t) {
    const options = ['--status-port', '0', '--drain-time', '1min'];
    const { service, page, pidOf } = await serve(browser, t, ['alice', 'bob'], ...options);
    const status = await statusOf(service);
    const [alice, bob] = [await page('alice'), await page('bob')];
    await greet(alice, 'Ada');
    await greet(bob, 'Bob');
    assert.ok(await alice.getByText('Hello, Ada!').isVisible(), 'each has a program of their own');
    await bob.getByRole('status').evaluate((banner) => {
        window.said = [];
        new MutationObserver(() => window.said.push(banner.textContent)).observe(banner, {
            childList: true,
            characterData: true,
            subtree: true,
        });
    });
    process.kill(pidOf('alice'), 'SIGSEGV');
    await alice.getByText('The program has ended.').waitFor();
    assert.match(service.errors, /alice: the program ended: signal 11 \(Segmentation fault\)/);
    await alice.getByText('Hello, Ada!').waitFor({ state: 'hidden' });
    await greet(alice, 'Grace');
    await greet(bob, 'Barbara');
    assert.deepEqual(await bob.evaluate(() => window.said), [], 'nobody else is disturbed');
    const left = [pidOf('alice'), pidOf('bob')];
    const metrics = await status('metrics', { accept: 'application/openmetrics-text' });
    for (const line of [
        'dova_visitors 2',
        'dova_programs 2',
        'dova_pages 2',
        'dova_program_faults_total 1',
        'dova_program_start_seconds_count 3',
    ]) {
        assert.ok(metrics.includes(`\n${line}\n`), `${line} in ${metrics}`);
    }
    assert.match(metrics, /dova_program_memory_bytes\{visitor="bob"\} \d{6,}\n.*# EOF\n$/s);
    assert.equal(await status('readyz'), 'ready\n');
    const isEnded = service.end(); // which waits for the two pages
    while ((await status('readyz')) !== 'no room\n');
    await alice.close();
    process.kill(service.pid, 'SIGTERM');
    assert.equal(await isEnded, 0);
    for (const pid of left) {
        assert.throws(() => process.kill(pid, 0), { code: 'ESRCH' });
    }
    await bob.getByText('The program has ended.').waitFor();
}

inEach(everyEngine, 'visitors have a program each, which dies and ends for itself', apart);

inEach(chromiumOnly, 'who is one too many, or unknown, is told so', async (browser, t) => {
    const few = await serve(browser, t, ['alice', 'bob'], '--programs', '1', '--idle', '500ms');
    const alice = await few.page('alice');
    await greet(alice, 'Ada');
    const bob = await few.page('bob');
    await bob.getByText('too many').waitFor();
    await alice.close();
    await greet(bob, 'Bob'); // once alice's program has had no page for long enough
    const address = few.addressOf('bob');
    const stranger = await openTab(await browser.newContext(), []);
    await stranger.goto(`${address.slice(0, -1)}${address.endsWith('0') ? '1' : '0'}`);
    await stranger.getByText('address').waitFor();
});

inEach(chromiumOnly, 'a service that is killed finds its programs again', async (browser, t) => {
    const folder = await mkdtemp(join(tmpdir(), 'dova-test-'));
    t.after(() => rm(folder, { recursive: true }));
    const visitors = join(folder, 'visitors');
    const token = '0123456789abcdefghij';
    await writeFile(visitors, `alice ${token}\n`, { mode: 0o600 });
    const settings = ['--visitors', visitors, '--socket-folder', folder];
    const first = await Program.start('dova-serve', ...settings, builtProgram('hello'));
    const alice = await openTab(await browser.newContext(), []);
    await alice.goto(`${first.address}#${token}`);
    await greet(alice, 'Ada');
    await first.stop('SIGKILL');
    await alice.getByLabel('Your name').fill('Grace');
    const second = await first.startAgain();
    t.after(() => second.end());
    await alice.getByText('Connected again').waitFor();
    assert.ok(await alice.getByText('Hello, Ada!').isVisible(), 'it is the same program');
    await alice.getByRole('button', { name: 'Greet' }).click();
    await alice.getByText('Hello, Grace!').waitFor();
    assert.match(second.errors, /alice: process \d+ is still there/);
});
