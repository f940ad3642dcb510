import type { JsonObject } from './guards.ts';
import {
    decoders,
    initialValues,
    type Name,
    type PartialValues,
    type Trigger,
    triggers,
    type Values,
} from './values.ts';

/** Reads properties out of descriptions and writes. */

interface Property {
    readonly decode: (value: unknown) => Values[Name] | undefined;
    readonly initial: Values[Name] | undefined;
}

export const propertyNames = Object.keys(decoders) as readonly Name[];

const properties = new Map<string, Property>(
    propertyNames.map((name) => [name, { decode: decoders[name], initial: initialValues[name] }]),
);

function put(values: PartialValues, name: string, value: Values[Name]): void {
    (values as Record<string, Values[Name]>)[name] = value;
}

const triggerNames: ReadonlySet<string> = new Set(triggers);

const NO_TRIGGERS: readonly Trigger[] = [];

/**
 * Puts the members of `raw` whose name is known and whose kind is right into `values`, and answers
 * the triggers among them. `written` is told their names; without it they describe a new object, and
 * the values that every object has to begin with need not be put.
 */
export function readProperties(
    raw: JsonObject,
    values: PartialValues,
    written?: Set<Name>,
): readonly Trigger[] {
    let triggered = NO_TRIGGERS;
    for (const name in raw) {
        const value = raw[name];
        const property = properties.get(name);
        if (property === undefined) {
            if (value === true && triggerNames.has(name)) {
                triggered = [...triggered, name as Trigger];
            }
        } else if (written !== undefined || value !== property.initial) {
            const decoded = property.decode(value);
            if (decoded !== undefined && (written !== undefined || decoded !== property.initial)) {
                put(values, name, decoded);
                written?.add(name as Name);
            }
        }
    }
    return triggered;
}
