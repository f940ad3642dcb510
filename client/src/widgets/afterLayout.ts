/** Before the next frame is painted, or soon when the page is hidden and paints none. */
export function afterLayout(call: () => void): void {
    let done = false;
    const once = (): void => {
        if (!done) {
            done = true;
            call();
        }
    };
    requestAnimationFrame(once);
    setTimeout(once, 200);
}
