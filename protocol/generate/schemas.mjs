import {
    events,
    forms,
    gateway,
    kinds,
    lifeCycle,
    messages,
    nameOf,
    namesOf,
    ofElements,
    ofObjects,
    reports,
    sentence as sentenceOf,
    typeInWrites,
} from '../table.mjs';
import { json } from './json.mjs';
import { mark } from './mark.mjs';

/** The parts of the JSON Schemas that name properties, events and messages. */

const common = (name) => ({ $ref: `common.json#/definitions/${name}` });
const here = (name) => ({ $ref: `#/definitions/${name}` });

function schema(name, title, description, rest) {
    const head = {
        $comment: mark,
        $schema: 'http://json-schema.org/draft-07/schema#',
        $id: `${name}.json`,
        title,
        description,
    };
    return [`docs/protocol/schemas/${name}.json`, `${json({ ...head, ...rest })}\n`];
}

const sentence = (meaning) => sentenceOf(meaning).replaceAll('`', '"');

/** A reference stands apart from a description, which it would hide. */
function described(meaning, form) {
    return { description: sentence(meaning), ...('$ref' in form ? { allOf: [form] } : form) };
}

function object(properties, isClosed) {
    const required = Object.keys(properties);
    return {
        type: 'object',
        properties,
        required,
        ...(isClosed && { additionalProperties: false }),
    };
}

const fromEntries = (list, value) =>
    Object.fromEntries(list.map((each) => [each.name, value(each)]));

// ---- properties

function formOf({ form, words, always }) {
    const texts = Object.values(words);
    if (texts.length > 0) {
        return texts.length === 1 ? { const: texts[0] } : { enum: texts };
    }
    return always === undefined ? form.schema : { const: always };
}

const values = {
    description: 'The value form of each property, whatever object has it.',
    properties: fromEntries(ofObjects, (property) => described(property.meaning, formOf(property))),
};

const usable = {
    description: 'Values that a page can apply. The program may send others; a page drops them.',
    properties: fromEntries(
        ofObjects.filter(({ form }) => form.usable),
        ({ form }) => form.usable,
    ),
};

function always(kind) {
    return ofObjects
        .filter(({ entries }) => entries.get(kind.name)?.described === 'always')
        .map(nameOf);
}

function inDescription(kind) {
    const required = always(kind);
    return {
        properties: { type: { const: kind.name } },
        ...(required.length > 0 && { required }),
        propertyNames: {
            anyOf: [here('frame'), { enum: namesOf(kind, 'described') }],
        },
    };
}

function inWrites(type, names) {
    return {
        properties: { type: { const: type } },
        propertyNames: { enum: ['id', 'type', ...names] },
    };
}

const writers = new Map();
for (const { name, entries } of ofObjects) {
    for (const entry of [...entries.values()].filter(({ sent }) => sent !== 'never')) {
        const type = typeInWrites(entry);
        writers.set(type, [...(writers.get(type) ?? []), name]);
    }
}

const properties = schema(
    'properties',
    'Properties',
    'The value form of every property, and which object has which in descriptions and in writes.',
    {
        definitions: {
            usable,
            values,
            frame: {
                description: 'Members of a description that are no properties.',
                enum: ['id', 'type', 'contents', 'msgType', 'parentId'],
            },
            described: { oneOf: kinds.map(inDescription) },
            written: { oneOf: [...writers].map(([type, names]) => inWrites(type, names)) },
        },
    },
);

// ---- elements

/** A value as an element bears it: any but the one that the property starts with. */
function elementValue({ form, start, entries }) {
    const isUnset = [...entries.values()].some(({ unset }) => unset);
    return isUnset ? form.schema : { ...form.schema, not: { const: start } };
}

