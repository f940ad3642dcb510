import { readdirSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';

/** The documented protocol: its document, schemas and examples, and what they know by name. */

const require = createRequire(new URL('../../client/package.json', import.meta.url));
const Ajv = require('ajv');

export const folder = fileURLToPath(new URL('../../docs/protocol', import.meta.url));

export function readJson(path) {
    return JSON.parse(readFileSync(join(folder, path), 'utf8'));
}

function readFolder(name) {
    const files = readdirSync(join(folder, name)).filter((file) => file.endsWith('.json'));
    return new Map(files.map((file) => [file, readJson(join(name, file))]));
}

export const api = readJson('asyncapi.json');
export const schemas = readFolder('schemas');
export const examples = [...readFolder('examples')].flatMap(([file, list]) =>
    list.map((example) => ({ ...example, file })),
);

/** Parts that only narrow their whole leave "type" and "properties" to it. */
const ajv = new Ajv({ strictTypes: false, strictRequired: false });
for (const schema of schemas.values()) {
    ajv.addSchema(schema);
}

/** Message name to a function that says whether a payload is such a message. */
export const validators = new Map(
    Object.entries(api.components.messages).map(([name, { payload }]) => [
        name,
        ajv.compile({ $ref: payload.$ref.replace('./schemas/', '') }),
    ]),
);

/** Whether a page can do something with a property of this value. */
export const isUsable = ajv.compile({ $ref: 'properties.json#/definitions/usable' });

/** Names of the messages that may travel on a channel; `action` is the program's. */
export function messagesOn(channel, action) {
    return Object.values(api.operations)
        .filter((operation) => operation.action === action)
        .filter((operation) => operation.channel.$ref === `#/channels/${channel}`)
        .flatMap((operation) => operation.messages.map(({ $ref }) => basename($ref)));
}

/** Which message a payload is, of those that may travel there; undefined when it is none. */
export function kindOf(channel, action, payload) {
    return messagesOn(channel, action).find((name) => validators.get(name)(payload));
}

/** An object of a description and all below it. */
export function flattened(tree) {
    return [tree, ...(tree.contents ?? []).flatMap(flattened)];
}
