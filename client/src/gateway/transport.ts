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

/** Why an attempt to connect came to nothing, where that can be found out. */
export type Refusal = 'outdated' | 'barred' | 'crowded' | 'blocked';

/** Asks why a connection with this query does not come about; undefined: nobody answers at all. */
export type AskWhy = (
    query: URLSearchParams,
) => Promise<{ readonly why: Refusal; readonly reason: string } | undefined>;

export interface Clock {
    /** Milliseconds since some moment; never set back, whatever happens to the time of day. */
    now(): number;
    /** Calls once after so many milliseconds; the answer cancels. */
    after(milliseconds: number, call: () => void): () => void;
}
