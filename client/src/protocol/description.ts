import { asId, asText, isObject, type JsonObject } from './guards.ts';
import { Key } from './names.ts';
import { describeInto, isTrigger, type PartialValues, type Trigger } from './properties.ts';

/**
 * An object with everything below it, as it was described. A value that every object has to begin
 * with is left out.
 */
export interface Description {
    readonly id: number;
    readonly type: string;
    readonly values: PartialValues;
    readonly triggers: readonly Trigger[];
    readonly contents: readonly Description[];
}

/** Deeper nesting is no dialog any more, and browsers lay elements out recursively. */
const MAX_DEPTH = 200;

const NO_TRIGGERS: readonly Trigger[] = [];
const NO_CONTENTS: readonly Description[] = [];

/** Reads a described tree. What is not an object with an identifier is left out with all below. */
export function decodeDescription(value: unknown): Description | undefined {
    return isObject(value) ? decodeObject(value, 1) : undefined;
}

function decodeObject(raw: JsonObject, depth: number): Description | undefined {
    const id = asId(raw[Key.id]);
    if (id === undefined) {
        return undefined;
    }
    const values: PartialValues = {};
    let triggers = NO_TRIGGERS;
    for (const name in raw) {
        const value = raw[name];
        if (isTrigger(name, value)) {
            triggers = [...triggers, name];
        } else {
            describeInto(values, name, value);
        }
    }
    const contents = decodeContents(raw[Key.contents], depth + 1);
    return { id, type: asText(raw[Key.type]) ?? '', values, triggers, contents };
}

function decodeContents(value: unknown, depth: number): readonly Description[] {
    if (!Array.isArray(value) || depth > MAX_DEPTH) {
        return NO_CONTENTS;
    }
    const contents: Description[] = [];
    for (const item of value as unknown[]) {
        const description = isObject(item) ? decodeObject(item, depth) : undefined;
        if (description !== undefined) {
            contents.push(description);
        }
    }
    return contents;
}
