// Made from protocol/ by protocol/generate.mjs; do not edit.
import { asBuddy, asStyle, type Style } from './forms.ts';
import { asLength, asPoint, asRect, asSize, type Point, type Rect, type Size } from './geometry.ts';
import { asFlag, asInteger, asIntegers, asNumber, asText, asTexts } from './guards.ts';

/** What an object can have, under the names of the wire and in the kinds of the page. */
export interface Values {
    /** Shown or not; starts shown. */
    visible: boolean;
    /** Usable or not; starts usable. Layouts say `enabled`. */
    enable: boolean;
    /** Text on hovering; empty for none. */
    tooltip: string;
    /** All colours set so far; a Panel ignores colours. */
    style: Style;
    /** Whether changes are to be painted at once. */
    updateEnabled: boolean;
    /** A name for tests and style sheets. */
    objectName: string;
    /**
     * Place and size in its parent; of a window, its content area. An object is what a page has
     * reported.
     */
    geometry: Rect;
    /** Place in its parent. */
    moveTo: Point;
    /** Its size. */
    resize: Size;
    /** The size it would like. */
    setPreferredSize: Size;
    /** Smallest width, if it is given. */
    setMinimumWidth: number;
    /** Smallest height, likewise. */
    setMinimumHeight: number;
    /** Largest width, likewise. */
    setMaximumWidth: number;
    /** Largest height, likewise. */
    setMaximumHeight: number;
    /**
     * Geometry to restore, despite the name; the program passes on any text, a page drops what
     * is no rectangle.
     */
    saveGeometry: Rect;
    /**
     * The first and the last row that it takes in a grid, from 1; one number is that one alone,
     * an empty array wherever it comes to stand.
     */
    rowSpan: readonly number[];
    /** Likewise the columns. */
    colSpan: readonly number[];
    /** Title of the window or frame. */
    title: string;
    /** Path of the icon file, with slashes only. */
    windowicon: string;
    /** Place and size with title bar and border. An object is what a page has reported. */
    frameGeometry: Rect;
    /** Place of the frame. */
    move: Point;
    /** Keeps the user from the other windows. */
    modal: boolean;
    /**
     * There for a short while: the page gives it no button to minimise it, and Escape asks to
     * close it.
     */
    transient: boolean;
    /** The contents scroll. */
    scrollable: boolean;
    /**
     * As a page has reported the window; so are `geometry` and `frameGeometry` then, as objects.
     */
    maximized: boolean;
    /** Likewise. */
    minimized: boolean;
    /** Grid of what it holds. */
    layoutGrid: readonly number[];
    /** The panel holds a dialog's standard buttons. */
    meta: string;
    /** No frame; starts with one. */
    flat: boolean;
    /** The side on which the tabs are; starts north. */
    tabposition: string;
    /** Pages added less pages taken out; 0 when absent. */
    tabcount: number;
    /** Every tab has a close button. */
    closable: boolean;
    /** Pages without a frame. */
    documentmode: boolean;
    /** The user may move the tabs; there is no event to tell of it, so a page need not offer it. */
    movable: boolean;
    /** Text on the tab. */
    name: string;
    /** Space between the children, in pixels. */
    spacing: number;
    /** Whether a layout is active, or a page may be turned to. Widgets say `enable`. */
    enabled: boolean;
    /** Text on the control. */
    label: string;
    /** Its text. */
    text: string;
    /** The items in their order. */
    entries: readonly string[];
    /**
     * Position of the item that is selected or of the page in front, from 0; -1 for none. There
     * need not be such an item or page.
     */
    currentindex: number;
    /** The user may type another text. */
    editable: boolean;
    /** Select the item with this text, as if the user had. */
    select: string;
    /** Hint while the field is empty. */
    placeholder: string;
    /** Whether it can be switched. */
    checkable: boolean;
    /** Toggled on. */
    checked: boolean;
    /** Path of the image file; empty for none. */
    icon: string;
    /** Enter presses it. */
    defaultbutton: boolean;
    /** The widget it labels; `"4294967295"` for none. */
    buddy: number;
}

export type Name = keyof Values;
export type PartialValues = { [N in Name]?: Values[N] };

/** How each is read; what has another form is undefined. */
export const decoders: { readonly [N in Name]: (value: unknown) => Values[N] | undefined } = {
    visible: asFlag,
    enable: asFlag,
    tooltip: asText,
    style: asStyle,
    updateEnabled: asFlag,
    objectName: asText,
    geometry: asRect,
    moveTo: asPoint,
    resize: asSize,
    setPreferredSize: asSize,
    setMinimumWidth: asLength,
    setMinimumHeight: asLength,
    setMaximumWidth: asLength,
    setMaximumHeight: asLength,
    saveGeometry: asRect,
    rowSpan: asIntegers,
    colSpan: asIntegers,
    title: asText,
    windowicon: asText,
    frameGeometry: asRect,
    move: asPoint,
    modal: asFlag,
    transient: asFlag,
    scrollable: asFlag,
    maximized: asFlag,
    minimized: asFlag,
    layoutGrid: asIntegers,
    meta: asText,
    flat: asFlag,
    tabposition: asText,
    tabcount: asInteger,
    closable: asFlag,
    documentmode: asFlag,
    movable: asFlag,
    name: asText,
    spacing: asNumber,
    enabled: asFlag,
    label: asText,
    text: asText,
    entries: asTexts,
    currentindex: asInteger,
    editable: asFlag,
    select: asText,
    placeholder: asText,
    checkable: asFlag,
    checked: asFlag,
    icon: asText,
    defaultbutton: asFlag,
    buddy: asBuddy,
};

/** How an object is when its description says nothing else; large windows are mostly this. */
export const initialValues: PartialValues = {
    visible: true,
    enable: true,
    tooltip: '',
    label: '',
    text: '',
    editable: false,
    checked: false,
    icon: '',
    defaultbutton: false,
    buddy: 0,
};

/** Writes that ask for something to happen each time they arrive; their value is always true. */
export const triggers = [
    'raise',
    'update',
    'refresh',
    'setFocus',
    'adjustsize',
    'showMinimized',
    'showNormal',
    'showMaximized',
    'activateWindow',
    'invalidate',
] as const;
export type Trigger = (typeof triggers)[number];

/** What only the model document tells, and how an element is that does not say it. */
export const elementDefaults = {
    entries: [],
    placeholder: '',
    checkable: false,
    checked: false,
    icon: '',
} satisfies PartialValues;
export type ElementName = keyof typeof elementDefaults;

/** Which of it the elements of each kind have. */
export const elementReads: ReadonlyMap<unknown, readonly ElementName[]> = new Map([
    ['Button', ['checkable', 'checked']],
    ['CheckBox', ['icon']],
    ['ComboBox', ['entries', 'placeholder']],
    ['Edit', ['placeholder']],
]);

/** What the page tells with each event, beside the object and the event itself. */
export interface EventMembers {
    onClick: object;
    onToggle: { readonly value: boolean };
    onEdit: { readonly value: string };
    onEditFinish: { readonly value: string };
    onSelectionChange: { readonly index: number; readonly value: string };
    textShown: { readonly value: string };
    tabchanged: { readonly newIndex: number };
    close: { readonly newIndex: number };
}
export type EventName = keyof EventMembers;
