import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { setCaption } from '../base.ts';
import { textWidth } from './textWidth.ts';

/** What no two elements of a page may have, or by which the page finds one. */
const UNIQUE = ['id', 'for', 'data-id', 'data-type', 'data-name', 'data-default'];

/** One that is nothing but its caption is as wide as that. */
const captioned: ReadonlySet<string> = new Set([Kind.text, Kind.button, Kind.checkBox]);

/** The widest caption of a kind in a column that is to come. */
interface Expected {
    readonly caption: string;
    readonly width: number;
}

/** One of a kind in a column, and how wide its text is. */
interface Widest {
    readonly copy: HTMLElement;
    readonly width: number;
}

/**
 * A row that nobody sees: in each column copies of the widest of every kind there. Blocks know
 * nothing of each other's widths, so this is where the columns of all have theirs from.
 */
export class Sizer {
    readonly element = document.createElement('div');
    readonly #columns: number;
    readonly #expected = new Map<string, Expected>();
    readonly #widest = new Map<string, Widest>();
    readonly #observer: ResizeObserver;

    constructor(columns: number, changed: () => void) {
        this.element.className = 'sizer';
        this.#columns = columns;
        this.#observer = new ResizeObserver(changed);
    }

    /** The object will stand in this column: one of its kind that does so earlier makes room for it. */
    expect(object: StoredObject, column: number): void {
        const { label, text = label, visible } = object.values;
        if (text === undefined || visible === false || !captioned.has(object.type)) {
            return;
        }
        const key = keyOf(object, column);
        const width = textWidth(object);
        if (width > (this.#expected.get(key)?.width ?? -1)) {
            this.#expected.set(key, { caption: text, width });
        }
    }

    /** The object stands in this column, or has another text there. */
    note(object: StoredObject, shown: HTMLElement, column: number): void {
        const key = keyOf(object, column);
        const before = this.#widest.get(key);
        const width = textWidth(object);
        if (object.values.visible !== false && width > (before?.width ?? -1)) {
            const copy = copyOf(shown);
            const expected = this.#expected.get(key);
            if (expected !== undefined && expected.width > width) {
                setCaption(copy, expected.caption);
            }
            copy.style.gridArea = `1 / ${column + 1}`;
            before?.copy.remove();
            this.#widest.set(key, { copy, width: Math.max(width, expected?.width ?? 0) });
            this.element.append(copy);
            this.#observer.observe(copy);
        }
    }

    /** Whether the object is wider than what is the widest of its kind in some column. */
    mayGrow(object: StoredObject): boolean {
        const width = textWidth(object);
        return [...this.#widest].some(
            ([key, widest]) => key.endsWith(` ${object.type}`) && width > widest.width,
        );
    }

    /** The widths of the columns in em; undefined while they are not laid out. */
    widths(): number[] | undefined {
        const { gridTemplateColumns, width } = getComputedStyle(this.element);
        const tracks = this.#columns === 1 ? [width] : gridTemplateColumns.split(' ');
        const widths = tracks.map((track) => this.inEm(parseFloat(track)));
        return widths.every(Number.isFinite) ? widths : undefined;
    }

    /** To a thousandth, so that rounding makes no difference. */
    inEm(pixels: number): number {
        const em = parseFloat(getComputedStyle(this.element).fontSize);
        return Math.ceil((1000 * pixels) / em) / 1000;
    }

    end(): void {
        this.#observer.disconnect();
        this.element.remove();
    }
}

function keyOf({ type }: StoredObject, column: number): string {
    return `${column} ${type}`;
}

function copyOf(shown: HTMLElement): HTMLElement {
    const copy = shown.cloneNode(true) as HTMLElement;
    for (const element of [copy, ...copy.querySelectorAll('*')]) {
        UNIQUE.forEach((name) => element.removeAttribute(name));
    }
    return copy;
}
