import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';
import { Scope } from './Locator.mjs';

const client = new URL('../../../client/package.json', import.meta.url);
const require = createRequire(client);
const { buildSync } = require('esbuild');
const { Builder, Key } = require('selenium-webdriver');
const { findFreePort } = require('selenium-webdriver/net/portprober');
const { DriverService } = require('selenium-webdriver/remote');

const driverPath = process.env['WEBKIT_DRIVER'] ?? '/usr/bin/WebKitWebDriver';

/** Ends with this process, also when that one is killed: X and the browser cannot outlive it. */
const bound = (...command) => ['setpriv', ['--pdeathsig', 'KILL', ...command]];

/** A screen that nobody sees, as large as a story's largest page. */
async function startScreen() {
    const [command, args] = bound('Xvfb', '-displayfd', '3', '-screen', '0', '1600x1200x24');
    const screen = spawn(command, args, { stdio: ['ignore', 'ignore', 'ignore', 'pipe'] });
    const failed = once(screen, 'exit').then(() => {
        throw new Error('Xvfb does not start');
    });
    const [number] = await Promise.race([once(screen.stdio[3], 'data'), failed]);
    return { screen, display: `:${`${number}`.trim()}` };
}

async function startDriver(display) {
    const port = await findFreePort();
    const [command, args] = bound(driverPath, `--port=${port}`);
    // There is neither a graphics card nor a bus of a desktop; with WebKit's shared buffers, the
    // driver's screenshots hang.
    const env = {
        ...process.env,
        DISPLAY: display,
        GDK_BACKEND: 'x11',
        LIBGL_ALWAYS_SOFTWARE: '1',
        NO_AT_BRIDGE: '1',
        WEBKIT_DISABLE_DMABUF_RENDERER: '1',
    };
    return new DriverService(command, { loopback: true, port, args, env, stdio: 'ignore' });
}

/** What pages are asked with. */
const inPage = buildSync({
    entryPoints: [fileURLToPath(new URL('inPage.mjs', import.meta.url))],
    nodePaths: [fileURLToPath(new URL('node_modules', client))],
    bundle: true,
    minify: true,
    format: 'iife',
    globalName: 'inPage',
    write: false,
}).outputFiles[0].text;

/**
 * WebKit as Debian's GTK has it, with the operations of a page that the stories use in the other
 * engines, carried out by its own driver.
 */
export class WebKit {
    m_turn = Promise.resolve();

    static async launch() {
        const browser = new WebKit();
        const { screen, display } = await startScreen();
        browser.m_screen = screen;
        browser.m_service = await startDriver(display);
        browser.m_driver = await new Builder()
            .disableEnvironmentOverrides()
            .usingServer(await browser.m_service.start())
            .withCapabilities({ browserName: 'MiniBrowser', acceptInsecureCerts: true })
            .build();
        browser.m_home = await browser.m_driver.getWindowHandle();
        return browser;
    }

    newContext = async ({ viewport } = {}) => new Context(this, viewport);
    newPage = () => new Context(this).newPage();

    /** Runs `commands` in a window: the driver knows one at a time. */
    in(window, commands) {
        const turn = this.m_turn.then(async () => {
            if (window !== this.m_window) {
                await this.m_driver.switchTo().window(window);
                this.m_window = window;
            }
            return commands(this.m_driver);
        });
        this.m_turn = turn.catch(() => {});
        return turn;
    }

    newWindow() {
        return this.in(this.m_home, async (driver) => {
            await driver.switchTo().newWindow('window');
            this.m_window = await driver.getWindowHandle();
            return this.m_window;
        });
    }

    async close() {
        await this.m_driver.quit();
        await this.m_service.kill();
        this.m_screen.kill();
    }
}

/** What one user has open. */
class Context {
    m_pages = [];

    constructor(browser, viewport) {
        this.m_browser = browser;
        this.m_viewport = viewport ?? { width: 1280, height: 720 };
    }

    async newPage() {
        const page = new Page(this, this.m_browser, await this.m_browser.newWindow());
        await page.setViewportSize(this.m_viewport);
        this.m_pages.push(page);
        return page;
    }

    async close() {
        for (const page of this.m_pages.splice(0)) {
            await page.close();
        }
    }
}

