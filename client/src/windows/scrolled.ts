import { asId, asNumber, isObject } from '../protocol/guards.ts';
import { fit, giverIn } from './fit.ts';

/** To look at what is scrolled may cost a layout, so elements further inside are left alone. */
const OUTER = '.body > *, .body > .shares-height > .gives';

/** How far the body of a window is scrolled, or the object in it that scrolls in its place. */
export interface Scrolled {
    readonly id: string | undefined;
    readonly left: number;
    readonly top: number;
}

function scrollersIn(body: HTMLElement): HTMLElement[] {
    const giver = giverIn(body);
    return giver === undefined ? [body] : [body, giver];
}

function scrolledOf(elements: readonly HTMLElement[]): Scrolled[] {
    return elements
        .map(({ dataset, scrollLeft, scrollTop }) => ({
            id: dataset['id'],
            left: scrollLeft,
            top: scrollTop,
        }))
        .filter(({ left, top }) => left !== 0 || top !== 0);
}

export function scrolledIn(body: HTMLElement): Scrolled[] {
    return scrolledOf(scrollersIn(body));
}

/** Everything in sight that is scrolled, for a page that goes: each element is looked at. */
export function storeScrolled(body: HTMLElement): Scrolled[] {
    const inside = [...body.querySelectorAll<HTMLElement>('[data-id]')];
    const laidOut = inside.filter((e) => e.checkVisibility({ contentVisibilityAuto: true }));
    return scrolledOf([body, ...laidOut]);
}

/** What was stored, once all of it is laid out again. */
export function restoreScrolled(body: HTMLElement, stored: unknown): void {
    fit(body);
    for (const each of Array.isArray(stored) ? (stored as unknown[]) : []) {
        const { id, left, top } = isObject(each) ? each : {};
        const inner = `[data-id="${asId(id) ?? 0}"]`;
        const element = id === undefined ? body : body.querySelector(inner);
        element?.scrollTo(asNumber(left) ?? 0, asNumber(top) ?? 0);
    }
}

/**
 * Makes a change and puts back what the user had scrolled: while a window is measured nothing in
 * it scrolls, and an element that replaces another begins at its top.
 */
export function keepScrolled(body: HTMLElement, change: () => void): void {
    const before = scrolledIn(body);
    change();
    scrollBack(body, before);
}

export function scrollBack(body: HTMLElement, before: readonly Scrolled[]): void {
    if (before.length > 0 && giverIn(body) === undefined) {
        fit(body);
    }
    for (const { id, left, top } of before) {
        const now = scrollersIn(body).find(({ dataset }) => dataset['id'] === id);
        now?.scrollTo(left, top);
    }
}

/** As `keepScrolled`, for a change that replaces an element, if that one may be what scrolls. */
export function keepScrolledOver(old: unknown, change: () => void): void {
    const body = old instanceof HTMLElement && old.matches(OUTER) ? old.closest('.body') : null;
    if (body instanceof HTMLElement) {
        keepScrolled(body, change);
    } else {
        change();
    }
}
