import { edited, editFinished } from '../../protocol/events.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import type { WidgetEvents, WidgetHost } from '../WidgetKind.ts';

/** What can be typed stays within one frame of the gateway, whatever the script. */
const LONGEST_TYPED = 200_000;

/** A field as every kind that takes text has it. */
export function prepareField(input: HTMLInputElement): void {
    input.type = 'text';
    input.maxLength = LONGEST_TYPED;
    input.autocomplete = 'off';
    input.spellcheck = false;
}

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

/** Shows a text of the program, unless it would overwrite what the person is typing. */
export function showIfAccepted(
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

export function finishTyping(
    input: HTMLInputElement,
    object: StoredObject,
    host: WidgetHost,
): void {
    host.edits.of(object.id).finish();
    host.send(object, editFinished(object.id, input.value));
}

/** What a field tells. Composed input (IME) is told when the composition is done. */
export function typingEvents(
    fieldOf: (element: HTMLElement) => HTMLInputElement,
): Required<
    Pick<WidgetEvents, 'input' | 'compositionstart' | 'compositionend' | 'keydown' | 'focusout'>
> {
    return {
        input: (object, element, event, host) => {
            if ((event as InputEvent).isComposing) {
                host.edits.of(object.id).begin();
            } else {
                tellTyped(fieldOf(element), object, host);
            }
        },
        compositionstart: (object, _element, _event, host) => host.edits.of(object.id).begin(),
        compositionend: (object, element, _event, host) => {
            if (fieldOf(element).value !== object.values.text) {
                tellTyped(fieldOf(element), object, host);
            }
        },
        keydown: (object, element, event, host) => {
            if (event.key === 'Enter' && !event.isComposing) {
                finishTyping(fieldOf(element), object, host);
                host.pressDefault(object);
            }
        },
        focusout: (object, element, _event, host) => {
            if (element.isConnected && host.edits.find(object.id)?.typing) {
                finishTyping(fieldOf(element), object, host);
            }
        },
    };
}
