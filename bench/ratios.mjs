// Runs the benchmarks and prints each figure as a ratio to its floor of the same run, with its limit:
// ratios.mjs [--brief] FOLDER_WITH_BENCHMARKS. Exits 1 when a limit is missed. With --brief
// everything but the largest sizes runs once for a moment, and only what is counted is judged, not what is timed: that
// keeps the benchmarks from rotting where other work shares the machine.

import { execFileSync } from 'node:child_process';

const brief = process.argv.includes('--brief');
const folder = process.argv.slice(2).find((argument) => !argument.startsWith('--'));
if (!folder) {
    console.error('ratios.mjs: usage: ratios.mjs [--brief] FOLDER');
    process.exit(2);
}

/** Which benchmarks have a process of their own, and how often each is repeated there. */
const only = (filter, repetitions = 60) => ({ only: brief ? '-/[0-9]{6,}$' : filter, repetitions });
const largeDescriptions = only('^description.*/100*000$', 12);

/** What is promised: `of` over `to`, or the `counter` that `of` reports, is at most `limit`. */
const promises = [
    {
        bench: 'signal_bench',
        what: 'signal with one connection / virtual call',
        of: 'signalOneConnection',
        to: 'virtualCall',
        limit: 3,
    },
    {
        bench: 'property_bench',
        what: 'property write, shown, model element',
        of: 'propertyWriteShown',
        to: 'propertyWriteFloor',
        limit: 0.3,
    },
    {
        bench: 'property_bench',
        what: 'property write, shown, stored',
        of: 'storedPropertyWriteShown',
        to: 'propertyWriteFloor',
        limit: 0.3,
    },
    {
        bench: 'property_bench',
        what: 'property write, unserved, model element',
        of: 'propertyWriteUnserved',
        to: 'propertyWriteFloor',
        limit: 0.1,
    },
    {
        bench: 'property_bench',
        what: 'property write, unserved, stored',
        of: 'storedPropertyWriteUnserved',
        to: 'propertyWriteFloor',
        limit: 0.1,
    },
    {
        bench: 'event_bench',
        what: 'event, text to listener',
        of: 'eventDelivered',
        to: 'eventFloor',
        limit: 1,
    },
    ...[1000, 10000, 100000].map((size) => ({
        bench: 'description_bench',
        what: `description of ${size} objects, built and published`,
        of: `descriptionPublished/${size}`,
        to: `descriptionFloor/${size}`,
        limit: 0.6,
        ...(size === 1000 ? only('^description.*/1000$') : largeDescriptions),
    })),
    {
        bench: 'description_bench',
        what: 'description of 100,000 / of 10,000',
        of: 'descriptionPublished/100000',
        to: 'descriptionPublished/10000',
        limit: 12,
        ...largeDescriptions,
    },
    {
        bench: 'description_bench',
        what: 'array append at 10,000 / at 100',
        of: 'arrayAppend/10000',
        to: 'arrayAppend/100',
        limit: 1.1,
        ...only('^arrayAppend'),
    },
    {
        bench: 'mirror_bench',
        what: 'model patch, change to bus',
        of: 'patchMirrored',
        to: 'patchFloor',
        limit: 0.5,
        ...only('^patch'),
    },
    {
        bench: 'mirror_bench',
        what: 'model write, nobody asked / no mirror',
        of: 'writeNobodyAsked',
        to: 'writeWithoutMirror',
        limit: 1.1,
        ...only('^write'),
    },
    {
        bench: 'mirror_bench',
        what: 'item appended to 100,000 / to 10',
        of: 'appendItem/100000',
        to: 'appendItem/10',
        limit: 1.3,
        ...only('^appendItem/(10|100000)$'),
    },
    ...[10, 100, 1000, 10000, 100000].map((size) => ({
        bench: 'mirror_bench',
        what: `${size} items filled in, inserted, cleared`,
        of: `fillInsertClear/${size}`,
        to: `fillInsertClearFloor/${size}`,
        limit: 0.8,
        ...only(`^fillInsertClear.*/${size}$`, size > 1e4 ? 12 : 60),
    })),
    ...[1000, 10000].map((size) => ({
        bench: 'mirror_bench',
        what: `model snapshot of ${size} elements`,
        of: `snapshot/${size}`,
        to: `snapshotFloor/${size}`,
        limit: 0.5,
        ...only('^snapshot'),
    })),
];

promises.push(
    ...[
        ['bytes', 'bytes of the heap', 1650],
        ['blocks', 'blocks of the heap', 15],
    ].map(([counter, what, limit]) => ({
        bench: 'memory_bench',
        what: `one more widget in the program, ${what}`,
        of: 'oneMoreWidget/iterations:1',
        counter,
        limit,
        ...only('.', 1),
    })),
);

