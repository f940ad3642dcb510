/** Narrowing of what comes from the wire: a wrong kind is `undefined`, never an exception. */

export type JsonObject = Readonly<Record<string, unknown>>;

export function isObject(value: unknown): value is JsonObject {
    return typeof value === 'object' && value !== null && !Array.isArray(value);
}

export function asText(value: unknown): string | undefined {
    return typeof value === 'string' ? value : undefined;
}

export function asFlag(value: unknown): boolean | undefined {
    return typeof value === 'boolean' ? value : undefined;
}

export function asNumber(value: unknown): number | undefined {
    return typeof value === 'number' && Number.isFinite(value) ? value : undefined;
}

/** A whole number from 0 that is exact. */
export function asCount(value: unknown): number | undefined {
    return Number.isSafeInteger(value) && (value as number) >= 0 ? (value as number) : undefined;
}

export function asInteger(value: unknown): number | undefined {
    return Number.isSafeInteger(value) ? (value as number) : undefined;
}

export function asIntegers(value: unknown): readonly number[] | undefined {
    return Array.isArray(value) && value.every(Number.isInteger) ? (value as number[]) : undefined;
}

export function asTexts(value: unknown): readonly string[] | undefined {
    return Array.isArray(value) && value.every((item) => typeof item === 'string')
        ? (value as string[])
        : undefined;
}

/** An object's identifier: 1 to 2^32-1, as decimal text or as a number. */
export function asId(value: unknown): number | undefined {
    const id = typeof value === 'string' ? parseDecimal(value) : value;
    return typeof id === 'number' && Number.isInteger(id) && id > 0 && id <= 0xffffffff
        ? id
        : undefined;
}

const ZERO = 0x30;
const MOST_DIGITS = 10;

/** Digits and nothing else; by hand, because every message and every object has an identifier. */
function parseDecimal(text: string): number {
    let number = text.length <= MOST_DIGITS ? 0 : NaN;
    for (let index = 0; index < text.length && number >= 0; index += 1) {
        const digit = text.charCodeAt(index) - ZERO;
        number = digit >= 0 && digit <= 9 ? number * 10 + digit : NaN;
    }
    return number;
}

export function parseJson(text: string): unknown {
    try {
        return JSON.parse(text) as unknown;
    } catch {
        return undefined;
    }
}
