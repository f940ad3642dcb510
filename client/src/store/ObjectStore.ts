import { type Description, decodeDescription } from '../protocol/description.ts';
import { asId, isObject, type JsonObject } from '../protocol/guards.ts';
import { Key, Kind } from '../protocol/names.ts';
import { readProperties } from '../protocol/properties.ts';
import type { Name, Trigger, Values } from '../protocol/values.ts';
import { asksToClose, type Refresh } from '../protocol/windowMessage.ts';
import { OwnValues } from './OwnValues.ts';
import { tellNews } from './redescribed.ts';
import { StoredObject, subtree } from './StoredObject.ts';
import { whole } from './steps.ts';

/** Deeper nesting is no dialog any more, and browsers lay elements out recursively. */
const MAX_DEPTH = 200;
/** So many children of an object are taken over before it is time to look at the clock. */
const STEP = 64;

/** Told what changed, so that only that is shown anew. */
export interface StoreObserver {
    opened(window: StoredObject): void;
    /** The window is the same, all it holds may be another. */
    reopened(window: StoredObject, before: StoredObject): void;
    closed(window: StoredObject): void;
    /** `before`, if any, gave its place to `object`; else `object` is its parent's last child. */
    inserted(object: StoredObject, before: StoredObject | undefined): void;
    removed(object: StoredObject): void;
    changed(object: StoredObject, names: ReadonlySet<Name>): void;
    triggered(object: StoredObject, trigger: Trigger): void;
}

/**
 * The objects of all windows by identifier. Writes are gathered and told by `flush`, so that ten
 * thousand writes that arrive together cost one change of the document per object and name.
 */
export class ObjectStore {
    readonly own = new OwnValues();
    /** Which of the page's records the program knew when it said what is being taken over. */
    known = Infinity;
    readonly #objects = new Map<number, StoredObject>();
    readonly #windows = new Map<number, StoredObject>();
    #unseen: StoredObject[] = [];
    readonly #observer: StoreObserver;

    constructor(observer: StoreObserver) {
        this.#observer = observer;
    }

    get(id: number): StoredObject | undefined {
        return this.#objects.get(id);
    }

    get windows(): ReadonlyMap<number, StoredObject> {
        return this.#windows;
    }

    /**
     * A window was described on the page's channel, perhaps not for the first time. Answers it, or
     * undefined if it cannot be. One that is new is taken over in steps, since it may be large, and
     * is there when the last of them is done.
     */
    *opening(description: Description): Generator<void, StoredObject | undefined> {
        const existing = this.#objects.get(description.id);
        if (existing !== undefined && existing.windowId !== existing.id) {
            return undefined;
        }
        if (existing !== undefined && this.#update(existing, description)) {
            return existing;
        }
        if (existing !== undefined) {
            this.#forget(existing);
        }
        const steps = this.#adopt(description, description.id, undefined, 1);
        const window = existing === undefined ? yield* steps : whole(steps);
        this.#windows.set(window.id, window);
        if (existing === undefined) {
            this.#observer.opened(window);
        } else {
            this.#observer.reopened(window, existing);
        }
        return window;
    }

    /** The same at once. */
    open(description: Description): StoredObject | undefined {
        return whole(this.opening(description));
    }

    /**
     * A write that arrived on a window's channel, as it was parsed; one to another window's object
     * or to none is dropped.
     */
    apply(windowId: number, write: unknown): void {
        const id = isObject(write) ? asId(write[Key.id]) : undefined;
        const object = id === undefined ? undefined : this.#objects.get(id);
        if (!isObject(write) || object === undefined || object.windowId !== windowId) {
            return;
        }
        const current = this.own.written(object, write, this.known);
        const unseen = object.unseen ?? new Set();
        letTextFollow(object, current);
        const triggers = readProperties(current, object.values, unseen);
        this.#tellLater(object, unseen);
        for (const trigger of triggers) {
            this.flush();
            this.#observer.triggered(object, trigger);
        }
        if (asksToClose(write)) {
            this.remove(object);
        }
    }

    /** Puts a described subtree in the place of the old one, or at the end of its parent. */
    refresh(windowId: number, refresh: Refresh): void {
        const { description } = refresh;
        const before = this.#objects.get(description.id);
        if (before !== undefined && before.windowId !== windowId) {
            return;
        }
        if (before !== undefined && before.parent === undefined) {
            this.open(description);
            return;
        }
        const parent = this.#objects.get(refresh.parentId) ?? before?.parent;
        if (parent === undefined || parent.windowId !== windowId || isWithin(parent, before)) {
            return;
        }
        this.flush();
        if (before?.parent === parent) {
            this.#replace(before, parent, description);
        } else {
            this.#append(before, parent, description);
        }
    }

