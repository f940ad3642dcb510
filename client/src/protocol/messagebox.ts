import { asText, type JsonObject } from './guards.ts';
import { Key, LEVELS } from './names.ts';

export type Level = (typeof LEVELS)[number];

/** Down, window channel: something to tell the user. */
export interface MessageBox {
    readonly level: Level;
    readonly title: string;
    readonly body: string;
    readonly modal: boolean;
}

const YES = new Set(['true', '1', 'yes', 'on']);

/** Level and mode are free text of the program: what is not known is information, not modal. */
export function decodeMessageBox(message: JsonObject): MessageBox {
    const level = asText(message[Key.level])?.trim().toLowerCase();
    const modal = message[Key.modal];
    return {
        level: LEVELS.find((known) => known === level) ?? LEVELS[0],
        title: asText(message[Key.title]) ?? '',
        body: asText(message[Key.body]) ?? '',
        modal: modal === true || YES.has(asText(modal)?.trim().toLowerCase() ?? ''),
    };
}
