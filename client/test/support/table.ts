import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

/** The table of the protocol, of which the page's own names and decoders are made. */

interface Entry {
    readonly kind: { readonly name: string };
    readonly sent: string;
    readonly described: string;
    /** Why a page does nothing with it. */
    readonly ignored?: string;
}

export interface Property {
    readonly name: string;
    readonly formName: string;
    readonly example: unknown;
    /** By the name of the kind. */
    readonly entries: ReadonlyMap<string, Entry>;
}

interface Table {
    readonly ofObjects: readonly Property[];
}

const file = join(process.cwd(), '../protocol/table.mjs');
export const { ofObjects } = (await import(pathToFileURL(file).href)) as Table;
