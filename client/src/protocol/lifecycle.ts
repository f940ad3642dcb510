import { isObject, parseJson } from './guards.ts';
import { LifeCycle } from './names.ts';

/** Up, root channel: this page is there and shows what the program opens. */
export function clientReady(clientId: string): string {
    return JSON.stringify({ [LifeCycle.clientReady]: clientId });
}

/** Down, root channel: whoever is there may announce itself. */
export function isPing(text: string): boolean {
    const message = parseJson(text);
    return isObject(message) && Object.hasOwn(message, LifeCycle.ping);
}

/** Up, window channel: the window with everything described is in the page. */
export function dialogReady(windowId: number): string {
    return JSON.stringify({ [LifeCycle.dialogReady]: String(windowId) });
}

/** Up, page's channel: the user closed the window; the program decides whether it goes. */
export function dialogDestroyed(windowId: number): string {
    return JSON.stringify({ [LifeCycle.dialogDestroyed]: String(windowId) });
}
