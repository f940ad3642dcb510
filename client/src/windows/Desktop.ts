import { render } from 'lit/html.js';
import type { Clock } from '../gateway/transport.ts';
import type { Size } from '../protocol/geometry.ts';
import { isObject } from '../protocol/guards.ts';
import type { Name, Trigger } from '../protocol/values.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { afterLayout } from '../widgets/afterLayout.ts';
import type { Renderer } from '../widgets/Renderer.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import { listenOnDesktop } from './desktopEvents.ts';
import { Follower } from './Follower.ts';
import { PlaceReporter } from './PlaceReporter.ts';
import type { Press } from './Press.ts';
import { Stack } from './Stack.ts';
import { keepScrolled } from './scrolled.ts';
import { taskbar } from './taskbar.ts';
import { lengthOf } from './tokens.ts';
import { WindowFrame, type WindowHost } from './WindowFrame.ts';
import { applyToWindow, triggerWindow, type WindowActions } from './windowProperties.ts';

export interface DesktopListener {
    closeRequested(window: StoredObject): void;
    zoomed(window: StoredObject, larger: boolean): void;
    /** What lies on top of everything may be another window now. */
    topChanged(): void;
}

/** Properties that need the window to be measured, in the order in which they make sense. */
const placing: readonly Name[] = [
    'setPreferredSize',
    'resize',
    'saveGeometry',
    'geometry',
    'frameGeometry',
    'moveTo',
    'move',
];
const isPlacing: ReadonlySet<Name> = new Set(placing);

/** All windows: which there are, which lies above which, which one has the keyboard. */
export class Desktop implements WindowHost, WindowActions {
    readonly stack: Stack;
    readonly #frames = new Map<number, WindowFrame>();
    readonly #root: HTMLElement;
    readonly #bar = document.createElement('div');
    readonly #renderer: Renderer;
    readonly #host: WidgetHost;
    readonly #listener: DesktopListener;
    readonly #reporter: PlaceReporter;
    readonly #follower: Follower;
    readonly titleHeight = lengthOf('--title-height');
    readonly #pageTitle = document.title;

