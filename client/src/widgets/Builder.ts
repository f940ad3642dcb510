import type { Name, Values } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { Blocks } from './blocks/Blocks.ts';
import { columnsOf, FEW, placed, wantsBlocks } from './blocks/shape.ts';
import { kindOf } from './kinds.ts';
import { Slices } from './Slices.ts';
import type { Appliers, WidgetHost, WidgetKind } from './WidgetKind.ts';

/** By these a child has a place of its own, or a row. */
const placing: ReadonlySet<Name> = new Set<Name>([...placed, 'meta']);
const captions: ReadonlySet<Name> = new Set(['text', 'label', 'entries']);

/** After so many children it is time to look at the clock. */
const STEP = 16;
/** Each time a container has got so many children, it may be one for blocks. */
const GROWN = 2 * FEW;

/**
 * Makes the elements of objects and puts them where they stand. A window of very many is made in
 * slices: its first rows can be used before the last ones are there.
 */
export class Builder {
    readonly #store: ObjectStore;
    readonly #host: WidgetHost;
    readonly #slices = new Slices();
    readonly #blocks = new Map<StoredObject, Blocks>();
    /** How many children of an object are made already, while some are not. */
    readonly #made = new Map<StoredObject, number>();
    #sinceStep = 0;

    constructor(store: ObjectStore, host: WidgetHost) {
        this.#store = store;
        this.#host = host;
    }

    /** The object's own element; what it holds is built once it stands in its parent. */
    build(object: StoredObject, previous: Element | undefined): HTMLElement {
        const kind = kindOf(object);
        const element = kind.prototype.cloneNode(true) as HTMLElement;
        element.setAttribute('data-id', String(object.id));
        if (kind.type !== object.type) {
            element.setAttribute('data-type', object.type);
        }
        object.view = element;
        this.applyAll(element, object, kind);
        if (this.#host.buddies.isNamed(object.id)) {
            this.#host.buddies.connect(object.id, kind.control?.(element) ?? element);
        }
        kind.nameAfter?.(element, object, previous);
        return element;
    }

    applyAll(element: HTMLElement, object: StoredObject, kind: WidgetKind): void {
        for (const name in object.values) {
            this.apply(kind.appliers, name as Name, element, object);
        }
    }

    apply<N extends Name>(
        appliers: Appliers,
        name: N,
        element: HTMLElement,
        object: StoredObject,
    ): void {
        appliers[name]?.(element, object.values[name] as Values[N], object, this.#host);
    }

    /** What the object holds, in its element: the first of it at once. */
    fill(object: StoredObject): void {
        this.#slices.begin(this.#children(object), () => this.#host.contentsChanged(object));
    }

    /** All that waits to be made is made. */
    finish(): void {
        this.#slices.finish();
    }

    /** The window, or all of them, get another width. */
    widthChanges(windowId?: number): void {
        for (const [object, blocks] of this.#blocks) {
            if (windowId === undefined || object.windowId === windowId) {
                blocks.widthChanges();
            }
        }
    }

    /** Some objects are gone, or others have taken their place. */
    forgetGone(): void {
        for (const [object, blocks] of this.#blocks) {
            if (!this.#isThere(object)) {
                blocks.leave();
                this.#blocks.delete(object);
            }
        }
    }

    /** Whether the object is made in its turn among the children of its parent. */
    isToCome({ parent }: StoredObject): boolean {
        return parent?.view === undefined || this.#made.has(parent);
    }

    /** Behind the other children of its parent. */
    append(element: HTMLElement, child: StoredObject): void {
        const parent = child.parent as StoredObject;
        const blocks = this.#blocksAround(child);
        if (blocks !== undefined) {
            blocks.append(element, child);
        } else {
            (parent.view as HTMLElement).append(element);
        }
        if (parent.children.length % GROWN === 0 && !this.#made.has(parent)) {
            this.#reshape(parent);
        }
    }

    /** A child has come, perhaps in the place of another. */
    inserted(object: StoredObject): void {
        this.#blocksAround(object)?.changed(object);
        this.#arrange(object.parent);
    }

    /** A child that may have had an element is gone. */
    removed(object: StoredObject): void {
        const { parent, view } = object;
        const made = parent && this.#made.get(parent);
        if (parent !== undefined && made !== undefined && view !== undefined) {
            this.#made.set(parent, made - 1);
        }
        this.#arrange(parent);
    }

    /** Children have come or gone. */
    #arrange(parent: StoredObject | undefined): void {
        if (parent?.view !== undefined && !this.#made.has(parent)) {
            kindOf(parent).arrange?.(parent.view as HTMLElement, parent, this.#host);
            this.#blocks.get(parent)?.unsettled();
        }
    }

    /** What the object shows may need another room, or another place. */
    changed(object: StoredObject, names: Iterable<Name>): void {
        const { parent } = object;
        for (const name of names) {
            if (name === 'layoutGrid') {
                this.#reshape(object);
            } else if (parent !== undefined && placing.has(name)) {
                this.#reshape(parent);
            } else if (name === 'visible') {
                this.#blocksAround(object)?.unsettled();
            } else if (captions.has(name)) {
                this.#blocksAround(object)?.changed(object);
            }
        }
        for (const [blocks, child] of this.#around(object)) {
            blocks.touched(child);
        }
    }

    /** Whether the object stands in a block, which tells by itself when it needs another room. */
    isInBlock(object: StoredObject): boolean {
        return !this.#around(object).next().done;
    }

    /** All blocks around the object, each with what of it stands there. */
    *#around(object: StoredObject): Generator<readonly [Blocks, StoredObject]> {
        let at: StoredObject | undefined = this.#blocks.size > 0 ? object : undefined;
        for (; at !== undefined; at = at.parent) {
            const blocks = this.#blocksAround(at);
            if (blocks !== undefined) {
                yield [blocks, at];
            }
        }
    }

