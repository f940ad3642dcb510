import {
    asFlag,
    asId,
    asInteger,
    asIntegers,
    asNumber,
    asText,
    asTexts,
    isObject,
    type JsonObject,
} from './guards.ts';
import { asLength, asPoint, asRect, asSize, type Point, type Rect, type Size } from './geometry.ts';
import { NO_BUDDY } from './names.ts';

export interface Style {
    readonly backgroundColor?: string;
    readonly color?: string;
}

/** What an object can have, under the names of the wire and in the kinds of the page. */
export interface Values {
    // every widget
    visible: boolean;
    enable: boolean;
    tooltip: string;
    style: Style;
    objectName: string;
    updateEnabled: boolean;
    geometry: Rect;
    moveTo: Point;
    resize: Size;
    setPreferredSize: Size;
    saveGeometry: Rect;
    setMinimumWidth: number;
    setMinimumHeight: number;
    setMaximumWidth: number;
    setMaximumHeight: number;
    rowSpan: readonly number[];
    colSpan: readonly number[];
    // windows
    title: string;
    windowicon: string;
    frameGeometry: Rect;
    move: Point;
    transient: boolean;
    modal: boolean;
    scrollable: boolean;
    maximized: boolean;
    minimized: boolean;
    // containers and layouts
    layoutGrid: readonly number[];
    meta: string;
    spacing: number;
    enabled: boolean;
    flat: boolean;
    // tabs
    name: string;
    tabcount: number;
    tabposition: string;
    closable: boolean;
    documentmode: boolean;
    movable: boolean;
    // controls
    label: string;
    icon: string;
    checkable: boolean;
    checked: boolean;
    defaultbutton: boolean;
    text: string;
    placeholder: string;
    editable: boolean;
    entries: readonly string[];
    /** Of an item or a tab; -1: none. */
    currentindex: number;
    /** The item of this text is to be chosen, as a person would. */
    select: string;
    /** 0: none. */
    buddy: number;
}

export type Name = keyof Values;
export type PartialValues = { [N in Name]?: Values[N] };

function asStyle(value: unknown): Style | undefined {
    if (!isObject(value)) {
        return undefined;
    }
    const backgroundColor = asText(value['backgroundColor']);
    const color = asText(value['color']);
    return {
        ...(backgroundColor !== undefined && { backgroundColor }),
        ...(color !== undefined && { color }),
    };
}

function asBuddy(value: unknown): number | undefined {
    if (value === '0' || value === 0) {
        return 0;
    }
    const id = asId(value);
    return id === NO_BUDDY ? 0 : id;
}

const decoders: { readonly [N in Name]: (value: unknown) => Values[N] | undefined } = {
    visible: asFlag,
    enable: asFlag,
    tooltip: asText,
    style: asStyle,
    objectName: asText,
    updateEnabled: asFlag,
    geometry: asRect,
    moveTo: asPoint,
    resize: asSize,
    setPreferredSize: asSize,
    saveGeometry: asRect,
    setMinimumWidth: asLength,
    setMinimumHeight: asLength,
    setMaximumWidth: asLength,
    setMaximumHeight: asLength,
    rowSpan: asIntegers,
    colSpan: asIntegers,
    title: asText,
    windowicon: asText,
    frameGeometry: asRect,
    move: asPoint,
    transient: asFlag,
    modal: asFlag,
    scrollable: asFlag,
    maximized: asFlag,
    minimized: asFlag,
    layoutGrid: asIntegers,
    meta: asText,
    spacing: asNumber,
    enabled: asFlag,
    flat: asFlag,
    name: asText,
    tabcount: asInteger,
    tabposition: asText,
    closable: asFlag,
    documentmode: asFlag,
    movable: asFlag,
    label: asText,
    icon: asText,
    checkable: asFlag,
    checked: asFlag,
    defaultbutton: asFlag,
    text: asText,
    placeholder: asText,
    editable: asFlag,
    entries: asTexts,
    currentindex: asInteger,
    select: asText,
    buddy: asBuddy,
};

/** How an object is when its description says nothing else; large windows are mostly this. */
export const initialValues: PartialValues = {
    visible: true,
    enable: true,
    tooltip: '',
    label: '',
    icon: '',
    checked: false,
    defaultbutton: false,
    text: '',
    editable: false,
    buddy: 0,
};

interface Property {
    readonly decode: (value: unknown) => Values[Name] | undefined;
    readonly initial: Values[Name] | undefined;
}

export const propertyNames = Object.keys(decoders) as readonly Name[];

const properties = new Map<string, Property>(
    propertyNames.map((name) => [
        name,
        { decode: decoders[name], initial: initialValues[name] },
    ]),
);

function put(values: PartialValues, name: string, value: Values[Name]): void {
    (values as Record<string, Values[Name]>)[name] = value;
}

/** Writes that ask for something to happen each time they arrive; their value is always true. */
export const triggers = [
    'showMinimized',
    'showNormal',
    'showMaximized',
    'activateWindow',
    'raise',
    'invalidate',
    'refresh',
    'update',
    'setFocus',
    'adjustsize',
] as const;
export type Trigger = (typeof triggers)[number];

const triggerNames: ReadonlySet<string> = new Set(triggers);

const NO_TRIGGERS: readonly Trigger[] = [];

/**
 * Puts the members of `raw` whose name is known and whose kind is right into `values`, and answers
 * the triggers among them. `written` is told their names; without it they describe a new object, and
 * the values that every object has to begin with need not be put.
 */
export function readProperties(
    raw: JsonObject,
    values: PartialValues,
    written?: Set<Name>,
): readonly Trigger[] {
    let triggered = NO_TRIGGERS;
    for (const name in raw) {
        const value = raw[name];
        const property = properties.get(name);
        if (property === undefined) {
            if (value === true && triggerNames.has(name)) {
                triggered = [...triggered, name as Trigger];
            }
        } else if (written !== undefined || value !== property.initial) {
            const decoded = property.decode(value);
            if (decoded !== undefined && (written !== undefined || decoded !== property.initial)) {
                put(values, name, decoded);
                written?.add(name as Name);
            }
        }
    }
    return triggered;
}
