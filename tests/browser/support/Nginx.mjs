import assert from 'node:assert/strict';
import { execFileSync, spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { CuttableProxy } from './CuttableProxy.mjs';

const guide = readFileSync(new URL('../../../docs/proxies.md', import.meta.url), 'utf8');
const [, block] = /```nginx\n([^`]*)```/.exec(guide);

async function freePort() {
    const server = createServer().listen(0, '127.0.0.1');
    await once(server, 'listening');
    const { port } = server.address();
    server.close();
    await once(server, 'close');
    return port;
}

function makeCertificate(folder) {
    const [key, certificate] = [join(folder, 'key'), join(folder, 'certificate')];
    const made = ['-keyout', key, '-out', certificate, '-subj', '/CN=localhost', '-days', '2'];
    const kind = ['req', '-x509', '-nodes', '-newkey', 'ec', '-pkeyopt', 'ec_paramgen_curve:P-256'];
    execFileSync('openssl', [...kind, ...made], { stdio: 'ignore' });
    return { key, certificate };
}

/** What stands around the guide's words: one process, and nothing outside of the folder. */
function configuration(folder, server) {
    const inFolder = ['client_body', 'proxy', 'fastcgi', 'uwsgi', 'scgi'].map(
        (name) => `${name}_temp_path ${folder}/${name};`,
    );
    return `daemon off; master_process off; pid ${folder}/pid; error_log stderr notice;
        events {} http { access_log ${folder}/access.log; ${inFolder.join(' ')} ${server} }`;
}

/**
 * nginx with TLS before a program at /pad/, in the words of the guide, and behind it a line that
 * can be cut. What it has logged holds no token and nothing but /pad/ when it ends.
 */
export class Nginx {
    /** Nothing else starts at these ports meanwhile, it is to be hoped. */
    static async start() {
        const nginx = new Nginx();
        const [port, programPort] = [await freePort(), await freePort()];
        nginx.line = await CuttableProxy.to(programPort);
        nginx.options = [
            '--public-url',
            `https://localhost:${port}/pad/`,
            '--port',
            `${programPort}`,
        ];
        nginx.m_folder = mkdtempSync(join(tmpdir(), 'nginx-'));
        const { key, certificate } = makeCertificate(nginx.m_folder);
        const server = Object.entries({
            'listen 443': `listen 127.0.0.1:${port}`,
            'server_name pad.example': 'server_name localhost',
            '/etc/ssl/pad.example.pem': certificate,
            '/etc/ssl/pad.example.key': key,
            '127.0.0.1:8080': nginx.line.host,
        }).reduce((text, [from, to]) => {
            assert.ok(text.includes(from), `${from} in docs/proxies.md`);
            return text.replace(from, to);
        }, block);
        const file = join(nginx.m_folder, 'nginx.conf');
        writeFileSync(file, configuration(nginx.m_folder, server));
        // Ends with this process, also when that one is killed.
        const command = ['--pdeathsig', 'KILL', 'nginx', '-e', 'stderr', '-c', file];
        nginx.m_process = spawn('setpriv', command, { stdio: ['ignore', 'ignore', 'pipe'] });
        // Its first words come when it listens.
        const [words] = await once(nginx.m_process.stderr, 'data');
        assert.match(`${words}`, /notice/);
        nginx.m_process.stderr.resume();
        return nginx;
    }

    /** Once the program has ended, and so every connection to it. */
    end(tokens) {
        this.m_ended ??= this.m_end(tokens);
        return this.m_ended;
    }

    async m_end(tokens) {
        this.m_process.kill('SIGQUIT');
        await Promise.all([once(this.m_process, 'close'), this.line.end()]);
        const log = readFileSync(join(this.m_folder, 'access.log'), 'utf8');
        rmSync(this.m_folder, { recursive: true });
        assert.ok(!tokens.some((token) => log.includes(token)), 'no token is in the log');
        const lines = log.split('\n').slice(0, -1);
        // Browsers look for a picture to the page with which nginx says that nobody is there.
        const isAway = log.includes('"GET /pad/ HTTP/1.1" 502');
        const isOurs = (line) => /"\w+ \/pad\//.test(line) || (isAway && /favicon.ico/.test(line));
        const strays = lines.filter((line) => !isOurs(line));
        const refused = lines.filter((line) => /"GET \/pad\/icon\/\S+ \S+ 4/.test(line));
        assert.deepEqual([strays, refused], [[], []]);
    }
}
