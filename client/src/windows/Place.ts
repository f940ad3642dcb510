import { asRect, asSize, type Rect, type Size } from '../protocol/geometry.ts';
import { isObject, type JsonObject } from '../protocol/guards.ts';
import { keepEndsInView, keepInside, keepReachable } from './placement.ts';

/** What a window stands on, in pixels. */
export interface Surface {
    readonly viewport: Size;
    readonly titleHeight: number;
}

/**
 * Where a window is while it is neither maximized nor minimized: the place and size that were asked
 * for, also while the viewport has no room for them, and what the viewport makes of it.
 */
export class Place {
    readonly #element: HTMLElement;
    readonly #host: Surface;
    /** Unset until the window was measured. */
    #asked: Rect | undefined;
    /** How large the viewport was then. */
    #viewport: Size = { width: 0, height: 0 };

    constructor(element: HTMLElement, host: Surface) {
        this.#element = element;
        this.#host = host;
    }

    get known(): boolean {
        return this.#asked !== undefined;
    }

    get frame(): Rect {
        return this.#asked === undefined
            ? { x: 0, y: 0, width: 0, height: 0 }
            : keepInside(this.#asked, this.#viewport, this.#host.viewport, this.#host.titleHeight);
    }

    put(frame: Rect): void {
        const { viewport, titleHeight } = this.#host;
        const whole = wholeRect(frame);
        const { x, y } = keepReachable(whole, viewport, titleHeight);
        this.#asked = { ...whole, x, y };
        this.#viewport = viewport;
        this.show();
    }

    /** Its size stays, also one that there is no room for now. */
    moveTo(x: number, y: number): void {
        this.put({ ...(this.#asked ?? this.frame), x, y });
    }

    /** Its upper left corner stays, unless its ends would go out of sight. */
    resizeTo({ width, height }: Size): void {
        const now = this.frame;
        if (width !== now.width || height !== now.height) {
            this.put(keepEndsInView({ ...now, width, height }, this.#host.viewport));
        }
    }

    /** Sets the element to it: again, when the viewport has changed. */
    show(): void {
        if (this.known) {
            const { x, y, width, height } = this.frame;
            const { style } = this.#element;
            style.left = `${x}px`;
            style.top = `${y}px`;
            style.width = `${width}px`;
            style.height = `${height}px`;
        }
    }

    store(): JsonObject {
        return { frame: this.#asked, viewport: this.#viewport };
    }

    takeUp(stored: unknown): void {
        const { frame, viewport } = isObject(stored) ? stored : {};
        const asked = asRect(frame);
        if (asked !== undefined) {
            this.put(asked);
            this.#viewport = asSize(viewport) ?? this.#viewport;
            this.show();
        }
    }
}

/** Between two pixels everything in the window would be blurred. */
export function wholeRect(rect: Rect): Rect {
    return {
        x: Math.round(rect.x),
        y: Math.round(rect.y),
        width: Math.round(rect.width),
        height: Math.round(rect.height),
    };
}
