const HIGH_SURROGATE = /[\ud800-\udbff]$/;
const LOW_SURROGATE = /^[\udc00-\udfff]/;

/**
 * Where a caret at `at` in the text `before` stands when the text becomes `now`: before what stood
 * behind it, else behind what stood before it, in upper or lower case; where both have changed it
 * stays where it is.
 */
export function caretIn(before: string, at: number, now: string): number {
    const old = before.toLowerCase();
    const text = now.toLowerCase();
    // Some letters have more of them in the other case.
    const comparable = old.length === before.length && text.length === now.length;
    const [from, to] = comparable ? [old, text] : [before, now];
    const behind = from.length - at;
    const caret = to.endsWith(from.slice(at)) ? to.length - behind : Math.min(at, to.length);
    return isInPair(now, caret) ? caret + 1 : caret;
}

function isInPair(text: string, at: number): boolean {
    return HIGH_SURROGATE.test(text.slice(0, at)) && LOW_SURROGATE.test(text.slice(at));
}
