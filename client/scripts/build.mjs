// Builds the page into dist/: the document, the icon, and below immutable/ one script and one style
// sheet, whose names change with their contents. Beside each lie a .br and a .gz, so that the
// gateway never compresses while it serves. And the images that a program may name without
// bringing them.

import { createHash } from 'node:crypto';
import { cp, mkdir, readFile, rm, writeFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync, gzipSync } from 'node:zlib';
import { build } from 'esbuild';
import { minify } from 'terser';
import { ownNames } from './ownNames.mjs';

const root = join(dirname(fileURLToPath(import.meta.url)), '..');
const dist = join(root, 'dist');

/** The text of the one file that comes of it. */
async function bundle(entry, options) {
    const { outputFiles } = await build({
        entryPoints: [join(root, entry)],
        outdir: dist,
        write: false,
        bundle: true,
        minify: true,
        legalComments: 'none',
        logLevel: 'warning',
        ...options,
    });
    return outputFiles[0].text;
}

/**
 * The library for patches also makes them, which the page never does. Its one use of that half is
 * the operation "test", which no program sends: it always fails, and the page asks anew.
 */
const onlyApplied = {
    name: 'only-applied',
    setup: (bundler) =>
        bundler.onLoad({ filter: /rfc6902\/diff\.js$/ }, () => ({
            contents: 'exports.diffAny = () => [true];',
        })),
};

/** The second one finds some four per cent that the first one leaves. */
async function script() {
    const entry = 'src/page/main.ts';
    const mangleProps = new RegExp(`^(${ownNames(entry).join('|')})$`);
    const text = await bundle(entry, {
        format: 'esm',
        target: 'es2022',
        mangleProps,
        plugins: [onlyApplied],
    });
    const { code } = await minify(text, {
        module: true,
        ecma: 2020,
        compress: { passes: 2, unsafe_arrows: true, keep_fargs: false },
    });
    return code;
}

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

function style() {
    const target = ['chrome110', 'firefox115', 'safari16.4'];
    return bundle('styles/app.css', { plugins: [placeLengths], target });
}

async function write(name, content) {
    await writeFile(join(dist, name), content);
    await writeFile(join(dist, `${name}.br`), brotliCompressSync(content));
    await writeFile(join(dist, `${name}.gz`), gzipSync(content, { level: 9 }));
}

/** Under a name of its content, which is the answer. */
async function writeImmutable(name, extension, content) {
    const hash = createHash('sha256').update(content).digest('base64url').slice(0, 10);
    const path = `immutable/${name}-${hash}${extension}`;
    await write(path, content);
    return path;
}

await rm(dist, { recursive: true, force: true });
await mkdir(join(dist, 'immutable'), { recursive: true });
const paths = {
    'app.js': await writeImmutable('app', '.js', await script()),
    'app.css': await writeImmutable('app', '.css', await style()),
};
const page = await readFile(join(root, 'static/index.html'), 'utf8');
await write(
    'index.html',
    page.replace(/app\.(js|css)/g, (name) => paths[name]),
);
await write('favicon.svg', await readFile(join(root, 'static/favicon.svg')));
await cp(join(root, 'static/images'), join(dist, 'images'), { recursive: true });
