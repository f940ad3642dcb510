import type { Name, Trigger } from '../protocol/values.ts';
import type { StoreObserver } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { Renderer } from '../widgets/Renderer.ts';
import type { Desktop } from '../windows/Desktop.ts';
import { keepScrolledOver } from '../windows/scrolled.ts';

/** Hands what changed in the store to the part that shows it: windows here, the rest there. */
export class PageObserver implements StoreObserver {
    private m_renderer!: Renderer;
    private m_desktop!: Desktop;
    private m_windowsChanged!: () => void;
    private m_quiet = false;

    connect(renderer: Renderer, desktop: Desktop, windowsChanged: () => void): void {
        this.m_renderer = renderer;
        this.m_desktop = desktop;
        this.m_windowsChanged = windowsChanged;
    }

    /** Windows that open meanwhile are shown by somebody else. */
    quietly(open: () => void): void {
        this.m_quiet = true;
        open();
        this.m_quiet = false;
    }

    opened(window: StoredObject): void {
        if (!this.m_quiet) {
            this.m_desktop.open(window);
            this.m_windowsChanged();
        }
    }

    reopened(window: StoredObject, before: StoredObject): void {
        this.m_desktop.reopen(window, before);
    }

    closed(window: StoredObject): void {
        this.m_desktop.close(window);
        this.m_windowsChanged();
    }

    inserted(object: StoredObject, before: StoredObject | undefined): void {
        keepScrolledOver(before?.view, () => this.m_renderer.inserted(object, before));
        this.m_desktop.contentsChanged(object, true);
    }

    removed(object: StoredObject): void {
        this.m_renderer.removed(object);
        this.m_desktop.contentsChanged(object);
    }

    changed(object: StoredObject, names: ReadonlySet<Name>): void {
        if (object.parent === undefined) {
            this.m_desktop.changed(object, names);
        } else {
            this.m_renderer.changed(object, names);
            this.m_desktop.contentsChanged(object, names.has('visible'));
        }
    }

    triggered(object: StoredObject, trigger: Trigger): void {
        if (object.parent === undefined) {
            this.m_desktop.triggered(object, trigger);
            return;
        }
        switch (trigger) {
            case 'setFocus':
                this.m_desktop.focus(object);
                break;
            case 'raise':
                this.m_renderer.raise(object);
                break;
            case 'adjustsize':
                this.m_renderer.adjustSize(object);
                this.m_desktop.contentsChanged(object);
                break;
            default:
                this.m_renderer.showAgain(object);
        }
    }
}
