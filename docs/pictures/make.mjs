// Makes the pictures of this folder from the running gallery: `node docs/pictures/make.mjs`, after
// the gallery and the page were built. Needs Chromium and ImageMagick.
import { execFileSync } from 'node:child_process';
import { statSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { launchBrowser } from '../../client/test/support/chromium.mjs';
import { Program } from '../../tests/browser/support/Program.mjs';

const LARGEST = 60_000;
const pages = ['Buttons', 'Texts', 'Choices', 'Layouts', 'Tabs'];

function pathOf(name) {
    return fileURLToPath(new URL(name, import.meta.url));
}

/** Writes its kind at every object of the window; what arranges or holds others gets a frame. */
function annotate() {
    const window = document.querySelector('.window.active');
    const taken = [];
    const overlaps = (a, b) =>
        a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
    /** As near to the place as other signs let it, in steps of so many pixels. */
    const tag = (text, colour, left, top, step) => {
        const sign = document.createElement('div');
        sign.textContent = text;
        Object.assign(sign.style, {
            position: 'fixed',
            left: `${left}px`,
            top: `${top}px`,
            padding: '0 3px',
            borderRadius: '3px',
            background: colour,
            color: 'white',
            font: '600 9px/11px sans-serif',
            zIndex: 9,
        });
        window.append(sign);
        const box = () => sign.getBoundingClientRect();
        for (let at = left; taken.some((other) => overlaps(box(), other)); at += step) {
            sign.style.left = `${at}px`;
        }
        taken.push(box());
    };
    const looks = [
        [/Layout$/, '#1d4fa3', 'dashed'],
        [/^(Panel|GroupBox|TabContainer|Tab)$/, '#1b6b3a', 'solid'],
        [/./, '#a3261b', undefined],
    ];
    for (const object of window.querySelectorAll('[data-type]')) {
        const { left, right, top, bottom, width, height } = object.getBoundingClientRect();
        const isBehind = object.closest('.page[hidden]') !== null;
        if (width === 0 || height === 0 || isBehind || !object.checkVisibility()) {
            continue;
        }
        const kind = object.dataset.type;
        const [, colour, frame] = looks.find(([kinds]) => kinds.test(kind));
        object.style.outline = frame ? `1px ${frame} ${colour}` : '';
        if (frame === undefined) {
            tag(kind, colour, left, top - 11, 4);
        } else {
            tag(kind, colour, right - 70, frame === 'dashed' ? bottom - 2 : top - 11, -4);
        }
    }
}

/** A palette of so few colours that the file stays small. */
function reduce(path) {
    execFileSync('convert', [path, '+dither', '-colors', '64', '-strip', `PNG8:${path}`]);
    const { size } = statSync(path);
    if (size > LARGEST) {
        throw new Error(`${path}: ${size} bytes`);
    }
}

const program = await Program.start('gallery', '--theme', pathOf('theme.css'));
const browser = await launchBrowser();
try {
    for (const name of pages) {
        const page = await browser.newPage({ viewport: { width: 760, height: 960 } });
        await page.goto(program.address);
        await page.getByRole('tab', { name, exact: true }).click();
        await page.evaluate(annotate);
        const path = pathOf(`${name.toLowerCase()}.png`);
        await page.locator('.window').screenshot({ path });
        reduce(path);
        await page.close();
    }
} finally {
    await browser.close();
    await program.end();
}
