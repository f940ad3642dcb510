import { Kind, META_STANDARD_BUTTON_SET } from '../../protocol/names.ts';
import { baseAppliers, prototypeOf } from '../base.ts';
import type { Appliers, WidgetKind } from '../WidgetKind.ts';

/** A field set switches everything inside off natively; as a group of its own it says nothing. */
const prototype = prototypeOf('fieldset', 'panel', Kind.panel);
prototype.setAttribute('role', 'none');

/**
 * Rows and columns of the grid in which the children stand: two numbers are rows and columns, one
 * alone is the columns. Only the columns matter: rows come as they are needed.
 */
function showGrid(element: HTMLElement, grid: readonly number[]): void {
    const columns = grid[1] ?? grid[0] ?? 0;
    const usable = columns >= 1 && columns <= 100;
    element.toggleAttribute('data-grid', usable);
    const template = columns === 2 ? '' : `repeat(${columns}, minmax(0, auto))`;
    element.style.setProperty('--grid-columns', usable ? template : '');
}

export const containerAppliers: Appliers = { ...baseAppliers, layoutGrid: showGrid };

/** Holds other widgets; a set of standard buttons stands in a row at the right. */
export const panel: WidgetKind = {
    type: Kind.panel,
    prototype,
    appliers: {
        ...containerAppliers,
        meta: (element, meta) => {
            element.classList.toggle('button-set', meta === META_STANDARD_BUTTON_SET);
        },
    },
};
