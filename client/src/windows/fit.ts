import type { Size } from '../protocol/geometry.ts';

/**
 * How a window's body and what it holds fit into each other: what is read here was laid out for
 * the frame anyway, so that looking costs little however much the window holds.
 */

/** What scrolls has at least so many lines, in em; with fewer the whole body scrolls instead. */
const LEAST_SCROLLED = 8;
/** A box of more children gives up sharing its height: to look at each would take too long. */
const MOST_CHILDREN = 1000;
/** A text makes no window wider than a line that reads well; of very many, each counts as it is. */
const LONGEST_LINE = 'var(--line-length)';
const MOST_TEXTS = 200;
const SCROLLS = '.grid, .panel:not(.button-set), .container';
const FOOT = '.text, .button-set';
const TEXTS = '.box > .text, .box > .block > .text';

/** The child of the outermost box that scrolls when the window is too low for all. */
export function giverIn(body: HTMLElement): HTMLElement | undefined {
    return body.querySelector<HTMLElement>(':scope > .shares-height > .gives') ?? undefined;
}

function naturalHeight(element: HTMLElement): number {
    return element.offsetHeight + element.scrollHeight - element.clientHeight;
}

/** How much of its height the body lacks, or has too much of if negative. */
function missingHeight(body: HTMLElement): number {
    const giver = giverIn(body);
    const lacking = body.scrollHeight - body.clientHeight;
    const hidden = giver ? giver.scrollHeight - giver.clientHeight : 0;
    return lacking + hidden > 0 ? lacking + hidden : -slackOf(body);
}

/** What is free below the last child of a body that stacks its children. */
function slackOf(body: HTMLElement): number {
    const last = body.lastElementChild;
    const { display, paddingBottom } = getComputedStyle(body);
    if (display !== 'flex' || last === null || last.getClientRects().length === 0) {
        return 0;
    }
    const end = body.getBoundingClientRect().bottom - parseFloat(paddingBottom);
    return Math.max(0, Math.floor(end - last.getBoundingClientRect().bottom));
}

/** What the body would have to be larger for all to be seen without scrolling. */
export function missing(body: HTMLElement): Size {
    const giver = giverIn(body);
    return {
        width: Math.max(
            body.scrollWidth - body.clientWidth,
            giver ? giver.scrollWidth - giver.clientWidth : 0,
        ),
        height: missingHeight(body),
    };
}

/** The size of `window`, which has no size of its own for now, as its contents ask for it. */
export function measureNaturally(body: HTMLElement, window: HTMLElement): Size {
    const texts = [...body.querySelectorAll<HTMLElement>(TEXTS)].filter(
        (text, _index, all) => all.length <= MOST_TEXTS && text.style.maxWidth === '',
    );
    texts.forEach((text) => (text.style.maxWidth = LONGEST_LINE));
    const { width, height } = window.getBoundingClientRect();
    const box = outerBox(body);
    if (box !== undefined) {
        chooseGiver(box);
    }
    texts.forEach((text) => (text.style.maxWidth = ''));
    return { width, height };
}

/** Whether pages behind take their room; where all scrolls already, that would be of no use. */
export function countPagesBehind(body: HTMLElement, count: boolean): void {
    body.classList.toggle('short', !count);
}

function uncountPagesBehind(body: HTMLElement): void {
    const counted = !body.classList.contains('short');
    if (counted && missingHeight(body) > 0) {
        countPagesBehind(body, body.querySelector('.page[hidden="until-found"]') === null);
    } else if (!counted && missingHeight(body) <= 0) {
        countPagesBehind(body, true);
        countPagesBehind(body, missingHeight(body) <= 0);
    }
}

/**
 * In a low window one thing scrolls: the largest child of its outermost box that can, while the
 * rest stays in sight; or, where that would leave it only a few lines, the whole body, above the
 * buttons and the texts beside them, which say how things are.
 */
export function fit(body: HTMLElement): void {
    uncountPagesBehind(body);
    const box = outerBox(body);
    if (box === undefined) {
        body.classList.remove('whole');
        return;
    }
    const giver = chooseGiver(box);
    const short = missingHeight(body) > 0;
    if (giver !== undefined) {
        const room = giver.offsetHeight - Math.max(0, body.scrollHeight - body.clientHeight);
        const least = LEAST_SCROLLED * parseFloat(getComputedStyle(body).fontSize);
        body.classList.toggle('whole', short && room < Math.min(least, naturalHeight(giver)));
    }
    stick(body, box, short);
}

function outerBox(body: HTMLElement): HTMLElement | undefined {
    return body.childElementCount === 1
        ? (body.querySelector<HTMLElement>(':scope > .box') ?? undefined)
        : undefined;
}

function chooseGiver(box: HTMLElement): HTMLElement | undefined {
    const children = box.childElementCount <= MOST_CHILDREN ? [...box.children] : [];
    let largest: HTMLElement | undefined;
    let most = 0;
    for (const child of children as HTMLElement[]) {
        const height = child.matches(SCROLLS) ? naturalHeight(child) : 0;
        if (height > most) {
            most = height;
            largest = child;
        }
    }
    for (const child of children) {
        child.classList.toggle('gives', child === largest);
    }
    box.classList.toggle('shares-height', largest !== undefined);
    return largest;
}

/** The texts and buttons at the end stay in sight while they leave half of the height. */
function stick(body: HTMLElement, box: HTMLElement, short: boolean): void {
    let below = 0;
    for (let at = box.lastElementChild; at instanceof HTMLElement && at.matches(FOOT); ) {
        const height = at.offsetHeight;
        const sticks = short && below + height <= body.clientHeight / 2;
        at.classList.toggle('foot', sticks);
        at.style.setProperty('--below', `${below}px`);
        if (height > 0) {
            below += sticks ? height + parseFloat(getComputedStyle(box).rowGap) : 0;
        }
        at = at.previousElementSibling;
    }
    body.style.scrollPaddingBottom = short ? `${below}px` : '';
}
