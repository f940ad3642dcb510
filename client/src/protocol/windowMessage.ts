import { decodeDescription, type Description } from './description.ts';
import { asId, asText, isObject, parseJson, type JsonObject } from './guards.ts';
import { decodeMessageBox, type MessageBox } from './messagebox.ts';
import { COMMAND_CLOSE, Key, MessageType } from './names.ts';
import { readProperties, type PartialValues, type Trigger } from './properties.ts';

/** Down, window channel: writes to one object. */
export interface PropertyWrite {
    readonly id: number;
    readonly values: PartialValues;
    readonly triggers: readonly Trigger[];
    readonly close: boolean;
}

/** Down, window channel: the state of an object and all below it, to show in place of the old. */
export interface Refresh {
    /** 0: not told, or none. */
    readonly parentId: number;
    readonly description: Description;
}

export type WindowMessage =
    | { readonly kind: 'writes'; readonly writes: readonly PropertyWrite[] }
    | { readonly kind: 'refresh'; readonly refresh: Refresh }
    | { readonly kind: 'messageBox'; readonly box: MessageBox };

/** Reads a text of a window channel; undefined when it says nothing that the page understands. */
export function decodeWindowMessage(text: string): WindowMessage | undefined {
    const message = parseJson(text);
    if (Array.isArray(message)) {
        return { kind: 'writes', writes: decodeWrites(message) };
    }
    if (!isObject(message)) {
        return undefined;
    }
    if (message[Key.messageType] === MessageType.refresh) {
        return decodeRefresh(message);
    }
    if (asText(message[Key.type]) === MessageType.messageBox) {
        return { kind: 'messageBox', box: decodeMessageBox(message) };
    }
    const write = decodeWrite(message);
    return write && { kind: 'writes', writes: [write] };
}

function decodeRefresh(message: JsonObject): WindowMessage | undefined {
    const description = decodeDescription(message);
    const parentId = asId(message[Key.parentId]) ?? 0;
    return description && { kind: 'refresh', refresh: { parentId, description } };
}

function decodeWrites(list: readonly unknown[]): readonly PropertyWrite[] {
    const writes: PropertyWrite[] = [];
    for (const item of list) {
        const write = decodeWrite(item);
        if (write !== undefined) {
            writes.push(write);
        }
    }
    return writes;
}

function decodeWrite(value: unknown): PropertyWrite | undefined {
    const id = isObject(value) ? asId(value[Key.id]) : undefined;
    if (!isObject(value) || id === undefined) {
        return undefined;
    }
    const values: PartialValues = {};
    const triggers = readProperties(value, values, false);
    return { id, values, triggers, close: value[Key.command] === COMMAND_CLOSE };
}
