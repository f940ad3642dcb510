import assert from 'node:assert/strict';
import { join } from 'node:path';
import { chromium, type Browser, type Page } from 'playwright-core';
import { ROOT_CHANNEL } from '../../src/protocol/names.ts';
import { FakeGateway } from './FakeGateway.ts';

/** Debian's Chromium, without anything that reaches beyond this machine. */
export function launchBrowser(): Promise<Browser> {
    return chromium.launch({
        executablePath: process.env['CHROMIUM'] ?? '/usr/bin/chromium',
        args: [
            '--no-sandbox',
            '--disable-gpu',
            '--disable-quic',
            '--no-first-run',
            '--disable-background-networking',
            '--disable-component-update',
            '--disable-sync',
        ],
    });
}

export interface Stage {
    readonly gateway: FakeGateway;
    readonly page: Page;
    readonly address: string;
}

/** Tests run in the package's folder. */
const dist = join(process.cwd(), 'dist');

/** A page at a gateway, announced and waiting; fails when the page threw or broke its policy. */
export async function onStage(
    browser: Browser,
    play: (stage: Stage) => Promise<void>,
): Promise<void> {
    const gateway = new FakeGateway(dist);
    const address = await gateway.start();
    const context = await browser.newContext({ viewport: { width: 900, height: 600 } });
    const page = await context.newPage();
    const faults: string[] = [];
    page.on('pageerror', (error) => faults.push(error.message));
    page.on('console', (message) => {
        if (/Content Security Policy|Trusted/.test(message.text())) {
            faults.push(message.text());
        }
    });
    try {
        await page.goto(address);
        await gateway.until(() => gateway.messages(ROOT_CHANNEL).length > 0, 'clientReady');
        await play({ gateway, page, address });
        assert.deepEqual(faults, []);
    } finally {
        await context.close();
        await gateway.stop();
    }
}

/** The description of a widget as the program writes it. */
export function widget(id: number, type: string, values: object, contents?: object[]): object {
    const base = { id: String(id), type, tooltip: '', enable: true, visible: true };
    return contents ? { ...base, ...values, contents } : { ...base, ...values };
}

/** Opens window `id` with these widgets in a box layout and waits until it has told its place. */
export async function openWindow(
    { gateway }: Stage,
    id: number,
    values: object,
    widgets: object[],
): Promise<void> {
    const layout = { id: String(id + 1), type: 'BoxLayout', contents: widgets };
    const described = { id: String(id), type: 'Dialog', title: `Window ${id}`, ...values };
    gateway.send(['.', { ...described, contents: [layout] }]);
    const told = (): boolean =>
        gateway.messages(`./${id}`).some((message) => Object.hasOwn(message as object, 'geometry'));
    await gateway.until(told, `place of window ${id}`);
    assert.deepEqual(gateway.messages(`./${id}`)[0], { dialogReady: String(id) });
}
