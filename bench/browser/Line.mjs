import { once } from 'node:events';
import { connect, createServer } from 'node:net';

/** One direction of the line: what all connections send waits for each other. */
class Direction {
    #delay;
    #bytesPerMillisecond;
    #freeAt = 0;
    #onTheWay = [];

    constructor({ delay, bytesPerSecond }) {
        this.#delay = delay;
        this.#bytesPerMillisecond = bytesPerSecond / 1000;
    }

    carry(socket, data) {
        for (let start = 0; start < data.length; start += 1460) {
            const packet = data.subarray(start, start + 1460);
            this.#freeAt =
                Math.max(this.#freeAt, performance.now()) +
                packet.length / this.#bytesPerMillisecond;
            this.#onTheWay.push({ socket, packet, due: this.#freeAt + this.#delay });
            if (this.#onTheWay.length === 1) {
                this.#deliverLater();
            }
        }
    }

    #deliverLater() {
        const wait = this.#onTheWay[0].due - performance.now();
        setTimeout(() => this.#deliver(), Math.max(0, wait));
    }

    #deliver() {
        while (this.#onTheWay.length > 0 && this.#onTheWay[0].due <= performance.now()) {
            const { socket, packet } = this.#onTheWay.shift();
            if (socket.writable) {
                socket.write(packet);
            }
        }
        if (this.#onTheWay.length > 0) {
            this.#deliverLater();
        }
    }
}

/**
 * Stands before a server as a line of some length and width: `delay` milliseconds each way, and so
 * many bytes a second each way for all connections together. Opening a connection takes as long as
 * on a line: there and back before the first byte leaves.
 */
export class Line {
    #delay;
    #up;
    #down;
    #server = createServer((client) => this.#join(client));
    /** Where the server is; to be set before anybody comes. */
    target = 0;

    constructor(line) {
        this.#delay = line.delay;
        this.#up = new Direction(line);
        this.#down = new Direction(line);
    }

    async listen() {
        this.#server.listen(0, '127.0.0.1').unref();
        await once(this.#server, 'listening');
        return this.#server.address().port;
    }

    #join(client) {
        const server = connect(this.target, '127.0.0.1').setNoDelay();
        client.setNoDelay();
        for (const [one, other] of [
            [client, server],
            [server, client],
        ]) {
            one.on('error', () => other.destroy());
            one.on('close', () => other.destroy());
        }
        server.on('data', (data) => this.#down.carry(client, data));
        setTimeout(
            () => client.on('data', (data) => this.#up.carry(server, data)),
            2 * this.#delay,
        );
    }
}
