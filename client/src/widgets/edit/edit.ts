import { edited, editFinished } from '../../protocol/events.ts';
import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { baseAppliers, enableControl, prototypeOf } from '../base.ts';
import type { WidgetHost, WidgetKind } from '../WidgetKind.ts';

/** What can be typed stays within one frame of the gateway, whatever the script. */
const LONGEST_TYPED = 200_000;

const prototype = prototypeOf('input', 'edit', Kind.edit);
prototype.type = 'text';
prototype.maxLength = LONGEST_TYPED;
prototype.autocomplete = 'off';
prototype.spellcheck = false;

/** Shows the text; a caret at the end stays at the end, any other keeps its place. */
function show(input: HTMLInputElement, text: string): void {
    if (document.activeElement !== input) {
        input.value = text;
        return;
    }
    const atEnd = input.selectionStart === input.value.length;
    const start = atEnd ? text.length : (input.selectionStart ?? 0);
    const end = atEnd ? text.length : (input.selectionEnd ?? 0);
    input.value = text;
    input.setSelectionRange(start, end);
}

function showIfAccepted(
    input: HTMLInputElement,
    text: string,
    object: StoredObject,
    host: WidgetHost,
): void {
    const edit = host.edits.find(object.id);
    const focused = document.activeElement === input;
    if (input.isConnected && edit !== undefined && !edit.accepts(text, focused, Date.now())) {
        object.values.text = input.value;
    } else if (input.value !== text) {
        show(input, text);
    }
}

function tellTyped(input: HTMLInputElement, object: StoredObject, host: WidgetHost): void {
    object.values.text = input.value;
    host.edits.of(object.id).sent(input.value, Date.now());
    host.send(object, edited(object.id, input.value));
}

function finish(input: HTMLInputElement, object: StoredObject, host: WidgetHost): void {
    host.edits.of(object.id).finish();
    host.send(object, editFinished(object.id, input.value));
}

/**
 * A field that neither a label, a tooltip nor a placeholder names is named by the text that stands
 * before it, as the eye reads it, unless that text is another control's.
 */
function nameAfter(
    element: HTMLElement,
    object: StoredObject,
    previous: Element | undefined,
): void {
    if (element.id !== '' || object.values.tooltip || object.values.placeholder) {
        return;
    }
    const text = previous instanceof HTMLLabelElement ? previous : undefined;
    if (text?.dataset['type'] === Kind.text && !text.hasAttribute('for')) {
        text.id ||= `text-${text.dataset['id']}`;
        element.setAttribute('aria-labelledby', text.id);
    } else {
        element.setAttribute('aria-label', object.values.objectName || 'Text field');
    }
}

/** A single line to type in. Composed input (IME) is told when the composition is done. */
export const edit: WidgetKind = {
    type: Kind.edit,
    prototype,
    nameAfter,
    appliers: {
        ...baseAppliers,
        enable: enableControl,
        text: (element, text, object, host) => {
            showIfAccepted(element as HTMLInputElement, text, object, host);
        },
        placeholder: (element, placeholder) => {
            (element as HTMLInputElement).placeholder = placeholder;
            element.removeAttribute('aria-label');
        },
        tooltip: (element, tooltip, object, host) => {
            baseAppliers.tooltip?.(element, tooltip, object, host);
            element.removeAttribute('aria-label');
        },
    },
    events: {
        input: (object, element, event, host) => {
            if ((event as InputEvent).isComposing) {
                host.edits.of(object.id).begin();
            } else {
                tellTyped(element as HTMLInputElement, object, host);
            }
        },
        compositionstart: (object, _element, _event, host) => host.edits.of(object.id).begin(),
        compositionend: (object, element, _event, host) => {
            if ((element as HTMLInputElement).value !== object.values.text) {
                tellTyped(element as HTMLInputElement, object, host);
            }
        },
        keydown: (object, element, event, host) => {
            if (event.key === 'Enter' && !event.isComposing) {
                finish(element as HTMLInputElement, object, host);
                host.pressDefault(object);
            }
        },
        focusout: (object, element, _event, host) => {
            if (element.isConnected && host.edits.find(object.id)?.typing) {
                finish(element as HTMLInputElement, object, host);
            }
        },
    },
};
