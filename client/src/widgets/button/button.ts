import { clicked, toggled } from '../../protocol/events.ts';
import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { baseAppliers, enableControl, prototypeOf, setCaption } from '../base.ts';
import type { WidgetKind } from '../WidgetKind.ts';

function prototype(): HTMLElement {
    const button = document.createElement('button');
    button.type = 'button';
    button.className = 'button';
    return button;
}

function showPressed(element: HTMLElement, object: StoredObject): void {
    if (object.values.checkable) {
        element.setAttribute('aria-pressed', String(object.values.checked ?? false));
    } else {
        element.removeAttribute('aria-pressed');
    }
}

function showIcon(element: HTMLElement, address: string | undefined): void {
    element.querySelector('img')?.remove();
    if (address !== undefined) {
        const image = document.createElement('img');
        image.alt = '';
        image.src = address;
        image.onerror = () => image.remove();
        element.prepend(image);
    }
}

/** A push button; a checkable one stays down, and like on a desktop toggles before it clicks. */
export const button: WidgetKind = {
    type: Kind.button,
    create: prototypeOf(Kind.button, prototype()),
    appliers: {
        ...baseAppliers,
        enable: enableControl,
        label: setCaption,
        icon: (element, path, _object, host) => showIcon(element, host.imageAddress(path)),
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
                host.send(object, toggled(object.id, object.values.checked));
            }
            host.send(object, clicked(object.id));
        },
    },
};
