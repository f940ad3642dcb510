import { render } from 'lit';
import type { WindowPlace } from '../protocol/events.ts';
import type { Rect, Size } from '../protocol/geometry.ts';
import { asNumber, isObject } from '../protocol/guards.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { chrome } from './chrome.ts';
import { afterLayout } from './Follower.ts';
import { makeMovable, type Movable } from './gestures.ts';
import { fit, measureNaturally } from './fit.ts';
import { fitSize, firstPlace } from './placement.ts';
import { Place, wholeRect, type StoredPlace } from './Place.ts';
import { keepScrolled, restoreScrolled, storeScrolled, type Scrolled } from './scrolled.ts';
import { asSizing, followContents, type Sizable, type Sizing } from './sizing.ts';

/** What a window asks of the desktop it stands on. */
export interface WindowHost {
    readonly viewport: Size;
    /** The user asked for the window to be closed. */
    closeRequested(window: WindowFrame): void;
    /** Place, size or mode changed; while a gesture goes on, `last` is false. */
    placed(window: WindowFrame, last: boolean): void;
    /** It has another size because of its contents. */
    followed(window: WindowFrame): void;
    modeChanged(window: WindowFrame): void;
    imageAddress(path: string): string | undefined;
}

export type Mode = 'normal' | 'maximized' | 'minimized';

/** What is kept of a window over a reload of the page. */
export interface StoredFrame {
    readonly place: StoredPlace;
    readonly mode: Mode;
    readonly restored: Mode;
    readonly sizing: Sizing;
    readonly zoom: number;
    readonly scrolled: readonly Scrolled[];
}

/** A window of the program: a native dialog with a frame around what the renderer shows in it. */
export class WindowFrame implements Movable, Sizable {
    readonly element = document.createElement('dialog');
    readonly body: HTMLFieldSetElement;
    readonly place: Place;
    object: StoredObject;
    private readonly m_host: WindowHost;
    private m_mode: Mode = 'normal';
    /** What it was before it was minimized. */
    private m_restored: Mode = 'normal';
    private m_sizing: Sizing = 'contents';
    private m_zoom = 1;

    constructor(object: StoredObject, host: WindowHost) {
        this.object = object;
        this.m_host = host;
        this.place = new Place(this.element, host);
        this.element.className = 'window';
        this.element.dataset['id'] = String(object.id);
        this.element.dataset['type'] = object.type;
        this.element.tabIndex = -1;
        this.showChrome();
        this.body = this.element.querySelector('fieldset') as HTMLFieldSetElement;
        makeMovable(this);
    }

    get mode(): Mode {
        return this.m_mode;
    }

    get fixed(): boolean {
        return this.m_mode !== 'normal';
    }

    get modal(): boolean {
        return this.object.values.modal ?? false;
    }

    get measured(): boolean {
        return this.place.known;
    }

    /** The whole window, title bar and border included, as it is now. */
    get frame(): Rect {
        const maximized = this.m_mode === 'maximized';
        return maximized ? { x: 0, y: 0, ...this.m_host.viewport } : this.place.frame;
    }

    get viewport(): Size {
        return this.m_host.viewport;
    }

    get zoom(): number {
        return this.m_zoom;
    }

    showChrome(): void {
        const { title = '', windowicon = '', transient = false } = this.object.values;
        this.element.setAttribute('aria-label', title === '' ? 'Window' : title);
        const view = {
            title,
            iconAddress: this.m_host.imageAddress(windowicon),
            maximized: this.m_mode === 'maximized',
            canMinimize: !this.modal && !transient,
            minimize: () => this.setMode('minimized'),
            toggleMaximize: () => this.toggleMaximize(),
            close: () => this.m_host.closeRequested(this),
        };
        render(chrome(view), this.element);
    }

    /** A person moves or sizes the window. */
    setFrame(frame: Rect, last: boolean): void {
        this.decide(frame, 'stays');
        this.m_host.placed(this, last);
    }

    /** The program does. */
    setFrameAsked(frame: Rect): void {
        this.decide(frame, 'asked');
        this.m_host.placed(this, true);
    }

