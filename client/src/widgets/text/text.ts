import { Kind } from '../../protocol/names.ts';
import { baseAppliers, prototypeOf, setAttribute, setCaption } from '../base.ts';
import type { WidgetKind } from '../WidgetKind.ts';

/**
 * A static text. With a buddy it is that control's label: it names it, and a click gives it the
 * focus; the browser would press a button, too, and switch a check box.
 */
export const text: WidgetKind = {
    type: Kind.text,
    prototype: prototypeOf('label', 'text', Kind.text),
    appliers: {
        ...baseAppliers,
        enable: (element, enabled) => {
            element.toggleAttribute('data-disabled', !enabled);
        },
        text: setCaption,
        buddy: (element, buddy, _object, host) => {
            setAttribute(element, 'for', buddy === 0 ? undefined : host.buddies.name(buddy));
        },
    },
    events: {
        click: ({ values }, _element, event, host) => {
            event.preventDefault();
            if (values.buddy && getSelection()?.isCollapsed !== false) {
                host.buddies.focus(values.buddy);
            }
        },
    },
};
