import { chromium } from 'playwright-core';

/**
 * Debian's Chromium, without anything that reaches beyond this machine, with scroll bars that take
 * room: so people have it.
 */
export function launchBrowser(...args) {
    return chromium.launch({
        executablePath: process.env['CHROMIUM'] ?? '/usr/bin/chromium',
        ignoreDefaultArgs: ['--hide-scrollbars'],
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

/** What Firefox says of a lost connection, in the words and place of an exception. */
const lostConnection = /wss?:\S+ was interrupted|establish a connection to the server at wss?:/;

/** A new tab; exceptions and breaches of its policy are added to `faults`. */
export async function openTab(context, faults) {
    const page = await context.newPage();
    page.on('pageerror', ({ message }) => {
        if (!lostConnection.test(message)) {
            faults.push(message);
        }
    });
    page.on('console', (message) => {
        if (/Content Security Policy|Trusted/.test(message.text())) {
            faults.push(message.text());
        }
    });
    return page;
}
