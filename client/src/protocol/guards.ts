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

export function asIntegers(value: unknown): readonly number[] | undefined {
    return Array.isArray(value) && value.every(Number.isInteger) ? (value as number[]) : undefined;
}

/** An object's identifier: 1 to 2^32-1, as decimal text or as a number. */
export function asId(value: unknown): number | undefined {
    const id = typeof value === 'string' && /^\d{1,10}$/.test(value) ? Number(value) : value;
    return typeof id === 'number' && Number.isInteger(id) && id > 0 && id <= 0xffffffff
        ? id
        : undefined;
}

export function parseJson(text: string): unknown {
    try {
        return JSON.parse(text) as unknown;
    } catch {
        return undefined;
    }
}
