import {
    kinds,
    messages,
    nameOf,
    namesOf,
    ofObjects,
    properties,
    typeInWrites,
} from '../table.mjs';
import { json } from './json.mjs';
import { mark } from './mark.mjs';

/** An example of every property of every kind, in each way that it travels. */

const page = 'k3Jx9';
const window = kinds[0];
const idOf = (kind) => String(kinds.indexOf(kind) + 5);
const uuidOf = (kind) => `0b6f3c1e-5a53-4b0e-9d0c-6a4a3f0f7a${idOf(kind).padStart(2, '0')}`;

function channel(name) {
    return messages.channels[name].address
        .replace('{clientId}', page)
        .replace('{windowId}', idOf(window));
}

/** As the program writes it: keys in alphabetical order. */
function sorted(object) {
    return Object.fromEntries(Object.entries(object).sort(([a], [b]) => (a < b ? -1 : 1)));
}

const exampleOf = new Map(properties.map(({ name, example }) => [name, example]));
const valuesOf = (names) => Object.fromEntries(names.map((name) => [name, exampleOf.get(name)]));

function write({ name, entries }) {
    const entry = [...entries.values()].find(({ sent }) => sent !== 'never');
    const object = { id: idOf(entry.kind), type: typeInWrites(entry), ...valuesOf([name]) };
    return {
        name: `${name} of ${entry.kind.name}`,
        message: 'propertyWrite',
        channel: channel('window'),
        payload: [sorted(object)],
    };
}

const isSent = ({ entries }) => [...entries.values()].some(({ sent }) => sent !== 'never');

/** What each kind holds in the example: pages are in a container of tabs, the rest in a layout. */
const controls = kinds.filter(({ isControl }) => isControl);
const holds = {
    Dialog: ['BoxLayout'],
    BoxLayout: ['Panel', 'GroupBox', 'TabContainer', ...controls.map(nameOf)],
    Panel: ['GridLayout'],
    TabContainer: ['Tab'],
};

function describe(name) {
    const kind = kinds.find((each) => each.name === name);
    const contents = (holds[name] ?? []).map(describe);
    return sorted({
        id: idOf(kind),
        type: name,
        ...valuesOf(namesOf(kind, 'described')),
        ...(contents.length > 0 && { contents }),
    });
}

function element(kind) {
    return [uuidOf(kind), { type: kind.name, ...valuesOf(namesOf(kind, 'element')) }];
}

const [first, ...rest] = [
    {
        name: 'everything that objects describe',
        message: 'description',
        channel: channel('client'),
        payload: describe(window.name),
    },
    {
        name: 'everything that elements have',
        message: 'modelSnapshot',
        channel: channel('model'),
        payload: {
            version: 0,
            snapshot: Object.fromEntries(controls.map(element)),
        },
    },
    ...ofObjects.filter(isSent).map(write),
];

export const outputs = [
    [
        'docs/protocol/examples/properties.json',
        `${json([{ $comment: mark, ...first }, ...rest])}\n`,
    ],
];
