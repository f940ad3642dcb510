import { happened } from '../../protocol/events.ts';
import { Event, Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import type { WidgetEvents, WidgetHost } from '../WidgetKind.ts';
import { caretIn } from './caret.ts';

/** What can be typed stays within one frame of the gateway, whatever the script. */
const LONGEST_TYPED = 200_000;

/** A field as every kind that takes text has it. */
export function prepareField(input: HTMLInputElement): void {
    input.type = 'text';
    input.maxLength = LONGEST_TYPED;
    input.autocomplete = 'off';
    input.spellcheck = false;
}

/** Shows a text of the program around the caret; one that is being composed is not disturbed. */
export function showText(
    input: HTMLInputElement,
    text: string,
    object: StoredObject,
    host: WidgetHost,
): void {
    if (!input.isConnected) {
        // Nobody has typed yet. For ten thousand fields this takes a third of the time of `value`.
        input.defaultValue = text;
        input.setSelectionRange(text.length, text.length);
        return;
    }
    const { value, selectionStart, selectionEnd, selectionDirection } = input;
    if (value === text || host.edits.isComposing(object.id)) {
        return;
    }
    input.value = text;
    if (document.activeElement === input) {
        const start = caretIn(value, selectionStart ?? 0, text);
        const end = caretIn(value, selectionEnd ?? 0, text);
        input.setSelectionRange(start, end, selectionDirection ?? 'none');
    }
}

function tellTyped(input: HTMLInputElement, object: StoredObject, host: WidgetHost): void {
    const text = input.value;
    if (text !== object.values.text) {
        host.edits.open(object.id);
        host.tell(object, happened(object.id, Event.onEdit, { value: text }), { text });
    }
}

function finishTyping(input: HTMLInputElement, object: StoredObject, host: WidgetHost): void {
    const text = input.value;
    host.edits.close(object.id);
    const message = happened(object.id, Event.onEditFinish, { value: text });
    if (object.type === Kind.comboBox) {
        host.tell(object, message, { text });
    } else {
        // The program has taken it over already, and may have answered with another text since.
        host.send(object, message);
    }
}

/** What the program said meanwhile is outdated only if something was typed. */
function endComposition(input: HTMLInputElement, object: StoredObject, host: WidgetHost): void {
    if (input.value !== host.edits.endComposition(object.id)) {
        tellTyped(input, object, host);
    } else {
        showText(input, object.values.text ?? '', object, host);
    }
}

/** What a field tells. Composed input (IME) is told when the composition is done. */
export function typingEvents(
    fieldOf: (element: HTMLElement) => HTMLInputElement,
): Required<
    Pick<WidgetEvents, 'input' | 'compositionstart' | 'compositionend' | 'keydown' | 'focusout'>
> {
    return {
        input: (object, element, event, host) => {
            if (!(event as InputEvent).isComposing) {
                tellTyped(fieldOf(element), object, host);
            }
        },
        compositionstart: (object, element, _event, host) => {
            host.edits.beginComposition(object.id, fieldOf(element).value);
        },
        compositionend: (object, element, _event, host) => {
            endComposition(fieldOf(element), object, host);
        },
        keydown: (object, element, event, host) => {
            if (event.key === 'Enter' && !event.isComposing) {
                finishTyping(fieldOf(element), object, host);
                host.pressDefault(object);
            }
        },
        focusout: (object, element, _event, host) => {
            if (element.isConnected && host.edits.isOpen(object.id)) {
                finishTyping(fieldOf(element), object, host);
            }
        },
    };
}
