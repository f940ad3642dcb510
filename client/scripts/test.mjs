// Bundles every *.test.ts below the given folders and runs them with node's own test runner.

import { spawnSync } from 'node:child_process';
import { readdir, rm } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

const root = join(dirname(fileURLToPath(import.meta.url)), '..');

async function testsBelow(folder) {
    const names = await readdir(join(root, folder));
    return names.filter((name) => name.endsWith('.test.ts')).map((name) => join(folder, name));
}

const sources = (await Promise.all(process.argv.slice(2).map(testsBelow))).flat().sort();
if (sources.length === 0) {
    console.error('no tests found');
    process.exit(1);
}
const output = join(root, '.cache/test');
await rm(output, { recursive: true, force: true });
await build({
    entryPoints: sources.map((source) => join(root, source)),
    outdir: output,
    outbase: root,
    outExtension: { '.js': '.mjs' },
    bundle: true,
    platform: 'node',
    format: 'esm',
    target: 'node18',
    packages: 'external',
    sourcemap: 'inline',
    logLevel: 'warning',
});
const files = sources.map((source) => join(output, source.replace(/\.ts$/, '.mjs')));
const run = spawnSync(process.execPath, ['--enable-source-maps', '--test', ...files], {
    cwd: root,
    stdio: 'inherit',
});
process.exit(run.status ?? 1);
