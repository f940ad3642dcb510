import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

/** Reads the rows beside this file; see README.md for their form. */

const here = fileURLToPath(new URL('.', import.meta.url));
export const scene = JSON.parse(readFileSync(join(here, 'scene.json'), 'utf8'));

/** All rows of a folder, each with `file`, the path that a failure should name. */
export function readRows(folder) {
    const names = readdirSync(join(here, folder)).filter((name) => name.endsWith('.json'));
    return names.flatMap((name) => {
        const rows = JSON.parse(readFileSync(join(here, folder, name), 'utf8'));
        return rows.map((row) => ({ ...row, file: `${folder}/${name}` }));
    });
}

export function stepsOf(row) {
    return row.steps ?? [row];
}

/** Identifiers for the objects of a row's scene, counted from 1. */
export function identifiersOf(row) {
    const { objects } = row.scene ?? scene;
    return new Map(objects.map((object, index) => [object.name, index + 1]));
}

/** UUIDs for the elements of a row of `model`. */
export function uuidsOf(row) {
    const created = stepsOf(row)
        .flatMap(({ calls = [] }) => calls)
        .filter(([, operation]) => operation === 'create');
    const names = [...new Set(created.map(([name]) => name))];
    const uuid = (index) => `00000000-0000-4000-8000-${String(index).padStart(12, '0')}`;
    return new Map(names.map((name, index) => [name, uuid(index)]));
}

/** The texts that a page hears in each step of a row of `model`. */
export function modelSteps(row) {
    const uuids = uuidsOf(row);
    let version = 0;
    return stepsOf(row).map(({ patch, snapshot }) => {
        const messages = [];
        if (patch !== undefined) {
            version += 1;
            messages.push({ version, patch });
        }
        if (snapshot !== undefined) {
            messages.push({ version, snapshot });
        }
        return messages.map((message) => fillIn(compact(message), uuids));
    });
}

/** The wire text that a row means, or undefined when it holds bytes that are no text. */
export function textOf(value, identifiers) {
    const text = rawText(value);
    return text === undefined ? undefined : fillIn(text, identifiers);
}

function rawText(value) {
    if (typeof value === 'string') {
        return value;
    }
    const parts = value.parts ?? [compact(value)];
    return parts.some((part) => part.bytes !== undefined)
        ? undefined
        : parts.map((part) => (part.times ? part.repeat.repeat(part.times) : part)).join('');
}

const forms = {
    wrapped: (id) => String(id + 2 ** 32),
    hex: (id) => id.toString(16),
};

/** `${name}` with its modifiers replaced; a name or a form that there is not is an exception. */
export function fillIn(text, identifiers) {
    return text.replace(/\$\{(\w+)(?::(\w+))?\}/g, (_, name, form) => {
        if (!identifiers.has(name)) {
            throw new Error(`no object named ${name}`);
        }
        const id = identifiers.get(name);
        return form === undefined ? String(id) : forms[form](id);
    });
}

/** Compact JSON text with the keys of every object in alphabetical order. */
function compact(value) {
    return JSON.stringify(value, (_, member) =>
        typeof member === 'object' && member !== null && !Array.isArray(member)
            ? Object.fromEntries(Object.entries(member).sort(([a], [b]) => (a < b ? -1 : 1)))
            : member,
    );
}
