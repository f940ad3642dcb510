import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before } from 'node:test';
import { openTab } from '../../client/test/support/chromium.mjs';
import { play } from '../../client/test/support/steps.mjs';
import { CuttableProxy } from './support/CuttableProxy.mjs';
import { everyEngine, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';
import { pathInTree } from './support/Scene.mjs';
import { User } from './support/User.mjs';

let program;
before(async () => {
    program = await Program.start('gallery');
});
after(async () => {
    assert.equal(await program.end(), 0);
    assert.equal(program.errors, '');
});

/** The gallery in front of a user who has turned to one of its pages. */
class Visit extends User {
    static async to(browser, name, faults, { address } = program) {
        const context = await browser.newContext({ viewport: { width: 900, height: 760 } });
        const page = await openTab(context, faults);
        page.on('console', (message) => message.type() === 'error' && faults.push(message.text()));
        await page.goto(address);
        const visit = new Visit(page);
        await visit.click('tab', name);
        return visit;
    }

    pushFirst = (name) => this.named('button', name).first().click();
    closeTab = (name) => this.named('tab', name).locator('[title=Close]').click();

    /** Where the button is, whatever lies above it. */
    async clickAt(name) {
        const [{ x, y }] = await this.boxes('button', name);
        await this.page.mouse.click(x + 2, y + 2);
    }

    /** The program says that this happened last. */
    hears(event) {
        const latest = new RegExp(`^\\d+\\. ${event.replace(/[^\w ]/g, '\\$&')}\\s`);
        return this.finds('.text', latest);
    }

    /** In which direction the second one stands from the first one. */
    async stands(role, first, second, direction) {
        const [from, to] = await this.boxes(role, first, second);
        const [across, down] = [to.x - from.x, to.y - from.y];
        const isAcross = Math.abs(across) > Math.abs(down);
        const found = isAcross ? (across > 0 ? 'right' : 'left') : down > 0 ? 'below' : 'above';
        assert.equal(found, direction, `${second} from ${first}`);
    }

    /** The inner one ends so many pixels before the outer one at the most. */
    async endsWith(role, outer, inner, pixels) {
        const [out, within] = await this.boxes(role, outer, inner);
        const below = out.y + out.height - within.y - within.height;
        assert.ok(below < pixels, `there are ${below} pixels below ${inner}`);
    }

    async measures(name, ranges) {
        const [box] = await this.boxes('button', name);
        for (const [side, [least, most]] of Object.entries(ranges)) {
            assert.ok(box[side] >= least && box[side] <= most, `${name}: ${side} ${box[side]}`);
        }
    }
}

/** A user at one page of the gallery. */
function visits(name, story, play) {
    inEach(everyEngine, `${name}: ${story}`, async (browser) => {
        const faults = [];
        const visit = await Visit.to(browser, name, faults);
        try {
            await play(visit, visit.page);
        } finally {
            await visit.page.context().close();
        }
        assert.deepEqual(faults, []);
    });
}

const stories = JSON.parse(readFileSync(new URL('gallery.json', import.meta.url), 'utf8'));

for (const { page, story, steps } of stories) {
    visits(page, story, (visit) => play(visit, steps));
}

visits('Windows', 'moved and sized by pointer and by keys', async (visit, page) => {
    await visit.push('Open it');
    const second = visit.named('dialog', 'Second window');
    const styled = (style) =>
        page.locator(`[aria-label="Second window"][style*="${style}"]`).waitFor();
    await styled('left: ');
    const { x, y, width, height } = await second.boundingBox();
    const stands = ([left, top, wide, high]) => {
        const place = `left: ${x + left}px; top: ${y + top}px; width: ${width + wide}px`;
        return styled(`${place}; height: ${height + high}px`);
    };
    const drag = async (fromX, fromY, by) => {
        await page.mouse.move(fromX, fromY);
        await page.mouse.down();
        await page.mouse.move(fromX + by[0], fromY + by[1], { steps: 4 });
        await page.mouse.up();
    };
    await drag(x + 60, y + 20, [50, 30]);
    await drag(x + 50 + width - 2, y + 30 + height - 2, [40, 20]);
    await stands([50, 30, 40, 20]);
    await second.locator('.grip').press('ArrowRight');
    await second.locator('.grip').press('Control+ArrowDown');
    await second.locator('.grip').press('Shift+ArrowRight');
    await stands([66, 31, 56, 20]);
    await visit.push('Close it');
});

inEach(everyEngine, "a site's theme holds against the page's own looks", async (browser) => {
    const theme = pathInTree('examples/gallery/theme.css');
    const themed = await Program.start('gallery', '--theme', theme);
    const proxy = await CuttableProxy.before(themed);
    // Windows are measured with what the style sheets say, however late they come.
    proxy.held = { words: /\.css /, time: 700 };
    const faults = [];
    const visit = await Visit.to(browser, 'Buttons', faults, proxy);
    const looks = await visit.page.evaluate(() =>
        ['.bar', '.button', '.tab'].map((css) => {
            const { height, borderRadius, borderWidth } = getComputedStyle(
                document.querySelector(css),
            );
            return [css === '.bar' ? height : '', borderRadius, borderWidth].join();
        }),
    );
    const top = await visit.named('dialog', 'Gallery').evaluate(({ style }) => style.top);
    await visit.page.context().close();
    await proxy.end();
    await themed.end();
    assert.match(top, /px$/);
    assert.deepEqual(looks, ['38px,0px,0px 0px 2px', ',0px,2px', ',0px,2px']);
    assert.deepEqual(faults, []);
});

/** What stands beyond the edges of the window, left or right. */
function beyond(body) {
    const { left, right } = body.getBoundingClientRect();
    const isBeyond = (box) => box.left < left || box.right > right;
    return [...body.querySelectorAll('[data-type]')]
        .filter((element) => element.checkVisibility())
        .filter((element) => isBeyond(element.getBoundingClientRect()))
        .map((element) => element.outerHTML);
}

visits(
    'Buttons',
    'on a narrow page nothing is cut off, in either direction',
    async (_visit, page) => {
        await page.setViewportSize({ width: 400, height: 800 });
        for (const tab of await page.getByRole('tab').all()) {
            await tab.click();
            for (const direction of ['ltr', 'rtl']) {
                await page.evaluate((dir) => (document.documentElement.dir = dir), direction);
                const found = await page.locator('.body').evaluate(beyond);
                assert.deepEqual(found, [], `${await tab.textContent()}, ${direction}`);
            }
        }
    },
);
