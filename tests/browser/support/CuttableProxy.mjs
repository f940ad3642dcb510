import { once } from 'node:events';
import { connect, createServer } from 'node:net';

/** A head of HTTP that names one host as one that names the other: each side hears its own name. */
function readdressed(data, from, to) {
    const text = data.toString('latin1');
    return /^(GET|HEAD|HTTP)/.test(text) ? Buffer.from(text.replaceAll(from, to), 'latin1') : data;
}

/** Stands between a page and the program, takes its time and takes the connection away when told. */
export class CuttableProxy {
    /** Milliseconds that everything needs, each way. */
    delay = 0;
    /** What is asked for in these words goes up so much later, in milliseconds. */
    held = { words: /(?!)/, time: 0 };
    m_pages = new Set();
    m_refusing = false;
    m_deaf = false;

    static async before(program) {
        if (program.nginx !== undefined) {
            return Object.assign(program.nginx.line, { address: program.address });
        }
        const { host, port } = new URL(program.address);
        const proxy = await CuttableProxy.to(port);
        proxy.address = program.address.replace(host, proxy.host);
        return proxy;
    }

    static async to(port) {
        const proxy = new CuttableProxy();
        proxy.m_programHost = `127.0.0.1:${port}`;
        proxy.m_server = createServer((page) => proxy.join(page, connect(port, '127.0.0.1')));
        proxy.m_server.listen(0, '127.0.0.1');
        await once(proxy.m_server, 'listening');
        proxy.host = `127.0.0.1:${proxy.m_server.address().port}`;
        return proxy;
    }

    join(page, program) {
        for (const [socket, other] of [
            [page, program],
            [program, page],
        ]) {
            socket.on('error', () => other.destroy());
            socket.on('close', () => other.destroy());
        }
        page.on('data', (data) => {
            const isHeld = this.held.words.test(data.toString('latin1'));
            const request = readdressed(data, this.host, this.m_programHost);
            this.pass(program, request, isHeld ? this.held.time : this.delay);
            this.m_passedUp?.();
        });
        page.on('close', () => this.m_pages.delete(page));
        program.on('data', (data) => {
            if (!this.m_deaf) {
                this.pass(page, readdressed(data, this.m_programHost, this.host));
            }
        });
        this.m_pages.add(page);
        if (this.m_refusing) {
            page.destroy();
        }
    }

    pass(socket, data, delay = this.delay) {
        if (delay === 0) {
            socket.write(data);
        } else {
            setTimeout(() => socket.writable && socket.write(data), delay);
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

    end() {
        this.cut();
        this.m_ended ??= once(this.m_server.close(), 'close');
        return this.m_ended;
    }
}
