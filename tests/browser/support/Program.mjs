import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { existsSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';

const root = fileURLToPath(new URL('../../../', import.meta.url));

/** JSONPAD in the environment, else what a build has left; the other examples lie beside it. */
function jsonpadPath() {
    const built = ['ci', 'dev'].map((preset) => `${root}build/${preset}/bin/jsonpad`);
    const path = process.env['JSONPAD'] ?? built.find((candidate) => existsSync(candidate));
    if (path === undefined) {
        throw new Error('there is no jsonpad: build it, or name it in JSONPAD');
    }
    return path;
}

/** An example of this tree at work, from its address to its end. */
export class Program {
    static start(example, ...args) {
        return Program.startAt(join(dirname(jsonpadPath()), example), args);
    }

    static async startAt(path, args) {
        const program = new Program(path, args);
        const failed = program.m_ended.then(() => {
            throw new Error(`${path} has not started: ${program.errors}`);
        });
        program.address = await Promise.race([program.m_address, failed]);
        return program;
    }

    constructor(path, args) {
        this.m_process = spawn(path, args, { stdio: ['ignore', 'pipe', 'pipe'] });
        this.m_ended = once(this.m_process, 'close');
        this.output = [];
        this.errors = '';
        const lines = createInterface({ input: this.m_process.stdout });
        lines.on('line', (line) => this.output.push(line));
        this.m_address = once(lines, 'line').then(([line]) => line);
        this.m_process.stderr.on('data', (data) => (this.errors += data));
    }

    get pid() {
        return this.m_process.pid;
    }

    /** Ends it and gives its exit code, null when the signal killed it. */
    async end(signal = 'SIGTERM') {
        this.m_process.kill(signal);
        const [code] = await this.m_ended;
        return code;
    }
}
