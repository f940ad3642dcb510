import { prototypeOf } from '../base.ts';
import { containerAppliers } from '../panel/panel.ts';
import type { WidgetKind } from '../WidgetKind.ts';

function prototype(): HTMLElement {
    const container = document.createElement('div');
    container.className = 'container';
    return container;
}

/** Stands for every kind that this page does not know: what it holds is shown all the same. */
export const container: WidgetKind = {
    create: prototypeOf('', prototype()),
    appliers: containerAppliers,
};
