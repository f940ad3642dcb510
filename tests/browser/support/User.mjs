import assert from 'node:assert/strict';

/** A user in front of a page; what they do and see are the words of stories. */
export class User {
    constructor(page) {
        this.page = page;
    }

    named = (role, name, state) => this.page.getByRole(role, { name, exact: true, ...state });
    /** By its label, or by `{css}`. */
    field = (name) =>
        name.css === undefined
            ? this.page.getByLabel(name, { exact: true })
            : this.page.locator(name.css);
    boxes = (role, ...names) =>
        Promise.all(names.map((name) => this.named(role, name).boundingBox()));

    // What they do.

    click = (role, name) => this.named(role, name).click();
    clickText = (role, name, text) =>
        this.named(role, name).getByText(text, { exact: true }).click();
    push = (name) => this.click('button', name);
    fill = (name, text) => this.field(name).fill(text);
    check = (name, isChecked) => this.field(name).setChecked(isChecked);
    choose = (name, item) => this.named('combobox', name).selectOption(item);
    press = (name, keys) => this.field(name).press(keys);
    keys = (keys) => this.page.keyboard.press(keys);
    type = (text) => this.page.keyboard.type(text);
    reload = () => this.page.reload();

    // What they see, once it is there.

    shows = (role, name, state) => this.named(role, name, state).waitFor();
    hides = (role, name) => this.named(role, name).waitFor({ state: 'hidden' });
    holds = (role, name, css) => this.named(role, name).locator(css).waitFor();
    says = (role, name, text) => this.named(role, name).getByText(new RegExp(text)).waitFor();
    finds = (css, hasText) => this.page.locator(css).filter({ hasText }).waitFor();
    reads = (text, exact) => this.page.getByText(text, { exact }).waitFor();
    /** All items of a combo box. */
    lists = (name, items) =>
        this.named('combobox', name).getByText(items.join(''), { exact: true }).waitFor();

    /** The item that a combo box shows. */
    chosen(name, item) {
        const option = this.named('combobox', name).locator('option:checked');
        return option.filter({ hasText: item }).waitFor({ state: 'attached' });
    }

    // What they see at once.

    async has(name, text) {
        assert.equal(await this.field(name).inputValue(), text);
    }

    async hasNot(name, text) {
        assert.notEqual(await this.field(name).inputValue(), text);
    }

    async lacks(text) {
        assert.equal(await this.page.getByText(text).count(), 0, text);
    }

    async isChecked(name, isChecked) {
        assert.equal(await this.field(name).isChecked(), isChecked);
    }

    async counts(css, number) {
        assert.equal(await this.page.locator(css).count(), number, css);
    }
}
