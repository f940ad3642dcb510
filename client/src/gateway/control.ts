import { asCount, isObject, parseJson } from '../protocol/guards.ts';

/** The first frame of every connection: what became of the session that the page asked for. */
export type Greeting =
    | { readonly session: 'new' }
    | { readonly session: 'resumed'; readonly received: number }
    | { readonly session: 'lost' };

export function decodeGreeting(text: string): Greeting | undefined {
    const message = parseJson(text);
    if (!isObject(message)) {
        return undefined;
    }
    const received = asCount(message['received']);
    switch (message['session']) {
        case 'new':
            return { session: 'new' };
        case 'resumed':
            return received === undefined ? undefined : { session: 'resumed', received };
        case 'lost':
            return { session: 'lost' };
        default:
            return undefined;
    }
}
