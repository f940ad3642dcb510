import { type Rect, sameRect, sameSize } from './geometry.ts';
import { Up } from './names.ts';
import type { EventMembers, EventName } from './values.ts';

/** Up, window channel: what happened to one object, with the members that the event has. */
export function happened<E extends EventName>(
    id: number,
    event: E,
    members: EventMembers[E],
): string {
    return JSON.stringify({ [Up.id]: String(id), [Up.event]: event, ...members });
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
