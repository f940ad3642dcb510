import { render } from 'lit';
import type { WindowPlace } from '../protocol/events.ts';
import { asRect, type Rect, type Size } from '../protocol/geometry.ts';
import { asNumber, isObject } from '../protocol/guards.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { chrome } from './chrome.ts';
import { makeMovable, type Movable } from './gestures.ts';
import { fitSize, firstPlace, keepEndInView, keepReachable } from './placement.ts';

/** What a window asks of the desktop it stands on. */
export interface WindowHost {
    readonly viewport: Size;
    /** The user asked for the window to be closed. */
    closeRequested(window: WindowFrame): void;
    /** Place, size or mode changed; while a gesture goes on, `last` is false. */
    placed(window: WindowFrame, last: boolean): void;
    modeChanged(window: WindowFrame): void;
    imageAddress(path: string): string | undefined;
}

export type Mode = 'normal' | 'maximized' | 'minimized';

/** What is kept of a window over a reload of the page. */
export interface StoredFrame {
    readonly frame: Rect | undefined;
    readonly mode: Mode;
    readonly restored: Mode;
    readonly sized: boolean;
    readonly zoom: number;
}

/** A window of the program: a native dialog with a frame around what the renderer shows in it. */
export class WindowFrame implements Movable {
    readonly element = document.createElement('dialog');
    readonly body: HTMLFieldSetElement;
    object: StoredObject;
    private readonly m_host: WindowHost;
    /**
     * Where the window is when it is neither maximized nor minimized, in the size that was asked
     * for, also while the viewport has no room for it; unset until measured.
     */
    private m_normal: Rect | undefined;
    private m_mode: Mode = 'normal';
    /** What it was before it was minimized. */
    private m_restored: Mode = 'normal';
    /** Somebody decided the size, so the contents no longer do. */
    private m_sized = false;
    private m_zoom = 1;

    constructor(object: StoredObject, host: WindowHost) {
        this.object = object;
        this.m_host = host;
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
        return this.m_normal !== undefined;
    }

    /** The whole window, title bar and border included, as it is now. */
    get frame(): Rect {
        const { viewport } = this.m_host;
        if (this.m_mode === 'maximized') {
            return { x: 0, y: 0, ...viewport };
        }
        return this.m_normal === undefined
            ? { x: 0, y: 0, width: 0, height: 0 }
            : keepReachable(this.m_normal, viewport);
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

    setFrame(frame: Rect, last: boolean): void {
        this.m_sized = true;
        this.place(frame);
        this.m_host.placed(this, last);
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
        this.place({ ...size, ...firstPlace(size, this.m_host.viewport, index) });
    }

    /** The contents changed: a window whose size nobody decided grows with them. */
    grow(): void {
        const normal = this.m_normal;
        if (!this.m_sized && normal !== undefined && this.m_mode === 'normal') {
            const { width, height } = this.naturalSize();
            const grown = {
                ...normal,
                width: Math.max(width, normal.width),
                height: Math.max(height, normal.height),
            };
            const higher = grown.height > normal.height;
            this.place(higher ? keepEndInView(grown, this.m_host.viewport) : grown);
            this.m_host.placed(this, true);
        }
    }

    adjustSize(): void {
        if (this.m_normal !== undefined) {
            const frame = { ...this.m_normal, ...this.naturalSize() };
            this.place(keepEndInView(frame, this.m_host.viewport));
            this.m_sized = false;
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
        if (this.m_normal !== undefined) {
            this.place(this.m_normal);
        }
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
            frame: this.m_normal,
            mode: this.m_mode,
            restored: this.m_restored,
            sized: this.m_sized,
            zoom: this.m_zoom,
        };
    }

    takeUp(stored: unknown): void {
        if (!isObject(stored)) {
            return;
        }
        const frame = asRect(stored['frame']);
        if (frame !== undefined) {
            this.place(frame);
        }
        this.m_sized = stored['sized'] === true;
        this.setZoom(asNumber(stored['zoom']) ?? 1);
        this.setMode(asMode(stored['restored']));
        this.setMode(asMode(stored['mode']));
    }

    private place(frame: Rect): void {
        const whole = wholeRect(frame);
        const { x, y, width, height } = keepReachable(whole, this.m_host.viewport);
        this.m_normal = { ...whole, x, y };
        const { style } = this.element;
        style.left = `${x}px`;
        style.top = `${y}px`;
        style.width = `${width}px`;
        style.height = `${height}px`;
    }

    private naturalSize(): Size {
        const { style } = this.element;
        style.width = '';
        style.height = '';
        const { width, height } = this.element.getBoundingClientRect();
        return fitSize(
            { width: Math.ceil(width), height: Math.ceil(height) },
            this.m_host.viewport,
        );
    }
}

function asMode(value: unknown): Mode {
    return value === 'maximized' || value === 'minimized' ? value : 'normal';
}

/** Between two pixels everything in the window would be blurred. */
function wholeRect(rect: Rect): Rect {
    return {
        x: Math.round(rect.x),
        y: Math.round(rect.y),
        width: Math.round(rect.width),
        height: Math.round(rect.height),
    };
}
