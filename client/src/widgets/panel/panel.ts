import { Kind, META_STANDARD_BUTTON_SET } from '../../protocol/names.ts';
import { baseAppliers, prototypeOf } from '../base.ts';
import { gridColumns } from '../gridColumns.ts';
import type { Appliers, WidgetKind } from '../WidgetKind.ts';

/** A field set switches everything inside off natively; as a group of its own it says nothing. */
const prototype = prototypeOf('fieldset', 'panel', Kind.panel);
prototype.setAttribute('role', 'none');

/** The grid in which the children stand; one of two columns is what a grid is by itself. */
function showGrid(element: HTMLElement, grid: readonly number[]): void {
    const columns = gridColumns(grid);
    element.toggleAttribute('data-grid', columns !== undefined);
    const isOther = columns !== undefined && columns !== 2;
    const template = isOther ? `repeat(${columns}, minmax(0, auto))` : '';
    element.style.setProperty('--grid-columns', template);
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
