import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

/** The messages that the program's side replays too; `tests/wire/README.md` says what they mean. */

export interface SceneObject {
    readonly name: string;
    readonly kind: string;
    readonly parent?: string;
}

export interface Scene {
    readonly objects: readonly SceneObject[];
    readonly show: readonly string[];
}

/** A text as a row writes it: exactly, as a value, or in parts. */
export type WireText = unknown;
export type Ids = ReadonlyMap<string, number>;

export interface Step {
    readonly channel?: string;
    readonly text?: WireText;
    readonly action?: readonly [object: string, verb: string, ...values: unknown[]];
    readonly sends?: readonly WireText[];
    readonly publishes?: readonly (readonly [channel: string, text: WireText])[];
}

export interface Row extends Step {
    readonly name: string;
    readonly file: string;
    readonly scene?: Scene;
    readonly unusable?: boolean;
    readonly applies?: 'any' | readonly (readonly [object: string, name: string, value: unknown])[];
}

export interface FrameRow {
    readonly name: string;
    readonly direction: 'up' | 'down';
    readonly first?: boolean;
    readonly frame: WireText;
    readonly received: number;
    readonly sent: number;
    readonly restart?: boolean;
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
