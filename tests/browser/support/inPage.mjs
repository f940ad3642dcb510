// What a page of WebKit is asked by the stories. It is made one script with what it imports and
// runs in the page itself.
import { computeAccessibleName, getRole, isInaccessible } from 'dom-accessibility-api';

const isOff = (element) =>
    element.matches(':disabled, [aria-disabled="true"], [aria-disabled="true"] *');
const states = {
    checked: (element) => element.checked ?? element.ariaChecked === 'true',
    disabled: isOff,
    pressed: (element) => element.ariaPressed === 'true',
    selected: (element) => element.ariaSelected === 'true',
};

const tidy = (text) => text.replace(/\s+/g, ' ').trim();

/** Texts are compared as the Chromium stories' library does it: a part will do, in any case. */
function fits(text, wanted, exact) {
    if (wanted === undefined || wanted === null) {
        return true;
    }
    if (wanted.source !== undefined) {
        return new RegExp(wanted.source, wanted.flags).test(text);
    }
    return exact
        ? tidy(text) === tidy(wanted)
        : tidy(text).toLowerCase().includes(tidy(wanted).toLowerCase());
}

const finders = {
    role:
        ({ role, text, exact, state }) =>
        (element) =>
            getRole(element) === role &&
            !isInaccessible(element) &&
            element.checkVisibility() &&
            Object.entries(state).every(([name, value]) => states[name](element) === value) &&
            fits(computeAccessibleName(element), text, exact),
    label:
        ({ text, exact }) =>
        (element) =>
            (element.labels?.length > 0 || element.matches('[aria-label], [aria-labelledby]')) &&
            fits(computeAccessibleName(element), text, exact),
    // The innermost ones.
    text:
        ({ text, exact }) =>
        (element) =>
            fits(element.textContent, text, exact) &&
            ![...element.children].some((child) => fits(child.textContent, text, exact)),
    css:
        ({ css }) =>
        (element) =>
            element.matches(css),
};

/** What one step makes of the elements found so far. */
function take(found, step) {
    if (step.nth !== undefined) {
        return [found.at(step.nth)].filter((element) => element);
    }
    if (step.by === 'filter') {
        return found
            .filter((element) => fits(element.textContent, step.text, false))
            .filter((element) => !step.visible || isVisible(element))
            .filter((element) => !step.has || from([element], step.has).length > 0);
    }
    // A text may be that of the element itself.
    const inside = found.flatMap((root) => [
        ...(step.by === 'text' ? [root] : []),
        ...root.querySelectorAll('*'),
    ]);
    return [...new Set(inside)].filter(finders[step.by](step));
}

function from(roots, steps) {
    return steps.reduce(take, roots);
}

export function all(steps) {
    return from([document.body], steps);
}

/** The elements' only one; nothing while there is none. */
function only(steps) {
    const found = all(steps);
    if (found.length > 1) {
        throw new Error(`${found.length} elements: ${found.map((each) => each.outerHTML)}`);
    }
    return found[0];
}

export function isVisible(element) {
    const { width, height } = element.getBoundingClientRect();
    return width > 0 && height > 0 && element.checkVisibility({ visibilityProperty: true });
}

const nextFrame = () => new Promise((resolve) => requestAnimationFrame(resolve));

/** What `look` gives once it gives something other than nothing, asked at every frame. */
async function once(look, steps, timeout) {
    const patience = timeout ?? 25_000;
    for (const began = performance.now(); performance.now() - began < patience; ) {
        const seen = await look();
        if (seen) {
            return seen;
        }
        await nextFrame();
    }
    throw new Error(`nothing after ${patience} ms: ${JSON.stringify(steps)}`);
}

export function one(steps) {
    return once(() => only(steps), steps);
}

const reached = {
    attached: (element) => element,
    detached: (element) => !element,
    visible: (element) => element && isVisible(element),
    hidden: (element) => !element || !isVisible(element),
};

export async function until(steps, state, timeout) {
    await once(() => reached[state](only(steps)), steps, timeout);
}

export function untilChecked(steps, isChecked) {
    return once(() => states.checked(only(steps)) === isChecked, steps);
}

/** Where a user would click it: in the middle, once it stands still and nothing covers it. */
export function pointOf(steps, timeout) {
    const middle = async () => {
        const element = only(steps);
        if (!element || !isVisible(element) || isOff(element)) {
            return undefined;
        }
        element.scrollIntoView({ block: 'nearest', inline: 'nearest' });
        const before = element.getBoundingClientRect();
        await nextFrame();
        const { x, y, width, height } = element.getBoundingClientRect();
        const point = { x: x + width / 2, y: y + height / 2 };
        const hit = document.elementFromPoint(point.x, point.y);
        return before.x === x && before.y === y && element.contains(hit) ? point : undefined;
    };
    return once(middle, steps, timeout);
}

const faults = [];
addEventListener('error', ({ message }) => faults.push(message));
addEventListener('unhandledrejection', ({ reason }) => faults.push(String(reason)));
addEventListener('securitypolicyviolation', ({ violatedDirective, blockedURI }) =>
    faults.push(`Content Security Policy: ${violatedDirective}: ${blockedURI}`),
);

/** What the page has thrown and which breaches of its policy there were since the last call. */
export function takeFaults() {
    return faults.splice(0);
}
