import { SOCKET_PATH, SUB_PROTOCOL } from '../protocol/names.ts';
import type { Clock, Connect } from './transport.ts';

/** Connections by the browser's own WebSocket to the gateway that the page came from. */
export function webSocketConnect(location: Location, token: string): Connect {
    return (query, listener) => {
        const scheme = location.protocol === 'https:' ? 'wss' : 'ws';
        query.set('token', token);
        const address = `${scheme}://${location.host}${SOCKET_PATH}?${query.toString()}`;
        const socket = new WebSocket(address, SUB_PROTOCOL);
        socket.onmessage = (event: MessageEvent<unknown>) => {
            listener.message(typeof event.data === 'string' ? event.data : '');
        };
        socket.onclose = (event) => listener.closed(event.code, event.reason);
        return {
            send: (text) => {
                if (socket.readyState === WebSocket.OPEN) {
                    socket.send(text);
                }
            },
            close: () => socket.close(),
        };
    };
}

export const browserClock: Clock = {
    after: (milliseconds, call) => {
        const timer = setTimeout(call, milliseconds);
        return () => clearTimeout(timer);
    },
};
