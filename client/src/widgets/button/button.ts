import { happened } from '../../protocol/events.ts';
import { Event, Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { baseAppliers, enableControl, namedAppliers, prototypeOf, setAttribute } from '../base.ts';
import { showIcon } from '../icon.ts';
import type { WidgetKind } from '../WidgetKind.ts';

const prototype = prototypeOf('button', 'button', Kind.button);
prototype.type = 'button';

function showPressed(element: HTMLElement, object: StoredObject): void {
    const { checkable, checked = false } = object.values;
    setAttribute(element, 'aria-pressed', checkable ? String(checked) : undefined);
}

/**
 * A button with neither caption nor tooltip, which would name it natively, is named by what its
 * icon is called, else by what the program calls it.
 */
function showName(element: HTMLElement, object: StoredObject): void {
    const { label, tooltip, icon, objectName } = object.values;
    if (icon === undefined && objectName === undefined) {
        return;
    }
    const name = label || tooltip ? undefined : iconName(icon ?? '') || objectName;
    setAttribute(element, 'aria-label', name);
}

/** The words of the file's name: "icons/zoom-in.svg" says "zoom in". */
function iconName(path: string): string {
    const file = path.split(/[\\/]/).at(-1) ?? '';
    return file
        .replace(/\.\w+$/, '')
        .replace(/[-_.\s]+/g, ' ')
        .trim();
}

/** A push button; a checkable one stays down, and like on a desktop toggles before it clicks. */
export const button: WidgetKind = {
    type: Kind.button,
    prototype,
    appliers: {
        ...namedAppliers(showName),
        enable: enableControl,
        objectName: (element, name, object, host) => {
            baseAppliers.objectName?.(element, name, object, host);
            showName(element, object);
        },
        icon: (element, path, object, host) => {
            showIcon(element, host.imageAddress(path), () => element.firstChild);
            showName(element, object);
        },
        checkable: (element, _checkable, object) => showPressed(element, object),
        checked: (element, _checked, object) => showPressed(element, object),
        defaultbutton: (element, isDefault) => {
            element.toggleAttribute('data-default', isDefault);
        },
    },
    events: {
        click: (object, element, _event, host) => {
            if (object.values.checkable) {
                object.values.checked = !object.values.checked;
                showPressed(element, object);
                const value = object.values.checked;
                host.send(object, happened(object.id, Event.onToggle, { value }));
            }
            host.send(object, happened(object.id, Event.onClick, {}));
        },
    },
};
