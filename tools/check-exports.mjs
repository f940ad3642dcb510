// Compares the names that the module exports with the checked-in list: check-exports.mjs MODULE.
// With --update the list is written anew. What only some compilers and flags emit out of line (weak
// functions from headers, type information of pointers) is left out.

import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';

const listFile = 'web/exports.txt';

function exportedNames(module) {
    const symbols = execFileSync('nm', ['-DC', '--defined-only', module], { encoding: 'utf8' });
    const names = symbols
        .split('\n')
        .map((line) => /^[0-9a-f]+ (\S) (.*)$/.exec(line))
        .filter((match) => match && (match[1] !== 'W' || !match[2].includes('(')))
        .map((match) => match[2])
        .filter((name) => !/^typeinfo (name )?for .*\*$/.test(name));
    return [...new Set(names)].sort();
}

function difference(left, right) {
    const known = new Set(right);
    return left.filter((name) => !known.has(name));
}

const [module] = process.argv.slice(2).filter((argument) => !argument.startsWith('--'));
if (!module) {
    console.error('check-exports.mjs: usage: check-exports.mjs [--update] MODULE');
    process.exit(2);
}
const found = exportedNames(module);
if (process.argv.includes('--update')) {
    writeFileSync(listFile, `${found.join('\n')}\n`);
}
const expected = readFileSync(listFile, 'utf8').split('\n').filter(Boolean);
for (const name of difference(found, expected))
    console.error(`exported but not in ${listFile}: ${name}`);
for (const name of difference(expected, found))
    console.error(`in ${listFile} but not exported: ${name}`);
const same = found.length === expected.length && difference(found, expected).length === 0;
console.log(`exports: ${found.length} names, ${same ? 'as listed' : 'not as listed'}`);
process.exitCode = same && found.length > 0 ? 0 : 1;
