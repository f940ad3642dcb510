import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { enableContents, prototypeOf } from '../base.ts';
import { containerAppliers } from '../panel/panel.ts';
import type { WidgetKind } from '../WidgetKind.ts';
import { isTabEnabled, showTabs } from './showTabs.ts';

const prototype = prototypeOf('div', 'page', Kind.tab);
prototype.setAttribute('role', 'tabpanel');

/** While its container is being built the container does that once for all. */
function showTab(element: HTMLElement, object: StoredObject): void {
    const { parent } = object;
    if (element.parentElement !== null && parent !== undefined) {
        showTabs(parent.view as HTMLElement, parent);
    }
}

function enable(element: HTMLElement, object: StoredObject): void {
    enableContents(element, isTabEnabled(object));
    showTab(element, object);
}

/** A page of a tab container: what it is called and whether it shows stands on its tab. */
export const tabPage: WidgetKind = {
    type: Kind.tab,
    prototype,
    appliers: {
        ...containerAppliers,
        name: (element, _name, object) => showTab(element, object),
        visible: (element, _visible, object) => showTab(element, object),
        enabled: (element, _enabled, object) => enable(element, object),
        enable: (element, _enabled, object) => enable(element, object),
    },
};
