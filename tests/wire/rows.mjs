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

/** The wire text that a row means, or undefined when it holds bytes that are no text. */
export function textOf(value, identifiers) {
    const text = rawText(value);
    return text === undefined ? undefined : fillIn(text, identifiers);
}

function rawText(value) {
    if (typeof value === 'string') {
        return value;
    }
    return hasParts(value) ? joined(value.parts) : compact(value);
}

/** `${name}` with its modifiers replaced. */
export function fillIn(text, identifiers) {
    return text.replace(/\$\{(\w+)(?::(\w+))?\}/g, (_, name, form) => {
        if (!identifiers.has(name)) {
            throw new Error(`no object named ${name}`);
        }
        return write(identifiers.get(name), form);
    });
}

function write(id, form) {
    switch (form) {
        case undefined:
            return String(id);
        case 'wrapped':
            return String(id + 2 ** 32);
        case 'hex':
            return id.toString(16);
        default:
            throw new Error(`no such form: ${form}`);
    }
}

function hasParts(value) {
    return !Array.isArray(value) && value.parts !== undefined;
}

/** Undefined when a part is raw bytes. */
function joined(parts) {
    if (parts.some((part) => part.bytes !== undefined)) {
        return undefined;
    }
    return parts
        .map((part) => (typeof part === 'string' ? part : part.repeat.repeat(part.times)))
        .join('');
}

/** Compact JSON text with the keys of every object in alphabetical order. */
export function compact(value) {
    return JSON.stringify(value, (_, member) =>
        isObject(member) ? Object.fromEntries(Object.entries(member).sort(byKey)) : member,
    );
}

function isObject(value) {
    return typeof value === 'object' && value !== null && !Array.isArray(value);
}

function byKey([a], [b]) {
    return a < b ? -1 : 1;
}
