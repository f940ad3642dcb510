import type { Rect } from './geometry.ts';
import { Event, Up } from './names.ts';

/** Up, window channel: what the person did to one object. */

export function clicked(id: number): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: Event.onClick });
}

export function toggled(id: number, value: boolean): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: Event.onToggle, [Up.value]: value });
}

export function edited(id: number, value: string): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: Event.onEdit, [Up.value]: value });
}

export function editFinished(id: number, value: string): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: Event.onEditFinish, [Up.value]: value });
}

/** An item of a combo box was chosen. */
export function itemSelected(id: number, index: number, value: string): string {
    return JSON.stringify({
        [Up.id]: String(id),
        [Up.event]: Event.onSelectionChange,
        [Up.index]: index,
        [Up.value]: value,
    });
}

/** The program chose an item, which has become the text of the field: it happened, nobody did it. */
export function textShown(id: number, value: string): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: Event.textShown, [Up.value]: value });
}

export function tabChanged(id: number, newIndex: number): string {
    return tabEvent(id, Event.tabchanged, newIndex);
}

/** The person wants the tab to go; the program decides. */
export function tabCloseRequested(id: number, newIndex: number): string {
    return tabEvent(id, Event.close, newIndex);
}

function tabEvent(id: number, event: string, newIndex: number): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: event, [Up.newIndex]: newIndex });
}

export function fontSizeStep(id: number, larger: boolean): string {
    const request = larger ? Up.increaseFontSize : Up.decreaseFontSize;
    return JSON.stringify({ [Up.id]: String(id), [request]: true });
}

/** Where a window is: `geometry` its content area, `frameGeometry` with title bar and border. */
export interface WindowPlace {
    readonly geometry: Rect;
    readonly frameGeometry: Rect;
    readonly maximized: boolean;
    readonly minimized: boolean;
}

/**
 * The members that differ from what was reported before; undefined when none does. The program is
 * asked to look at the size again ("resize") only when the content area's size changed, because
 * it answers with work.
 */
export function placeChange(
    id: number,
    now: WindowPlace,
    before?: WindowPlace,
): string | undefined {
    const message: Record<string, unknown> = {};
    if (!before || !sameRect(now.geometry, before.geometry)) {
        message[Up.geometry] = plainRect(now.geometry);
    }
    if (!before || !sameRect(now.frameGeometry, before.frameGeometry)) {
        message[Up.frameGeometry] = plainRect(now.frameGeometry);
    }
    if (now.maximized !== (before?.maximized ?? false)) {
        message[Up.maximized] = now.maximized;
    }
    if (now.minimized !== (before?.minimized ?? false)) {
        message[Up.minimized] = now.minimized;
    }
    if (before && !sameSize(now.geometry, before.geometry)) {
        message[Up.resize] = true;
    }
    return Object.keys(message).length === 0
        ? undefined
        : JSON.stringify({ [Up.id]: String(id), ...message });
}

function plainRect(rect: Rect): Rect {
    return { x: rect.x, y: rect.y, width: rect.width, height: rect.height };
}

function sameSize(a: Rect, b: Rect): boolean {
    return a.width === b.width && a.height === b.height;
}

function sameRect(a: Rect, b: Rect): boolean {
    return a.x === b.x && a.y === b.y && sameSize(a, b);
}
