import { happened } from '../../protocol/events.ts';
import { Event } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import type { WidgetHost } from '../WidgetKind.ts';

/** The text of the current item; empty when there is none. */
export function currentItem(object: StoredObject): string {
    return object.values.entries?.[object.values.currentindex ?? -1] ?? '';
}

/** The user chose an item. */
export function tellSelected(object: StoredObject, index: number, host: WidgetHost): void {
    const text = object.values.entries?.[index] ?? '';
    const message = happened(object.id, Event.onSelectionChange, { index, value: text });
    host.tell(object, message, { currentindex: index, text });
}

/**
 * The program wants the item of this text chosen, as a user would: it does not say which one
 * that is, so it is told. It is done once, on an element that is there: showing the object again does not repeat it.
 */
export function selectByText(
    element: HTMLElement,
    text: string,
    object: StoredObject,
    host: WidgetHost,
): boolean {
    delete object.values.select;
    const index = object.values.entries?.indexOf(text) ?? -1;
    const selected = index >= 0 && element.isConnected;
    if (selected) {
        tellSelected(object, index, host);
    }
    return selected;
}
