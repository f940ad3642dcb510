import type { Name, Trigger } from '../protocol/values.ts';
import type { StoreObserver } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { Renderer } from '../widgets/Renderer.ts';
import type { Desktop } from '../windows/Desktop.ts';
import { keepScrolledOver } from '../windows/scrolled.ts';

/** Hands what changed in the store to the part that shows it: windows here, the rest there. */
export class PageObserver implements StoreObserver {
    #renderer!: Renderer;
    #desktop!: Desktop;
    #windowsChanged!: () => void;
    #quiet = false;

    connect(renderer: Renderer, desktop: Desktop, windowsChanged: () => void): void {
        this.#renderer = renderer;
        this.#desktop = desktop;
        this.#windowsChanged = windowsChanged;
    }

    /** Windows that open meanwhile are shown by somebody else. */
    quietly(open: () => void): void {
        this.#quiet = true;
        open();
        this.#quiet = false;
    }

    opened(window: StoredObject): void {
        if (!this.#quiet) {
            this.#desktop.open(window);
            this.#windowsChanged();
        }
    }

    reopened(window: StoredObject, before: StoredObject): void {
        this.#desktop.reopen(window, before);
    }

    closed(window: StoredObject): void {
        this.#desktop.close(window);
        this.#windowsChanged();
    }

    inserted(object: StoredObject, before: StoredObject | undefined): void {
        keepScrolledOver(before?.view, () => this.#renderer.inserted(object, before));
        this.#desktop.contentsChanged(object, true);
    }

    removed(object: StoredObject): void {
        this.#renderer.removed(object);
        this.#desktop.contentsChanged(object);
    }

    changed(object: StoredObject, names: ReadonlySet<Name>): void {
        if (object.parent === undefined) {
            this.#desktop.changed(object, names);
        } else {
            this.#renderer.changed(object, names);
            if (names.has('visible') || !this.#renderer.isInBlock(object)) {
                this.#desktop.contentsChanged(object, names.has('visible'));
            }
        }
    }

    triggered(object: StoredObject, trigger: Trigger): void {
        if (object.parent === undefined) {
            this.#desktop.triggered(object, trigger);
            return;
        }
        switch (trigger) {
            case 'setFocus':
                this.#desktop.focus(object);
                break;
            case 'raise':
                this.#renderer.raise(object);
                break;
            case 'adjustsize':
                this.#renderer.adjustSize(object);
                this.#desktop.contentsChanged(object);
                break;
            default:
                this.#renderer.showAgain(object);
        }
    }
}
