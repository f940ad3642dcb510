import type { Point, Rect, Size } from '../protocol/geometry.ts';

/** Where windows may be: pure arithmetic in pixels of the viewport. */

/** So much of a title bar always stays within reach of the pointer. */
const REACHABLE = 96;
const SMALLEST: Size = { width: 140, height: 72 };
/** What a new window leaves of the page. */
export const PAGE_MARGIN = 16;
const CASCADE_STEP = 28;
const CASCADE_LENGTH = 8;

export interface Edges {
    readonly left?: boolean;
    readonly right?: boolean;
    readonly top?: boolean;
    readonly bottom?: boolean;
}

function between(value: number, low: number, high: number): number {
    return Math.max(low, Math.min(value, high));
}

/**
 * The same window, brought back so far that its title bar can be seen and taken hold of. One that
 * is larger than the viewport gets all of it.
 */
export function keepReachable(frame: Rect, viewport: Size, titleHeight: number): Rect {
    const width = Math.max(Math.min(frame.width, viewport.width), SMALLEST.width);
    const height = Math.max(Math.min(frame.height, viewport.height), SMALLEST.height);
    const reach = Math.min(REACHABLE, width);
    return {
        x:
            frame.width > viewport.width
                ? 0
                : between(frame.x, reach - width, Math.max(0, viewport.width - reach)),
        y:
            frame.height > viewport.height
                ? 0
                : between(frame.y, 0, Math.max(0, viewport.height - titleHeight)),
        width,
        height,
    };
}

/** A window that has grown moves as far as it takes to have its ends in sight. */
export function keepEndsInView(frame: Rect, viewport: Size): Rect {
    return {
        ...frame,
        x: between(viewport.width - frame.width, Math.min(0, frame.x), frame.x),
        y: between(viewport.height - frame.height, 0, frame.y),
    };
}

/** The viewport was another: what was inside it then comes back inside, no more of it. */
export function keepInside(frame: Rect, before: Size, viewport: Size, titleHeight: number): Rect {
    const outside = {
        x: Math.max(0, frame.x + frame.width - before.width),
        y: Math.max(0, frame.y + frame.height - before.height),
    };
    const inside = keepEndsInView(frame, {
        width: viewport.width + outside.x,
        height: viewport.height + outside.y,
    });
    return keepReachable(inside, viewport, titleHeight);
}

/** A size that leaves the whole window in the viewport. */
export function fitSize(size: Size, viewport: Size): Size {
    return {
        width: Math.max(SMALLEST.width, Math.min(size.width, viewport.width - PAGE_MARGIN)),
        height: Math.max(SMALLEST.height, Math.min(size.height, viewport.height - PAGE_MARGIN)),
    };
}

/** The place of a new window: in the middle, a little above it, the next ones each a step on. */
export function firstPlace(size: Size, viewport: Size, index: number): Point {
    const step = (index % CASCADE_LENGTH) * CASCADE_STEP;
    const x = (viewport.width - size.width) / 2 + step;
    const y = (viewport.height - size.height) / 3 + step;
    return {
        x: Math.round(between(x, 0, Math.max(0, viewport.width - size.width))),
        y: Math.round(between(y, 0, Math.max(0, viewport.height - size.height))),
    };
}

export function moved(frame: Rect, by: Point): Rect {
    return { ...frame, x: frame.x + by.x, y: frame.y + by.y };
}

/** Dragging the given edges; the opposite ones stay where they are, however far it goes. */
export function resized(frame: Rect, edges: Edges, by: Point): Rect {
    const growX = edges.left ? -by.x : edges.right ? by.x : 0;
    const growY = edges.top ? -by.y : edges.bottom ? by.y : 0;
    const width = Math.max(SMALLEST.width, frame.width + growX);
    const height = Math.max(SMALLEST.height, frame.height + growY);
    return {
        x: edges.left ? frame.x + frame.width - width : frame.x,
        y: edges.top ? frame.y + frame.height - height : frame.y,
        width,
        height,
    };
}

/** Which edges a point is on, given how wide the border to take hold of is. */
export function edgesAt(frame: Rect, at: Point, border: number): Edges {
    return {
        left: at.x < frame.x + border,
        right: at.x >= frame.x + frame.width - border,
        top: at.y < frame.y + border,
        bottom: at.y >= frame.y + frame.height - border,
    };
}

export function anyEdge(edges: Edges): boolean {
    return Boolean(edges.left || edges.right || edges.top || edges.bottom);
}

/** The pointer's shape over these edges. */
export function edgeCursor(edges: Edges): string {
    const vertical = edges.top ? 'n' : edges.bottom ? 's' : '';
    const horizontal = edges.left ? 'w' : edges.right ? 'e' : '';
    return anyEdge(edges) ? `${vertical}${horizontal}-resize` : '';
}
