import { readFileSync } from 'node:fs';

/** A page of tabs with one widget. */
export function tabPage(id: number, name: string, content: object): object {
    const layout = { id: String(id + 100), type: 'BoxLayout', contents: [content] };
    return { id: String(id), type: 'Tab', name, contents: [layout] };
}

const file = 'test/support/everyKind.json';

/** A window of every kind of widget: what a user may meet in a program. */
export const everyKind = JSON.parse(readFileSync(file, 'utf8')) as readonly object[];
