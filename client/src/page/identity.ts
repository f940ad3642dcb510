import { ICON_PATH, Query } from '../protocol/names.ts';

/** Fills the bytes from a source that nobody can foretell. */
type RandomFill = (bytes: Uint8Array) => Uint8Array;

/** A new name for this page, of 72 random bits: `crypto.randomUUID` is missing without encryption. */
export function makeClientId(fill: RandomFill): string {
    const text = btoa(String.fromCharCode(...fill(new Uint8Array(9))));
    return text.replaceAll('+', '-').replaceAll('/', '_');
}

export function isClientId(id: string): boolean {
    return /^[A-Za-z0-9_-]{1,64}$/.test(id);
}

/** The key that the program printed with its address; it stands behind the "#". */
export function tokenOf(hash: string): string {
    try {
        return decodeURIComponent(hash.replace(/^#/, ''));
    } catch {
        return '';
    }
}

/**
 * Where the gateway serves an image of the program. Steps upwards are not asked for: the browser
 * would fold them into an address outside the images.
 */
export function imageAddress(path: string, token: string): string | undefined {
    const steps = path
        .replaceAll('\\', '/')
        .split('/')
        .filter((step) => step !== '' && step !== '.');
    if (steps.length === 0 || steps.includes('..')) {
        return undefined;
    }
    const address = steps.map(encodeURIComponent).join('/');
    return `${ICON_PATH}${address}?${Query.token}=${encodeURIComponent(token)}`;
}
