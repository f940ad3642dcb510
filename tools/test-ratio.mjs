// Prints how many lines of tests there are to a hundred lines of other code, both languages together.
// Blank lines and comments do not count, nor does what is made from the protocol's table.

import { execFileSync } from 'node:child_process';
import { readFileSync } from 'node:fs';

import { mark } from '../protocol/generate/mark.mjs';

const counted = /\.(cpp|h|ts|mjs|css|lua)$/;
const tests = /^(tests|client\/test)\/|\.test\.(ts|mjs)$/;

function linesOf(path) {
    const text = readFileSync(path, 'utf8');
    const isMade = text.startsWith(`// ${mark}`);
    return (isMade ? '' : text).split('\n').filter((line) => !/^\s*(\/\/|\/?\*|#|$)/.test(line))
        .length;
}

const files = execFileSync('git', ['ls-files'], { encoding: 'utf8' })
    .split('\n')
    .filter((path) => counted.test(path));
const sum = (paths) => paths.reduce((total, path) => total + linesOf(path), 0);
const testLines = sum(files.filter((path) => tests.test(path)));
const codeLines = sum(files.filter((path) => !tests.test(path)));
console.log(
    `Tests: ${testLines} lines, other code: ${codeLines} lines, ` +
        `${Math.round((100 * testLines) / codeLines)} to 100; tests are ${Math.round((100 * testLines) / (testLines + codeLines))} % of all.`,
);
