import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import type { Browser, BrowserContextOptions, Locator, Page } from 'playwright-core';
import { ROOT_CHANNEL } from '../../src/protocol/names.ts';
import { launchBrowser, openTab } from './chromium.mjs';
import { FakeGateway } from './FakeGateway.ts';

type Message = Readonly<Record<string, unknown>>;

let browser: Promise<Browser> | undefined;
after(async () => (await browser)?.close());

/** A test on a page at a gateway; fails when the page threw or broke its policy. */
export function onStage(
    name: string,
    play: (stage: Stage) => Promise<void>,
    screen: BrowserContextOptions = {},
): void {
    test(name, async () => {
        browser ??= launchBrowser() as Promise<Browser>;
        const viewport = { width: 900, height: 600 };
        const context = await (await browser).newContext({ viewport, ...screen });
        const gateway = new FakeGateway();
        const faults: string[] = [];
        try {
            const page = (await openTab(context, faults)) as Page;
            await page.goto(await gateway.start());
            const stage = new Stage(gateway, page);
            await stage.untilAnnounced(1);
            await play(stage);
            assert.deepEqual([faults, gateway.strayed], [[], []]);
        } finally {
            await context.close();
            await gateway.stop();
        }
    });
}

/** The description of a widget as the program writes it. */
export function widget(id: number, type: string, values: object): object {
    return { id: String(id), type, tooltip: '', enable: true, visible: true, ...values };
}

/** A page and the program's end of its gateway. */
export class Stage {
    constructor(
        readonly gateway: FakeGateway,
        readonly page: Page,
    ) {}

    at(id: number): Locator {
        return this.page.locator(`[data-id="${id}"]`);
    }

    button(name: string): Locator {
        return this.page.getByRole('button', { name, exact: true });
    }

    /** How often the page has said who it is. */
    get announced(): number {
        return this.gateway.messages(ROOT_CHANNEL).length;
    }

    untilAnnounced(count: number): Promise<void> {
        return this.gateway.until(() => this.announced >= count, `announcement ${count}`);
    }

    /** Everything that was sent so far has been shown. */
    async settled(): Promise<void> {
        this.gateway.send([ROOT_CHANNEL, { ping: -1 }]);
        await this.untilAnnounced(this.announced + 1);
    }

    /** Opens a window and waits until it has told its place. */
    async show(window: Message): Promise<void> {
        const id = Number(window['id']);
        const places = (): number => this.said(id).filter((said) => 'geometry' in said).length;
        const before = places();
        this.gateway.send(['.', window]);
        await this.gateway.until(() => places() > before, `the place of window ${id}`);
    }

    /** Opens window `id` with these widgets in a box layout. */
    async open(id: number, values: object, widgets: readonly object[]): Promise<void> {
        const layout = { id: String(id + 1), type: 'BoxLayout', contents: widgets };
        const described = { id: String(id), type: 'Dialog', title: `Window ${id}`, ...values };
        await this.show({ ...described, contents: [layout] });
        assert.deepEqual(this.said(id)[0], { dialogReady: String(id) });
    }

    async close(id: number): Promise<void> {
        this.write(id, id, { command: 'close' });
        await this.at(id).waitFor({ state: 'detached' });
    }

    /** Describes an object of window 1 anew, in its layout unless said otherwise. */
    refresh(described: object, parentId = 2): void {
        const place = { msgType: 'refresh', parentId: String(parentId) };
        this.gateway.send(['./1', { ...described, ...place }]);
    }

    write(windowId: number, id: number, values: Message): void {
        this.gateway.send([`./${windowId}`, [{ id: String(id), ...values }]]);
    }

    /** What came up on a window's channel. */
    said(windowId: number): Message[] {
        return this.gateway.messages(`./${windowId}`);
    }

    /** What the program knows of a window: all that was reported, the latest of each. */
    known(id: number): Message {
        return Object.assign({}, ...this.said(id)) as Message;
    }

    untilKnown(id: number, name: string, value: unknown): Promise<void> {
        const same = (): boolean => JSON.stringify(this.known(id)[name]) === JSON.stringify(value);
        return this.gateway.until(same, `${name} ${JSON.stringify(value)}`);
    }

    /** The events of an object in window 1, each as its name and values. */
    events(id: number): unknown[] {
        return this.said(1)
            .filter((message) => message['id'] === String(id) && 'event' in message)
            .map(({ id: _id, event, ...values }) => [event, ...Object.values(values)])
            .map((event) => (event.length === 1 ? event[0] : event));
    }

    async untilEvents(id: number, expected: readonly unknown[]): Promise<void> {
        const enough = (): boolean => this.events(id).length >= expected.length;
        await this.gateway.until(enough, `${expected.length} events of ${id}`);
        assert.deepEqual(this.events(id), expected);
    }
}
