import assert from 'node:assert/strict';
import { after, before } from 'node:test';
import { openTab } from '../../client/test/support/chromium.mjs';
import { everyEngine, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';

let program;
before(async () => {
    program = await Program.start('gallery');
});
after(async () => {
    assert.equal(await program.end(), 0);
    assert.equal(program.errors, '');
});

/** The gallery in front of somebody who has turned to one of its pages. */
class Visit {
    static async to(browser, name, faults) {
        const context = await browser.newContext({ viewport: { width: 900, height: 760 } });
        const page = await openTab(context, faults);
        page.on('console', (message) => message.type() === 'error' && faults.push(message.text()));
        await page.goto(program.address);
        await page.getByRole('tab', { name, exact: true }).click();
        return new Visit(page);
    }

    constructor(page) {
        this.page = page;
    }

    named(role, name, state) {
        return this.page.getByRole(role, { name, exact: true, ...state });
    }

    field(label) {
        return this.page.getByLabel(label, { exact: true });
    }

    async push(...names) {
        for (const name of names) {
            await this.named('button', name).click();
        }
    }

    /** The program says that this happened last. */
    async hears(event) {
        const latest = new RegExp(`^\\d+\\. ${event.replace(/[^\w ]/g, '\\$&')}\\s`);
        await this.page.locator('.text').filter({ hasText: latest }).waitFor();
    }

    /** The item that a combo box shows. */
    async chosen(label, item) {
        const option = this.field(label).locator('option:checked');
        await option.filter({ hasText: item }).waitFor({ state: 'attached' });
    }

    /** In which of the four directions the second button stands from the first one's middle. */
    async direction(first, second) {
        const [from, to] = await Promise.all([first, second].map((each) => each.boundingBox()));
        const across = to.x - from.x;
        const down = to.y - from.y;
        const isAcross = Math.abs(across) > Math.abs(down);
        return isAcross ? (across > 0 ? 'right' : 'left') : down > 0 ? 'below' : 'above';
    }
}

/** A visitor to one page of the gallery. */
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

visits('Buttons', 'they are pushed, stay down and are switched by both sides', async (visit) => {
    await visit.push('Apply');
    await visit.hears('Apply was clicked');
    assert.ok(await visit.named('button', 'Asleep').isDisabled());
    await visit.push('Wake it', 'Awake');
    await visit.hears('The sleeper was clicked');

    await visit.named('button', 'Print').locator('img[src*="printer.svg"]').waitFor();
    await visit.push('Swap the icons');
    await visit.named('button', 'Print').locator('img[src*="star.svg"]').waitFor();
    await visit.push('Favourite');
    await visit.hears('The star was clicked');

    await visit.named('button', 'Bold', { pressed: false }).click();
    await visit.hears('Bold is down');
    await visit.push('Put it up');
    await visit.named('button', 'Bold', { pressed: false }).waitFor();
    await visit.push('Put it down');
    await visit.named('button', 'Bold', { pressed: true }).click();
    await visit.hears('Bold is up');

    const weekly = 'Once a week is enough';
    await visit.named('checkbox', weekly, { checked: true, disabled: true }).waitFor();
    await visit.field('Send me news').check();
    await visit.hears('News are wanted');
    await visit.named('checkbox', weekly, { disabled: false }).uncheck();
    await visit.field('Send me news').uncheck();
    await visit.hears('News are not wanted');
    await visit.push('Check both');
    await visit.named('checkbox', weekly, { checked: true, disabled: false }).waitFor();
    await visit.named('checkbox', 'Send me news', { checked: true }).press('Enter');
    await visit.hears('Apply was clicked');
});

visits('Texts', 'what either side writes the other one goes on with', async (visit, page) => {
    const name = visit.field('Name');
    await name.fill('Lin');
    await visit.hears('Name: Lin');
    await name.press('Enter');
    await visit.hears('The name is Lin');
    await visit.push('Empty it', 'Fill in Grace', 'Go there');
    await page.locator('input:focus').waitFor();
    await page.keyboard.press('End');
    await page.keyboard.type('!');
    await visit.hears('Name: Grace!');
    await page.getByPlaceholder('What friends call you').fill('Al');
    await page.keyboard.press('Tab');
    await visit.hears('The nickname is Al');
    assert.ok(await visit.field('Account').isDisabled());

    await page.getByText('<b>Markup</b> is shown as it stands').waitFor();
    await visit.push('One star more', 'One star more');
    await page.getByText('***', { exact: true }).waitFor();
});

visits('Choices', 'items are chosen, typed, come and go', async (visit, page) => {
    await visit.chosen('Size', 'medium');
    await visit.field('Size').selectOption('large');
    await visit.hears('Size 2 is large');
    await visit.push('Next size');
    await visit.chosen('Size', 'small');

    const drink = page.getByPlaceholder('Choose, or type another one');
    await drink.press('Alt+ArrowDown');
    await visit.named('option', 'coffee').click();
    await visit.hears('Chosen: coffee');
    await drink.fill('milk');
    await visit.hears('Drink: milk');
    await drink.press('Enter');
    await visit.hears('The drink is milk');

    const guests = visit.field('Guests');
    const items = (...names) => guests.getByText(names.join(''), { exact: true });
    await visit.push('Append');
    await visit.field('New guest').fill('Li');
    await visit.push('Put first', 'How many?');
    await visit.hears('4 guests');
    await items('Li', 'Ada', 'Grace', 'Jana').waitFor();
    await guests.selectOption('Grace');
    await visit.hears('Guest: Grace');
    await visit.push('Remove');
    await visit.hears('Gone: Grace');
    await items('Li', 'Ada', 'Jana').waitFor();
    await visit.push('Clear', 'Append', 'How many?');
    await visit.hears('1 guests');
    await guests.selectOption('Li');
    await visit.hears('Guest: Li');
});

visits('Layouts', 'groups, rows, columns, grids and panels', async (visit, page) => {
    await visit.field('Its title').fill('Renamed');
    await visit.named('group', 'Renamed').waitFor();
    const [outer, inner] = await Promise.all(
        ['Group boxes', 'Renamed'].map((name) => visit.named('group', name).boundingBox()),
    );
    const below = outer.y + outer.height - inner.y - inner.height;
    assert.ok(below < 16, `there are ${below} pixels below the inner group`);
    await visit.field('Flat').check();
    await visit.hears('The group is flat');
    await page.locator('.group.flat', { hasText: 'Renamed' }).waitFor();

    const places = [
        ['Left 1', 'Middle 1', 'right'],
        ['Left 1', 'Left 2', 'below'],
        ['2', '3', 'right'],
        ['3', '6', 'below'],
        ['Yes', 'No', 'right'],
    ];
    for (const [first, second, direction] of places) {
        const [from, to] = [first, second].map((name) => visit.named('button', name));
        assert.equal(await visit.direction(from, to), direction, `${second} from ${first}`);
    }
    await visit.named('button', 'Spread').first().click();
    await page.locator('.box[style*="gap: 8px"]').waitFor();
    await visit.push('6');
    await visit.hears('Key 6');
    await visit.field('Disable the panel').check();
    await visit.named('button', 'Yes', { disabled: true }).waitFor();
    await visit.field('Disable the panel').uncheck();
    await visit.push('Yes');
    await visit.hears('Yes');
});

visits('Tabs', 'both sides turn pages, which come, go and change sides', async (visit, page) => {
    const [spring, summer, autumn] = ['Spring', 'Summer', 'Autumn'].map((name) =>
        visit.named('tab', name),
    );
    await summer.click();
    await visit.hears('It is Summer');
    await page.getByText('Summer has three months.').waitFor();
    await visit.push('Back to spring');
    await page.getByText('Spring has three months.').waitFor();
    for (const [side, order] of Object.entries({ left: 'below', right: 'below', above: 'right' })) {
        await visit.named('combobox', 'Tabs').selectOption(side);
        const orientation = order === 'below' ? 'vertical' : 'horizontal';
        await page.locator(`[aria-orientation=${orientation}]`, { has: spring }).waitFor();
        assert.equal(await visit.direction(spring, summer), order);
    }
    await visit.field('Enable summer').uncheck();
    await visit.named('tab', 'Summer', { disabled: true }).waitFor();
    await visit.field('Show autumn').uncheck();
    await autumn.waitFor({ state: 'hidden' });
    await visit.field('Show autumn').check();
    await autumn.click();
    await visit.hears('It is Autumn');

    await visit.named('tab', 'Document 1').getByTitle('Close').click();
    await visit.hears('Closed: Document 1');
    await page.getByText('This is Document 2.').waitFor();
    await visit.push('Open one more');
    await page.getByText('This is Document 3.').waitFor();
    await visit.named('tab', 'Document 2').click();
    await page.keyboard.press('Delete');
    await visit.hears('Closed: Document 2');
    await visit.named('tab', 'Document 3', { selected: true }).waitFor();
});

visits('Looks', 'state, tooltip, colours and sizes are the program\'s', async (visit, page) => {
    const sample = visit.named('button', 'Sample');
    await visit.field('Visible').uncheck();
    await sample.waitFor({ state: 'hidden' });
    await visit.field('Visible').check();
    await sample.waitFor();
    await visit.field('Enabled').uncheck();
    await visit.named('button', 'Sample', { disabled: true }).waitFor();
    await visit.field('Enabled').check();
    await visit.field('Tooltip').fill('Changed');
    await page.getByTitle('Changed', { exact: true }).waitFor();
    await visit.field('Colours').selectOption('sea');
    await page.locator('button[style*="rgb(0, 92, 138)"][style*="rgb(255, 255, 255)"]').waitFor();

    const sizes = [
        ['300 or wider', 'min-width: 300px', ({ width }) => width === 300],
        ['60 or higher', 'min-height: 60px', ({ height }) => height === 60],
        ['200 at most', 'max-width: 200px', ({ width }) => width <= 200],
        ['160 by 40', 'height: 40px', ({ width, height }) => width === 160 && height === 40],
    ];
    for (const [name, style, fits] of sizes) {
        await visit.push(name);
        await page.locator(`button[style*=" ${style}"]`).waitFor();
        const box = await sample.boundingBox();
        assert.ok(fits(box), `${name}: ${box.width} by ${box.height}`);
    }
    await visit.push('Sample');
    await visit.hears('The sample was clicked');
});

visits('Windows', 'a second one, modal or not, and message boxes', async (visit, page) => {
    await visit.push('Open it');
    await visit.named('dialog', 'Second window').waitFor();
    await visit.push('Close it');
    await visit.hears('The window is closed');
    await visit.push('Open it modal');
    await visit.hears('A modal window is open');
    await visit.field('Title').fill('Mine');
    const mine = visit.named('dialog', 'Mine');
    await mine.getByText('Maximize', { exact: true }).click();
    await mine.getByText(/^900 by \d+ pixels$/).waitFor();
    await mine.getByText('Restore', { exact: true }).click();
    await mine.getByText(/^[1-8]\d\d by \d+ pixels$/).waitFor();
    const { x, y } = await visit.named('button', 'Say it').boundingBox();
    await page.mouse.click(x + 2, y + 2);
    await visit.field('Refuse to close').check();
    await visit.field('Title').press('Escape');
    await visit.hears('The window refuses to close');
    await visit.field('Refuse to close').uncheck();
    await visit.field('Title').press('Escape');
    await visit.hears('The window is closed');
    assert.equal(await visit.page.getByRole('alertdialog').count(), 0, 'it was out of reach');

    for (const [level, isModal] of [['error', false], ['question', true]]) {
        await visit.field('Level').selectOption(level);
        await visit.field('Message').fill(`This is ${level}.`);
        await visit.field('Must be answered first').setChecked(isModal);
        await visit.push('Say it');
        const box = visit.named('alertdialog', 'From the gallery');
        await box.getByText(`This is ${level}.`).waitFor();
        assert.equal(await page.locator('dialog:modal').count(), isModal ? 1 : 0);
        await box.getByRole('button', { name: 'OK' }).click();
        await box.waitFor({ state: 'hidden' });
    }
});

visits('Work', 'a thread of its own tells how far it is', async (visit) => {
    await visit.push('Count primes');
    await visit.page.getByText('78498 primes below 1000000').waitFor();
    await visit.hears('All primes are counted');
});

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

for (const direction of ['ltr', 'rtl']) {
    visits('Buttons', `on a narrow page nothing is cut off, ${direction}`, async (visit, page) => {
        await page.setViewportSize({ width: 400, height: 800 });
        await page.evaluate((dir) => (document.documentElement.dir = dir), direction);
        for (const tab of await page.getByRole('tab').all()) {
            await tab.click();
            const beyond = await page.locator('.body').evaluate((body) => {
                const { left, right } = body.getBoundingClientRect();
                const isBeyond = (box) => box.left < left || box.right > right;
                return [...body.querySelectorAll('[data-type]')]
                    .filter((element) => element.checkVisibility())
                    .filter((element) => isBeyond(element.getBoundingClientRect()))
                    .map((element) => element.outerHTML);
            });
            assert.deepEqual(beyond, [], await tab.textContent());
        }
    });
}