    /** The object is gone, and with it all below it. */
    remove(object: StoredObject): void {
        this.flush();
        this.#forget(object);
        if (object.parent === undefined) {
            this.#windows.delete(object.id);
            this.#observer.closed(object);
        } else {
            this.#detach(object);
            this.#observer.removed(object);
        }
    }

    /** Writes what is another value now in a window whose objects are the same; false if not. */
    #update(window: StoredObject, description: Description): boolean {
        return tellNews(
            window,
            description,
            (id) => this.#windows.has(id),
            ({ id, type }, values) => this.own.described(id, type, values, this.known),
            (object, name, value) => this.write(object, name, value as Values[typeof name]),
        );
    }

    /** The new value of one property, to be told with the next flush. */
    write<N extends Name>(object: StoredObject, name: N, value: Values[N]): void {
        object.values[name] = value as never;
        this.#tellLater(object, (object.unseen ?? new Set<Name>()).add(name));
    }

    #tellLater(object: StoredObject, unseen: Set<Name>): void {
        if (object.unseen === undefined && unseen.size > 0) {
            object.unseen = unseen;
            this.#unseen.push(object);
        }
    }

    /** Tells the observer what was written since the last time. */
    flush(): void {
        const unseen = this.#unseen;
        this.#unseen = [];
        for (const object of unseen) {
            const names = object.unseen;
            object.unseen = undefined;
            if (names !== undefined && this.#objects.get(object.id) === object) {
                this.#observer.changed(object, names);
            }
        }
    }

    clear(): void {
        for (const window of [...this.#windows.values()]) {
            this.remove(window);
        }
    }

    #replace(before: StoredObject, parent: StoredObject, description: Description): void {
        this.#forget(before);
        const object = whole(this.#adopt(description, parent.windowId, parent, 1));
        parent.children[parent.children.indexOf(before)] = object;
        this.#observer.inserted(object, before);
    }

    #append(
        before: StoredObject | undefined,
        parent: StoredObject,
        description: Description,
    ): void {
        if (before !== undefined) {
            this.remove(before);
        }
        const object = whole(this.#adopt(description, parent.windowId, parent, 1));
        parent.children.push(object);
        this.#observer.inserted(object, undefined);
    }

    /**
     * Registers what is described. An object that the same window shows elsewhere has moved here;
     * one of another window stays where it is.
     */
    *#adopt(
        description: Description,
        windowId: number,
        parent: StoredObject | undefined,
        depth: number,
    ): Generator<void, StoredObject> {
        const object = this.#register(description, windowId, parent);
        const count = depth < MAX_DEPTH ? description.contents.length : 0;
        for (let index = 0; index < count; index += 1) {
            const inner = decodeDescription(description.contents[index]);
            if (inner !== undefined && this.#makeRoom(inner.id, object)) {
                object.children.push(
                    inner.contents.length > 0
                        ? yield* this.#adopt(inner, windowId, object, depth + 1)
                        : this.#register(inner, windowId, object),
                );
            }
            if (index % STEP === STEP - 1) {
                yield;
            }
        }
        return object;
    }

    #register(description: Description, windowId: number, parent?: StoredObject): StoredObject {
        const { id, type, values } = description;
        this.own.described(id, type, values, this.known);
        const object = new StoredObject(description, windowId, parent);
        this.#objects.set(id, object);
        return object;
    }

    /** Takes an object of this identifier out of where it is; false when it has to stay there. */
    #makeRoom(id: number, parent: StoredObject): boolean {
        const existing = this.#objects.get(id);
        if (existing === undefined) {
            return true;
        }
        const free = this.#canMove(existing, parent);
        if (free) {
            this.remove(existing);
        }
        return free;
    }

    #canMove(existing: StoredObject, to: StoredObject): boolean {
        return existing.windowId === to.windowId && !isWithin(to, existing);
    }

    #forget(top: StoredObject): void {
        for (const object of subtree(top)) {
            if (this.#objects.get(object.id) === object) {
                this.#objects.delete(object.id);
            }
        }
    }

    #detach(object: StoredObject): void {
        const siblings = object.parent?.children ?? [];
        const index = siblings.indexOf(object);
        if (index >= 0) {
            siblings.splice(index, 1);
        }
    }
}

/** An item that is chosen is the text of its box, whatever was there before. */
function letTextFollow({ type, values }: StoredObject, write: JsonObject): void {
    if (type === Kind.comboBox && 'currentindex' in write && !('text' in write)) {
        delete values.text;
    }
}

/** Whether `object` is `top` or stands somewhere below it. */
function isWithin(object: StoredObject, top: StoredObject | undefined): boolean {
    for (let at: StoredObject | undefined = object; at !== undefined; at = at.parent) {
        if (at === top) {
            return true;
        }
    }
    return false;
}
