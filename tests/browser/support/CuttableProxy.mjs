import { once } from 'node:events';
import { connect, createServer } from 'node:net';
import { launchBrowser } from '../../../client/test/support/chromium.mjs';

/** Stands between a page and the program, and takes the connection away when told. */
export class CuttableProxy {
    m_pages = new Set();
    m_refusing = false;
    m_deaf = false;

    static async to(port) {
        const proxy = new CuttableProxy();
        proxy.m_server = createServer((page) => proxy.join(page, connect(port, '127.0.0.1')));
        proxy.m_server.listen(0, '127.0.0.1');
        await once(proxy.m_server, 'listening');
        return proxy;
    }

    /** A browser that believes to talk to the program's own address, and what stands between. */
    static async before(program) {
        const { port } = new URL(program.address);
        const proxy = await CuttableProxy.to(port);
        const rule = `MAP 127.0.0.1:${port} 127.0.0.1:${proxy.port}`;
        return { proxy, browser: await launchBrowser(`--host-resolver-rules=${rule}`) };
    }

    get port() {
        return this.m_server.address().port;
    }

    join(page, program) {
        for (const [socket, other] of [[page, program], [program, page]]) {
            socket.on('error', () => other.destroy());
            socket.on('close', () => other.destroy());
        }
        page.on('data', (data) => {
            program.write(data);
            this.m_passedUp?.();
        });
        page.on('close', () => this.m_pages.delete(page));
        program.on('data', (data) => this.m_deaf || page.write(data));
        this.m_pages.add(page);
        if (this.m_refusing) {
            page.destroy();
        }
    }

    /** Cuts every connection and lets none through until restore(). */
    cut() {
        this.m_refusing = true;
        this.m_pages.forEach((page) => page.resetAndDestroy());
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
