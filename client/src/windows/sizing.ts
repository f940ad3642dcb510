import type { Size } from '../protocol/geometry.ts';
import { countPagesBehind, missing } from './fit.ts';
import type { Place } from './Place.ts';
import { fitSize } from './placement.ts';

/**
 * What decides a window's size. While the contents do, it follows them. A size of the program
 * ("asked" until it was seen) grows with contents that fit into it, for it was meant to show them
 * all. A user's size stays, and so does one of the program into which the contents do not fit:
 * there they scroll.
 */
export type Sizing = 'contents' | 'asked' | 'grows' | 'stays';

export function asSizing(value: unknown): Sizing {
    return value === 'asked' || value === 'grows' || value === 'stays' ? value : 'contents';
}

/** A window that may take another size. */
export interface Sizable {
    readonly place: Place;
    readonly body: HTMLElement;
    readonly viewport: Size;
    naturalSize(): Size;
}

/** Wider contents may need less height, so the size that fits is found in two steps. */
const PASSES = 2;

/**
 * Gives the window the size that its contents need, if they have a say, and answers who has it from
 * now on; `anew` when there are contents that were not there before.
 */
export function followContents(window: Sizable, before: Sizing, anew: boolean): Sizing {
    if (before === 'stays') {
        return before;
    }
    const most = fitSize(window.viewport, window.viewport);
    if (window.place.frame.height < most.height) {
        countPagesBehind(window.body, true);
    }
    const sizing = before === 'asked' ? seen(window.body) : before;
    if (sizing === 'contents' && (anew || canGrow(window, most))) {
        const { frame } = window.place;
        const width = Math.max(frame.width, window.naturalSize().width);
        window.place.resizeTo({ width, height: frame.height });
    }
    for (let pass = 0; pass < PASSES && sizing !== 'stays'; pass += 1) {
        takeWhatIsMissing(window, sizing);
    }
    return sizing;
}

function seen(body: HTMLElement): Sizing {
    const { width, height } = missing(body);
    return width > 0 || height > 0 ? 'stays' : 'grows';
}

function canGrow({ body, place }: Sizable, most: Size): boolean {
    const { width, height } = missing(body);
    const now = place.frame;
    return (height > 0 && now.height < most.height) || (width > 0 && now.width < most.width);
}

/** Within the page; a window that nobody gave a size becomes lower again, too. */
function takeWhatIsMissing({ body, place, viewport }: Sizable, sizing: Sizing): void {
    const { width, height } = missing(body);
    const now = place.frame;
    const fitting = fitSize({ width: now.width + width, height: now.height + height }, viewport);
    const lower = height < 0 && sizing === 'contents';
    place.resizeTo({
        width: Math.max(now.width, fitting.width),
        height: lower ? fitting.height : Math.max(now.height, fitting.height),
    });
}
