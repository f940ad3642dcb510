import { prototypeOf } from '../base.ts';
import { containerAppliers } from '../panel/panel.ts';
import type { WidgetKind } from '../WidgetKind.ts';

/** Stands for every kind that this page does not know: what it holds is shown all the same. */
export const container: WidgetKind = {
    prototype: prototypeOf('div', 'container', ''),
    appliers: containerAppliers,
};
