import { type ElementName, elementDefaults, type Values } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { ElementValues } from './elementValues.ts';
import { ModelMirror } from './ModelMirror.ts';

/** Brings what the model document says of the objects into the store. */
export class ModelFeed {
    readonly #store: ObjectStore;
    readonly #mirror: ModelMirror;

    constructor(store: ObjectStore, ask: () => void) {
        this.#store = store;
        this.#mirror = new ModelMirror(ask);
    }

    /**
     * What was known belongs to a session that is gone, or to an earlier life of the page, which
     * knew that these objects `had` an element.
     */
    begin(had: Iterable<number> = []): void {
        this.#mirror.begin(had);
    }

    /** The objects that have an element. */
    get objects(): Iterable<number> {
        return this.#mirror.objects;
    }

    /**
     * An object lives as long as its element: nothing else tells that a widget was destroyed. Done
     * in steps, like what is below.
     */
    *received(text: string): Generator<void> {
        for (const id of yield* this.#mirror.received(text)) {
            const object = this.#store.get(id);
            if (object !== undefined && this.#mirror.has(id)) {
                this.#fill(object);
            } else if (object?.parent !== undefined) {
                this.#store.remove(object);
            }
            yield;
        }
    }

    /** Objects of this window were described, which leaves out what the document holds. */
    *described(windowId: number): Generator<void> {
        for (const id of this.#mirror.objects) {
            const object = this.#store.get(id);
            if (object?.windowId === windowId) {
                this.#fill(object);
                yield;
            }
        }
    }

    #fill(object: StoredObject): void {
        const values: ElementValues = this.#mirror.valuesOf(object.id) ?? {};
        for (const name in values) {
            this.#put(object, name as ElementName, values[name as ElementName]);
        }
    }

    #put<N extends ElementName>(object: StoredObject, name: N, value: Values[N] | undefined): void {
        if (value !== undefined && !same(object.values[name] ?? elementDefaults[name], value)) {
            this.#store.write(object, name, value);
        }
    }
}

function same(a: unknown, b: unknown): boolean {
    if (!Array.isArray(a) || !Array.isArray(b)) {
        return a === b;
    }
    return a.length === b.length && a.every((item, index) => item === b[index]);
}
