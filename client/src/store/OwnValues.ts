import { asCount, asId, isObject, type JsonObject } from '../protocol/guards.ts';
import { Kind } from '../protocol/names.ts';
import { initialValues, type Name, type PartialValues } from '../protocol/values.ts';
import type { StoredObject } from './StoredObject.ts';

/** A value that the user gave, or the page, which no program has answered yet. */
interface OwnValue {
    readonly value: unknown;
    /** The number of the record that tells the program. */
    readonly record: number;
    /** The page made it of what the program had said, so that whatever this writes later counts. */
    readonly isMade: boolean;
    /** What the program has said last. */
    said: unknown;
}

type OwnOfObject = Map<string, OwnValue>;

/**
 * What the user typed, chose or switched, until the program says something about it. The program
 * takes such a value over when it hears of it; whatever it wrote before that is outdated, and so is
 * every answer to something older. Which of the page's records it knew when it wrote, the gateway
 * tells with every frame, so nothing has to be guessed from the values.
 */
export class OwnValues {
    readonly #objects = new Map<number, OwnOfObject>();

    /** The user gave an object these values in place of what it had; this record tells it. */
    put(
        id: number,
        values: PartialValues,
        before: PartialValues,
        record: number,
        isMade = false,
    ): void {
        const own = this.#objects.get(id) ?? new Map<string, OwnValue>();
        for (const [name, value] of Object.entries(values)) {
            const said = own.get(name)?.said ?? valueIn(before, name);
            own.set(name, { value, record, isMade, said });
        }
        this.#objects.set(id, own);
    }

    /** What of a write is to be shown that was made when the program knew records up to `known`. */
    written(object: StoredObject, write: JsonObject, known: number): JsonObject {
        const own = this.#objects.get(object.id);
        return own === undefined ? write : withoutOutdated(object, own, write, known);
    }

    /**
     * What an object shows that was described when the program knew records up to `known`. Of an
     * edit not even that says that its text has changed: the program may leave what is typed alone.
     */
    described(id: number, type: string, values: PartialValues, known: number): void {
        for (const [name, own] of this.#objects.get(id) ?? []) {
            const said = valueIn(values, name);
            const isLeft = type === Kind.edit && name === 'text' && said === own.said;
            if (known < own.record || isLeft || said === own.value) {
                own.said = said;
                (values as Record<string, unknown>)[name] = own.value;
            } else {
                this.forget(id, name);
            }
        }
    }

    forget(id: number, name?: string): void {
        if (name === undefined) {
            this.#objects.delete(id);
        } else {
            this.#objects.get(id)?.delete(name);
        }
    }

    store(): JsonObject {
        const plain = ([id, own]: [number, OwnOfObject]): [string, unknown] => [
            String(id),
            Object.fromEntries(own),
        ];
        return Object.fromEntries([...this.#objects].map(plain));
    }

    restore(stored: unknown): void {
        for (const [key, values] of Object.entries(isObject(stored) ? stored : {})) {
            const id = asId(key);
            const own = Object.entries(isObject(values) ? values : {}).flatMap(asOwnValue);
            if (id !== undefined) {
                this.#objects.set(id, new Map(own));
            }
        }
    }
}

function valueIn(values: PartialValues, name: string): unknown {
    return values[name as Name] ?? initialValues[name as Name];
}

function withoutOutdated(
    object: StoredObject,
    own: OwnOfObject,
    write: JsonObject,
    known: number,
): JsonObject {
    const current: Record<string, unknown> = { ...write };
    for (const [name, value] of own) {
        if (!(name in write)) {
            continue;
        }
        if (known < value.record && !value.isMade) {
            value.said = write[name];
            delete current[name];
        } else {
            object.isMistaken ||= known < value.record;
            own.delete(name);
        }
    }
    return current;
}

function asOwnValue([name, stored]: [string, unknown]): [string, OwnValue][] {
    const { value, record, isMade, said } = isObject(stored) ? stored : {};
    const number = asCount(record);
    const own = { value, isMade: isMade === true, said };
    return number === undefined ? [] : [[name, { ...own, record: number }]];
}