    constructor(
        root: HTMLElement,
        renderer: Renderer,
        host: WidgetHost,
        clock: Clock,
        press: Press,
        listener: DesktopListener,
    ) {
        this.#root = root;
        this.#renderer = renderer;
        this.#host = host;
        this.#listener = listener;
        this.#reporter = new PlaceReporter(clock, (frame, text) => host.send(frame.object, text));
        this.#follower = new Follower(host.pageSizes, press);
        const showTitle = (): void => this.#showTitle();
        this.stack = new Stack(renderer, () => listener.topChanged(), showTitle);
        this.#root.append(this.#bar);
        listenOnDesktop(this, root);
        addEventListener('resize', () => this.#viewportChanged());
        addEventListener('beforeprint', () => this.finish());
    }

    get viewport(): Size {
        const bar = this.#bar.firstElementChild?.clientHeight ?? 0;
        return { width: innerWidth, height: innerHeight - bar };
    }

    get windows(): readonly WindowFrame[] {
        return [...this.#frames.values()];
    }

    frameOf(target: EventTarget | null): WindowFrame | undefined {
        const element = target instanceof Element ? target.closest<HTMLElement>('.window') : null;
        return element ? this.#frames.get(Number(element.dataset['id'])) : undefined;
    }

    /** Puts a window into the document; its size and place follow with the next frame. */
    open(object: StoredObject, stored?: unknown): void {
        const frame = new WindowFrame(object, this);
        this.#frames.set(object.id, frame);
        this.#applyState(frame);
        this.#renderer.fill(frame.body, object);
        this.#root.append(frame.element);
        this.stack.add(frame);
        frame.takeUp(stored);
        this.stack.show(frame);
        if (stored === undefined) {
            this.#startMode(frame);
            afterLayout(() => this.#settle(frame));
        }
    }

    reopen(object: StoredObject, before: StoredObject): void {
        const frame = this.#frames.get(object.id);
        if (frame === undefined) {
            return;
        }
        const focus = this.#renderer.focus.within(frame.body);
        frame.object = object;
        frame.showChrome();
        this.#renderer.forget(before);
        this.#applyState(frame);
        keepScrolled(frame.body, () => {
            this.#renderer.fill(frame.body, object);
            this.finish();
        });
        this.stack.show(frame);
        this.#renderer.focus.restore(focus);
        afterLayout(() => this.#settle(frame));
    }

    close(object: StoredObject): void {
        const frame = this.#frames.get(object.id);
        if (frame !== undefined) {
            this.#frames.delete(object.id);
            this.#reporter.forget(object.id);
            this.#renderer.forget(object);
            this.stack.remove(frame);
            this.#showBar();
        }
    }

    changed(object: StoredObject, names: Iterable<Name>): void {
        const frame = this.#frames.get(object.id);
        if (frame === undefined || object.values.updateEnabled === false) {
            return;
        }
        for (const name of names) {
            if (isPlacing.has(name)) {
                this.#reporter.forget(object.id);
            }
            applyToWindow(frame, name, this, this.#host);
        }
        this.contentsChanged(object);
        this.#showBar();
        this.#showTitle();
    }

    triggered(object: StoredObject, trigger: Trigger): void {
        const frame = this.#frames.get(object.id);
        if (frame !== undefined) {
            triggerWindow(frame, trigger, this);
        }
    }

    contentsChanged(object: StoredObject, anew = false): void {
        const frame = this.#frames.get(object.windowId);
        if (frame !== undefined) {
            this.#follower.changed(frame, object, anew);
        }
    }

    /** All that windows hold is made by now. */
    finish(): void {
        this.#renderer.finish();
    }

    /** The focus goes to the control, or waits until its window is the active one. */
    focus(object: StoredObject): void {
        const frame = this.#frames.get(object.windowId);
        if (frame !== undefined) {
            this.stack.focusWithin(frame, object.id);
        }
    }

    store(): unknown {
        return {
            frames: Object.fromEntries(
                this.windows.map((frame) => [frame.object.id, frame.store()]),
            ),
            order: this.stack.order.map((frame) => frame.object.id),
        };
    }

    /** Opens the windows that were kept, in the order in which they lay above each other. */
    restore(objects: ReadonlyMap<number, StoredObject>, stored: unknown): void {
        const frames = isObject(stored) && isObject(stored['frames']) ? stored['frames'] : {};
        const order = isObject(stored) && Array.isArray(stored['order']) ? stored['order'] : [];
        const place = (id: number): number => (order as unknown[]).indexOf(id);
        const kept = [...objects.values()].sort((a, b) => place(a.id) - place(b.id));
        kept.forEach((object) => this.open(object, frames[String(object.id)]));
        this.#showBar();
    }

    closeRequested(frame: WindowFrame): void {
        this.#listener.closeRequested(frame.object);
    }

    zoom(frame: WindowFrame, larger: boolean): void {
        this.widthChanges(frame);
        frame.setZoom(frame.zoom * (larger ? 1.1 : 1 / 1.1));
        this.#listener.zoomed(frame.object, larger);
        this.placed(frame, true);
    }

    placed(frame: WindowFrame, last: boolean): void {
        this.#reporter.changed(frame, last);
        this.contentsChanged(frame.object);
    }

    followed(frame: WindowFrame): void {
        this.#reporter.changed(frame, true);
    }

    widthChanges(frame: WindowFrame): void {
        this.#renderer.widthChanges(frame.object.id);
    }

    modeChanged(frame: WindowFrame): void {
        this.widthChanges(frame);
        this.stack.show(frame);
        this.#showBar();
        this.placed(frame, true);
    }

    imageAddress(path: string): string | undefined {
        return this.#host.imageAddress(path);
    }

    showModality(frame: WindowFrame): void {
        frame.showChrome();
        this.stack.show(frame);
    }

    showVisible(frame: WindowFrame): void {
        this.stack.show(frame);
        this.#reporter.changed(frame, true);
    }

    showAgain(frame: WindowFrame): void {
        this.#applyState(frame);
        this.#renderer.showAgain(frame.object);
    }

    #applyState(frame: WindowFrame): void {
        for (const name in frame.object.values) {
            if (!isPlacing.has(name as Name) && name !== 'updateEnabled' && name !== 'modal') {
                applyToWindow(frame, name as Name, this, this.#host);
            }
        }
    }

    #startMode(frame: WindowFrame): void {
        const { triggers, values } = frame.object;
        if (triggers.includes('showMaximized') || values.maximized) {
            frame.setMode('maximized');
        } else if (triggers.includes('showMinimized') && !triggers.includes('showNormal')) {
            frame.setMode('minimized');
        }
    }

    /** Once the contents are laid out: measure, place, focus and tell the program. */
    #settle(frame: WindowFrame): void {
        if (this.#frames.get(frame.object.id) !== frame) {
            return;
        }
        const anew = frame.place.known;
        if (!anew) {
            const { resize, setPreferredSize } = frame.object.values;
            this.#host.pageSizes.measure(frame.body);
            frame.measure(this.#frames.size - 1, resize ?? setPreferredSize);
            for (const name of placing) {
                if (frame.object.values[name] !== undefined) {
                    applyToWindow(frame, name, this, this.#host);
                }
            }
            this.stack.activate(frame);
        }
        this.#reporter.changed(frame, true);
        this.contentsChanged(frame.object, anew);
    }

    /** The page is called what the window is in which one works. */
    #showTitle(): void {
        document.title = this.stack.active?.object.values.title || this.#pageTitle;
    }

    #viewportChanged(): void {
        this.#renderer.widthChanges();
        for (const frame of this.windows) {
            frame.place.show();
            this.contentsChanged(frame.object);
            this.#reporter.changed(frame, false);
        }
    }

    #showBar(): void {
        const minimized = this.windows.filter((frame) => frame.mode === 'minimized');
        const restore = (frame: WindowFrame): void => {
            frame.restore();
            this.stack.activate(frame);
        };
        this.#root.classList.toggle('with-taskbar', minimized.length > 0);
        render(taskbar(minimized, restore), this.#bar);
    }
}
