import type { Name, Values } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import { type StoredObject, subtree } from '../store/StoredObject.ts';
import { adjustSize } from './base.ts';
import { FocusKeeper } from './FocusKeeper.ts';
import { isOfKind, kindOf } from './kinds.ts';
import type { Appliers, WidgetHost, WidgetKind } from './WidgetKind.ts';

/**
 * Keeps the document like the store: one element per object, made directly, because a window of
 * ten thousand widgets has to be there as fast as the same elements made by hand.
 */
export class Renderer {
    readonly focus: FocusKeeper;
    readonly #store: ObjectStore;
    readonly #host: WidgetHost;
    #raised = 0;

    constructor(store: ObjectStore, host: WidgetHost) {
        this.#store = store;
        this.#host = host;
        this.focus = new FocusKeeper((id) => this.control(id));
    }

    /** The element that takes the focus for an object. */
    control(id: number): HTMLElement | undefined {
        const object = this.#store.get(id);
        const element = object && elementOf(object);
        return element && (kindOf(object).control?.(element) ?? element);
    }

    /** Shows a window's children in `body`, in place of what was there. */
    fill(body: HTMLElement, window: StoredObject): void {
        window.view = body;
        body.replaceChildren();
        this.#buildChildren(body, window);
    }

    inserted(object: StoredObject, before: StoredObject | undefined): void {
        const old = before && elementOf(before);
        const focus = old && this.focus.within(old);
        if (before !== undefined) {
            this.forget(before);
        }
        const parent = object.parent && elementOf(object.parent);
        const previous = old ? old.previousElementSibling : parent?.lastElementChild;
        const element = this.#build(object, previous ?? undefined);
        this.#buildChildren(element, object);
        if (old !== undefined) {
            old.replaceWith(element);
        } else {
            parent?.append(element);
        }
        this.#arrangeParent(object);
        this.focus.restore(focus);
    }

    removed(object: StoredObject): void {
        elementOf(object)?.remove();
        this.forget(object);
        this.#arrangeParent(object);
    }

    /** Drops what is known of objects that are no longer there. */
    forget(top: StoredObject): void {
        for (const object of subtree(top)) {
            if (this.#store.get(object.id) === undefined) {
                this.#host.edits.close(object.id);
                this.#store.own.forget(object.id);
                this.#host.tabs.forget(object.id);
            }
        }
    }

    changed(object: StoredObject, names: Iterable<Name>): void {
        const element = elementOf(object);
        if (element === undefined || isHeld(object)) {
            return;
        }
        const kind = kindOf(object);
        if (!isOfKind(element, kind)) {
            this.inserted(object, object);
            return;
        }
        for (const name of names) {
            if (name === 'updateEnabled') {
                this.showAgain(object);
            } else {
                this.#apply(kind.appliers, name, element, object);
            }
        }
    }

    /** Shows everything of the object anew, and its children in their order. */
    showAgain(object: StoredObject): void {
        for (const each of subtree(object)) {
            const element = elementOf(each);
            if (element !== undefined && each.parent !== undefined) {
                this.#showState(element, each);
            }
        }
    }

    adjustSize(object: StoredObject): void {
        const element = elementOf(object);
        if (element !== undefined) {
            adjustSize(element);
        }
    }

    raise(object: StoredObject): void {
        const element = elementOf(object);
        if (element !== undefined) {
            this.#raised += 1;
            element.style.zIndex = String(this.#raised);
        }
    }

    /** The object's own element; what it holds is built once it stands in its parent. */
    #build(object: StoredObject, previous: Element | undefined): HTMLElement {
        const kind = kindOf(object);
        const element = kind.prototype.cloneNode(true) as HTMLElement;
        element.setAttribute('data-id', String(object.id));
        if (kind.type !== object.type) {
            element.setAttribute('data-type', object.type);
        }
        object.view = element;
        this.#applyAll(element, object, kind);
        if (this.#host.buddies.isNamed(object.id)) {
            this.#host.buddies.connect(object.id, kind.control?.(element) ?? element);
        }
        kind.nameAfter?.(element, object, previous);
        return element;
    }

    #arrangeParent(object: StoredObject): void {
        const { parent } = object;
        const element = parent && elementOf(parent);
        if (parent !== undefined && element !== undefined) {
            kindOf(parent).arrange?.(element, parent, this.#host);
        }
    }

    /** Parents first: an element that moves is told to all below it, which adds up. */
    #buildChildren(into: HTMLElement, object: StoredObject): void {
        let previous: Element | undefined;
        for (const child of object.children) {
            const element = this.#build(child, previous);
            into.appendChild(element);
            if (child.children.length > 0) {
                this.#buildChildren(element, child);
            }
            previous = element;
        }
        kindOf(object).arrange?.(into, object, this.#host);
    }

    #showState(element: HTMLElement, object: StoredObject): void {
        const kind = kindOf(object);
        if (isOfKind(element, kind)) {
            this.#applyAll(element, object, kind);
        } else {
            this.inserted(object, object);
        }
    }

    #applyAll(element: HTMLElement, object: StoredObject, kind: WidgetKind): void {
        for (const name in object.values) {
            this.#apply(kind.appliers, name as Name, element, object);
        }
    }

    #apply<N extends Name>(
        appliers: Appliers,
        name: N,
        element: HTMLElement,
        object: StoredObject,
    ): void {
        appliers[name]?.(element, object.values[name] as Values[N], object, this.#host);
    }
}

/** Only the renderer sets views: the element of an object, the body of a window. */
function elementOf(object: StoredObject): HTMLElement | undefined {
    return object.view as HTMLElement | undefined;
}

/** An object that may not update, or stands in one that may not, shows its changes later. */
function isHeld(object: StoredObject): boolean {
    for (let at: StoredObject | undefined = object; at !== undefined; at = at.parent) {
        if (at.values.updateEnabled === false) {
            return true;
        }
    }
    return false;
}
