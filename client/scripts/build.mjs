// Builds the page into dist/: one script, one style sheet, the document, the icon, and a .br and a
// .gz beside each so that the gateway never compresses while it serves; and the images that a
// program may name without bringing them.

import { copyFile, cp, mkdir, readdir, readFile, rm, writeFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync, gzipSync } from 'node:zlib';
import { build } from 'esbuild';

const root = join(dirname(fileURLToPath(import.meta.url)), '..');
const dist = join(root, 'dist');

await rm(dist, { recursive: true, force: true });
await mkdir(dist, { recursive: true });
await build({
    entryPoints: { app: join(root, 'src/page/main.ts') },
    outdir: dist,
    bundle: true,
    minify: true,
    format: 'esm',
    target: 'es2022',
    legalComments: 'none',
    logLevel: 'warning',
});

const declared = /(--[\w-]+): ([^;]+);/g;
const lengths = new Map(
    Array.from(
        (await readFile(join(root, 'styles/lengths.css'), 'utf8')).matchAll(declared),
        ([, name, value]) => [name, value],
    ),
);

/** Puts the lengths in their places: var() costs time for each element that has it. */
const placeLengths = {
    name: 'lengths',
    setup: (bundler) =>
        bundler.onLoad({ filter: /\.css$/ }, async ({ path }) => {
            const text = await readFile(path, 'utf8');
            const place = (use, name) => lengths.get(name) ?? use;
            return { contents: text.replace(/var\((--[\w-]+)\)/g, place), loader: 'css' };
        }),
};
await build({
    plugins: [placeLengths],
    entryPoints: { app: join(root, 'styles/app.css') },
    outdir: dist,
    bundle: true,
    minify: true,
    target: ['chrome110', 'firefox115', 'safari16.4'],
    logLevel: 'warning',
});
for (const name of ['index.html', 'favicon.svg']) {
    await copyFile(join(root, 'static', name), join(dist, name));
}
for (const name of await readdir(dist)) {
    const content = await readFile(join(dist, name));
    await writeFile(join(dist, `${name}.br`), brotliCompressSync(content));
    await writeFile(join(dist, `${name}.gz`), gzipSync(content, { level: 9 }));
}
await cp(join(root, 'static/images'), join(dist, 'images'), { recursive: true });
