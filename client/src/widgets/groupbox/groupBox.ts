import { Kind } from '../../protocol/names.ts';
import { prototypeOf } from '../base.ts';
import { containerAppliers } from '../panel/panel.ts';
import type { WidgetKind } from '../WidgetKind.ts';

const prototype = prototypeOf('fieldset', 'group', Kind.groupBox);
const legend = document.createElement('legend');
legend.hidden = true;
prototype.append(legend);

/** A titled frame around other widgets; flat, it is the title alone with a line beside it. */
export const groupBox: WidgetKind = {
    type: Kind.groupBox,
    prototype,
    appliers: {
        ...containerAppliers,
        title: (element, title) => {
            const shown = element.firstChild as HTMLLegendElement;
            shown.textContent = title;
            shown.hidden = title === '';
        },
        flat: (element, flat) => {
            element.classList.toggle('flat', flat);
        },
    },
};
