import { type Description, decodeDescription } from './description.ts';
import { asId, asText, isObject, type JsonObject, parseJson } from './guards.ts';
import { decodeMessageBox, type MessageBox } from './messagebox.ts';
import { COMMAND_CLOSE, Key, MessageType } from './names.ts';

/** Down, window channel: the state of an object and all below it, to show in place of the old. */
export interface Refresh {
    /** 0: not told, or none. */
    readonly parentId: number;
    readonly description: Description;
}

/**
 * Writes to objects, each as it was parsed: a burst of ten thousand is taken over without a copy
 * of each. What is no write among them is for the reader to drop.
 */
type WindowMessage =
    | { readonly kind: 'writes'; readonly writes: readonly unknown[] }
    | { readonly kind: 'refresh'; readonly refresh: Refresh }
    | { readonly kind: 'messageBox'; readonly box: MessageBox };

/** Reads a text of a window channel; undefined when it says nothing that the page understands. */
export function decodeWindowMessage(text: string): WindowMessage | undefined {
    const message = parseJson(text);
    if (Array.isArray(message)) {
        return { kind: 'writes', writes: message };
    }
    if (!isObject(message)) {
        return undefined;
    }
    if (message[Key.msgType] === MessageType.refresh) {
        return decodeRefresh(message);
    }
    if (asText(message[Key.type]) === MessageType.messageBox) {
        return { kind: 'messageBox', box: decodeMessageBox(message) };
    }
    return { kind: 'writes', writes: [message] };
}

function decodeRefresh(message: JsonObject): WindowMessage | undefined {
    const description = decodeDescription(message);
    const parentId = asId(message[Key.parentId]) ?? 0;
    return description && { kind: 'refresh', refresh: { parentId, description } };
}

/** Whether a write asks that the object be gone. */
export function asksToClose(write: JsonObject): boolean {
    return write[Key.command] === COMMAND_CLOSE;
}
