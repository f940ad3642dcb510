import { CloseCode, Query, SOCKET_PATH, SUB_PROTOCOL } from '../protocol/names.ts';
import type { AskWhy, Clock, Connect, Refusal } from './transport.ts';

/**
 * Connections by the browser's own WebSocket to the gateway that the page came from. After one
 * that was lost the gateway has to answer a request first: Firefox lets each socket that fails
 * keep the next one waiting longer, up to a minute, even when the way has long been free.
 */
export function webSocketConnect(location: Location, token: string): Connect {
    let mayBeGone = false;
    return (query, listener) => {
        const scheme = location.protocol === 'https:' ? 'wss' : 'ws';
        query.set(Query.token, token);
        const address = `${scheme}://${location.host}${SOCKET_PATH}?${query.toString()}`;
        const request = new AbortController();
        let socket: WebSocket | undefined;
        const open = (): void => {
            if (request.signal.aborted) {
                return;
            }
            socket = new WebSocket(address, SUB_PROTOCOL);
            socket.onopen = () => (mayBeGone = false);
            socket.onmessage = (event: MessageEvent<unknown>) => {
                listener.message(typeof event.data === 'string' ? event.data : '');
            };
            socket.onclose = (event) => {
                mayBeGone = true;
                listener.closed(event.code, event.reason);
            };
        };
        if (mayBeGone) {
            untilAnswered(request.signal).then(open, () => listener.closed(CloseCode.abnormal, ''));
        } else {
            open();
        }
        return {
            send: (text) => {
                if (socket?.readyState === WebSocket.OPEN) {
                    socket.send(text);
                }
            },
            close: () => {
                request.abort();
                socket?.close();
            },
        };
    };
}

async function untilAnswered(signal: AbortSignal): Promise<void> {
    const response = await fetch('/', { method: 'HEAD', cache: 'no-store', signal });
    if (!response.ok) {
        throw new Error(response.statusText);
    }
}

const refusals = new Map<number, Refusal>([
    [401, 'outdated'],
    [426, 'blocked'],
    [503, 'crowded'],
]);
/** A proxy that cannot reach the program: nobody answers. */
const UNREACHABLE = new Set([502, 504]);

/** The same request without the upgrade is refused like the socket's, and says why. */
export function askByRequest(location: Location, token: string): AskWhy {
    return async (query) => {
        query.set(Query.token, token);
        query.set(Query.origin, location.origin);
        try {
            const response = await fetch(`${SOCKET_PATH}?${query.toString()}`);
            const text = (await response.text()).trim();
            return UNREACHABLE.has(response.status)
                ? undefined
                : {
                      why: refusals.get(response.status) ?? 'barred',
                      reason: response.status < 500 && text.length < 100 ? text : '',
                  };
        } catch {
            return undefined;
        }
    };
}

export const browserClock: Clock = {
    now: () => performance.now(),
    after: (milliseconds, call) => {
        const timer = setTimeout(call, milliseconds);
        return () => clearTimeout(timer);
    },
};
