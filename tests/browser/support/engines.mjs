import { createRequire } from 'node:module';
import { after, test } from 'node:test';
import { launchBrowser } from '../../../client/test/support/chromium.mjs';

const require = createRequire(new URL('../../../client/package.json', import.meta.url));
const { firefox } = require('playwright-core');

const launchers = {
    chromium: () => launchBrowser(),
    // Debian's own, which speaks WebDriver BiDi: the channel's name tells the library so.
    firefox: () =>
        firefox.launch({
            channel: 'moz-firefox',
            executablePath: process.env['FIREFOX'] ?? '/usr/bin/firefox-esr',
        }),
    webkit: async () => (await import('./WebKit.mjs')).WebKit.launch(),
};

export const everyEngine = Object.keys(launchers);
export const chromiumOnly = ['chromium'];

/** ENGINES in the environment, such as "firefox,webkit", else all of them. */
const wanted = process.env['ENGINES']?.split(',') ?? everyEngine;
const unknown = wanted.filter((engine) => !everyEngine.includes(engine));
if (unknown.length > 0) {
    throw new Error(`ENGINES: "${unknown}" is none of ${everyEngine.join(', ')}`);
}

/** Each is started for its first story and serves all others of the same file. */
const browsers = new Map();
after(async () => {
    for (const browser of browsers.values()) {
        await (await browser).close();
    }
});

/** Takes the certificate of a proxy, whoever made it. */
async function launch(engine) {
    const browser = await launchers[engine]();
    const newContext = browser.newContext.bind(browser);
    browser.newContext = (options) => newContext({ ...options, ignoreHTTPSErrors: true });
    return browser;
}

function browserOf(engine) {
    if (!browsers.has(engine)) {
        browsers.set(engine, launch(engine));
    }
    return browsers.get(engine);
}

/** A test in each of these engines; `play` gets the engine's browser. */
export function inEach(engines, name, play) {
    for (const engine of engines.filter((each) => wanted.includes(each))) {
        test(`${engine}: ${name}`, async (t) => play(await browserOf(engine), t));
    }
}
