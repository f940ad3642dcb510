import { asCount, isObject, parseJson } from '../protocol/guards.ts';
import { Greeted, GreetingKey } from '../protocol/names.ts';

/** The first frame of every connection: what became of the session that the page asked for. */
type Greeting =
    | { readonly session: typeof Greeted.fresh }
    | { readonly session: typeof Greeted.resumed; readonly received: number }
    | { readonly session: typeof Greeted.lost };

export function decodeGreeting(text: string): Greeting | undefined {
    const message = parseJson(text);
    if (!isObject(message)) {
        return undefined;
    }
    const received = asCount(message[GreetingKey.received]);
    const session = message[GreetingKey.session];
    if (session === Greeted.resumed) {
        return received === undefined ? undefined : { session, received };
    }
    return session === Greeted.fresh || session === Greeted.lost ? { session } : undefined;
}
