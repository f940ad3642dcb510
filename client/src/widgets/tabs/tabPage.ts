import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { enableContents, prototypeOf } from '../base.ts';
import { containerAppliers } from '../panel/panel.ts';
import type { WidgetHost, WidgetKind } from '../WidgetKind.ts';
import { isTabEnabled, showTabs, turnTo } from './showTabs.ts';

const prototype = prototypeOf('div', 'page', Kind.tab);
prototype.setAttribute('role', 'tabpanel');

/** While its container is being built the container does that once for all. */
function showTab(element: HTMLElement, object: StoredObject, host: WidgetHost): void {
    const { parent } = object;
    if (element.parentElement !== null && parent?.type === Kind.tabContainer) {
        showTabs(parent.view as HTMLElement, parent, host);
    }
}

function enable(element: HTMLElement, object: StoredObject, host: WidgetHost): void {
    enableContents(element, isTabEnabled(object));
    showTab(element, object, host);
}

/** A page of a tab container: what it is called and whether it shows stands on its tab. */
export const tabPage: WidgetKind = {
    type: Kind.tab,
    prototype,
    appliers: {
        ...containerAppliers,
        name: (element, _name, object, host) => showTab(element, object, host),
        visible: (element, _visible, object, host) => showTab(element, object, host),
        enabled: (element, _enabled, object, host) => enable(element, object, host),
        enable: (element, _enabled, object, host) => enable(element, object, host),
    },
    events: {
        beforematch: (object, _element, _event, host) => {
            if (object.parent?.type === Kind.tabContainer) {
                turnTo(object.parent, host.tabs.pagesOf(object.parent).indexOf(object), host);
            }
        },
    },
};
