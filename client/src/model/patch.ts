import { isObject, type JsonObject } from '../protocol/guards.ts';

const operations: ReadonlySet<unknown> = new Set(['add', 'remove', 'replace']);

/**
 * Carries out an operation of a JSON Patch (RFC 6902). Answers which member of the document it has
 * touched; undefined when it does not fit. By hand, since programs send three of the six: a library
 * for all of them, and for making patches, weighed a fifteenth of the page.
 */
export function carryOut(document: JsonObject, operation: unknown): string | undefined {
    if (!isObject(operation)) {
        return undefined;
    }
    const [op, value] = [operation['op'], operation['value']];
    const steps = stepsOf(operation['path']);
    const key = steps.at(-1);
    const isWhole = operations.has(op) && (op === 'remove' || value !== undefined);
    if (!isWhole || key === undefined || steps.includes('__proto__')) {
        return undefined;
    }
    const holder = steps.slice(0, -1).reduce<unknown>(memberOf, document);
    const fits = Array.isArray(holder)
        ? changeItem(holder, op, key, value)
        : changeMember(holder, op, key, value);
    return fits ? steps[0] : undefined;
}

/** The steps of a JSON Pointer (RFC 6901); none to the document itself, and of what is none. */
function stepsOf(path: unknown): readonly string[] {
    const [root, ...steps] = typeof path === 'string' ? path.split('/') : [];
    return root === '' ? steps.map((step) => step.replaceAll('~1', '/').replaceAll('~0', '~')) : [];
}

function memberOf(holder: unknown, step: string): unknown {
    const isThere = typeof holder === 'object' && holder !== null && Object.hasOwn(holder, step);
    return isThere ? (holder as JsonObject)[step] : undefined;
}

function changeItem(items: unknown[], op: unknown, key: string, value: unknown): boolean {
    const index = key === '-' ? items.length : /^(0|[1-9]\d*)$/.test(key) ? Number(key) : NaN;
    const isThere = index < items.length;
    if (!isThere && !(op === 'add' && index === items.length)) {
        return false;
    }
    items.splice(index, op === 'add' ? 0 : 1, ...(op === 'remove' ? [] : [value]));
    return true;
}

function changeMember(object: unknown, op: unknown, key: string, value: unknown): boolean {
    if (!isObject(object) || (op !== 'add' && !Object.hasOwn(object, key))) {
        return false;
    }
    const members = object as Record<string, unknown>;
    if (op === 'remove') {
        delete members[key];
    } else {
        members[key] = value;
    }
    return true;
}
