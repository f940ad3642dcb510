import { asId, asText, isObject, type JsonObject } from './guards.ts';
import { Key, Kind } from './names.ts';
import { readProperties } from './properties.ts';
import type { PartialValues, Trigger } from './values.ts';

/**
 * An object as it was described. A value that every object has to begin with is left out. What it
 * holds is not read yet: a window of ten thousand widgets is taken over object by object, without
 * a second tree beside the one that was parsed.
 */
export interface Description {
    readonly id: number;
    readonly type: string;
    readonly values: PartialValues;
    readonly triggers: readonly Trigger[];
    readonly contents: readonly unknown[];
    /** As it arrived. */
    readonly raw: JsonObject;
}

const NO_CONTENTS: readonly unknown[] = [];

const windowKinds: ReadonlySet<string> = new Set([Kind.dialog]);

/** Reads the description of a window with all it holds; only a window can stand by itself. */
export function decodeWindow(value: unknown): Description | undefined {
    const description = decodeDescription(value);
    return description && windowKinds.has(description.type) ? description : undefined;
}

/** Reads one object; what is not an object with an identifier is none, with all it holds. */
export function decodeDescription(raw: unknown): Description | undefined {
    if (!isObject(raw)) {
        return undefined;
    }
    const id = asId(raw[Key.id]);
    if (id === undefined) {
        return undefined;
    }
    const values: PartialValues = {};
    const triggers = readProperties(raw, values);
    const contents = raw[Key.contents];
    return {
        id,
        type: asText(raw[Key.type]) ?? '',
        values,
        triggers,
        contents: Array.isArray(contents) ? contents : NO_CONTENTS,
        raw,
    };
}
