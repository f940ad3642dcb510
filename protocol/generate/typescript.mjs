import {
    eventMembers,
    events,
    forms,
    gateway,
    kinds,
    lifeCycle,
    messages,
    nameOf,
    ofObjects,
    once,
    paths,
    sentence,
} from '../table.mjs';
import { mark } from './mark.mjs';

/** What the page knows of the wire: names, and the values of properties. */

const quote = (text) => `'${text}'`;
const shouting = (name) => name.replace(/([a-z])([A-Z])/g, '$1_$2').toUpperCase();
const lines = (list) => [`// ${mark}`, ...list, ''].join('\n');
const same = (names) => once(names).map((name) => [name, name]);

function constant(name, text) {
    return `export const ${name} = ${quote(text)};`;
}

function table(comment, name, entries, write = quote) {
    return [
        '',
        `/** ${comment} */`,
        `export const ${name} = {`,
        ...entries.map(([key, value]) => `    ${key}: ${write(value)},`),
        '} as const;',
    ];
}

/** A list, on one line if it fits there. */
function list(comment, start, items, end) {
    const line = `${start}${items.join(', ')}${end}`;
    const broken = [start, `    ${items.join(', ')},`, end];
    return ['', `/** ${comment} */`, ...(line.length <= 100 ? [line] : broken)];
}

const { channels, down, model } = messages;
const { closeCodes, greeting } = gateway;
const names = [
    constant('ROOT_CHANNEL', channels.root.address),
    constant('MODEL_CHANNEL', channels.model.address),
    constant('OWN_CHANNEL', gateway.ownChannel),
    constant('SUB_PROTOCOL', gateway.subProtocol),
    constant('TOKEN_PROTOCOL', gateway.tokenProtocol),
    // Relative to the page's document.
    ...Object.entries(paths).map(([name, path]) =>
        constant(`${shouting(name)}_PATH`, path.slice(1)),
    ),
    '',
    '/** Words that are the value of a property. */',
    ...ofObjects.flatMap(({ name, words }) =>
        Object.entries(words).map(([word, text]) =>
            constant(`${shouting(name)}_${shouting(word)}`, text),
        ),
    ),
    '',
    '/** What stands in the place of an identifier where there is none. */',
    `export const NO_BUDDY = ${forms.buddy.none};`,
    ...table(
        'Keys of the life-cycle messages that a page says or hears.',
        'LifeCycle',
        same(lifeCycle.filter(({ unsaid }) => !unsaid).map(nameOf)),
    ),
    ...table('Members of the messages that come down.', 'Key', same([...down.members, 'command'])),
    ...table(
        'The types of messages that are told by a member.',
        'MessageType',
        Object.entries(down.types),
    ),
    ...table(
        'What an object is.',
        'Kind',
        kinds.map(({ constant: key, name }) => [key, name]),
    ),
    ...table('Members of what the page sends up.', 'Up', same(eventMembers)),
    ...table('What can have happened to an object.', 'Event', same(events.map(nameOf))),
    ...table('Members of a style.', 'StyleKey', same(forms.style.members)),
    ...table(
        "Members of the messages on the model document's channel.",
        'ModelKey',
        same(model.members),
    ),
    ...table('Members of every element of that document.', 'ElementKey', same(['type', 'tag'])),
    ...table("Parameters of the page's requests.", 'Query', same(gateway.query.map(nameOf))),
    ...table(
        'Members of the first frame of a connection.',
        'GreetingKey',
        same([
            greeting.member,
            ...Object.values(greeting.sessions).flatMap(({ members }) => Object.keys(members)),
        ]).filter(([name]) => name !== 'reason'),
    ),
    ...table(
        'What became of the session that the page asked for.',
        'Greeted',
        Object.entries(greeting.sessions).map(([key, { word }]) => [key, word]),
    ),
    ...table(
        'Close codes that the page tells apart.',
        'CloseCode',
        closeCodes.filter(({ page }) => page && page !== '-').map(({ name, code }) => [name, code]),
        String,
    ),
    ...list(
        'Close codes after which the page starts afresh.',
        'export const SESSION_OVER: ReadonlySet<number> = new Set([',
        closeCodes.filter(({ afresh }) => afresh).map(({ code }) => code),
        ']);',
    ),
    ...list(
        'How serious a message box is; a word that is none of these counts as the first.',
        'export const LEVELS = [',
        down.levels.map(quote),
        '] as const;',
    ),
];

