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

/** A program that the build has left beside jsonpad. */
export function builtProgram(name) {
    return join(dirname(jsonpadPath()), name);
}

/** An example of this tree at work, from its address to its end. */
export class Program {
    static start(example, ...args) {
        return Program.startAt(builtProgram(example), args);
    }

    /** The same on a terminal, where type() types. */
    static startOnTerminal(example, ...args) {
        const quoted = [builtProgram(example), ...args].map(
            (word) => `'${word.replaceAll("'", "'\\''")}'`,
        );
        return Program.startAt('script', ['-qefc', quoted.join(' '), '/dev/null'], 'pipe');
    }

    static async startAt(path, args, input = 'ignore') {
        const program = new Program(path, args, input);
        const failed = program.m_ended.then(() => {
            throw new Error(`${path} has not started: ${program.errors}`);
        });
        program.address = await Promise.race([program.m_address, failed]);
        return program;
    }

    constructor(path, args, input) {
        this.m_process = spawn(path, args, { stdio: [input, 'pipe', 'pipe'] });
        this.m_ended = once(this.m_process, 'close');
        this.output = [];
        this.errors = '';
        this.m_output = '';
        this.m_process.stdout.on('data', (data) => (this.m_output += data));
        const lines = createInterface({ input: this.m_process.stdout });
        lines.on('line', (line) => this.output.push(line));
        this.m_address = once(lines, 'line').then(([line]) => line);
        this.m_process.stderr.on('data', (data) => (this.errors += data));
    }

    get pid() {
        return this.m_process.pid;
    }

    type(text) {
        this.m_process.stdin.write(text);
    }

    /** Waits until its output has this text, in lines or on the way to one. */
    async echoes(text) {
        while (!this.m_output.includes(text)) {
            await once(this.m_process.stdout, 'data');
        }
    }

    /** Its exit code, once it has ended by itself. */
    async ended() {
        return (await this.m_ended)[0];
    }

    /** Ends it and gives its exit code, null when the signal killed it. */
    async end(signal = 'SIGTERM') {
        this.m_process.kill(signal);
        return this.ended();
    }
}
