import { api, examples, messagesOn, schemas } from './protocol.mjs';
import { forms } from './texts.mjs';

/** What the schemas allow, the examples show and the rows send, by name. */

/** Names of members, and which texts stand under each. */
class Vocabulary {
    members = new Set();
    texts = new Map();

    put(member, text) {
        this.members.add(member);
        if (typeof text === 'string') {
            this.texts.set(member, (this.texts.get(member) ?? new Set()).add(text));
        }
    }

    /** Takes over a value as it stands on the wire; a path of a patch names a property, too. */
    takeValue(value) {
        if (typeof value !== 'object' || value === null) {
            return;
        }
        for (const [member, inner] of Object.entries(value)) {
            if (!Array.isArray(value)) {
                this.put(member, inner);
            }
            if (member === 'path' && inner.split('/').length > 2) {
                this.put(inner.split('/')[2]);
            }
            this.takeValue(inner);
        }
    }

    /** Takes over what a schema allows, with all that it refers to. */
    takeSchema(schema, file, seen = new Set()) {
        if (typeof schema !== 'object' || schema === null || seen.has(schema)) {
            return;
        }
        seen.add(schema);
        const { $ref, properties = {}, ...rest } = schema;
        if (typeof $ref === 'string') {
            const [other, pointer] = $ref.split('#');
            const target = other === '' ? file : other.replace('./schemas/', '');
            const steps = (pointer ?? '').split('/').slice(1);
            const found = steps.reduce((value, step) => value[step], schemas.get(target));
            this.takeSchema(found, target, seen);
        }
        for (const [member, inner] of Object.entries(properties)) {
            [inner.const, ...(inner.enum ?? [])].forEach((text) => this.put(member, text));
            this.takeSchema(inner, file, seen);
        }
        Object.entries(rest)
            .filter(([keyword]) => !['definitions', 'not'].includes(keyword))
            .forEach(([, inner]) => this.takeSchema(inner, file, seen));
    }
}

export const ways = ['down', 'up', 'model'];

/** Which way a message goes, what travels about the model by itself; those of the socket: none. */
function wayOf(message) {
    const goes = (channels, action) =>
        channels.some((channel) => messagesOn(channel, action).includes(message));
    const windows = ['root', 'client', 'window'];
    return [
        goes(windows, 'send') && 'down',
        goes(windows, 'receive') && 'up',
        goes(['model'], 'send') && 'model',
    ].find(Boolean);
}

/** A vocabulary for each way, from `[message, ...]` entries. */
function vocabularies(entries, take) {
    const each = new Map(ways.map((way) => [way, new Vocabulary()]));
    for (const [message, ...rest] of entries) {
        const vocabulary = each.get(wayOf(message));
        if (vocabulary !== undefined) {
            take(vocabulary, ...rest);
        }
    }
    return each;
}

const takeValue = (vocabulary, value) => vocabulary.takeValue(value);
// A garbled text is no row of what it was made from.
const replayed = [forms.library, forms.frames, forms.model].flatMap(({ rows, texts }) =>
    rows.flatMap(texts).filter(({ kind, conforms }) => kind !== undefined && conforms),
);

export const places = {
    schema: vocabularies(
        Object.entries(api.components.messages).map(([name, { payload }]) => [name, payload]),
        (vocabulary, payload) => vocabulary.takeSchema(payload, ''),
    ),
    example: vocabularies(examples.map(({ message, payload }) => [message, payload]), takeValue),
    row: vocabularies(replayed.map(({ kind, payload }) => [kind, payload]), takeValue),
};
