import { parseChannel } from '../gateway/channel.ts';
import type { FrameRecord } from '../gateway/frame.ts';
import { asId, asText, isObject, parseJson } from '../protocol/guards.ts';
import { Event, LifeCycle, Up } from '../protocol/names.ts';

const given = ['typed', 'toggled', 'chosen'] as const;
const deeds = [...given, 'pressed', 'turned', 'closedTab', 'closed'] as const;
type Deed = (typeof deeds)[number];

/** What a user did to an object; texts, ticks and choices give it a value. */
export interface Action {
    readonly id: number;
    readonly what: Deed;
    readonly value: string;
    readonly times: number;
}

export function isDeed(value: unknown): value is Deed {
    return deeds.some((deed) => deed === value);
}

/** Whether the action's value replaces the one that was given before. */
export function isGiven(action: Action): boolean {
    return given.some((deed) => deed === action.what);
}

const deedOf: ReadonlyMap<unknown, Deed> = new Map([
    [Event.onEdit, 'typed'],
    [Event.onEditFinish, 'typed'],
    [Event.onToggle, 'toggled'],
    [Event.onSelectionChange, 'chosen'],
    [Event.onClick, 'pressed'],
    [Event.tabchanged, 'turned'],
    [Event.close, 'closedTab'],
]);

/** Reads what this page has sent on a window's channel; undefined for what no user did. */
export function readAction(text: string): Action | undefined {
    const message = parseJson(text);
    const id = isObject(message) ? asId(message[Up.id]) : undefined;
    const what = isObject(message) ? deedOf.get(message[Up.event]) : undefined;
    if (!isObject(message) || id === undefined || what === undefined) {
        return undefined;
    }
    const value = message[Up.value] ?? message[Up.newIndex] ?? '';
    return { id, what, value: String(value), times: 1 };
}

function closedWindow(text: string): Action | undefined {
    const message = parseJson(text);
    const id = isObject(message) ? asId(asText(message[LifeCycle.dialogDestroyed])) : undefined;
    return id === undefined ? undefined : { id, what: 'closed', value: '', times: 1 };
}

/** What a user did, of the records that a page has sent: of each value only the last. */
export function actionsIn(records: readonly FrameRecord[]): readonly Action[] {
    const actions = new Map<string, Action>();
    for (const { channel, text } of records) {
        const { kind } = parseChannel(channel) ?? { kind: 'root' };
        const action =
            kind === 'window' ? readAction(text) : kind === 'client' && closedWindow(text);
        if (action) {
            const key = `${action.id} ${isGiven(action) ? 'given' : action.what} ${
                action.what === 'closedTab' ? action.value : ''
            }`;
            const times = (actions.get(key)?.times ?? 0) + 1;
            actions.delete(key);
            actions.set(key, { ...action, times });
        }
    }
    return [...actions.values()];
}
