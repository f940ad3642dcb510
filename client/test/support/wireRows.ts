import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

/** The messages that the program's side replays too; `tests/wire/README.md` says what they mean. */

export interface Scene {
    readonly objects: readonly { name: string; kind: string; parent?: string }[];
    readonly show: readonly string[];
}

/** A text as a row writes it: exactly, as a value, or in parts. */
export type WireText = unknown;
export type Ids = ReadonlyMap<string, number>;
type Entry = readonly [object: string, name: string, value: unknown];

export interface Step {
    readonly channel?: string;
    readonly text?: WireText;
    readonly action?: readonly [object: string, verb: string, ...values: unknown[]];
    readonly sends?: readonly WireText[];
    readonly publishes?: readonly (readonly [channel: string, text: WireText])[];
    readonly shows?: readonly Entry[];
}

export interface Row extends Step {
    readonly name: string;
    readonly file: string;
    readonly scene?: Scene;
    readonly unusable?: readonly string[];
    readonly applies?: 'any' | readonly Entry[];
    readonly tells?: readonly string[];
}

export interface FrameRow {
    readonly name: string;
    readonly direction: 'up' | 'down';
    readonly first?: boolean;
    readonly frame: WireText;
    readonly received: number;
    readonly sent: number;
    readonly restart?: boolean;
    readonly again?: boolean;
    readonly canonical?: boolean;
    readonly session?: { readonly session: string; readonly received?: number };
    readonly records: readonly (readonly [number: number, channel: string, text: string])[];
    readonly acknowledged: number;
}

interface Rows {
    readonly scene: Scene;
    readRows(folder: 'frames'): readonly FrameRow[];
    readRows(folder: string): readonly Row[];
    stepsOf(row: Row): readonly Step[];
    identifiersOf(row: Row): Ids;
    textOf(value: WireText, ids: Ids): string | undefined;
    fillIn(text: string, ids: Ids): string;
}

const file = join(process.cwd(), '../tests/wire/rows.mjs');
export const rows = (await import(pathToFileURL(file).href)) as Rows;

/** The channel of a row's texts when it names none. */
const WINDOW_CHANNEL = '/dova2/web/page/${window}';

/** What arrives in a step of a row, in order: what the program sends, else the text of the row. */
export function arrivalsIn(row: Row, step: Step, ids: Ids): readonly (readonly [string, string])[] {
    const given = row.applies === undefined ? (step.sends ?? []) : [row.text];
    const texts = given.map((text) => [row.channel ?? WINDOW_CHANNEL, text] as const);
    return (step.publishes ?? texts).map(
        ([address, value]) =>
            [shortChannel(rows.fillIn(address, ids)), rows.textOf(value, ids) ?? ''] as const,
    );
}

/** Full channels as the gateway shortens them. */
export function shortChannel(address: string): string {
    return address.replace(/^\/dova2\/web\/[^/]+/, '.');
}

/** The descriptions of the windows that the row's scene shows. */
export function shownWindows(row: Row, ids: Ids): readonly Readonly<Record<string, unknown>>[] {
    const { objects, show } = row.scene ?? rows.scene;
    const describe = (name: string): Readonly<Record<string, unknown>> => ({
        id: String(ids.get(name)),
        type: objects.find((object) => object.name === name)?.kind,
        contents: objects
            .filter(({ parent }) => parent === name)
            .map((object) => describe(object.name)),
    });
    return show.map(describe);
}
