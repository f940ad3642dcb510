import { asFlag, asId, asIntegers, asNumber, asText, isObject } from './guards.ts';
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
    // controls
    label: string;
    icon: string;
    checkable: boolean;
    checked: boolean;
    defaultbutton: boolean;
    text: string;
    placeholder: string;
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
    label: asText,
    icon: asText,
    checkable: asFlag,
    checked: asFlag,
    defaultbutton: asFlag,
    text: asText,
    placeholder: asText,
    buddy: asBuddy,
};

/** How an object is when its description says nothing else; large windows are mostly this. */
const initial: PartialValues = {
    visible: true,
    enable: true,
    tooltip: '',
    label: '',
    icon: '',
    checked: false,
    defaultbutton: false,
    text: '',
    buddy: 0,
};

interface Property {
    readonly decode: (value: unknown) => Values[Name] | undefined;
    readonly initial: Values[Name] | undefined;
}

const properties = new Map<string, Property>(
    (Object.keys(decoders) as Name[]).map((name) => [
        name,
        { decode: decoders[name], initial: initial[name] },
    ]),
);

function put(values: PartialValues, name: string, value: Values[Name]): void {
    (values as Record<string, Values[Name]>)[name] = value;
}

/** Puts the value into `values` if the name is known and the kind is right; says whether it did. */
export function decodeInto(values: PartialValues, name: string, value: unknown): name is Name {
    const decoded = properties.get(name)?.decode(value);
    if (decoded === undefined) {
        return false;
    }
    put(values, name, decoded);
    return true;
}

/** The same for a new object, where the value that it begins with need not be put. */
export function describeInto(values: PartialValues, name: string, value: unknown): void {
    const property = properties.get(name);
    if (property !== undefined && value !== property.initial) {
        const decoded = property.decode(value);
        if (decoded !== undefined && decoded !== property.initial) {
            put(values, name, decoded);
        }
    }
}

/** Writes that ask for something to happen each time they arrive; their value is always true. */
const triggers = [
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

export function isTrigger(name: string, value: unknown): name is Trigger {
    return value === true && triggerNames.has(name);
}
