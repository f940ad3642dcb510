import { happened } from '../../protocol/events.ts';
import { Event, Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { enableControl, prototypeOf } from '../base.ts';
import { prepareField, showText, typingEvents } from '../edit/typing.ts';
import { nameByNeighbour, namingAppliers } from '../naming.ts';
import type { WidgetHost, WidgetKind } from '../WidgetKind.ts';
import { ChoiceList } from './ChoiceList.ts';
import { currentItem, selectByText, tellSelected } from './selection.ts';

const prototype = prototypeOf('span', 'combo editable', Kind.comboBox);
const field = document.createElement('input');
prepareField(field);
field.setAttribute('role', 'combobox');
field.setAttribute('aria-autocomplete', 'none');
field.setAttribute('aria-haspopup', 'listbox');
field.setAttribute('aria-expanded', 'false');
const opener = document.createElement('button');
opener.type = 'button';
opener.className = 'opener';
opener.tabIndex = -1;
opener.setAttribute('aria-label', 'Show the list');
prototype.append(field, opener);

function fieldOf(element: HTMLElement): HTMLInputElement {
    return element.firstChild as HTMLInputElement;
}

const typing = typingEvents(fieldOf);

/**
 * The box's own text, else the current item's, which may come later than the index. The program
 * does not know that it has become the text, so it is told, as soon as there is such an item.
 */
function show(element: HTMLElement, object: StoredObject, host: WidgetHost): void {
    const { text = currentItem(object), currentindex = -1 } = object.values;
    const follows = object.values.text === undefined;
    showText(fieldOf(element), text, object, host);
    const isNews = follows && (text !== '' || (currentindex < 0 && element.isConnected));
    if (isNews || object.isMistaken) {
        object.isMistaken = false;
        const message = happened(object.id, Event.textShown, { value: text });
        host.tell(object, message, { text }, true);
    }
}

/** A list's item took the place of what was typed, so there is no typing to finish any more. */
function take(
    element: HTMLElement,
    object: StoredObject,
    index: number | undefined,
    host: WidgetHost,
): void {
    if (index !== undefined) {
        host.edits.close(object.id);
        tellSelected(object, index, host);
        fieldOf(element).value = object.values.text ?? '';
    }
}

/** Answers whether the key was for the list. */
function moveInList(element: HTMLElement, object: StoredObject, event: KeyboardEvent): boolean {
    const steps: Readonly<Record<string, number>> = {
        ArrowDown: 1,
        ArrowUp: -1,
        ...(ChoiceList.of(element) && { PageDown: 10, PageUp: -10 }),
    };
    const step = steps[event.key];
    if (step === undefined || event.ctrlKey || event.metaKey || event.shiftKey) {
        return false;
    }
    const list = ChoiceList.of(element);
    const opened = list ?? ChoiceList.open(element, fieldOf(element), object);
    if (list !== undefined || (!event.altKey && opened?.active === undefined)) {
        opened?.move(step);
    }
    return true;
}

function pressed(
    object: StoredObject,
    element: HTMLElement,
    event: KeyboardEvent,
    host: WidgetHost,
): void {
    const list = ChoiceList.of(element);
    const choosing = event.key === 'Enter' || (event.altKey && event.key === 'ArrowUp');
    if (event.isComposing) {
        return;
    }
    if (list !== undefined && choosing && list.active !== undefined) {
        event.preventDefault();
        list.close();
        take(element, object, list.active, host);
    } else if (list !== undefined && (event.key === 'Escape' || choosing)) {
        event.preventDefault();
        list.close();
    } else if (moveInList(element, object, event)) {
        event.preventDefault();
    } else {
        typing.keydown(object, element, event, host);
    }
}

function clicked(
    object: StoredObject,
    element: HTMLElement,
    target: Element,
    host: WidgetHost,
): void {
    const list = ChoiceList.of(element);
    const choice = list?.indexOf(target);
    if (choice !== undefined) {
        list?.close();
        take(element, object, choice, host);
    } else if (target.closest('.opener')) {
        if (list !== undefined) {
            list.close();
        } else {
            ChoiceList.open(element, fieldOf(element), object);
        }
    }
}

/** A field to type in with a list to choose from. */
export const editableBox: WidgetKind = {
    type: Kind.comboBox,
    prototype,
    control: fieldOf,
    nameAfter: (element, object, previous) =>
        nameByNeighbour(fieldOf(element), object, previous, 'Choice'),
    appliers: {
        ...namingAppliers(fieldOf),
        enable: (element, enabled) => {
            enableControl(fieldOf(element), enabled);
            enableControl(element.lastElementChild as HTMLElement, enabled);
            element.toggleAttribute('data-disabled', !enabled);
        },
        text: (element, _text, object, host) => show(element, object, host),
        entries: (element, _entries, object, host) => {
            show(element, object, host);
            ChoiceList.of(element)?.show(object);
        },
        currentindex: (element, _index, object, host) => show(element, object, host),
        select: (element, text, object, host) => {
            if (selectByText(element, text, object, host)) {
                show(element, object, host);
            }
        },
    },
    events: {
        ...typing,
        keydown: pressed,
        click: (object, element, event, host) => {
            clicked(object, element, event.target as Element, host);
        },
        focusout: (object, element, event, host) => {
            if (!element.contains(event.relatedTarget as Node | null)) {
                ChoiceList.of(element)?.close();
                typing.focusout(object, element, event, host);
            }
        },
    },
};
