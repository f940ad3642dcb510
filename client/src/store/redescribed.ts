import { type Description, decodeDescription } from '../protocol/description.ts';
import { readProperties } from '../protocol/properties.ts';
import { initialValues, type Name, type PartialValues } from '../protocol/values.ts';
import type { StoredObject } from './StoredObject.ts';

/** A value of an object that is another one than the page has. */
type News = <N extends Name>(object: StoredObject, name: N, value: PartialValues[N]) => void;

/**
 * Compares a window with a new description of it. False when it holds other objects now, or in
 * another order; else tells what has another value, so that everything else stays as the user has
 * it: focus, caret, what is scrolled, place and size. `isElsewhere`: windows stand in no other one.
 * `settle` puts what the user gave in place of what is outdated.
 */
export function tellNews(
    window: StoredObject,
    description: Description,
    isElsewhere: (id: number) => boolean,
    settle: (object: StoredObject, values: PartialValues) => void,
    tell: News,
): boolean {
    const pairs: [StoredObject, Description][] = [[window, description]];
    for (const [object, now] of pairs) {
        const contents = now.contents.flatMap((raw) => decodeDescription(raw) ?? []);
        const children = contents.filter(({ id }) => !isElsewhere(id));
        if (now.type !== object.type || children.length !== object.children.length) {
            return false;
        }
        for (const [index, child] of object.children.entries()) {
            const described = children[index];
            if (described?.id !== child.id) {
                return false;
            }
            pairs.push([child, described]);
        }
    }
    for (const [object, { raw }] of pairs) {
        const values: PartialValues = {};
        const names = new Set<Name>();
        readProperties(raw, values, names);
        settle(object, values);
        tellValues(object, values, names, tell);
    }
    return true;
}

function tellValues(
    object: StoredObject,
    values: PartialValues,
    names: ReadonlySet<Name>,
    tell: News,
): void {
    for (const name of names) {
        const before = object.values[name] ?? initialValues[name];
        if (JSON.stringify(before) !== JSON.stringify(values[name])) {
            tell(object, name, values[name]);
        }
    }
}
