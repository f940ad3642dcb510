import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { prototypeOf } from '../base.ts';
import type { Appliers, WidgetKind } from '../WidgetKind.ts';

/** A layout that is switched off leaves its children as they stand: new spacing waits. */
function showSpacing(element: HTMLElement, object: StoredObject): void {
    const { spacing = -1, enabled = true } = object.values;
    if (enabled) {
        const gap = spacing >= 0 ? `${spacing}px` : '';
        element.style.gap = gap;
        element.style.setProperty('--spacing', gap);
    }
}

export const layoutAppliers: Appliers = {
    objectName: (element, name) => (element.dataset['name'] = name),
    spacing: (element, _spacing, object) => showSpacing(element, object),
    enabled: (element, _enabled, object) => showSpacing(element, object),
};

const controls: ReadonlySet<string> = new Set([
    Kind.button,
    Kind.checkBox,
    Kind.comboBox,
    Kind.edit,
    Kind.text,
]);

/** What holds others grows and shrinks with the row, so a row that has any of it stays one. */
function letWrap(element: HTMLElement, object: StoredObject): void {
    const wraps = object.children.every((child) => controls.has(child.type));
    element.classList.toggle('wraps', wraps);
}

/**
 * One child after the other. The program does not say in which direction: a box stands upright,
 * except directly within another box, where the other direction is the only one that is of use.
 */
export const boxLayout: WidgetKind = {
    type: Kind.boxLayout,
    prototype: prototypeOf('div', 'box', Kind.boxLayout),
    appliers: layoutAppliers,
    arrange: letWrap,
};
