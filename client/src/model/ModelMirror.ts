import { applyPatch, type Operation } from 'rfc6902';
import { asId, isObject, type JsonObject } from '../protocol/guards.ts';
import { decodeModelMessage } from '../protocol/modelMessage.ts';
import { ElementKey } from '../protocol/names.ts';
import { valuesOfElement, type ElementValues } from './elementValues.ts';

/**
 * The program's model document as the page knows it: a snapshot and, in order, the patches (RFC
 * 6902) that came after it. What does not fit makes it forget all and ask for a snapshot again.
 */
export class ModelMirror {
    private readonly m_ask: () => void;
    /** Undefined until a snapshot has come. */
    private m_version: number | undefined;
    private m_document: Record<string, unknown> = {};
    /** Which element belongs to an object: its tag names the object. */
    private readonly m_elements = new Map<number, string>();
    private readonly m_tags = new Map<string, number>();
    /** The objects that had an element when the document was last known. */
    private m_before: readonly number[] = [];

    constructor(ask: () => void) {
        this.m_ask = ask;
    }

    /** Nothing is known but which objects once `had` an element; the document is asked for. */
    begin(had: Iterable<number>): void {
        this.m_before = [...had];
        this.m_version = undefined;
        this.m_document = {};
        this.m_elements.clear();
        this.m_tags.clear();
        this.m_ask();
    }

    /**
     * Takes a text of the model's channel; answers the objects whose elements it touched, and
     * those that have lost theirs.
     */
    received(text: string): Iterable<number> {
        const message = decodeModelMessage(text);
        if (message?.kind === 'snapshot') {
            return this.takeSnapshot(message.version, message.document);
        }
        const stale = this.m_version === undefined || (message?.version ?? 0) <= this.m_version;
        if (message === undefined || stale) {
            return [];
        }
        const touched = message.version === (this.m_version ?? 0) + 1 && this.patch(message.patch);
        if (!touched) {
            this.begin(this.m_elements.keys());
            return [];
        }
        this.m_version = message.version;
        return touched;
    }

    /** The objects that have an element. */
    get objects(): Iterable<number> {
        return this.m_elements.keys();
    }

    has(object: number): boolean {
        return this.m_elements.has(object);
    }

    /** What the object's element says of it; undefined when it has none or nothing is known. */
    valuesOf(object: number): ElementValues | undefined {
        const element = this.m_document[this.m_elements.get(object) ?? ''];
        return isObject(element) ? valuesOfElement(element) : undefined;
    }

    private takeSnapshot(version: number, document: JsonObject): Iterable<number> {
        const before = [...this.m_before, ...this.m_elements.keys()];
        this.m_before = [];
        this.m_version = version;
        this.m_document = { ...document };
        this.m_elements.clear();
        this.m_tags.clear();
        return new Set([...this.retag(Object.keys(document)), ...before]);
    }

    /** False when the patch does not fit; the document is then no longer of use. */
    private patch(operations: readonly unknown[]): Iterable<number> | false {
        const touched = new Set<string>();
        for (const operation of operations) {
            const path = isObject(operation) ? operation['path'] : undefined;
            const uuid = typeof path === 'string' ? elementIn(path) : undefined;
            if (uuid === undefined) {
                return false;
            }
            touched.add(uuid);
        }
        try {
            const results = applyPatch(this.m_document, operations as Operation[]);
            return results.every((error) => error === null) && this.retag(touched);
        } catch {
            return false;
        }
    }

    /** Looks anew at which objects these elements belong to. */
    private retag(uuids: Iterable<string>): Set<number> {
        const objects = new Set<number>();
        for (const uuid of uuids) {
            const before = this.forget(uuid);
            const element = this.m_document[uuid];
            if (element === undefined && before !== undefined) {
                objects.add(before);
            }
            const object = isObject(element) ? asId(element[ElementKey.tag]) : undefined;
            if (object !== undefined) {
                this.m_elements.set(object, uuid);
                this.m_tags.set(uuid, object);
                objects.add(object);
            }
        }
        return objects;
    }

    /** Answers the object that the element belonged to. */
    private forget(uuid: string): number | undefined {
        const object = this.m_tags.get(uuid);
        if (object !== undefined && this.m_elements.get(object) === uuid) {
            this.m_elements.delete(object);
        }
        this.m_tags.delete(uuid);
        return object;
    }
}

/** The element that a JSON Pointer (RFC 6901) points at or into; none for the document itself. */
function elementIn(path: string): string | undefined {
    const [root, uuid] = path.split('/', 2);
    return root === '' ? uuid?.replaceAll('~1', '/').replaceAll('~0', '~') : undefined;
}
