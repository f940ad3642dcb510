/** Nothing is left to do. */
export const none: Iterator<void> = { next: () => ({ done: true, value: undefined }) };

/** Does all that is left at once; answers what comes out of it. */
export function whole<Result>(steps: Iterator<void, Result>): Result {
    let step = steps.next();
    while (!step.done) {
        step = steps.next();
    }
    return step.value;
}
