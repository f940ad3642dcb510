/** A length of the style sheet in pixels; a theme may have set another. */
export function lengthOf(token: '--title-height' | '--notice-edge'): number {
    return parseFloat(getComputedStyle(document.documentElement).getPropertyValue(token));
}