/** Each function that the library exports for JSON, over the plain Qt calls that it rests on. */
const parsing = [
    'arrayFromJSON',
    'escapedKeysFromJSON',
    'objectFromJSON',
    'arrayInsertFromJSON',
    'arrayAppendFromJSON',
    'arrayPrependFromJSON',
    'arrayReplaceFromJSON',
    'arrayContainsFromJSON',
    'objectInsertFromJSON',
];
const writing = ['array', 'arrayValue', 'object', 'objectValue'].flatMap((of) => [
    `${of}ToJSON`,
    `${of}ToJSONIndented`,
]);
const members = [
    'arrayValueType',
    'objectValueType',
    'objectValue',
    'objectGetKeys',
    'objectInsertValue',
    'objectRemove',
];
const overQt = (name, size, what) => ({
    bench: 'json_bench',
    what: `${name}, ${what} / plain Qt`,
    of: `${name}/${size}`,
    to: `${name}Floor/${size}`,
    limit: 1.2,
    ...only(`^${name}(Floor)?/${size}$`, size > 1e6 ? 12 : 60),
});
promises.push(
    ...[...parsing, ...writing].flatMap((name) => [
        overQt(name, 1000, '1 kB'),
        overQt(name, 100000, '100 kB'),
        overQt(name, 10000000, '10 MB'),
    ]),
    ...members.map((name) => overQt(name, 1000, '1,000 members')),
    {
        bench: 'json_bench',
        what: 'script edits an array of 100,000 / of 100',
        of: 'editArray/100000',
        to: 'editArray/100',
        limit: 1.5,
        ...only('^editArray', 12),
    },
    {
        bench: 'json_bench',
        what: 'script edits an object of 100,000 / of 100',
        of: 'editObject/100000',
        to: 'editObject/100',
        limit: 3,
        ...only('^editObject', 12),
    },
    // A call looks its member up, chooses among overloads, and makes a host value for the result and for each argument.
    ...[
        ['method', 3.5],
        ['property', 3],
        ['overloaded', 9],
    ].map(([kind, limit]) => ({
        bench: 'console_bench',
        what: `call from the console, ${kind} / plain Lua C function`,
        of: `hostCall/${kind}`,
        to: 'plainCall',
        limit,
    })),
);

/**
 * What each benchmark whose name matches `only` counted, and its processor times in nanoseconds an iteration, from the
 * least to the most. Many short repetitions, mixed with those of the floor, because a shared machine is fast and slow in
 * turns. Each JSON function and its floor have a process of their own: what other documents leave of the heap costs small
 * ones more than what is measured.
 */
function run(bench, only = '', repetitions = 60) {
    const options = brief
        ? ['--benchmark_min_time=0.001']
        : [
              `--benchmark_repetitions=${repetitions}`,
              '--benchmark_min_time=0.01',
              '--benchmark_enable_random_interleaving=true',
          ];
    const output = execFileSync(
        `${folder}/${bench}`,
        [...options, `--benchmark_filter=${only}`, '--benchmark_format=json'],
        {
            encoding: 'utf8',
            maxBuffer: 1 << 26,
            stdio: ['ignore', 'pipe', 'ignore'],
        },
    );
    const [times, counters] = [new Map(), new Map()];
    const perUnit = { ns: 1, us: 1e3, ms: 1e6, s: 1e9 };
    for (const row of JSON.parse(output).benchmarks) {
        if (row.error_occurred) throw new Error(`${bench}: ${row.name}: ${row.error_message}`);
        if (row.run_type === 'iteration') {
            const time = row.cpu_time * perUnit[row.time_unit];
            times.set(row.run_name, [...(times.get(row.run_name) ?? []), time]);
            counters.set(row.run_name, row);
        }
    }
    for (const each of times.values()) each.sort((one, other) => one - other);
    return { times, counters };
}

function timesOf(times, promise, name) {
    const found = times.get(name);
    if (!found) throw new Error(`${promise.bench} has no benchmark ${name}`);
    return found;
}

/**
 * The ratio of the two at their fast, quick and usual moments; of these three the middle one, so that a moment that only
 * one of the two has met does not count.
 */
function ratioOf(times, promise) {
    const [of, to] = [promise.of, promise.to].map((name) => timesOf(times, promise, name));
    const at = (sorted, share) => sorted[Math.floor(sorted.length * share)];
    const ratios = [0.1, 0.3, 0.5].map((share) => at(of, share) / at(to, share));
    return ratios.sort((one, other) => one - other)[1];
}

const figureOf = ({ times, counters }, promise) =>
    promise.counter ? counters.get(promise.of)[promise.counter] : ratioOf(times, promise);

const groups = new Map();
for (const promise of promises.filter(({ of }) => !brief || !/\/\d{6,}$/.test(of))) {
    const { bench, only, repetitions } = promise;
    const group = `${bench} ${only}`;
    const promised = [...(groups.get(group)?.promises ?? []), promise];
    groups.set(group, { bench, only, repetitions, promises: promised });
}

let missed = 0;
for (const group of groups.values()) {
    const measured = run(group.bench, group.only, group.repetitions);
    for (const promise of group.promises) {
        const figure = figureOf(measured, promise);
        const isJudged = !brief || promise.counter;
        const isMissed = isJudged && figure > promise.limit;
        missed += isMissed ? 1 : 0;
        const verdict = isMissed ? 'MISSED' : isJudged ? 'kept' : 'not judged';
        console.log(
            `${promise.what.padEnd(52)} ${figure.toFixed(2).padStart(7)}  at most ${String(promise.limit).padStart(4)}  ${verdict}`,
        );
    }
}
process.exitCode = missed > 0 ? 1 : 0;
