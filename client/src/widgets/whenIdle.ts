/** So long, in milliseconds, it works in one go. */
const SLICE = 16;
/** So long it waits at most for a moment in which there is nothing else to do. */
const PATIENCE = 100;

/** Does the steps one by one, if it can be while the page has nothing else to do. */
export function whenIdle(steps: Iterator<void>): void {
    const goOn = (): void => {
        const end = performance.now() + SLICE;
        while (!steps.next().done) {
            if (performance.now() > end) {
                request();
                return;
            }
        }
    };
    const request = (): void => {
        if ('requestIdleCallback' in globalThis) {
            requestIdleCallback(goOn, { timeout: PATIENCE });
        } else {
            setTimeout(goOn, PATIENCE);
        }
    };
    request();
}
