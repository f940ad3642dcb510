import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';

/**
 * A control that neither a label, a tooltip nor a placeholder names is named by the text that
 * stands before it, as the eye reads it, unless that text is another control's.
 */
export function nameByNeighbour(
    control: HTMLElement,
    object: StoredObject,
    previous: Element | undefined,
    otherwise: string,
): void {
    const { tooltip, objectName } = object.values;
    if (control.id !== '' || tooltip || (control as Partial<HTMLInputElement>).placeholder) {
        return;
    }
    const text = previous instanceof HTMLLabelElement ? previous : undefined;
    if (text?.dataset['type'] === Kind.text && !text.hasAttribute('for')) {
        text.id ||= `text-${text.dataset['id']}`;
        control.setAttribute('aria-labelledby', text.id);
    } else {
        control.setAttribute('aria-label', objectName || otherwise);
    }
}
