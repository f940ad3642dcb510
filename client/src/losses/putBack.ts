import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { Action } from './action.ts';

type Value = Pick<Action, 'what' | 'value'>;

/** Whether the page shows the object with the value that the user gave it. */
export function shows(object: StoredObject, { what, value }: Value): boolean {
    const { text = '', checked = false, entries = [], currentindex = -1 } = object.values;
    switch (what) {
        case 'toggled':
            return String(checked) === value;
        case 'chosen':
            return object.type === Kind.comboBox && (entries[currentindex] ?? text) === value;
        default:
            return text === value;
    }
}

/** Whether the user could do something with it here and now. */
export function isUsable(control: HTMLElement): boolean {
    const modal = [...document.querySelectorAll(':modal')].at(-1);
    return (
        control.checkVisibility() &&
        !control.matches(':disabled') &&
        control.closest('[inert]') === null &&
        (modal?.contains(control) ?? true)
    );
}

/** Does what the user did, so that the program hears of it as it does from the user. */
export function putInto(control: HTMLElement, { what, value }: Value): void {
    control.focus();
    if (control instanceof HTMLSelectElement) {
        control.selectedIndex = [...control.options].findIndex(({ text }) => text === value);
        control.dispatchEvent(new Event('change', { bubbles: true }));
    } else if (what === 'toggled') {
        const box = control as Partial<HTMLInputElement>;
        const isOn = control.getAttribute('aria-pressed') ?? String(box.checked ?? false);
        if (isOn !== value) {
            control.click();
        }
    } else if (control instanceof HTMLInputElement) {
        control.value = value;
        control.dispatchEvent(new InputEvent('input', { bubbles: true }));
    }
}
