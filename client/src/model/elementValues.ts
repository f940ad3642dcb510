import { asFlag, asText, asTexts, type JsonObject } from '../protocol/guards.ts';
import { ElementKey, Kind } from '../protocol/names.ts';
import type { PartialValues } from '../protocol/properties.ts';

/** What only the model document tells: everything else of an object travels with its window. */
export type ElementValues = Pick<
    PartialValues,
    'entries' | 'placeholder' | 'checkable' | 'checked' | 'icon'
>;

function placeholder(element: JsonObject): ElementValues {
    return { placeholder: asText(element[ElementKey.placeholder]) ?? '' };
}

/** A button that a description says nothing of is neither checkable nor checked. */
function checked(element: JsonObject): ElementValues {
    return {
        checkable: asFlag(element[ElementKey.checkable]) ?? false,
        checked: asFlag(element[ElementKey.checked]) ?? false,
    };
}

function icon(element: JsonObject): ElementValues {
    return { icon: asText(element[ElementKey.icon]) ?? '' };
}

/** The sequence is copied: patches change the document's own in place. */
function entries(element: JsonObject): ElementValues {
    const items = asTexts(element[ElementKey.entries])?.slice() ?? [];
    return { entries: items, ...placeholder(element) };
}

const readers = new Map<unknown, (element: JsonObject) => ElementValues>([
    [Kind.button, checked],
    [Kind.checkBox, icon],
    [Kind.edit, placeholder],
    [Kind.comboBox, entries],
]);

/** A member that an element does not hold has the default of its kind. */
export function valuesOfElement(element: JsonObject): ElementValues | undefined {
    return readers.get(element[ElementKey.type])?.(element);
}
