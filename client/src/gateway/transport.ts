/** One connection to the gateway, as the link sees it; tests bring their own. */
export interface Socket {
    send(text: string): void;
    close(): void;
}

export interface SocketListener {
    message(text: string): void;
    closed(code: number, reason: string): void;
}

export type Connect = (query: URLSearchParams, listener: SocketListener) => Socket;

export interface Clock {
    /** Calls once after so many milliseconds; the answer cancels. */
    after(milliseconds: number, call: () => void): () => void;
}
