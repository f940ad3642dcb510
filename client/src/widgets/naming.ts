import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { baseAppliers } from './base.ts';
import type { Appliers } from './WidgetKind.ts';

/** What names a control natively takes the place of the name that it had for want of one. */
export function namingAppliers(
    controlOf: (element: HTMLElement) => HTMLElement = (element) => element,
): Appliers {
    return {
        ...baseAppliers,
        tooltip: (element, tooltip, object, host) => {
            baseAppliers.tooltip?.(element, tooltip, object, host);
            baseAppliers.tooltip?.(controlOf(element), tooltip, object, host);
            controlOf(element).removeAttribute('aria-label');
        },
        placeholder: (element, placeholder) => {
            (controlOf(element) as HTMLInputElement).placeholder = placeholder;
            controlOf(element).removeAttribute('aria-label');
        },
    };
}

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