// ---- values

const valued = ofObjects.filter(({ form }) => form.page);
const read = ofObjects.filter(({ readBy }) => readBy.length > 0);

/** "geometry.asRect" is what the page exports as `asRect` from geometry.ts. */
function imported() {
    const modules = new Map();
    for (const { form } of valued) {
        for (const [part, isType] of [
            [form.page.reads, false],
            [form.page.type, true],
        ]) {
            const [module, name] = part.split('.');
            if (name !== undefined) {
                const list = modules.get(module) ?? new Set();
                modules.set(module, list.add(isType ? `type ${name}` : name));
            }
        }
    }
    return [...modules].sort().map(([module, found]) => {
        const list = [...found].sort().join(', ');
        return `import { ${list} } from './${module}.ts';`;
    });
}

const local = (part) => part.split('.').pop();
const literal = (value) => (value === '' ? "''" : JSON.stringify(value));

function comment(meaning) {
    const words = sentence(meaning);
    return words.length < 90
        ? [`    /** ${words} */`]
        : [
              '    /**',
              ...words.match(/.{1,90}(?: |$)/g).map((line) => `     * ${line.trim()}`),
              '     */',
          ];
}

function membersOf({ name, members = {} }) {
    const list = Object.entries(members).map(
        ([member, { form }]) => `readonly ${member}: ${forms[form].page.type}`,
    );
    return `    ${name}: ${list.length > 0 ? `{ ${list.join('; ')} }` : 'object'};`;
}

const values = [
    ...imported(),
    '',
    '/** What an object can have, under the names of the wire and in the kinds of the page. */',
    'export interface Values {',
    ...valued.flatMap(({ name, meaning, form }) => [
        ...comment(meaning),
        `    ${name}: ${local(form.page.type)};`,
    ]),
    '}',
    '',
    'export type Name = keyof Values;',
    'export type PartialValues = { [N in Name]?: Values[N] };',
    '',
    '/** How each is read; what has another form is undefined. */',
    'export const decoders: { readonly [N in Name]: (value: unknown) => Values[N] | undefined } = {',
    ...valued.map(({ name, form }) => `    ${name}: ${local(form.page.reads)},`),
    '};',
    '',
    '/** How an object is when its description says nothing else; large windows are mostly this. */',
    'export const initialValues: PartialValues = {',
    ...valued
        .filter(({ initial }) => initial !== undefined)
        .map(({ name, initial }) => `    ${name}: ${literal(initial)},`),
    '};',
    '',
    '/** Writes that ask for something to happen each time they arrive; their value is always true. */',
    'export const triggers = [',
    ...ofObjects.filter(({ isTrigger }) => isTrigger).map(({ name }) => `    ${quote(name)},`),
    '] as const;',
    'export type Trigger = (typeof triggers)[number];',
    '',
    '/** What only the model document tells, and how an element is that does not say it. */',
    'export const elementDefaults = {',
    ...read.map(({ name, start }) => `    ${name}: ${literal(start)},`),
    '} satisfies PartialValues;',
    'export type ElementName = keyof typeof elementDefaults;',
    '',
    '/** Which of it the elements of each kind have. */',
    'export const elementReads: ReadonlyMap<unknown, readonly ElementName[]> = new Map([',
    ...kinds
        .map(({ name }) => [
            name,
            read.filter(({ readBy }) => readBy.some((kind) => kind.name === name)),
        ])
        .filter(([, list]) => list.length > 0)
        .map(
            ([name, list]) =>
                `    [${quote(name)}, [${list.map((each) => quote(each.name)).join(', ')}]],`,
        ),
    ']);',
    '',
    '/** What the page tells with each event, beside the object and the event itself. */',
    'export interface EventMembers {',
    ...events.map(membersOf),
    '}',
    'export type EventName = keyof EventMembers;',
];

export const outputs = [
    ['client/src/protocol/names.ts', lines(names)],
    ['client/src/protocol/values.ts', lines(values)],
];
