import { asFlag, asText, asTexts, type JsonObject } from '../protocol/guards.ts';
import { ElementKey, Kind } from '../protocol/names.ts';
import type { PartialValues } from '../protocol/properties.ts';

/** What only the model document tells: everything else of an object travels with its window. */
export type ElementValues = Pick<PartialValues, 'entries' | 'placeholder' | 'checkable'>;

function placeholder(element: JsonObject): ElementValues {
    return { placeholder: asText(element[ElementKey.placeholder]) ?? '' };
}

function checkable(element: JsonObject): ElementValues {
    return { checkable: asFlag(element[ElementKey.checkable]) ?? false };
}

/** The sequence is copied: patches change the document's own in place. */
function entries(element: JsonObject): ElementValues {
    const items = asTexts(element[ElementKey.entries])?.slice() ?? [];
    return { entries: items, ...placeholder(element) };
}

const readers = new Map<unknown, (element: JsonObject) => ElementValues>([
    [Kind.button, checkable],
    [Kind.edit, placeholder],
    [Kind.comboBox, entries],
]);

/** A member that an element does not hold has the default of its kind. */
export function valuesOfElement(element: JsonObject): ElementValues | undefined {
    return readers.get(element[ElementKey.type])?.(element);
}
