import type { Name } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import { type StoredObject, subtree } from '../store/StoredObject.ts';
import { Builder } from './Builder.ts';
import { adjustSize } from './base.ts';
import { FocusKeeper } from './FocusKeeper.ts';
import { isOfKind, kindOf } from './kinds.ts';
import type { WidgetHost } from './WidgetKind.ts';

/**
 * Keeps the document like the store: one element per object, made directly, because a window of
 * ten thousand widgets has to be there as fast as the same elements made by hand.
 */
export class Renderer {
    readonly focus: FocusKeeper;
    readonly #store: ObjectStore;
    readonly #host: WidgetHost;
    readonly #builder: Builder;
    #raised = 0;

    constructor(store: ObjectStore, host: WidgetHost) {
        this.#store = store;
        this.#host = host;
        this.#builder = new Builder(store, host);
        this.focus = new FocusKeeper((id) => this.control(id));
    }

    /** The element that takes the focus for an object; it is made now, should it not be yet. */
    control(id: number): HTMLElement | undefined {
        const object = this.#store.get(id);
        if (object !== undefined && object.view === undefined) {
            this.#builder.finish();
        }
        const element = object && elementOf(object);
        return element && (kindOf(object).control?.(element) ?? element);
    }

    /** Shows a window's children in `body`, in place of what was there. */
    fill(body: HTMLElement, window: StoredObject): void {
        window.view = body;
        body.replaceChildren();
        this.#builder.fill(window);
    }

    /** Whether the object stands in a block, which tells by itself when it needs another room. */
    isInBlock(object: StoredObject): boolean {
        return this.#builder.isInBlock(object);
    }

    /** Makes what there was no time for yet. */
    finish(): void {
        this.#builder.finish();
    }

    /** The window, or each one, is about to get another width. */
    widthChanges(windowId?: number): void {
        this.#builder.widthChanges(windowId);
    }

    /** What takes the place of something is made as a whole: what was scrolled there stays so. */
    inserted(object: StoredObject, before: StoredObject | undefined): void {
        const old = before && elementOf(before);
        if (before !== undefined) {
            this.forget(before);
        }
        if (old === undefined && this.#builder.isToCome(object)) {
            return;
        }
        const focus = old && this.focus.within(old);
        const element = this.#builder.build(object, previousOf(object));
        if (old !== undefined) {
            old.replaceWith(element);
        } else {
            this.#builder.append(element, object);
        }
        this.#builder.fill(object);
        if (old !== undefined) {
            this.#builder.finish();
        }
        this.#builder.inserted(object);
        this.focus.restore(focus);
    }

    removed(object: StoredObject): void {
        elementOf(object)?.remove();
        this.forget(object);
        this.#builder.removed(object);
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
        this.#builder.forgetGone();
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
                this.#builder.apply(kind.appliers, name, element, object);
            }
        }
        this.#builder.changed(object, names);
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

    #showState(element: HTMLElement, object: StoredObject): void {
        const kind = kindOf(object);
        if (isOfKind(element, kind)) {
            this.#builder.applyAll(element, object, kind);
        } else {
            this.inserted(object, object);
        }
    }
}

/** Only the renderer and its builder set views: the element of an object, the body of a window. */
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

/** The element that stands before it. */
function previousOf(object: StoredObject): Element | undefined {
    const siblings = object.parent?.children ?? [];
    const previous = siblings[siblings.lastIndexOf(object) - 1];
    return previous && elementOf(previous);
}
