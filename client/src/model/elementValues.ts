import type { JsonObject } from '../protocol/guards.ts';
import { ElementKey } from '../protocol/names.ts';
import {
    decoders,
    type ElementName,
    elementDefaults,
    elementReads,
    type PartialValues,
} from '../protocol/values.ts';

/** What only the model document tells: everything else of an object travels with its window. */
export type ElementValues = Pick<PartialValues, ElementName>;

/** A sequence is copied: patches change the document's own in place. */
function valueIn(element: JsonObject, name: ElementName): unknown {
    const value = decoders[name](element[name]);
    return Array.isArray(value) ? [...(value as unknown[])] : (value ?? elementDefaults[name]);
}

/** A member that an element does not hold has the default of its kind. */
export function valuesOfElement(element: JsonObject): ElementValues | undefined {
    const names = elementReads.get(element[ElementKey.type]);
    return names && Object.fromEntries(names.map((name) => [name, valueIn(element, name)]));
}
