import { CloseCode, Query, SOCKET_PATH, SUB_PROTOCOL, TOKEN_PROTOCOL } from '../protocol/names.ts';
import type { AskWhy, Clock, Connect, Refusal } from './transport.ts';

/**
 * Connections by the browser's own WebSocket to the gateway that the page came from, beside the
 * page's document at `base`, since a proxy may serve it below any path. The token travels in
 * headers: proxies write what is asked for into their logs. After a connection
 * that was lost the gateway has to answer a request first: Firefox lets each socket that fails
 * keep the next one waiting longer, up to a minute, even when the way has long been free.
 */
export function webSocketConnect(base: string, token: string): Connect {
    let mayBeGone = false;
    return (query, listener) => {
        const address = socketAddress(base, query);
        address.protocol = address.protocol === 'https:' ? 'wss:' : 'ws:';
        const request = new AbortController();
        let socket: WebSocket | undefined;
        const open = (): void => {
            if (request.signal.aborted) {
                return;
            }
            socket = new WebSocket(address, [SUB_PROTOCOL, TOKEN_PROTOCOL + token]);
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
            untilAnswered(base, request.signal).then(open, () =>
                listener.closed(CloseCode.abnormal, ''),
            );
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

function socketAddress(base: string, query: URLSearchParams): URL {
    return new URL(`${SOCKET_PATH}?${query.toString()}`, base);
}

async function untilAnswered(base: string, signal: AbortSignal): Promise<void> {
    const response = await fetch(new URL('.', base), { method: 'HEAD', cache: 'no-store', signal });
    if (!response.ok) {
        throw new Error(response.statusText);
    }
}

const refusals = new Map<number, Refusal>([
    [401, 'outdated'],
    [426, 'blocked'],
    [503, 'crowded'],
]);
const UNREACHABLE = new Set([502, 504]);
/** The gateway's own words are plain; a proxy has pages, or nothing to say. */
const PLAIN = /^text\/plain\b/;

/** A proxy that cannot reach the program, or that took the token for a password of its own. */
function isOfProxy({ status, headers }: Response): boolean {
    const isPlain = PLAIN.test(headers.get('Content-Type') ?? '');
    return UNREACHABLE.has(status) || (!isPlain && (status === 401 || status >= 500));
}

/** The same request without the upgrade is refused like the socket's, and says why. */
export function askByRequest(base: string, token: string): AskWhy {
    return async (query) => {
        query.set(Query.origin, new URL(base).origin);
        try {
            const response = await fetch(socketAddress(base, query), {
                headers: { Authorization: `Bearer ${token}` },
            });
            const text = (await response.text()).trim();
            return isOfProxy(response)
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