    /** Perhaps the object's children are to stand in blocks now, or not any more. */
    #reshape(object: StoredObject): void {
        const before = this.#blocks.get(object);
        const wants = wantsBlocks(object);
        if (object.view === undefined || this.#made.has(object) || (!wants && !before)) {
            return;
        }
        if (before !== undefined && !(wants && before.columns === columnsOf(object))) {
            before.dissolve();
            before.leave();
            this.#blocks.delete(object);
        }
        if (wants && !this.#blocks.has(object)) {
            const blocks = this.#startBlocks(object);
            object.children.forEach((child) => blocks.append(child.view as HTMLElement, child));
        }
    }

    #blocksAround({ parent }: StoredObject): Blocks | undefined {
        return parent && this.#blocks.get(parent);
    }

    #startBlocks(object: StoredObject): Blocks {
        const aligned = (): void => this.#host.contentsChanged(object);
        const blocks = new Blocks(object.view as HTMLElement, object, aligned);
        this.#blocks.set(object, blocks);
        return blocks;
    }

    /** Parents first: an element that moves is told to all below it, which adds up. */
    *#children(object: StoredObject): Generator<void> {
        const isLarge = object.children.length > FEW;
        if (wantsBlocks(object)) {
            this.#startBlocks(object).foresee();
        }
        this.#made.set(object, 0);
        let previous: Element | undefined;
        for (let child = this.#next(object); child !== undefined; child = this.#next(object)) {
            previous = this.build(child, previous);
            this.append(previous as HTMLElement, child);
            this.#count(object, child);
            if (isLarge) {
                yield* this.#below(child);
            }
        }
        this.#made.delete(object);
        if (this.#isThere(object)) {
            this.#arrange(object);
        }
        for (const child of isLarge ? [] : smallFirst(object.children)) {
            yield* this.#below(child);
        }
    }

    /** What a child holds, if it is still there; and the end of a step, if it is time. */
    *#below(child: StoredObject): Generator<void> {
        if (this.#made.has(child) && this.#isThere(child)) {
            yield* this.#children(child);
            this.#blocksAround(child)?.changed(child);
        }
        this.#made.delete(child);
        if (this.#sinceStep >= STEP) {
            this.#sinceStep = 0;
            yield;
        }
    }

    /** The first child that is not made yet; none when the object itself is gone meanwhile. */
    #next(object: StoredObject): StoredObject | undefined {
        const made = this.#made.get(object) ?? 0;
        return this.#isThere(object) ? object.children[made] : undefined;
    }

    #count(object: StoredObject, child: StoredObject): void {
        this.#sinceStep += 1;
        this.#made.set(object, (this.#made.get(object) ?? 0) + 1);
        if (child.children.length > 0) {
            this.#made.set(child, 0);
        }
    }

    #isThere(object: StoredObject): boolean {
        return this.#store.get(object.id) === object;
    }
}

/** What holds little is not kept waiting: the buttons below a list of thousands are there with it. */
function smallFirst(children: readonly StoredObject[]): readonly StoredObject[] {
    const isSmall = (child: StoredObject): boolean => child.children.length <= FEW;
    return [...children.filter(isSmall), ...children.filter((child) => !isSmall(child))];
}
