import { Kind } from '../../protocol/names.ts';
import { enableControl, prototypeOf } from '../base.ts';
import { nameByNeighbour, namingAppliers } from '../naming.ts';
import type { WidgetKind } from '../WidgetKind.ts';
import { prepareField, showText, typingEvents } from './typing.ts';

const prototype = prototypeOf('input', 'edit', Kind.edit);
prepareField(prototype);

/** A single line to type in. */
export const edit: WidgetKind = {
    type: Kind.edit,
    prototype,
    nameAfter: (element, object, previous) =>
        nameByNeighbour(element, object, previous, 'Text field'),
    appliers: {
        ...namingAppliers(),
        enable: enableControl,
        text: (element, text, object, host) => {
            showText(element as HTMLInputElement, text, object, host);
        },
    },
    events: typingEvents((element) => element as HTMLInputElement),
};
