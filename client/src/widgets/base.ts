import type { Rect, Size } from '../protocol/geometry.ts';
import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { Appliers } from './WidgetKind.ts';

/** A toolkit's way of saying that a size has no upper bound. */
const UNBOUNDED = 16777215;

const layouts: ReadonlySet<string> = new Set([Kind.boxLayout, Kind.gridLayout]);

function isLayout(object: StoredObject): boolean {
    return layouts.has(object.type);
}

/** An element of this class to clone: that is cheaper than setting each attribute anew. */
export function prototypeOf<Tag extends keyof HTMLElementTagNameMap>(
    tag: Tag,
    className: string,
    type: string,
): HTMLElementTagNameMap[Tag] {
    const element = document.createElement(tag);
    element.className = className;
    element.dataset['type'] = type;
    // Setting an attribute that is there is cheaper than adding one.
    element.dataset['id'] = '';
    return element;
}

/** The text after whatever else (an image, a box to tick) the element begins with. */
export function setCaption(element: HTMLElement, caption: string): void {
    const last = element.lastChild;
    if (last === null) {
        element.textContent = caption;
    } else if (last.nodeType === Node.TEXT_NODE) {
        last.nodeValue = caption;
    } else if (caption !== '') {
        element.append(caption);
    }
}

/** Without a value the element has no such attribute. */
export function setAttribute(element: Element, name: string, value: string | undefined): void {
    if (value) {
        element.setAttribute(name, value);
    } else {
        element.removeAttribute(name);
    }
}

function setSize(element: HTMLElement, size: Size): void {
    element.style.width = `${size.width}px`;
    element.style.height = `${size.height}px`;
}

/**
 * A place within the parent counts only where no layout arranges the children, as on a desktop;
 * a layout's child takes the size as the one it would like to have.
 */
function place(element: HTMLElement, rect: Rect, object: StoredObject): void {
    setSize(element, rect);
    moveTo(element, rect.x, rect.y, object);
}

function moveTo(element: HTMLElement, x: number, y: number, object: StoredObject): void {
    const { parent } = object;
    if (parent === undefined || isLayout(parent) || parent.children.some(isLayout)) {
        return;
    }
    (parent.view as HTMLElement).classList.add('places-children');
    element.style.marginLeft = `${x}px`;
    element.style.marginTop = `${y}px`;
}

/** First and last line of a grid, counted from 1; one number means that line alone. */
function gridSpan(span: readonly number[]): string {
    const [first = 0, last = first] = span;
    return first >= 1 && last >= first && last <= 1000 ? `${first} / ${last + 1}` : '';
}

export function maximum(length: number): string {
    return length >= UNBOUNDED ? '' : `${length}px`;
}

export function enableContents(element: HTMLElement, enabled: boolean): void {
    if (element instanceof HTMLFieldSetElement) {
        element.disabled = !enabled;
    } else {
        element.inert = !enabled;
    }
    element.toggleAttribute('data-disabled', !enabled);
}

/** The control itself is switched off, so that it cannot be focused and is announced as such. */
export function enableControl(element: HTMLElement, enabled: boolean): void {
    (element as HTMLButtonElement | HTMLInputElement).disabled = !enabled;
}

/** What every widget has. */
export const baseAppliers: Appliers = {
    visible: (element, visible) => (element.hidden = !visible),
    enable: enableContents,
    tooltip: (element, tooltip) => {
        if (element.title !== tooltip) {
            element.title = tooltip;
        }
    },
    style: (element, style) => {
        element.style.backgroundColor = style.backgroundColor ?? '';
        element.style.color = style.color ?? '';
    },
    objectName: (element, name) => (element.dataset['name'] = name),
    geometry: place,
    saveGeometry: place,
    moveTo: (element, point, object) => moveTo(element, point.x, point.y, object),
    resize: setSize,
    setPreferredSize: setSize,
    setMinimumWidth: (element, width) => (element.style.minWidth = `${width}px`),
    setMinimumHeight: (element, height) => (element.style.minHeight = `${height}px`),
    setMaximumWidth: (element, width) => (element.style.maxWidth = maximum(width)),
    setMaximumHeight: (element, height) => (element.style.maxHeight = maximum(height)),
    rowSpan: (element, span) => (element.style.gridRow = gridSpan(span)),
    colSpan: (element, span) => (element.style.gridColumn = gridSpan(span)),
};

/** The same for a control whose name depends on its caption and its tooltip. */
export function namedAppliers(
    showName: (element: HTMLElement, object: StoredObject) => void,
): Appliers {
    return {
        ...baseAppliers,
        label: (element, label, object) => {
            setCaption(element, label);
            showName(element, object);
        },
        tooltip: (element, tooltip, object, host) => {
            baseAppliers.tooltip?.(element, tooltip, object, host);
            showName(element, object);
        },
    };
}

/** Fits the element to its contents again: sizes that were asked for no longer count. */
export function adjustSize(element: HTMLElement): void {
    element.style.width = '';
    element.style.height = '';
}
