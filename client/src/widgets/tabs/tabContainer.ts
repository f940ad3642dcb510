import { happened } from '../../protocol/events.ts';
import { Event, Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { baseAppliers, prototypeOf } from '../base.ts';
import type { WidgetHost, WidgetKind } from '../WidgetKind.ts';
import { isVertical, showTabs, turnTo } from './showTabs.ts';

/** A field set switches tabs and pages off natively. */
const prototype = prototypeOf('fieldset', 'tabs', Kind.tabContainer);
prototype.setAttribute('role', 'none');
const list = document.createElement('div');
list.className = 'tablist';
list.setAttribute('role', 'tablist');
prototype.append(list);

/** Until its pages are in it there is nothing to show. */
function show(element: HTMLElement, object: StoredObject, host: WidgetHost): void {
    if (element.parentElement !== null) {
        showTabs(element, object, host);
    }
}

function tabOf(target: EventTarget | null): HTMLElement | undefined {
    const tab = target instanceof Element ? target.closest<HTMLElement>('.tab') : null;
    return tab ?? undefined;
}

function indexOf(tab: HTMLElement): number {
    return Number(tab.dataset['index']);
}

/** The user wants the tab to go; the program decides. */
function closeRequest(object: StoredObject, tab: HTMLElement): string {
    return happened(object.id, Event.close, { newIndex: indexOf(tab) });
}

/** How far a key moves along the tabs; the first and the last are far enough away. */
function stepOf(key: string, object: StoredObject, element: HTMLElement): number {
    const backwards = getComputedStyle(element).direction === 'rtl' ? 1 : -1;
    const steps: Readonly<Record<string, number>> = isVertical(object)
        ? { ArrowUp: -1, ArrowDown: 1 }
        : { ArrowLeft: backwards, ArrowRight: -backwards };
    return steps[key] ?? (key === 'Home' ? -Infinity : key === 'End' ? Infinity : 0);
}

function neighbour(tab: HTMLElement, step: number): HTMLElement | undefined {
    const tabs = [...(tab.parentElement?.children ?? [])] as HTMLButtonElement[];
    const usable = tabs.filter((each) => !each.hidden && !each.disabled);
    if (!Number.isFinite(step)) {
        return usable.at(step < 0 ? 0 : -1);
    }
    const at = usable.indexOf(tab as HTMLButtonElement) + step;
    return usable[(at + usable.length) % usable.length];
}

function pressed(
    event: KeyboardEvent,
    object: StoredObject,
    element: HTMLElement,
    host: WidgetHost,
): void {
    const tab = tabOf(event.target);
    if (tab === undefined || event.ctrlKey || event.altKey || event.metaKey || event.shiftKey) {
        return;
    }
    const step = stepOf(event.key, object, element);
    if (step !== 0) {
        event.preventDefault();
        const next = neighbour(tab, step) ?? tab;
        next.focus();
        turnTo(object, indexOf(next), host);
    } else if (event.key === 'Delete' && object.values.closable) {
        event.preventDefault();
        host.send(object, closeRequest(object, tab));
    }
}

/** Pages of which one shows, chosen by the tabs at one side of them. */
export const tabContainer: WidgetKind = {
    type: Kind.tabContainer,
    prototype,
    arrange: showTabs,
    control: (element) =>
        element.querySelector<HTMLElement>(':scope > .tablist > [tabindex="0"]') ?? element,
    appliers: {
        ...baseAppliers,
        currentindex: (element, _index, object, host) => show(element, object, host),
        closable: (element, _closable, object, host) => show(element, object, host),
        tabposition: (element, position, object, host) => {
            element.dataset['position'] = position;
            show(element, object, host);
        },
        setMinimumHeight: (element, height, object, host) => {
            baseAppliers.setMinimumHeight?.(element, height, object, host);
            // A field set does not hand its own least height on to what is in it.
            element.style.setProperty('--least-height', `${height}px`);
        },
        documentmode: (element, on) => {
            element.toggleAttribute('data-document', on);
        },
    },
    events: {
        click: (object, _element, event, host) => {
            const tab = tabOf(event.target);
            if (tab === undefined) {
                return;
            }
            if ((event.target as Element).closest('.tab-close')) {
                host.send(object, closeRequest(object, tab));
            } else {
                turnTo(object, indexOf(tab), host);
            }
        },
        keydown: (object, element, event, host) => pressed(event, object, element, host),
    },
};
