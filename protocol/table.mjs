import { readFileSync } from 'node:fs';

/** The table of the protocol as its readers want it: groups resolved, every kind with its own. */

function read(name) {
    return JSON.parse(readFileSync(new URL(`${name}.json`, import.meta.url), 'utf8'));
}

export const raw = {
    kinds: read('kinds'),
    forms: read('forms'),
    properties: read('properties'),
    events: read('events'),
    messages: read('messages'),
    gateway: read('gateway'),
    document: read('document'),
};

export const { forms, messages, gateway, document } = raw;
/** Those that say one thing under one key: pages and windows come and go. */
export const lifeCycle = messages.messages.filter(({ value }) => value !== undefined);
export const { bases, elementBases } = raw.kinds;
export const { events, reports } = raw.events;

/** The kinds of objects; `written` is the type that their writes bear. */
export const kinds = raw.kinds.kinds.map((kind) => ({
    ...kind,
    constant: kind.name[0].toLowerCase() + kind.name.slice(1),
    written: kind.writtenAs ?? kind.name,
    isControl: kind.groups.includes('control'),
}));

/** The kinds that a name stands for: a group, one kind, or several with commas between. */
function kindsIn(names) {
    const found = names
        .split(', ')
        .map((name) => kinds.filter((kind) => kind.name === name || kind.groups.includes(name)));
    if (found.some((each) => each.length === 0)) {
        throw new Error(`protocol: there is no kind or group "${names}"`);
    }
    return found.flat();
}

function formNamed(name) {
    if (!(name in forms)) {
        throw new Error(`protocol: forms.json has no form "${name}"`);
    }
    return forms[name];
}

const isGroup = (name) => kinds.some((kind) => kind.groups.includes(name));

/**
 * What holds everything that was ever written describes it, unless the table says otherwise; a
 * control describes what the table says.
 */
function describedBy(kind, { sent, described }) {
    const isKept = !kind.isControl && sent !== 'at its end';
    return described ?? (isKept ? 'when set' : 'never');
}

/** Kind name to what it does with the property; what is said of one kind goes before a group. */
function entriesOf({ of, except = [], ignored = {}, meaning }) {
    const entries = new Map();
    const groupsFirst = Object.entries(of).sort(([a], [b]) => isGroup(b) - isGroup(a));
    for (const [names, entry] of groupsFirst) {
        for (const kind of kindsIn(names).filter(({ name }) => !except.includes(name))) {
            const described = describedBy(kind, entry);
            entries.set(kind.name, { kind, meaning, ...entry, described, names });
        }
    }
    for (const [names, reason] of Object.entries(ignored)) {
        kindsIn(names).forEach(({ name }) => (entries.get(name).ignored = reason));
    }
    return entries;
}

/** What a page reads of the model document, because no message tells it. */
function isReadFromElement({ element, sent, described, ignored }) {
    return Boolean(element) && !ignored && (sent === 'never' || described === 'never');
}

export const properties = raw.properties.map((property) => {
    const form = formNamed(property.form);
    const entries = entriesOf(property);
    const all = [...entries.values()];
    const travels = all.some(({ sent, described }) => sent !== 'never' || described !== 'never');
    return {
        ...property,
        form,
        formName: property.form,
        isTrigger: property.form === 'trigger',
        words: property.words ?? {},
        start: property.initial ?? form.empty,
        example: property.example ?? exampleOf(property, form),
        entries,
        /** Whether objects have it in their messages, and not only elements. */
        isOfObjects: travels,
        isOfElements: all.some(({ element }) => element),
        readBy: travels ? all.filter(isReadFromElement).map(({ kind }) => kind) : [],
    };
});

/** A value that is another one than what the property starts with. */
function exampleOf({ initial, words = {} }, form) {
    return Object.values(words)[0] ?? (initial === form.example ? !initial : form.example);
}

export const ofObjects = properties.filter(({ isOfObjects }) => isOfObjects);
export const ofElements = properties.filter(({ isOfElements }) => isOfElements);

/** The properties that a kind has in one way: 'sent', 'described' or 'element'. */
export function namesOf(kind, way) {
    return properties
        .filter(({ entries }) => {
            const entry = entries.get(kind.name);
            return way === 'element' ? entry?.element : entry && entry[way] !== 'never';
        })
        .filter(({ entries }) => way !== 'sent' || entries.get(kind.name).sent !== 'at its end')
        .map(({ name }) => name);
}

/** The type that a write of the property bears: the last write of a window comes from its base. */
export function typeInWrites({ kind, sent }) {
    return sent === 'at its end'
        ? bases.find(({ constant }) => constant === 'abstractWindow').name
        : kind.written;
}

/** Where the gateway serves what, by name. */
export const paths = { socket: messages.channels.socket.address, ...gateway.paths };

export const nameOf = ({ name }) => name;

/** What the table says in a few words, as a sentence of plain text. */
export function sentence(meaning) {
    const plain = meaning.replace(/\[(.*?)\]\(.*?\)/g, '$1');
    return `${plain[0].toUpperCase()}${plain.slice(1)}.`;
}

/** Names, each once. */
export function once(names) {
    return [...new Set(names)];
}

export const eventMembers = once([
    'id',
    'event',
    ...events.flatMap(({ members = {} }) => Object.keys(members)),
    ...reports.filter(({ unsaid }) => !unsaid).map(({ name }) => name),
]);
