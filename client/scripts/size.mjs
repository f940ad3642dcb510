// Fails when what a browser fetches for the page, compressed, is more than the page may weigh.
import { readdir, readFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

const limits = { '.br': 39_000, '.gz': 44_000 };
const dist = join(dirname(fileURLToPath(import.meta.url)), '..', 'dist');
const names = (await readdir(dist, { recursive: true })).sort();

for (const [extension, limit] of Object.entries(limits)) {
    let total = 0;
    for (const name of names.filter((name) => name.endsWith(extension))) {
        const size = (await readFile(join(dist, name))).length;
        total += size;
        console.log(`${String(size).padStart(7)}  ${name}`);
    }
    console.log(`${String(total).padStart(7)}  of at most ${limit} bytes`);
    if (total === 0 || total > limit) {
        console.error(total === 0 ? 'dist/ holds no page: build first' : 'the page is too large');
        process.exitCode = 1;
    }
}
