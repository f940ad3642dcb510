import { render } from 'lit/html.js';
import type { WindowPlace } from '../protocol/events.ts';
import { type Rect, type Size, sameRect } from '../protocol/geometry.ts';
import { asNumber, isObject, type JsonObject } from '../protocol/guards.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { afterLayout } from '../widgets/afterLayout.ts';
import { chrome } from './chrome.ts';
import { fit, measureNaturally } from './fit.ts';
import { type Movable, makeMovable } from './gestures.ts';
import { Place, type Surface, wholeRect } from './Place.ts';
import { firstPlace, fitSize } from './placement.ts';
import { keepScrolled, restoreScrolled, storeScrolled } from './scrolled.ts';
import { asSizing, followContents, type Sizable, type Sizing } from './sizing.ts';

/** What a window asks of the desktop it stands on. */
export interface WindowHost extends Surface {
    /** The user asked for the window to be closed. */
    closeRequested(window: WindowFrame): void;
    /** Place, size or mode changed; while a gesture goes on, `last` is false. */
    placed(window: WindowFrame, last: boolean): void;
    /** It has another size because of its contents. */
    followed(window: WindowFrame): void;
    modeChanged(window: WindowFrame): void;
    /** It is about to get another width. */
    widthChanges(window: WindowFrame): void;
    imageAddress(path: string): string | undefined;
    /** What its body holds is made as a whole by now. */
    finish(): void;
}

type Mode = 'normal' | 'maximized' | 'minimized';

/** A window of the program: a native dialog with a frame around what the renderer shows in it. */
export class WindowFrame implements Movable, Sizable {
    readonly element = document.createElement('dialog');
    readonly body: HTMLFieldSetElement;
    readonly place: Place;
    object: StoredObject;
    readonly #host: WindowHost;
    #mode: Mode = 'normal';
    /** What it was before it was minimized. */
    #restored: Mode = 'normal';
    #sizing: Sizing = 'contents';
    #zoom = 1;

    constructor(object: StoredObject, host: WindowHost) {
        this.object = object;
        this.#host = host;
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
        return this.#mode;
    }

    get fixed(): boolean {
        return this.#mode !== 'normal';
    }

    get modal(): boolean {
        return this.object.values.modal ?? false;
    }

    /** The whole window, title bar and border included, as it is now. */
    get frame(): Rect {
        const maximized = this.#mode === 'maximized';
        return maximized ? { x: 0, y: 0, ...this.#host.viewport } : this.place.frame;
    }

    get viewport(): Size {
        return this.#host.viewport;
    }

    get zoom(): number {
        return this.#zoom;
    }

    showChrome(): void {
        const { title = '', windowicon = '', transient = false } = this.object.values;
        this.element.setAttribute('aria-label', title === '' ? 'Window' : title);
        const view = {
            title,
            iconAddress: this.#host.imageAddress(windowicon),
            maximized: this.#mode === 'maximized',
            canMinimize: !this.modal && !transient,
            minimize: () => this.setMode('minimized'),
            toggleMaximize: () => this.toggleMaximize(),
            close: () => this.#host.closeRequested(this),
        };
        render(chrome(view), this.element);
    }

    /** A user moves or sizes the window. */
    setFrame(frame: Rect, last: boolean): void {
        this.#decide(frame, 'stays');
        this.#host.placed(this, last);
    }

    /** The program does. */
    setFrameAsked(frame: Rect): void {
        this.#decide(frame, 'asked');
        this.#host.placed(this, true);
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
        this.#sizing = content ? 'asked' : 'contents';
        this.place.put({ ...size, ...firstPlace(size, this.#host.viewport, index) });
    }

    /** The contents changed; `anew` when there are some that were not there before. */
    follow(anew: boolean): void {
        const before = this.frame;
        keepScrolled(this.body, () => {
            if (this.place.known && this.#mode === 'normal') {
                this.#sizing = followContents(this, this.#sizing, anew);
            }
            fit(this.body);
        });
        if (!sameRect(this.frame, before)) {
            this.#host.followed(this);
        }
    }

    adjustSize(): void {
        if (this.place.known) {
            keepScrolled(this.body, () => this.place.resizeTo(this.naturalSize()));
            this.#sizing = 'contents';
            this.#host.placed(this, true);
        }
    }

    setMode(mode: Mode): void {
        if (mode === this.#mode) {
            return;
        }
        if (mode === 'minimized') {
            this.#restored = this.#mode;
        }
        this.#mode = mode;
        this.element.classList.toggle('maximized', mode === 'maximized');
        this.showChrome();
        this.#host.modeChanged(this);
    }

    restore(): void {
        this.setMode(this.#restored);
    }

    toggleMaximize(): void {
        this.setMode(this.#mode === 'maximized' ? 'normal' : 'maximized');
    }

    setZoom(zoom: number): void {
        this.#zoom = Math.min(4, Math.max(0.5, zoom));
        this.element.style.fontSize = `${this.#zoom}rem`;
    }

    /** Where the window is, for the program: measured, so not to be asked in a loop. */
    report(): WindowPlace {
        return {
            geometry: wholeRect(this.body.getBoundingClientRect()),
            frameGeometry: wholeRect(this.element.getBoundingClientRect()),
            maximized: this.#mode === 'maximized',
            minimized: this.#mode === 'minimized',
        };
    }

    /** What is kept of it over a reload of the page. */
    store(): JsonObject {
        return {
            place: this.place.store(),
            mode: this.#mode,
            restored: this.#restored,
            sizing: this.#sizing,
            zoom: this.#zoom,
            scrolled: storeScrolled(this.body),
        };
    }

    takeUp(stored: unknown): void {
        if (!isObject(stored)) {
            return;
        }
        this.place.takeUp(stored['place']);
        this.#sizing = asSizing(stored['sizing']);
        this.setZoom(asNumber(stored['zoom']) ?? 1);
        this.setMode(asMode(stored['restored']));
        this.setMode(asMode(stored['mode']));
        afterLayout(() => {
            this.#host.finish();
            restoreScrolled(this.body, stored['scrolled']);
        });
    }

    /** A frame of the same size moves the window, and leaves open who decides its size. */
    #decide(frame: Rect, sizing: Sizing): void {
        const { width, height } = this.frame;
        if (frame.width !== width) {
            this.#host.widthChanges(this);
        }
        if (frame.width !== width || frame.height !== height) {
            this.#sizing = sizing;
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
        return fitSize({ width: Math.ceil(width), height: Math.ceil(height) }, this.#host.viewport);
    }
}

function asMode(value: unknown): Mode {
    return value === 'maximized' || value === 'minimized' ? value : 'normal';
}