const elements = schema(
    'elements',
    'Elements',
    'The elements of the model document: their properties, and how a patch gives them a value.',
    {
        definitions: {
            element: {
                description: 'Its type, and the properties that have not the default value.',
                type: 'object',
                required: ['type'],
                allOf: [here('values')],
                oneOf: kinds
                    .filter(({ isControl }) => isControl)
                    .map((kind) => ({
                        properties: { type: { const: kind.name } },
                        propertyNames: { enum: ['type', ...namesOf(kind, 'element')] },
                    })),
            },
            values: {
                description: 'The value form of each property. A default value is never written.',
                properties: fromEntries(ofElements, elementValue),
            },
            written: {
                description: 'A property of an element has a value now.',
                oneOf: ofElements.map((property) => ({
                    properties: {
                        path: { pattern: `^/[0-9a-f-]{36}/${property.name}$` },
                        value: elementValue(property),
                    },
                })),
            },
            inserted: {
                description: 'An item came into a list.',
                oneOf: ofElements
                    .filter(({ form }) => form.schema.items)
                    .map(({ name, form }) => ({
                        properties: {
                            path: { pattern: `^/[0-9a-f-]{36}/${name}/(0|[1-9][0-9]*)$` },
                            value: form.schema.items,
                        },
                    })),
            },
        },
    },
);

// ---- what comes up

function eventSchema({ name, meaning, members = {} }) {
    const own = Object.entries(members).map(([member, { form }]) => [member, forms[form].schema]);
    const properties = {
        id: common('receivedObjectId'),
        event: { const: name },
        ...Object.fromEntries(own),
    };
    return { description: meaning, properties, required: Object.keys(properties) };
}

const windowReport = {
    description: "A request of the user to a window, or the window's own state, or both.",
    properties: {
        id: common('receivedObjectId'),
        event: false,
        ...fromEntries(reports, ({ form, effect }) =>
            form
                ? described(effect, forms[form].schema)
                : { description: `${sentence(effect)} The value is not read.` },
        ),
    },
    required: ['id'],
    anyOf: reports.map(({ name }) => ({ required: [name] })),
};

const clientEvent = schema(
    'client-event',
    'Client events and reports',
    'Upward on a window channel: what the user did to one object, or several such messages in an array. Further members are ignored.',
    {
        anyOf: [here('message'), { type: 'array', items: here('message') }],
        definitions: {
            message: {
                type: 'object',
                anyOf: [...events.map(({ name }) => here(name)), here('windowReport')],
            },
            ...fromEntries(events, eventSchema),
            windowReport,
        },
    },
);

const life = schema('life-cycle', 'Life cycle', 'Messages of pages and of windows as a whole.', {
    definitions: fromEntries(lifeCycle, ({ name, meaning, value, closed }) => ({
        description: meaning,
        ...object({ [name]: value }, closed),
    })),
});

// ---- the gateway

const { sessions, member } = gateway.greeting;

const greeting = schema(
    'gateway-greeting',
    'First frame down',
    'What became of the session that the page asked for.',
    {
        oneOf: Object.values(sessions).map(({ word }) => here(word)),
        definitions: Object.fromEntries(
            Object.values(sessions).map(({ word, members, meaning }) => [
                word,
                {
                    description: meaning,
                    ...object({ [member]: { const: word }, ...members }, true),
                },
            ]),
        ),
    },
);

/** A frame whose records are on the page's own channel, on one below it, or on one in full. */
function frames(description, below) {
    const own = gateway.ownChannel.replace('.', '\\.');
    const { root, model } = messages.channels;
    const channel = [own, `${own}/[^\\u001e\\u001f]${below}`, root.address, model.address].join(
        '|',
    );
    const number = '[1-9][0-9]{0,14}';
    const record = `\\u001e(${channel})\\u001f[^\\u001e\\u001f]*`;
    return { description, type: 'string', pattern: `^${number},(0|${number})(${record})*$` };
}

const frame = schema(
    'gateway-frame',
    'Data frames of the socket',
    '"SEQ,ACK", then for each record U+001E, the channel, U+001F and the text as it stands.',
    {
        definitions: {
            upward: frames('From the page.', '{1,254}'),
            downward: frames('From the gateway.', '+'),
        },
    },
);

export const outputs = [properties, elements, clientEvent, life, greeting, frame];
