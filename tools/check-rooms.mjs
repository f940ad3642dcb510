// Who may know whom: `tools/rooms.json` has a line for every folder with sources, and an include, an
// import or a link against it is a fault; so is a permission that nobody needs, a folder without a
// line, and a picture in docs/architecture.md that shows anything else (`--write` draws it anew).
// Prints the faults and exits 1 if there are any.

import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import { dirname, join, normalize } from 'node:path';
import { pictures } from './room-pictures.mjs';

const read = (path) => readFileSync(path, 'utf8');
const { groups, headerFolders } = JSON.parse(read('tools/rooms.json'));
const knows = new Map(groups.flatMap(({ rooms }) => Object.entries(rooms)));

const listed = execFileSync('git', ['ls-files', '-co', '--exclude-standard'], { encoding: 'utf8' });
const tracked = new Set(listed.split('\n').filter(Boolean));

/** The room of a file: the longest folder above it that has a line. */
function roomOf(path) {
    for (let folder = dirname(path); folder !== '.'; folder = dirname(folder)) {
        if (knows.has(folder)) return folder;
    }
    return undefined;
}

/** Where the compiler finds a header; those of the system and of libraries are none of ours. */
function headerFile(from, name) {
    const folders = [dirname(from), ...headerFolders];
    return folders.map((folder) => normalize(join(folder, name))).find((path) => tracked.has(path));
}

const usesOf = {
    cpp: (path, text) =>
        [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">]/gm)].map(([, name]) =>
            headerFile(path, name),
        ),
    script: (path, text) =>
        [...text.matchAll(/(?:\bfrom|\bimport\(?|\bURL\()\s*['"](\.[^'"]*)['"]/g)].map(
            ([, name]) => {
                const found = normalize(join(dirname(path), name));
                return tracked.has(found) && languageOf(found) ? found : undefined;
            },
        ),
    build: (_path, text) =>
        [...text.matchAll(/\bdova(?:::|_)(\w+)/g)]
            .map(([, name]) => `platform/${name}/CMakeLists.txt`)
            .filter((target) => tracked.has(target)),
};

function languageOf(path) {
    if (/\.(cpp|h)$/.test(path)) return 'cpp';
    if (/\.(ts|mjs)$/.test(path)) return 'script';
    return path.endsWith('/CMakeLists.txt') && roomOf(path) ? 'build' : undefined;
}

/** A header that only its own room and its tests may see. */
function isInside(path) {
    return path.startsWith('platform/') && path.endsWith('.h') && !path.includes('/include/');
}

function maySee(room, file) {
    const target = roomOf(file);
    const allowed = knows.get(room);
    return (
        target === room ||
        allowed.includes(isInside(file) ? `${target}/*` : target) ||
        allowed.includes(`${target}/*`)
    );
}

const faults = [];
const used = new Map([...knows.keys()].map((room) => [room, new Set()]));
let checked = 0;
for (const path of tracked) {
    const language = languageOf(path);
    const room = roomOf(path);
    if (language === undefined) continue;
    if (room === undefined) {
        faults.push(`${path}: its folder has no line in tools/rooms.json`);
        continue;
    }
    checked += 1;
    for (const file of usesOf[language](path, read(path)).filter((found) => found !== undefined)) {
        used.get(room).add(roomOf(file));
        if (!maySee(room, file)) faults.push(`${path}: may not know ${file}`);
    }
}
for (const [room, allowed] of knows) {
    const idle = allowed
        .map((name) => name.replace(/\/\*$/, ''))
        .filter((name) => !used.get(room).has(name));
    faults.push(...idle.map((name) => `tools/rooms.json: ${room} does not need ${name}`));
}

const guide = 'docs/architecture.md';
const drawn = pictures(read(guide), groups);
if (process.argv.includes('--write')) writeFileSync(guide, drawn);
else if (drawn !== read(guide))
    faults.push(`${guide}: its pictures show other rooms; tools/check-rooms.mjs --write`);

for (const fault of faults) console.error(fault);
if (checked === 0) throw new Error('no sources found: nothing was checked');
console.log(`rooms: ${checked} sources in ${knows.size} rooms checked, ${faults.length} faults`);
process.exitCode = faults.length > 0 ? 1 : 0;
