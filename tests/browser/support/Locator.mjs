/** An expression as what it can be made of again in the page, anything else as it is. */
function plain(text) {
    return text instanceof RegExp ? { source: text.source, flags: text.flags } : text;
}

/** What can look for elements: a page in all of it, a locator below its own elements. */
export class Scope {
    m_steps = [];

    getByRole = (role, { name, exact, ...state } = {}) =>
        this.m_with({ by: 'role', role, text: name, exact, state });
    getByLabel = (text, { exact } = {}) => this.m_with({ by: 'label', text, exact });
    getByText = (text, { exact } = {}) => this.m_with({ by: 'text', text, exact });
    locator = (css, filter = {}) => this.m_with({ by: 'css', css }).filter(filter);

    m_with(step) {
        return new Locator(this.page, [...this.m_steps, { ...step, text: plain(step.text) }]);
    }
}

/** Elements of a page of WebKit, looked for anew by every operation. */
class Locator extends Scope {
    constructor(page, steps) {
        super();
        this.page = page;
        this.m_steps = steps;
    }

    // Which of them.

    filter = ({ hasText, has, visible }) =>
        this.m_with({ by: 'filter', text: hasText, has: has?.m_steps, visible });
    nth = (nth) => this.m_with({ nth });
    first = () => this.nth(0);
    last = () => this.nth(-1);

    async all() {
        return Array.from({ length: await this.count() }, (_, index) => this.nth(index));
    }

    // What they are. All but waitFor() and isVisible() wait for the only one.

    waitFor = ({ state = 'visible', timeout } = {}) =>
        this.page.ask((page, ...args) => page.until(...args), this.m_steps, state, timeout);
    isVisible = () =>
        this.page.ask((page, steps) => page.all(steps).some(page.isVisible), this.m_steps);
    evaluate = (read, argument) =>
        this.page.ask(
            `async (page, steps, argument) => (${read})(await page.one(steps), argument)`,
            this.m_steps,
            argument,
        );
    count = () => this.page.ask((page, steps) => page.all(steps).length, this.m_steps);
    getAttribute = (name) => this.evaluate((element, of) => element.getAttribute(of), name);
    textContent = () => this.evaluate((element) => element.textContent);
    inputValue = () => this.evaluate((element) => element.value);
    isChecked = () => this.evaluate((element) => element.checked);
    boundingBox = () => this.evaluate((element) => element.getBoundingClientRect().toJSON());
    m_point = (timeout) =>
        this.page.ask((page, ...args) => page.pointOf(...args), this.m_steps, timeout);

    // What is done with the only one.

    async click({ timeout, trial = false } = {}) {
        const { x, y } = await this.m_point(timeout);
        if (!trial) {
            await this.page.mouse.click(x, y);
        }
    }

    focus = () => this.evaluate((element) => element.focus());

    /** Types over what is there. */
    async fill(text) {
        await this.click();
        await this.page.keyboard.press('Control+A');
        await (text === '' ? this.page.keyboard.press('Delete') : this.page.keyboard.type(text));
    }

    async press(keys) {
        await this.focus();
        await this.page.keyboard.press(keys);
    }

    async pressSequentially(text) {
        await this.focus();
        await this.page.keyboard.type(text);
    }

    async setChecked(isChecked) {
        if ((await this.isChecked()) !== isChecked) {
            await this.click();
            await this.page.ask(
                (page, ...args) => page.untilChecked(...args),
                this.m_steps,
                isChecked,
            );
        }
    }

    /** The item with this text; the driver chooses it as if it were clicked in the list. */
    async selectOption(text) {
        await this.m_point();
        const option = this.locator('option').filter({ hasText: new RegExp(`^${text}$`) });
        await this.page.clickItem(option.m_steps);
    }
}
