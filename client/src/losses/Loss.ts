import { asCount, asFlag, asText, isObject } from '../protocol/guards.ts';
import { Kind } from '../protocol/names.ts';
import { type Action, isDeed } from './action.ts';
import { asField, caption, type Field } from './field.ts';

/** Something that a user did in a session that is over, and that is perhaps nowhere else. */
export interface Loss {
    readonly field: Field;
    readonly what: Action['what'];
    readonly value: string;
    readonly times: number;
    /** The program had it; it is lost all the same if the program does not show it any more. */
    readonly confirmed: boolean;
    /** The user has put it back. */
    readonly isBack: boolean;
}

/** What was kept of a list; what does not read as a loss is left out. */
export function asLosses(stored: unknown): Loss[] {
    return (Array.isArray(stored) ? (stored as unknown[]) : []).flatMap((value) => {
        const field = isObject(value) ? asField(value['field']) : undefined;
        if (!isObject(value) || field === undefined || !isDeed(value['what'])) {
            return [];
        }
        const loss: Loss = {
            field,
            what: value['what'],
            value: asText(value['value']) ?? '',
            times: asCount(value['times']) ?? 1,
            confirmed: asFlag(value['confirmed']) ?? false,
            isBack: asFlag(value['isBack']) ?? false,
        };
        return [loss];
    });
}

/** Whether the user gave a text that can be copied. */
export function holdsText(loss: Loss): boolean {
    return loss.what === 'typed' || loss.what === 'chosen';
}

export function canBePutBack(loss: Loss): boolean {
    return holdsText(loss) || loss.what === 'toggled';
}

/** What was done, where the list does not show a text. */
export function deed(loss: Loss): string {
    const times = loss.times > 1 ? `, ${loss.times} times` : '';
    switch (loss.what) {
        case 'typed':
            return loss.value === '' ? 'emptied' : 'typed';
        case 'chosen':
            return 'chosen';
        case 'toggled':
            return loss.value === 'true' ? 'switched on' : 'switched off';
        case 'pressed':
            return `pressed${times}`;
        case 'turned':
            return 'another page chosen';
        case 'closedTab':
            return 'a page to be closed';
        case 'closed':
            return loss.field.kind === Kind.dialog ? 'to be closed' : 'closed';
    }
}

/** The whole list as one text. */
export function asPlainText(losses: readonly Loss[]): string {
    const lines = losses.map((loss) => {
        const text = holdsText(loss) && loss.value !== '' ? loss.value : deed(loss);
        return `${caption(loss.field)}: ${text}`;
    });
    return lines.join('\n');
}
