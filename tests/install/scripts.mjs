// scripts.mjs PREFIX PROGRAM: the copy below PREFIX runs a script on its own module, and a program
// that was built with it runs one on a class of its own.

import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';

const [prefix, program] = process.argv.slice(2);

function run(path, ...words) {
    const { status, stdout, stderr } = spawnSync(path, words, { encoding: 'utf8' });
    return { status, stdout, stderr };
}

const maps = `for line in io.lines('/proc/self/maps') do
    local path = line:match('/%S*/libdova%S*')
    if path then io.write(path, '\\n') end
end`;
const json = "print(dova.web.JSONArray.fromJSON('[1, {\"a\": 2}]'):toJSON('Compact'))";

assert.deepEqual(run(`${prefix}/bin/dova-host`, '-e', json), {
    status: 0,
    stdout: '[1,{"a":2}]\n',
    stderr: '',
});
assert.equal(run(`${prefix}/bin/dova-host`, '-e', 'dova.web.none()').status, 1);
const loaded = new Set(run(`${prefix}/bin/dova-host`, '-e', maps).stdout.trim().split('\n'));
assert.ok(loaded.size > 1, [...loaded].join());
for (const library of loaded) {
    assert.ok(library.startsWith(`${prefix}/lib`), library);
}

const points = `local p = own.Point(1, 2)
p:move(own.Point(2, 2))
print(p.X, p == own.Point(3, 4), p)`;
assert.deepEqual(run(program, points), {
    status: 0,
    stdout: '3\ttrue\town.Point (X: 3)\n',
    stderr: '',
});
assert.deepEqual(run(program, 'own.Point(1, 2).Y = 1'), {
    status: 1,
    stdout: '',
    stderr: 'argument:1: own.Point has no property "Y"\n',
});
