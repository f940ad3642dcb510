import { EventEmitter, once } from 'node:events';
import { readFile } from 'node:fs/promises';
import { createServer, type IncomingMessage, type ServerResponse } from 'node:http';
import type { AddressInfo } from 'node:net';
import { extname, join } from 'node:path';
import { type WebSocket, WebSocketServer } from 'ws';
import type { FrameRecord } from '../../src/gateway/frame.ts';
import { ICON_PATH, SOCKET_PATH, SUB_PROTOCOL, TOKEN_PROTOCOL } from '../../src/protocol/names.ts';
import { Peer } from './Peer.ts';

const types: Readonly<Record<string, string>> = {
    '.html': 'text/html; charset=utf-8',
    '.js': 'text/javascript',
    '.css': 'text/css',
    '.svg': 'image/svg+xml',
};

/** Where the page lies, as behind a proxy. */
const BASE = '/pad/';

/** What the real gateway sends, so that a page that needs more fails here too. */
const securityHeaders = {
    'Content-Security-Policy':
        "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; " +
        "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'; " +
        "require-trusted-types-for 'script'; trusted-types lit-html",
    'X-Content-Type-Options': 'nosniff',
    'Referrer-Policy': 'no-referrer',
    'Cache-Control': 'no-cache',
    'Content-Type': 'text/plain; charset=utf-8',
};

/** A gateway whose program a test plays: serves the page and one session at a time. */
export class FakeGateway {
    readonly peer = new Peer();
    readonly up: FrameRecord[] = [];
    /** Set anew: the program was started again, and the address in the page is out of date. */
    token = 'secret';
    /** With which code the page has closed its last connection. */
    closeCode = 0;
    readonly #server = createServer((request, response) => this.#serve(request, response));
    readonly #sockets = new WebSocketServer({
        server: this.#server,
        path: BASE + SOCKET_PATH,
        verifyClient: ({ req }: { req: IncomingMessage }) => this.#holdsToken(req),
        handleProtocols: (offered) => (offered.has(SUB_PROTOCOL) ? SUB_PROTOCOL : false),
    });
    /** What was asked for elsewhere, or with the token where proxies write it down. */
    readonly strayed: string[] = [];
    readonly #came = new EventEmitter();
    #socket: WebSocket | undefined;

    /** Serves the page that was built; tests run in the package's folder. */
    async start(): Promise<string> {
        this.#sockets.on('connection', (socket, request) => this.#accept(socket, request));
        await new Promise<void>((done) => this.#server.listen(0, '127.0.0.1', done));
        const { port } = this.#server.address() as AddressInfo;
        return `http://127.0.0.1:${port}${BASE}#${this.token}`;
    }

    async stop(): Promise<void> {
        this.#sockets.clients.forEach((client) => client.terminate());
        this.#sockets.close();
        this.#server.closeAllConnections();
        await new Promise((done) => this.#server.close(done));
    }

    /** Sends texts to the page, all in one frame; kept for a page that is not there. */
    send(...records: readonly (readonly [channel: string, message: unknown])[]): void {
        const texts = records.map(([channel, message]) => ({
            channel,
            text: typeof message === 'string' ? message : JSON.stringify(message),
        }));
        this.#socket?.send(this.peer.publish(texts));
    }

    /** Closes the connection in order. */
    close(code: number): void {
        this.#socket?.close(code);
    }

    /** The messages that came up on a channel, parsed. */
    messages(channel: string): Readonly<Record<string, unknown>>[] {
        const records = this.up.filter((record) => record.channel === channel);
        return records.map((record) => JSON.parse(record.text) as Record<string, unknown>);
    }

    /** Resolves when what came up satisfies the condition, checked with every frame. */
    async until(condition: () => boolean, what: string): Promise<void> {
        const signal = AbortSignal.timeout(10_000);
        while (!condition()) {
            await once(this.#came, 'frame', { signal }).catch(() => {
                throw new Error(`never came: ${what}; got ${JSON.stringify(this.up.slice(-5))}`);
            });
        }
    }

    #serve(request: IncomingMessage, response: ServerResponse): void {
        const { pathname } = new URL(request.url ?? '/', 'http://localhost');
        this.#note(request);
        const path = pathname.slice(BASE.length);
        if (path.startsWith(ICON_PATH) || path === SOCKET_PATH) {
            const status = path !== SOCKET_PATH ? 404 : this.#holdsToken(request) ? 426 : 401;
            response.writeHead(status, securityHeaders).end('the reason');
            return;
        }
        const name = path === '' ? 'index.html' : path;
        const type = types[extname(name)] ?? 'application/octet-stream';
        readFile(join(process.cwd(), 'dist', name)).then(
            (body) => {
                response.writeHead(200, { ...securityHeaders, 'Content-Type': type }).end(body);
            },
            () => response.writeHead(404, securityHeaders).end('unknown path'),
        );
    }

    #note({ url = '' }: IncomingMessage): void {
        if (!url.startsWith(BASE) || url.includes('token') || url.includes(this.token)) {
            this.strayed.push(url);
        }
    }

    #holdsToken({ headers }: IncomingMessage): boolean {
        const offered = headers['sec-websocket-protocol']?.split(/, ?/) ?? [];
        const isBearer = headers.authorization === `Bearer ${this.token}`;
        return isBearer || offered.includes(TOKEN_PROTOCOL + this.token);
    }

    #accept(socket: WebSocket, request: IncomingMessage): void {
        this.#note(request);
        const greeting = this.peer.greet(queryOf(request));
        greeting.forEach((text) => socket.send(text));
        if (greeting[0]?.includes('lost')) {
            socket.close(4000, 'lost');
            return;
        }
        this.#socket = socket;
        socket.on('message', (data) => this.#frameUp(String(data)));
        socket.on('close', (code) => (this.closeCode = code));
    }

    #frameUp(text: string): void {
        const fresh = this.peer.take(text);
        if (typeof fresh === 'number') {
            throw new Error(`the page sent no frame: ${text}`);
        }
        this.up.push(...fresh);
        if (fresh.length > 0 || this.peer.asked) {
            this.#socket?.send(this.peer.publish([]));
        }
        this.#came.emit('frame');
    }
}

function queryOf(request: IncomingMessage): URLSearchParams {
    return new URL(request.url ?? '/', 'http://localhost').searchParams;
}
