import { Key } from '../protocol/names.ts';
import type { StoredObject } from './StoredObject.ts';

/**
 * The object and all below it in the form in which the program describes them, so that what was
 * kept is read by the same code as what arrives.
 */
export function describe(object: StoredObject): Readonly<Record<string, unknown>> {
    return {
        ...object.values,
        [Key.id]: String(object.id),
        [Key.type]: object.type,
        [Key.contents]: object.children.map(describe),
    };
}
