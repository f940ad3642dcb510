import type { StoredObject } from '../../store/StoredObject.ts';
import { afterLayout } from '../afterLayout.ts';
import { whenIdle } from '../whenIdle.ts';
import { Sizer } from './Sizer.ts';
import { columnsOf, fillsRow } from './shape.ts';

interface Movable {
    moveBefore(element: Element, before: Element | null): void;
}

/** Few enough that a block is laid out in no time, many enough that blocks are not many. */
const ROWS = 40;

/** When so many blocks change within a frame, those out of sight are left for later. */
const MANY = 8;

/** So long a width stays, in milliseconds, before everything is laid out for it. */
const SETTLED = 300;

/**
 * The children of a container that has very many, in blocks of rows of which none has an effect on
 * the layout of another. While their width changes only those in sight are laid out; then the others
 * again, one by one, because assistive tools know nothing of what is not laid out. An element stands
 * in a block instead of in its parent's.
 */
export class Blocks {
    readonly columns: number;
    readonly #container: HTMLElement;
    readonly #object: StoredObject;
    readonly #sizer: Sizer;
    readonly #aligned: () => void;
    /** Where the next child goes. */
    #block: HTMLElement | undefined;
    #rows = 0;
    #column = 0;
    /** The blocks in which something has changed since the last frame. */
    readonly #touched = new Set<Element>();
    #isUnsettled = false;
    /** All that was described is made. */
    #isWhole = false;
    #timer: ReturnType<typeof setTimeout> | undefined;
    /** How often all were to be laid out; what an earlier time has left undone stays so. */
    #layings = 0;

