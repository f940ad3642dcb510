import { lengthOf } from '../windows/tokens.ts';

/** By these a window is moved and closed, by the last ones it comes back. */
const HANDLES = '.window .bar, .messagebox-title, .taskbar';
const BODIES = '.window, .messagebox';
/** A covered pixel of what one works with counts more than many of what one looks at. */
const WEIGHTS = { handles: 1_000_000, focus: 1_000, bodies: 1 };

function overlap(a: DOMRect, b: DOMRect): number {
    const width = Math.min(a.right, b.right) - Math.max(a.left, b.left);
    const height = Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top);
    return Math.max(0, width) * Math.max(0, height);
}

/** How much is in the way of what stands there. */
function costOf(place: DOMRect): number {
    const covered = (elements: Iterable<Element>): number => {
        let area = 0;
        for (const element of elements) {
            area += overlap(place, element.getBoundingClientRect());
        }
        return area;
    };
    const focused = document.activeElement?.closest('.body *');
    return (
        WEIGHTS.handles * covered(document.querySelectorAll(HANDLES)) +
        WEIGHTS.focus * covered(focused ? [focused] : []) +
        WEIGHTS.bodies * covered(document.querySelectorAll(BODIES))
    );
}

/**
 * Puts a fixed element where it covers no title bar, not the field that one is in, and as little
 * else as can be: in a corner or in the middle of an edge. Where it stands well it stays.
 */
export function placeAside(element: HTMLElement): void {
    const now = element.getBoundingClientRect();
    if (now.width === 0 || now.height === 0) {
        return;
    }
    const edge = lengthOf('--notice-edge');
    const taskbar = document.querySelector<HTMLElement>('.taskbar')?.offsetHeight ?? 0;
    const right = Math.max(edge, innerWidth - now.width - edge);
    const bottom = Math.max(edge, innerHeight - now.height - edge);
    const rows = [bottom, edge, Math.max(edge, bottom - taskbar), Math.round(bottom / 2)];
    const places = rows.flatMap((y) =>
        [edge, right, Math.round(right / 2)].map((x) => new DOMRect(x, y, now.width, now.height)),
    );
    const isOnPage = now.top >= 0 && now.bottom <= innerHeight && now.right <= innerWidth;
    let best = isOnPage ? now : (places[0] ?? now);
    let least = costOf(best);
    for (const place of least < WEIGHTS.focus ? [] : places) {
        const cost = costOf(place);
        if (cost < least) {
            [best, least] = [place, cost];
        }
    }
    // What stands below grows upwards.
    const isLow = best.top + best.bottom > innerHeight;
    element.style.left = `${best.left}px`;
    element.style.top = isLow ? 'auto' : `${best.top}px`;
    element.style.bottom = isLow ? `${innerHeight - best.bottom}px` : 'auto';
}
