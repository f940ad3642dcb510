import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { existsSync } from 'node:fs';
import { dirname, isAbsolute, join } from 'node:path';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';
import { Nginx } from './Nginx.mjs';

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

/** A program by its path, or by the name under which the build has left it beside jsonpad. */
export function builtProgram(name) {
    return isAbsolute(name) ? name : join(dirname(jsonpadPath()), name);
}

/** DOVA_PROXY=nginx in the environment: pages reach every program through that, at its address. */
const proxy = process.env['DOVA_PROXY'] ?? '';
if (!['', 'nginx'].includes(proxy)) {
    throw new Error(`DOVA_PROXY: "${proxy}" is not nginx`);
}

/** An example of this tree at work, from its address to its end. */
export class Program {
    static start(example, ...args) {
        return Program.startAt(example, args);
    }

    /** The same on a terminal, where type() types. */
    static startOnTerminal(example, ...args) {
        return Program.startAt(example, args, true);
    }

    static async startAt(example, args, onTerminal = false) {
        const nginx = proxy === '' ? undefined : await Nginx.start();
        return Program.startBehind(nginx, [], example, args, onTerminal);
    }

    static async startBehind(nginx, place, example, args, onTerminal) {
        const program = new Program(example, [...(nginx?.options ?? place), ...args], onTerminal);
        program.m_started = [example, args];
        program.nginx = nginx;
        const failed = program.m_ended.then(() => {
            throw new Error(`${example} has not started: ${program.errors}`);
        });
        program.address = await Promise.race([program.m_address, failed]);
        return program;
    }

    constructor(example, args, onTerminal) {
        const words = [builtProgram(example), ...args];
        const quoted = words.map((word) => `'${word.replaceAll("'", "'\\''")}'`).join(' ');
        const [path, ...rest] = onTerminal ? ['script', '-qefc', quoted, '/dev/null'] : words;
        const input = onTerminal ? 'pipe' : 'ignore';
        this.m_process = spawn(path, rest, { stdio: [input, 'pipe', 'pipe'] });
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

    /** Once more, at the same address; the token has to be kept. */
    startAgain() {
        const place = ['--port', new URL(this.address).port];
        return Program.startBehind(this.nginx, place, ...this.m_started);
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
    async stop(signal) {
        this.m_process.kill(signal);
        return this.ended();
    }

    /** The same, for good: nothing is left of what stood before it, which has to be in order. */
    async end(signal = 'SIGTERM') {
        const code = await this.stop(signal);
        const tokens = [...this.m_output.matchAll(/#(\S+)/g)].map(([, token]) => token);
        await this.nginx?.end(tokens);
        return code;
    }
}
