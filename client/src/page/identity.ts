import { ICON_PATH } from '../protocol/names.ts';

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

/** The token that the program printed with its address, behind the "#"; empty for anything else. */
export function tokenOf(hash: string): string {
    return /^#([A-Za-z0-9._~-]+)$/.exec(hash)?.[1] ?? '';
}

/**
 * Where the gateway serves an image of the program, from the page's document. Steps upwards are not asked for: the browser
 * would fold them into an address outside the images.
 */
export function imageAddress(path: string): string | undefined {
    const steps = path
        .replaceAll('\\', '/')
        .split('/')
        .filter((step) => step !== '' && step !== '.');
    if (steps.length === 0 || steps.includes('..')) {
        return undefined;
    }
    return ICON_PATH + steps.map(encodeURIComponent).join('/');
}
