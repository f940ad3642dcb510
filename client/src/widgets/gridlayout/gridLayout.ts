import { Kind } from '../../protocol/names.ts';
import { prototypeOf } from '../base.ts';
import { layoutAppliers } from '../boxlayout/boxLayout.ts';
import type { WidgetKind } from '../WidgetKind.ts';

/**
 * Cells are not told, so the children fill the rows in order: as many columns as the container's
 * "layoutGrid" says, else two, label and field, which is what most forms are.
 */
export const gridLayout: WidgetKind = {
    type: Kind.gridLayout,
    prototype: prototypeOf('div', 'grid', Kind.gridLayout),
    appliers: layoutAppliers,
};
