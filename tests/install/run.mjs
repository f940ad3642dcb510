// run.mjs PREFIX PROGRAM...: each program starts, runs on the copy below PREFIX alone, serves that
// copy's page, and ends in order.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { Program } from '../browser/support/Program.mjs';

const [prefix, ...paths] = process.argv.slice(2);
for (const path of paths) {
    const program = await Program.startAt(path, []);
    try {
        assert.match(program.address, /^http:\/\/127\.0\.0\.1:\d+\/#.+$/);
        const maps = readFileSync(`/proc/${program.pid}/maps`, 'utf8');
        const loaded = new Set(maps.match(/\/\S*\/libdova\S*/g));
        assert.equal(loaded.size, 9, 'eight libraries and the module');
        for (const library of loaded) {
            assert.ok(library.startsWith(`${prefix}/lib`), library);
        }
        const page = await (await fetch(program.address)).text();
        assert.ok(page.endsWith('<!-- installed -->\n'), 'the page is the installed one');
    } finally {
        assert.equal(await program.end(), 0, program.errors);
    }
}