class Page extends Scope {
    m_listeners = [];

    constructor(context, browser, window) {
        super();
        Object.assign(this, {
            page: this,
            m_context: context,
            m_browser: browser,
            m_window: window,
        });
        this.mouse = new Mouse(this);
        this.keyboard = new Keyboard(this);
    }

    context = () => this.m_context;

    /**
     * Faults are heard of when the page is left, and only from its load on: the driver has no
     * word for what a page writes to its console.
     */
    on(event, listener) {
        if (event === 'pageerror') {
            this.m_listeners.push(listener);
        }
    }

    async goto(address) {
        await this.in((driver) => driver.get(address));
        await this.ask(() => {});
    }

    async reload() {
        await this.m_reportFaults();
        await this.in((driver) => driver.navigate().refresh());
        await this.ask(() => {});
    }

    async close() {
        await this.m_reportFaults();
        await this.in((driver) => driver.close());
    }

    /** The page's inside: what of the window is the browser's own stays around it. */
    async setViewportSize({ width, height }) {
        const inner = () => this.evaluate(() => [innerWidth, innerHeight]);
        await this.in((driver) => driver.manage().window().setRect({ x: 0, y: 0, width, height }));
        const [across, down] = await inner();
        const rect = { x: 0, y: 0, width: 2 * width - across, height: 2 * height - down };
        await this.in((driver) => driver.manage().window().setRect(rect));
    }

    evaluate(run, argument) {
        return this.ask(`(page, argument) => (${run})(argument)`, argument);
    }

    /** What `run` gives, called in the page with inPage.mjs and these arguments. */
    async ask(run, ...args) {
        const script = `
            const done = arguments[1];
            Promise.resolve(window.inPage)
                .then((inPage) => (${run})(inPage, ...arguments[0]))
                .then((value) => done({ value }), (error) => done({ error: error.message }));`;
        const { value, error } = await this.in(async (driver) => {
            await driver.executeScript(
                `if (!window.inPage) { ${inPage}; window.inPage = inPage; }`,
            );
            return driver.executeAsyncScript(script, args);
        });
        if (error !== undefined) {
            throw new Error(error);
        }
        return value;
    }

    async clickItem(steps) {
        const script = 'return inPage.all(arguments[0])[0]';
        await this.in(async (driver) => (await driver.executeScript(script, steps)).click());
    }

    in = (commands) => this.m_browser.in(this.m_window, commands);

    async m_reportFaults() {
        const faults = await this.ask((page) => page.takeFaults());
        this.m_listeners.forEach((listener) =>
            faults.forEach((fault) => listener(new Error(fault))),
        );
    }
}

class Mouse {
    constructor(page) {
        this.m_page = page;
    }

    move(x, y, { steps = 1 } = {}) {
        const [fromX, fromY] = this.m_place ?? [x, y];
        this.m_place = [x, y];
        return this.m_act((actions) => {
            for (let step = 1; step <= steps; ++step) {
                const at = (from, to) => Math.round(from + ((to - from) * step) / steps);
                actions.move({ x: at(fromX, x), y: at(fromY, y), duration: 0 });
            }
        });
    }

    down = () => this.m_act((actions) => actions.press());
    up = () => this.m_act((actions) => actions.release());

    async click(x, y) {
        await this.move(x, y);
        await this.m_act((actions) => actions.press().release());
    }

    m_act(add) {
        return this.m_page.in((driver) => {
            const actions = driver.actions();
            add(actions);
            return actions.perform();
        });
    }
}

/** "ArrowDown" is ARROW_DOWN to the driver, a letter is itself. */
function keyOf(name) {
    return name.length === 1 ? name : Key[name.replace(/\B[A-Z]/g, '_$&').toUpperCase()];
}

class Keyboard {
    constructor(page) {
        this.m_page = page;
    }

    /** Such as "Enter" or "Control+A". */
    press(keys) {
        return this.m_page.in((driver) => {
            const held = keys.split('+').map(keyOf);
            const actions = driver.actions();
            held.forEach((key) => actions.keyDown(key));
            held.reverse().forEach((key) => actions.keyUp(key));
            return actions.perform();
        });
    }

    type = (text) => this.m_page.in((driver) => driver.actions().sendKeys(text).perform());
}
