import { asText, isObject } from '../protocol/guards.ts';
import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';

/** An object as a user would find it again, in this session or in the next one. */
export interface Field {
    readonly window: string;
    readonly kind: string;
    /** As it is announced; empty when nothing names it. */
    readonly name: string;
    readonly objectName: string;
    /** Its place in the window's tree. */
    readonly path: string;
}

export function asField(value: unknown): Field | undefined {
    const texts = ['window', 'kind', 'name', 'objectName', 'path'].map((name) =>
        isObject(value) ? asText(value[name]) : undefined,
    );
    const [window, kind, name, objectName, path] = texts;
    return texts.includes(undefined)
        ? undefined
        : ({ window, kind, name, objectName, path } as Field);
}

/** What the object's control is called on the page, by whatever names it. */
function nameOf(object: StoredObject, control: HTMLElement): string {
    const { objectName, title, name, label, placeholder, tooltip } = object.values;
    const label0 = (control as Partial<HTMLInputElement>).labels?.[0]?.textContent;
    const named = document.getElementById(control.getAttribute('aria-labelledby') ?? '');
    const names = [title, name, label, named?.textContent, label0, placeholder, tooltip];
    return names.find((text) => text?.trim())?.trim() ?? objectName ?? '';
}

function pathOf(object: StoredObject): string {
    const { parent } = object;
    return parent === undefined ? '' : `${pathOf(parent)}/${parent.children.indexOf(object)}`;
}

/** Whether it is worth looking closer: in a large window only few objects have this name. */
export function mayBe(
    field: Field,
    object: StoredObject,
    control: HTMLElement | undefined,
): boolean {
    const isNamedSo = (control ? nameOf(object, control) : '') === field.name;
    return isNamedSo || (field.objectName !== '' && object.values.objectName === field.objectName);
}

/** `control` is what takes the focus for the object, the object's element if there is none. */
export function fieldOf(object: StoredObject, control: HTMLElement | undefined): Field {
    let window = object;
    while (window.parent !== undefined) {
        window = window.parent;
    }
    return {
        window: window.values.title ?? '',
        kind: object.type,
        name: control ? nameOf(object, control) : '',
        objectName: object.values.objectName ?? '',
        path: pathOf(object),
    };
}

/**
 * How well two fields of two sessions agree; 0: they are not the same. Titles change with what a
 * window shows ("sample.json", "sample.json (modified)"), so that one may hold the other if the
 * place is the same, too.
 */
function likeness(a: Field, b: Field): number {
    const samePath = a.path === b.path;
    const sameName =
        (a.name !== '' && a.name === b.name) ||
        (a.objectName !== '' && a.objectName === b.objectName) ||
        (a.name === '' && b.name === '' && samePath);
    if (a.kind !== b.kind || !sameName) {
        return 0;
    }
    if (a.window === b.window) {
        return samePath ? 3 : 2;
    }
    const [short = '', long = ''] = [a.window, b.window].sort((x, y) => x.length - y.length);
    return short !== '' && long.includes(short) && samePath ? 1 : 0;
}

/** The one that agrees best; undefined when none does, or when two do. */
export function bestMatch<T>(
    field: Field,
    candidates: Iterable<readonly [T, Field]>,
): T | undefined {
    let best: T | undefined;
    let most = 0;
    let ties = 0;
    for (const [candidate, other] of candidates) {
        const score = likeness(field, other);
        if (score > most) {
            [best, most, ties] = [candidate, score, 0];
        } else if (score === most) {
            ties += 1;
        }
    }
    return most > 0 && ties === 0 ? best : undefined;
}

const kinds: Readonly<Record<string, string>> = {
    [Kind.edit]: 'Text field',
    [Kind.comboBox]: 'Choice',
    [Kind.checkBox]: 'Check box',
    [Kind.button]: 'Button',
    [Kind.tabContainer]: 'Tabs',
    [Kind.dialog]: 'Window',
};

/** For the eye: the name, else the kind, and the window that it is in. */
export function caption(field: Field): string {
    const name = field.name.replace(/\s*:$/, '') || (kinds[field.kind] ?? field.kind);
    return field.kind === Kind.dialog || field.window === '' ? name : `${name} (${field.window})`;
}
