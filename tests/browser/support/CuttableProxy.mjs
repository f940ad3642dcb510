import { once } from 'node:events';
import { connect, createServer } from 'node:net';

/** Stands between a page and the program, and takes the connection away when told. */
export class CuttableProxy {
    static async to(port) {
        const proxy = new CuttableProxy(port);
        proxy.m_server.listen(0, '127.0.0.1');
        await once(proxy.m_server, 'listening');
        return proxy;
    }

    constructor(port) {
        this.m_pairs = new Set();
        this.m_refusing = false;
        this.m_deaf = false;
        this.m_server = createServer((page) => this.join(page, port));
    }

    get port() {
        return this.m_server.address().port;
    }

    join(page, port) {
        if (this.m_refusing) {
            page.destroy();
            return;
        }
        const program = connect(port, '127.0.0.1');
        const pair = { page, program };
        this.m_pairs.add(pair);
        const end = () => {
            page.destroy();
            program.destroy();
            this.m_pairs.delete(pair);
        };
        page.on('data', (data) => {
            program.write(data);
            this.m_passedUp?.();
        });
        program.on('data', (data) => this.m_deaf || page.write(data));
        for (const socket of [page, program]) {
            socket.on('error', end);
            socket.on('close', end);
        }
    }

    /** Cuts every connection and lets none through until restore(). */
    cut() {
        this.m_refusing = true;
        for (const { page, program } of [...this.m_pairs]) {
            page.resetAndDestroy?.() ?? page.destroy();
            program.destroy();
        }
        this.m_pairs.clear();
    }

    restore() {
        this.m_refusing = false;
        this.m_deaf = false;
    }

    /** From now on nothing comes down; resolves when something has gone up. */
    swallowAnswers() {
        this.m_deaf = true;
        return new Promise((resolve) => (this.m_passedUp = resolve));
    }

    async end() {
        this.cut();
        this.m_server.close();
        await once(this.m_server, 'close');
    }
}
