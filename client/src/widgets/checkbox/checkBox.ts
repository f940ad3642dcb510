import { happened } from '../../protocol/events.ts';
import { Event, Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { enableControl, namedAppliers, prototypeOf, setAttribute } from '../base.ts';
import { showIcon } from '../icon.ts';
import type { WidgetKind } from '../WidgetKind.ts';

const prototype = prototypeOf('label', 'checkbox', Kind.checkBox);
const box = document.createElement('input');
box.type = 'checkbox';
prototype.append(box);

function boxOf(element: HTMLElement): HTMLInputElement {
    return element.firstChild as HTMLInputElement;
}

/** A box without a caption is named by its tooltip. */
function showName(element: HTMLElement, object: StoredObject): void {
    const { label, tooltip } = object.values;
    setAttribute(boxOf(element), 'aria-label', label ? undefined : tooltip);
}

export const checkBox: WidgetKind = {
    type: Kind.checkBox,
    prototype,
    control: boxOf,
    appliers: {
        ...namedAppliers(showName),
        enable: (element, enabled) => {
            enableControl(boxOf(element), enabled);
            element.toggleAttribute('data-disabled', !enabled);
        },
        icon: (element, path, _object, host) => {
            showIcon(element, host.imageAddress(path), () => boxOf(element).nextSibling);
        },
        checked: (element, checked) => (boxOf(element).checked = checked),
    },
    events: {
        change: (object, element, _event, host) => {
            const { checked } = boxOf(element);
            const message = happened(object.id, Event.onToggle, { value: checked });
            host.tell(object, message, { checked });
        },
        keydown: (object, _element, event, host) => {
            if (event.key === 'Enter') {
                host.pressDefault(object);
            }
        },
    },
};
