import type { Operation } from 'rfc6902';
import { apply } from 'rfc6902/patch.js';
import { asId, isObject, type JsonObject } from '../protocol/guards.ts';
import { decodeModelMessage } from '../protocol/modelMessage.ts';
import { ElementKey } from '../protocol/names.ts';
import { type ElementValues, valuesOfElement } from './elementValues.ts';

/**
 * The program's model document as the page knows it: a snapshot and, in order, the patches (RFC
 * 6902) that came after it. What does not fit makes it forget all and ask for a snapshot again.
 */
export class ModelMirror {
    readonly #ask: () => void;
    /** Undefined until a snapshot has come. */
    #version: number | undefined;
    #document: Record<string, unknown> = {};
    /** Which element belongs to an object: its tag names the object. */
    readonly #elements = new Map<number, string>();
    readonly #tags = new Map<string, number>();
    /** The objects that had an element when the document was last known. */
    #before: readonly number[] = [];

    constructor(ask: () => void) {
        this.#ask = ask;
    }

    /** Nothing is known but which objects once `had` an element; the document is asked for. */
    begin(had: Iterable<number>): void {
        this.#before = [...had];
        this.#version = undefined;
        this.#document = {};
        this.#elements.clear();
        this.#tags.clear();
        this.#ask();
    }

    /**
     * Takes a text of the model's channel, in steps; answers the objects whose elements it touched,
     * and those that have lost theirs.
     */
    *received(text: string): Generator<void, Iterable<number>> {
        const message = decodeModelMessage(text);
        yield;
        if (message?.kind === 'snapshot') {
            return yield* this.#takeSnapshot(message.version, message.document);
        }
        const isCovered = this.#version === undefined || (message?.version ?? 0) <= this.#version;
        if (message === undefined || isCovered) {
            return [];
        }
        const isNext = message.version === (this.#version ?? 0) + 1;
        const touched = isNext && (yield* this.#patch(message.patch));
        if (!touched) {
            this.begin(this.#elements.keys());
            return [];
        }
        this.#version = message.version;
        return touched;
    }

    /** The objects that have an element. */
    get objects(): Iterable<number> {
        return this.#elements.keys();
    }

    has(object: number): boolean {
        return this.#elements.has(object);
    }

    /** What the object's element says of it; undefined when it has none or nothing is known. */
    valuesOf(object: number): ElementValues | undefined {
        const element = this.#document[this.#elements.get(object) ?? ''];
        return isObject(element) ? valuesOfElement(element) : undefined;
    }

    *#takeSnapshot(version: number, document: JsonObject): Generator<void, Iterable<number>> {
        const before = [...this.#before, ...this.#elements.keys()];
        this.#before = [];
        this.#version = version;
        this.#document = { ...document };
        this.#elements.clear();
        this.#tags.clear();
        return new Set([...(yield* this.#retag(Object.keys(document))), ...before]);
    }

    /** False when the patch does not fit; the document is then no longer of use. */
    *#patch(operations: readonly unknown[]): Generator<void, Iterable<number> | false> {
        const touched = new Set<string>();
        for (const operation of operations) {
            const path = isObject(operation) ? operation['path'] : undefined;
            const uuid = typeof path === 'string' ? elementIn(path) : undefined;
            if (uuid === undefined) {
                return false;
            }
            touched.add(uuid);
            yield;
        }
        for (const operation of operations as Operation[]) {
            if (!this.#fits(operation)) {
                return false;
            }
            yield;
        }
        return yield* this.#retag(touched);
    }

    /** Carries the operation out, if it can be. */
    #fits(operation: Operation): boolean {
        try {
            return apply(this.#document, operation) === null;
        } catch {
            return false;
        }
    }

    /** Looks anew at which objects these elements belong to. */
    *#retag(uuids: Iterable<string>): Generator<void, Set<number>> {
        const objects = new Set<number>();
        for (const uuid of uuids) {
            const before = this.#forget(uuid);
            const element = this.#document[uuid];
            if (element === undefined && before !== undefined) {
                objects.add(before);
            }
            const object = isObject(element) ? asId(element[ElementKey.tag]) : undefined;
            if (object !== undefined) {
                this.#elements.set(object, uuid);
                this.#tags.set(uuid, object);
                objects.add(object);
            }
            yield;
        }
        return objects;
    }

    /** Answers the object that the element belonged to. */
    #forget(uuid: string): number | undefined {
        const object = this.#tags.get(uuid);
        if (object !== undefined && this.#elements.get(object) === uuid) {
            this.#elements.delete(object);
        }
        this.#tags.delete(uuid);
        return object;
    }
}

/** The element that a JSON Pointer (RFC 6901) points at or into; none for the document itself. */
function elementIn(path: string): string | undefined {
    const [root, uuid] = path.split('/', 2);
    return root === '' ? uuid?.replaceAll('~1', '/').replaceAll('~0', '~') : undefined;
}