    /** `aligned` is told when the columns have another width. */
    constructor(container: HTMLElement, object: StoredObject, aligned: () => void) {
        this.#container = container;
        this.#aligned = aligned;
        this.#object = object;
        this.columns = columnsOf(object);
        this.#sizer = new Sizer(this.columns, () => this.#align());
        container.classList.add('in-blocks');
        container.closest('.body')?.classList.add('has-blocks');
        container.append(this.#sizer.element);
    }

    /** What the object holds is known, and made from now on: columns have their widths at once. */
    foresee(): void {
        for (const child of this.#object.children) {
            if (child.children.length === 0) {
                this.#sizer.expect(child, this.#column);
            }
            this.#pass(child);
        }
        this.#rows = 0;
        this.#column = 0;
    }

    /** Puts a child behind all others. */
    append(element: HTMLElement, child: StoredObject): void {
        const isBetweenRows = this.#column === 0 || fillsRow(child, this.#object);
        if (this.#block === undefined || (this.#rows >= ROWS && isBetweenRows)) {
            this.#begin(this.#newBlock());
        }
        move(element, this.#block as HTMLElement);
        if (child.children.length === 0) {
            this.#sizer.note(child, element, this.#column);
        }
        this.#pass(child);
    }

    /** The child, or what it holds, shows something else in its cell. */
    changed(child: StoredObject): void {
        if (this.#sizer.mayGrow(child)) {
            this.#sizer.note(child, child.view as HTMLElement, this.#columnOf(child));
        }
    }

    /** A child has come or gone, or takes a cell that it did not take: rows may be broken. */
    unsettled(): void {
        if (!this.#isUnsettled) {
            this.#isUnsettled = true;
            queueMicrotask(() => this.#settle());
        }
    }

    /** All blocks will have another layout: for now those in sight are enough. */
    widthChanges(): void {
        this.#layLater(this.#blocks);
    }

    /** The child, or something that it holds, is shown in another way. */
    touched(child: StoredObject): void {
        const block = blockOf(child) as HTMLElement;
        if (!this.#isWhole || this.#touched.has(block)) {
            return;
        }
        if (this.#touched.size === 0) {
            afterLayout(() => this.#touched.clear());
        }
        this.#touched.add(block);
        if (this.#touched.size === MANY) {
            this.#layLater(this.#touched);
        } else if (this.#touched.size > MANY) {
            block.classList.remove('laid');
        }
    }

    #layLater(blocks: Iterable<Element>): void {
        for (const block of blocks) {
            block.classList.remove('laid');
        }
        this.#layings += 1;
        clearTimeout(this.#timer);
        this.#timer = setTimeout(() => whenIdle(this.#lay(this.#layings)), SETTLED);
    }

    get #blocks(): Element[] {
        return [...this.#container.children].filter((child) => child.matches('.block'));
    }

    *#lay(laying: number): Generator<void> {
        for (const block of this.#blocks.filter((each) => !each.matches('.laid'))) {
            if (laying !== this.#layings) {
                return;
            }
            block.classList.add('laid');
            // At once, so that the next block is not begun without time for it.
            block.getBoundingClientRect();
            yield;
        }
    }

    /** All children stand in the container itself again. */
    dissolve(): void {
        this.#container.classList.remove('in-blocks');
        for (const block of this.#blocks) {
            [...block.children].forEach((child) => move(child, this.#container));
            block.remove();
        }
    }

    /** Nobody needs the widths any more. */
    leave(): void {
        this.#layings += 1;
        clearTimeout(this.#timer);
        this.#sizer.end();
    }

    /** Has every block end with a whole row, by the elements of the next one if need be. */
    #settle(): void {
        this.#isUnsettled = false;
        if (this.#sizer.element.parentElement === null) {
            return;
        }
        this.#block = undefined;
        this.#column = 0;
        for (const child of this.#object.children) {
            const element = child.view as HTMLElement | undefined;
            if (element === undefined) {
                break;
            }
            const own = element.parentElement as HTMLElement;
            if (this.#block === undefined || (own !== this.#block && this.#column === 0)) {
                this.#begin(own);
            } else if (own !== this.#block) {
                move(element, this.#block);
            }
            this.#pass(child);
        }
        this.#end();
        this.#isWhole = true;
        this.#blocks.filter((block) => block.childElementCount === 0).forEach((e) => e.remove());
    }

    #newBlock(): HTMLElement {
        const block = document.createElement('div');
        block.className = 'block laid';
        this.#container.append(block);
        return block;
    }

    #begin(block: HTMLElement): void {
        this.#end();
        this.#block = block;
        this.#rows = 0;
        this.#column = 0;
    }

    /** Out of sight the block is as high as its number of rows lets expect. */
    #end(): void {
        this.#block?.style.setProperty('--rows', String(this.#rows));
    }

    /** Goes on to the cell behind the child. */
    #pass(child: StoredObject): void {
        if (child.values.visible === false) {
            return;
        }
        const fills = fillsRow(child, this.#object);
        if (fills || this.#column === 0) {
            this.#rows += 1;
        }
        this.#column = fills ? 0 : (this.#column + 1) % this.columns;
    }

    /** Counted from the beginning of its block. */
    #columnOf(child: StoredObject): number {
        const { children } = this.#object;
        const block = blockOf(child);
        let column = 0;
        for (let at = children.indexOf(child) - 1; at >= 0; at -= 1) {
            const before = children[at] as StoredObject;
            if (blockOf(before) !== block || fillsRow(before, this.#object)) {
                break;
            }
            column += before.values.visible === false ? 0 : 1;
        }
        return column % this.columns;
    }

    /** The columns of all blocks are those of the sizer. */
    #align(): void {
        const { style } = this.#container;
        const widths = this.#sizer.widths();
        const [block] = this.#container.getElementsByClassName('block');
        const rows = block instanceof HTMLElement ? block.style.getPropertyValue('--rows') : '';
        if (widths === undefined || block === undefined || rows === '') {
            return;
        }
        // Read before anything is written, so that nothing is laid out in between.
        const { height, paddingTop, paddingBottom } = getComputedStyle(block);
        const room = parseFloat(height) - parseFloat(paddingTop) - parseFloat(paddingBottom);
        style.setProperty('--row-height', `${this.#sizer.inEm(room) / Number(rows)}em`);
        const columns = tracks(widths);
        if (style.getPropertyValue('--columns') !== columns) {
            style.setProperty('--columns', columns);
            style.setProperty('--first', this.columns === 2 ? `${widths[0]}em` : '');
            if (this.#isWhole) {
                this.widthChanges();
                this.#aligned();
            }
        }
    }
}

/** Of two columns the second has what the first leaves, others share the width. */
function tracks(widths: readonly number[]): string {
    const all = widths.reduce((sum, width) => sum + width);
    return widths.length === 2
        ? `${widths[0]}em minmax(0, 1fr)`
        : widths.map((width) => `minmax(0, ${(width / all).toFixed(4)}fr)`).join(' ');
}

function blockOf({ view }: StoredObject): HTMLElement | null {
    return (view as HTMLElement).parentElement;
}

/** Where the browser can, what is moved keeps the focus, and what scrolls in it its place. */
function move(element: Element, to: HTMLElement): void {
    if (element.isConnected && to.isConnected && 'moveBefore' in to) {
        (to as Movable).moveBefore(element, null);
    } else {
        to.append(element);
    }
}
