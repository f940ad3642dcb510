import { readFile } from 'node:fs/promises';
import { createServer, type IncomingMessage, type Server } from 'node:http';
import type { AddressInfo } from 'node:net';
import { extname, join } from 'node:path';
import { WebSocketServer, type WebSocket } from 'ws';
import { decodeFrame, encodeFrame, type FrameRecord } from '../../src/gateway/frame.ts';
import { ICON_PATH, SOCKET_PATH, SUB_PROTOCOL } from '../../src/protocol/names.ts';

const types: Readonly<Record<string, string>> = {
    '.html': 'text/html; charset=utf-8',
    '.js': 'text/javascript',
    '.css': 'text/css',
    '.svg': 'image/svg+xml',
};

/** What the real gateway sends, so that a page that needs more fails here too. */
const securityHeaders = {
    'Content-Security-Policy':
        "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; " +
        "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'; " +
        "require-trusted-types-for 'script'; trusted-types lit-html",
    'X-Content-Type-Options': 'nosniff',
    'Referrer-Policy': 'no-referrer',
    'Cache-Control': 'no-cache',
};

interface FakeSession {
    readonly down: FrameRecord[];
    received: number;
}

/** A gateway with a program behind it that a test plays: serves the page and one session at a time. */
export class FakeGateway {
    readonly up: FrameRecord[] = [];
    /** Set anew: the program was started again, and the address that the page has is out of date. */
    token = 'secret';
    private readonly m_server: Server;
    private readonly m_sockets: WebSocketServer;
    private readonly m_sessions = new Map<string, FakeSession>();
    private readonly m_waiting = new Set<() => void>();
    private m_socket: WebSocket | undefined;
    private m_session: FakeSession = { down: [], received: 0 };

    constructor(folder: string) {
        this.m_server = createServer((request, response) => {
            const { pathname: path } = new URL(request.url ?? '/', 'http://localhost');
            if (path.startsWith(ICON_PATH) && !this.holdsToken(request)) {
                response.writeHead(401, securityHeaders).end('wrong token');
                return;
            }
            const name = path === '/' ? 'index.html' : path.slice(1);
            readFile(join(folder, name)).then(
                (body) => {
                    const type = types[extname(name)] ?? 'application/octet-stream';
                    response.writeHead(200, { ...securityHeaders, 'Content-Type': type }).end(body);
                },
                () => response.writeHead(404, securityHeaders).end('unknown path'),
            );
        });
        this.m_sockets = new WebSocketServer({
            server: this.m_server,
            path: SOCKET_PATH,
            verifyClient: ({ req }: { req: IncomingMessage }) => this.holdsToken(req),
            handleProtocols: (offered) => (offered.has(SUB_PROTOCOL) ? SUB_PROTOCOL : false),
        });
        this.m_sockets.on('connection', (socket, request) => this.accept(socket, request));
    }

    async start(): Promise<string> {
        await new Promise<void>((done) => this.m_server.listen(0, '127.0.0.1', done));
        const { port } = this.m_server.address() as AddressInfo;
        return `http://127.0.0.1:${port}/#${this.token}`;
    }

    async stop(): Promise<void> {
        this.m_sockets.clients.forEach((client) => client.terminate());
        this.m_sockets.close();
        this.m_server.closeAllConnections();
        await new Promise((done) => this.m_server.close(done));
    }

    /** Sends texts to the page, all in one frame; kept for a page that is not there. */
    send(...records: readonly (readonly [channel: string, message: unknown])[]): void {
        const added = records.map(([channel, message]) => ({
            channel,
            text: typeof message === 'string' ? message : JSON.stringify(message),
        }));
        this.m_session.down.push(...added);
        this.frame(this.m_session.down.length - added.length);
    }

    write(windowId: number, id: number, values: Readonly<Record<string, unknown>>): void {
        this.send([`./${windowId}`, [{ id: String(id), ...values }]]);
    }

    /** Cuts the connection; with a code, closes it in order. */
    cut(code?: number): void {
        if (code === undefined) {
            this.m_socket?.terminate();
        } else {
            this.m_socket?.close(code);
        }
    }

    /** The session is not known any more. */
    forgetSessions(): void {
        this.m_sessions.clear();
    }

    /** The messages that came up on a channel, parsed. */
    messages(channel: string): unknown[] {
        const records = this.up.filter((record) => record.channel === channel);
        return records.map((record) => JSON.parse(record.text) as unknown);
    }

    /** Resolves when what came up satisfies the condition, checked with every record. */
    async until(condition: () => boolean, what: string): Promise<void> {
        await new Promise<void>((resolve, reject) => {
            const check = (): void => {
                if (condition()) {
                    clearTimeout(timer);
                    this.m_waiting.delete(check);
                    resolve();
                }
            };
            const timer = setTimeout(() => {
                this.m_waiting.delete(check);
                reject(new Error(`never came: ${what}; got ${JSON.stringify(this.up.slice(-5))}`));
            }, 10_000);
            this.m_waiting.add(check);
            check();
        });
    }

    private holdsToken(request: IncomingMessage): boolean {
        const { searchParams } = new URL(request.url ?? '/', 'http://localhost');
        return searchParams.get('token') === this.token;
    }

    private accept(socket: WebSocket, request: IncomingMessage): void {
        const query = new URL(request.url ?? '/', 'http://localhost').searchParams;
        const id = query.get('client') ?? '';
        const received = query.get('received');
        const known = this.m_sessions.get(id);
        if (received !== null && known === undefined) {
            socket.send(JSON.stringify({ session: 'lost', reason: 'unknown' }));
            socket.close(4000, 'lost');
            return;
        }
        this.m_socket = socket;
        socket.on('message', (data) => this.frameUp(String(data)));
        if (received !== null && known !== undefined) {
            this.m_session = known;
            socket.send(JSON.stringify({ session: 'resumed', received: known.received }));
            this.frame(Number(received));
        } else {
            this.m_session = { down: [], received: 0 };
            this.m_sessions.set(id, this.m_session);
            socket.send(JSON.stringify({ session: 'new', received: 0 }));
        }
    }

    private frame(from: number): void {
        const records = this.m_session.down.slice(from);
        const acknowledged = this.m_session.received;
        if (this.m_socket?.readyState === 1) {
            this.m_socket.send(encodeFrame({ sequence: from + 1, acknowledged, records }));
        }
    }

    private frameUp(text: string): void {
        const frame = decodeFrame(text);
        if (frame === undefined) {
            throw new Error(`the page sent no frame: ${text}`);
        }
        const fresh = frame.records.slice(this.m_session.received + 1 - frame.sequence);
        this.m_session.received += fresh.length;
        this.up.push(...fresh);
        if (fresh.length > 0) {
            this.frame(this.m_session.down.length);
        }
        [...this.m_waiting].forEach((check) => check());
    }
}
