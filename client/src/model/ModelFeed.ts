import { elementDefaults, type ElementName, type Values } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { ElementValues } from './elementValues.ts';
import { ModelMirror } from './ModelMirror.ts';

/** Brings what the model document says of the objects into the store. */
export class ModelFeed {
    private readonly m_store: ObjectStore;
    private readonly m_mirror: ModelMirror;

    constructor(store: ObjectStore, ask: () => void) {
        this.m_store = store;
        this.m_mirror = new ModelMirror(ask);
    }

    /**
     * What was known belongs to a session that is gone, or to an earlier life of the page, which
     * knew that these objects `had` an element.
     */
    begin(had: Iterable<number> = []): void {
        this.m_mirror.begin(had);
    }

    /** The objects that have an element. */
    get objects(): Iterable<number> {
        return this.m_mirror.objects;
    }

    /** An object lives as long as its element: nothing else tells that a widget was destroyed. */
    received(text: string): void {
        for (const id of this.m_mirror.received(text)) {
            const object = this.m_store.get(id);
            if (object !== undefined && this.m_mirror.has(id)) {
                this.fill(object);
            } else if (object?.parent !== undefined) {
                this.m_store.remove(object);
            }
        }
    }

    /** Objects of this window were described, which leaves out what the document holds. */
    described(windowId: number): void {
        for (const id of this.m_mirror.objects) {
            const object = this.m_store.get(id);
            if (object?.windowId === windowId) {
                this.fill(object);
            }
        }
    }

    private fill(object: StoredObject): void {
        const values: ElementValues = this.m_mirror.valuesOf(object.id) ?? {};
        for (const name in values) {
            this.put(object, name as ElementName, values[name as ElementName]);
        }
    }

    private put<N extends ElementName>(
        object: StoredObject,
        name: N,
        value: Values[N] | undefined,
    ): void {
        if (value !== undefined && !same(object.values[name] ?? elementDefaults[name], value)) {
            this.m_store.write(object, name, value);
        }
    }
}

function same(a: unknown, b: unknown): boolean {
    if (!Array.isArray(a) || !Array.isArray(b)) {
        return a === b;
    }
    return a.length === b.length && a.every((item, index) => item === b[index]);
}
