import { asNumber, isObject, parseJson } from './guards.ts';

/** All in CSS pixels of the page's viewport. */
export interface Point {
    readonly x: number;
    readonly y: number;
}
export interface Size {
    readonly width: number;
    readonly height: number;
}
export interface Rect extends Point, Size {}

export function sameSize(a: Size, b: Size): boolean {
    return a.width === b.width && a.height === b.height;
}

export function sameRect(a: Rect, b: Rect): boolean {
    return a.x === b.x && a.y === b.y && sameSize(a, b);
}

/** Beyond this no screen reaches; it also keeps sums of two far from losing whole pixels. */
const LIMIT = 1 << 24;

function numbersOf(value: unknown, members: readonly string[]): readonly number[] | undefined {
    if (isObject(value)) {
        return numbersOf(
            members.map((member) => value[member]),
            members,
        );
    }
    const list = typeof value === 'string' ? parseJson(value) : value;
    if (!Array.isArray(list) || list.length !== members.length) {
        return undefined;
    }
    const numbers = list.map(asNumber);
    return numbers.every((number) => number !== undefined && Math.abs(number) <= LIMIT)
        ? (numbers as number[])
        : undefined;
}

/**
 * The program writes places as text ("[10,20,300,200]"), the page writes them as objects; both are
 * read, so that what the page has kept over a reload goes the same way as what arrives.
 */
export function asRect(value: unknown): Rect | undefined {
    const numbers = numbersOf(value, ['x', 'y', 'width', 'height']);
    if (numbers === undefined) {
        return undefined;
    }
    const [x = 0, y = 0, width = 0, height = 0] = numbers;
    return width < 0 || height < 0 ? undefined : { x, y, width, height };
}

export function asPoint(value: unknown): Point | undefined {
    const numbers = numbersOf(value, ['x', 'y']);
    return numbers && { x: numbers[0] ?? 0, y: numbers[1] ?? 0 };
}

export function asSize(value: unknown): Size | undefined {
    const numbers = numbersOf(value, ['width', 'height']);
    if (numbers === undefined) {
        return undefined;
    }
    const [width = 0, height = 0] = numbers;
    return width < 0 || height < 0 ? undefined : { width, height };
}

/** One dimension, which arrives as decimal text. */
export function asLength(value: unknown): number | undefined {
    const length = typeof value === 'string' && /^\d{1,10}$/.test(value) ? Number(value) : value;
    return typeof length === 'number' && Number.isFinite(length) && length >= 0
        ? Math.min(length, LIMIT)
        : undefined;
}
