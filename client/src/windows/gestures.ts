import type { Point, Rect } from '../protocol/geometry.ts';
import { anyEdge, type Edges, edgeCursor, edgesAt, moved, resized } from './placement.ts';

/** What can be taken hold of: a window whose frame follows pointer and keys. */
export interface Movable {
    readonly element: HTMLElement;
    readonly frame: Rect;
    /** Maximized windows stay where they are. */
    readonly fixed: boolean;
    /** While a gesture goes on, `last` is false. */
    setFrame(frame: Rect, last: boolean): void;
    toggleMaximize(): void;
}

const BORDER = 6;
const KEY_STEP = 16;

const arrows = new Map<string, Point>([
    ['ArrowLeft', { x: -1, y: 0 }],
    ['ArrowRight', { x: 1, y: 0 }],
    ['ArrowUp', { x: 0, y: -1 }],
    ['ArrowDown', { x: 0, y: 1 }],
]);

/** Moving by the title bar, resizing by the border, both by the keyboard on the title bar. */
export function makeMovable(window: Movable): void {
    const { element } = window;
    element.addEventListener('pointerdown', (event) => begin(window, event));
    element.addEventListener('pointermove', (event) => {
        element.style.cursor = event.buttons === 0 ? edgeCursor(edgesUnder(window, event)) : '';
    });
    element.addEventListener('dblclick', (event) => {
        if (isTitle(event.target)) {
            window.toggleMaximize();
        }
    });
    element.addEventListener('keydown', (event) => moveByKey(window, event));
}

function isTitle(target: EventTarget | null): boolean {
    return target instanceof Element && target.closest('.bar') !== null && !target.closest('.tool');
}

function edgesUnder(window: Movable, event: PointerEvent): Edges {
    return window.fixed || event.target !== window.element
        ? {}
        : edgesAt(window.frame, { x: event.clientX, y: event.clientY }, BORDER * 2);
}

function begin(window: Movable, event: PointerEvent): void {
    const edges = edgesUnder(window, event);
    const resizing = anyEdge(edges);
    if (event.button !== 0 || window.fixed || (!resizing && !isTitle(event.target))) {
        return;
    }
    const start = window.frame;
    follow(window, event, (by) => (resizing ? resized(start, edges, by) : moved(start, by)));
}

/**
 * The pointer is captured with its first movement, so that a plain click stays a click; until then
 * the document listens, because a quick first movement may already have left the window.
 */
function follow(window: Movable, down: PointerEvent, frameAt: (by: Point) => Rect): void {
    const { element } = window;
    const end = new AbortController();
    let captured = false;
    const track = (event: PointerEvent, last: boolean): void => {
        if (event.pointerId === down.pointerId && captured) {
            const by = { x: event.clientX - down.clientX, y: event.clientY - down.clientY };
            window.setFrame(frameAt(by), last);
        }
    };
    const move = (event: PointerEvent): void => {
        if (!captured && event.pointerId === down.pointerId) {
            captured = true;
            element.setPointerCapture(down.pointerId);
        }
        track(event, false);
    };
    const stop = (event: PointerEvent): void => {
        if (event.pointerId === down.pointerId) {
            track(event, true);
            end.abort();
        }
    };
    document.addEventListener('pointermove', move, { signal: end.signal });
    document.addEventListener('pointerup', stop, { signal: end.signal });
    document.addEventListener('pointercancel', stop, { signal: end.signal });
}

function moveByKey(window: Movable, event: KeyboardEvent): void {
    const arrow = arrows.get(event.key);
    if (!arrow || !isTitle(event.target) || event.altKey || event.metaKey) {
        return;
    }
    event.preventDefault();
    if (!window.fixed) {
        const step = event.ctrlKey ? 1 : KEY_STEP;
        const by = { x: arrow.x * step, y: arrow.y * step };
        const grow = { right: arrow.x !== 0, bottom: arrow.y !== 0 };
        window.setFrame(
            event.shiftKey ? resized(window.frame, grow, by) : moved(window.frame, by),
            true,
        );
    }
}
