// Who may include whom: every room has one line below, and an include or a link against it is a
// fault. Prints the faults and exits 1 if there are any.

import { readFileSync } from 'node:fs';
import { execFileSync } from 'node:child_process';
import { dirname, join, normalize } from 'node:path';

const platformRooms = ['wiro', 'log', 'toolkit', 'model', 'messaging', 'host', 'gateway', 'runtime', 'console'];
const libraryRooms = ['core', 'windows', 'widgets', 'scripting'];
const beneathLibrary = ['wiro', 'toolkit', 'model', 'messaging', 'host'];

/** Which rooms' public headers the files below each folder may include. */
const mayKnow = {
  'platform/wiro': ['wiro'],
  'platform/log': ['log'],
  'platform/messaging': ['log', 'messaging', 'wiro'],
  'platform/model': ['messaging', 'model', 'wiro'],
  'platform/toolkit': ['toolkit', 'wiro'],
  'platform/host': ['host', 'wiro'],
  'platform/gateway': ['gateway', 'log', 'messaging'],
  'platform/runtime': ['gateway', 'host', 'log', 'messaging', 'model', 'runtime', 'toolkit', 'wiro'],
  'platform/console': ['console', 'host', 'runtime', 'toolkit', 'wiro'],
  include: [...beneathLibrary, ...libraryRooms],
  web: [...beneathLibrary, ...libraryRooms],
  examples: ['runtime', 'toolkit', 'wiro', 'core', 'widgets'],
};

const rooms = Object.keys(mayKnow);

function roomOf(path) {
  return rooms.find((room) => path.startsWith(`${room}/`));
}

/** The room whose public header an include names, if it names one. */
function includedRoom(name) {
  const first = name.split('/')[0];
  return platformRooms.includes(first) || libraryRooms.includes(first) ? first : undefined;
}

function includesOf(path) {
  const text = readFileSync(path, 'utf8');
  return [...text.matchAll(/^[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">]/gm)].map((match) => match[1]);
}

function faultsOfSource(path) {
  const room = roomOf(path);
  return includesOf(path).flatMap((name) => {
    if (name.startsWith('.')) {
      const target = roomOf(normalize(join(dirname(path), name)));
      return target === room ? [] : [`${path}: includes ${name}, the inside of another room`];
    }
    const included = includedRoom(name);
    return included && !mayKnow[room].includes(included) ? [`${path}: may not include ${name}`] : [];
  });
}

/** The neutral target names that a room's CMake file links. */
function faultsOfBuildFile(path) {
  const room = roomOf(path);
  const linked = [...readFileSync(path, 'utf8').matchAll(/\bdova(?:::|_)(\w+)/g)].map((m) => m[1]);
  return linked
    .filter((name) => platformRooms.includes(name) && !mayKnow[room].includes(name))
    .map((name) => `${path}: may not link dova::${name}`);
}

const tracked = execFileSync('git', ['ls-files', '-co', '--exclude-standard', ...rooms], { encoding: 'utf8' })
  .split('\n')
  .filter(Boolean);
const sources = tracked.filter((path) => /\.(cpp|h)$/.test(path));
const builds = tracked.filter((path) => path.endsWith('CMakeLists.txt') && roomOf(path));
const faults = [...sources.flatMap(faultsOfSource), ...builds.flatMap(faultsOfBuildFile)];
for (const fault of faults) console.error(fault);
if (sources.length === 0) throw new Error('no sources found: nothing was checked');
console.log(`rooms: ${sources.length} sources checked, ${faults.length} faults`);
process.exitCode = faults.length > 0 ? 1 : 0;
