import { readFileSync } from 'node:fs';

import {
    events,
    forms,
    gateway,
    kinds,
    lifeCycle,
    nameOf,
    ofElements,
    ofObjects,
    reports,
} from '../table.mjs';

/** The tables of the guide, each between two comments that bear its name. */

const path = 'docs/protocol/README.md';
const code = (text) => `\`${text}\``;
const codes = (texts) => texts.map(code).join(', ');

function table(head, rows) {
    const line = (cells) => `| ${cells.join(' | ')} |`;
    return [line(head), `|${'---|'.repeat(head.length)}`, ...rows.map(line)];
}

// ---- kinds and their properties

function eventsOf(kind) {
    return codes(events.filter(({ of }) => kind.name in of).map(nameOf)) || '-';
}

const kindTable = table(
    ['Kind', 'What it is', 'Type in its writes', 'Events'],
    kinds.map((kind) => [kind.name, kind.meaning, code(kind.written), eventsOf(kind)]),
);

function valueText({ form, words, always }) {
    const texts = Object.values(words);
    if (texts.length > 0) {
        return codes(texts.map((text) => (texts.length === 1 ? JSON.stringify(text) : text)));
    }
    return always === undefined ? form.guide : code(always);
}

/** The rows whose entry in the table is of one of these names. */
function rowsOf(names, cells) {
    return ofObjects.flatMap((property) => {
        const entries = [...property.entries.values()].filter((entry) => names(entry.names));
        return entries.length === 0
            ? []
            : [[code(property.name), valueText(property), ...cells(entries)]];
    });
}

/** What stands for all widgets, or for those that hold others and for controls apart. */
const shared = table(
    ['Property', 'Value', 'Sent', 'Described by what holds others', 'by controls', 'Meaning'],
    rowsOf(
        (names) => ['widget', 'container', 'control'].includes(names),
        (entries) => {
            const describedBy = (isControl) =>
                entries.find(({ kind }) => kind.isControl === isControl)?.described ?? '-';
            const [{ sent, meaning }] = entries;
            return [sent, describedBy(false), describedBy(true), meaning];
        },
    ),
);

function own(names) {
    return table(
        ['Property', 'Value', 'Sent', 'Described', 'Meaning'],
        rowsOf(
            (found) => found.split(', ').includes(names),
            ([{ sent, described, meaning }]) => [sent, described, meaning],
        ),
    );
}

const propertyTables = [
    ['properties of every widget', shared],
    ['properties of layouts', own('layout')],
    ...kinds
        .filter(({ groups }) => !groups.includes('layout'))
        .map(({ name }) => [`properties of ${name}`, own(name)]),
];

/** What an element starts with, as the guide says it. */
function startOf({ start, entries }) {
    const unset = [...entries.values()].find((entry) => entry.unset)?.unset;
    if (unset !== undefined) {
        return `unset, which counts as ${unset}`;
    }
    return start === '' || start.length === 0 ? 'empty' : code(start);
}

const controls = kinds.filter(({ isControl }) => isControl).length;

const elementTable = table(
    ['Property', 'Element', 'Value', 'Default'],
    ofElements.map((property) => {
        const elements = [...property.entries.values()].filter(({ element }) => element);
        const names = elements.map(({ kind }) => kind.name).join(', ');
        return [
            code(property.name),
            elements.length === controls ? 'all' : names,
            property.form.guide,
            startOf(property),
        ];
    }),
);

// ---- messages

function membersOf(members = {}) {
    const list = Object.entries(members).map(([name, { form, meaning }]) => {
        const more = meaning ? `: ${meaning}` : '';
        return `${code(name)} (${forms[form].guide}${more})`;
    });
    return list.join(', ') || '-';
}

const eventTable = table(
    ['`event`', 'Object', 'Members', 'Effect in the program'],
    events.flatMap(({ name, members, of }) =>
        Object.entries(of).map(([kind, effect]) => [code(name), kind, membersOf(members), effect]),
    ),
);

const reportTable = table(
    ['Member', 'Value', 'Effect in the program'],
    reports.map(({ name, form, effect }) => [
        code(name),
        form ? forms[form].guide : 'not read',
        effect,
    ]),
);

const lifeCycleTable = table(
    ['Message', 'Channel', 'Direction', 'Meaning'],
    lifeCycle.map(({ name, channel, way, value, meaning }) => {
        const shown = value.const ?? (value.$ref.endsWith('clientId') ? '"CLIENT"' : '"WINDOW"');
        return [code(`{"${name}":${shown}}`), channel, way, meaning];
    }),
);

const closeTable = table(
    ['Code', 'Meaning', 'What the page does'],
    gateway.closeCodes.map(({ code: number, meaning, afresh, page }) => [
        number,
        meaning,
        afresh ? 'starts afresh' : page,
    ]),
);

const tables = new Map([
    ['kinds', kindTable],
    ...propertyTables,
    ['properties of elements', elementTable],
    ['events', eventTable],
    ['reports', reportTable],
    ['life cycle', lifeCycleTable],
    ['close codes', closeTable],
]);

/** The guide with every table in its place; one without a place, or a place without one, throws. */
function filled(guide) {
    const placed = new Set();
    const place = /<!-- made from protocol\/: (.+?) -->\n[\s\S]*?<!-- end of \1 -->/g;
    const text = guide.replace(place, (_, name) => {
        if (!tables.has(name)) {
            throw new Error(`${path}: protocol/ makes no table "${name}"`);
        }
        placed.add(name);
        const lines = tables.get(name).join('\n');
        return `<!-- made from protocol/: ${name} -->\n${lines}\n<!-- end of ${name} -->`;
    });
    const absent = [...tables.keys()].filter((name) => !placed.has(name));
    if (absent.length > 0) {
        throw new Error(`${path}: no place for the tables ${absent.join(', ')}`);
    }
    return text;
}

export const outputs = [
    [path, filled(readFileSync(new URL(`../../${path}`, import.meta.url), 'utf8'))],
];