    /** A frame such that the content area is `content`. */
    frameFor(content: Rect): Rect {
        const { geometry, frameGeometry } = this.report();
        return {
            x: content.x + frameGeometry.x - geometry.x,
            y: content.y + frameGeometry.y - geometry.y,
            width: content.width + frameGeometry.width - geometry.width,
            height: content.height + frameGeometry.height - geometry.height,
        };
    }

    /**
     * First measuring: as large as the contents ask for, as far as the viewport has room. A size
     * the program asks for counts here already, so that the place suits it.
     */
    measure(index: number, content?: Size): void {
        const natural = this.naturalSize();
        const size = content ? this.frameFor({ x: 0, y: 0, ...content }) : natural;
        this.m_sizing = content ? 'asked' : 'contents';
        this.place.put({ ...size, ...firstPlace(size, this.m_host.viewport, index) });
    }

    /** The contents changed; `anew` when there are some that were not there before. */
    follow(anew: boolean): void {
        const before = this.frame;
        keepScrolled(this.body, () => {
            if (this.measured && this.m_mode === 'normal') {
                this.m_sizing = followContents(this, this.m_sizing, anew);
            }
            fit(this.body);
        });
        if (!isSame(this.frame, before)) {
            this.m_host.followed(this);
        }
    }

    adjustSize(): void {
        if (this.measured) {
            keepScrolled(this.body, () => this.place.resizeTo(this.naturalSize()));
            this.m_sizing = 'contents';
            this.m_host.placed(this, true);
        }
    }

    setMode(mode: Mode): void {
        if (mode === this.m_mode) {
            return;
        }
        if (mode === 'minimized') {
            this.m_restored = this.m_mode;
        }
        this.m_mode = mode;
        this.element.classList.toggle('maximized', mode === 'maximized');
        this.showChrome();
        this.m_host.modeChanged(this);
    }

    restore(): void {
        this.setMode(this.m_restored);
    }

    toggleMaximize(): void {
        this.setMode(this.m_mode === 'maximized' ? 'normal' : 'maximized');
    }

    setZoom(zoom: number): void {
        this.m_zoom = Math.min(4, Math.max(0.5, zoom));
        this.element.style.fontSize = `${this.m_zoom}rem`;
    }

    /** The viewport changed. */
    keepInView(): void {
        this.place.show();
    }

    /** Where the window is, for the program: measured, so not to be asked in a loop. */
    report(): WindowPlace {
        return {
            geometry: wholeRect(this.body.getBoundingClientRect()),
            frameGeometry: wholeRect(this.element.getBoundingClientRect()),
            maximized: this.m_mode === 'maximized',
            minimized: this.m_mode === 'minimized',
        };
    }

    store(): StoredFrame {
        return {
            place: this.place.store(),
            mode: this.m_mode,
            restored: this.m_restored,
            sizing: this.m_sizing,
            zoom: this.m_zoom,
            scrolled: storeScrolled(this.body),
        };
    }

    takeUp(stored: unknown): void {
        if (!isObject(stored)) {
            return;
        }
        this.place.takeUp(stored['place']);
        this.m_sizing = asSizing(stored['sizing']);
        this.setZoom(asNumber(stored['zoom']) ?? 1);
        this.setMode(asMode(stored['restored']));
        this.setMode(asMode(stored['mode']));
        afterLayout(() => restoreScrolled(this.body, stored['scrolled']));
    }

    /** A frame of the same size moves the window, and leaves open who decides its size. */
    private decide(frame: Rect, sizing: Sizing): void {
        const { width, height } = this.frame;
        if (frame.width !== width || frame.height !== height) {
            this.m_sizing = sizing;
            this.place.put(frame);
        } else {
            this.place.moveTo(frame.x, frame.y);
        }
    }

    /** As its contents ask for it, within the page. */
    naturalSize(): Size {
        const { style } = this.element;
        style.width = '';
        style.height = '';
        const { width, height } = measureNaturally(this.body, this.element);
        this.place.show();
        return fitSize(
            { width: Math.ceil(width), height: Math.ceil(height) },
            this.m_host.viewport,
        );
    }
}

function isSame(a: Rect, b: Rect): boolean {
    return a.x === b.x && a.y === b.y && a.width === b.width && a.height === b.height;
}

function asMode(value: unknown): Mode {
    return value === 'maximized' || value === 'minimized' ? value : 'normal';
}
