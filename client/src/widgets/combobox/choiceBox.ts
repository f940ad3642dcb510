import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { enableControl, prototypeOf } from '../base.ts';
import { nameByNeighbour, namingAppliers } from '../naming.ts';
import type { WidgetKind } from '../WidgetKind.ts';
import { selectByText, tellSelected } from './selection.ts';

const prototype = prototypeOf('select', 'combo', Kind.comboBox);

/** Stands behind the items and shows while none of them is chosen; nobody can choose it. */
function placeholderOf(select: HTMLSelectElement): HTMLOptionElement | undefined {
    const last = select.options[select.options.length - 1];
    return last?.disabled ? last : undefined;
}

function showCurrent(select: HTMLSelectElement, object: StoredObject): void {
    const placeholder = placeholderOf(select);
    const count = select.options.length - (placeholder ? 1 : 0);
    const index = object.values.currentindex ?? -1;
    const chosen = index >= 0 && index < count;
    select.selectedIndex = chosen ? index : placeholder ? count : -1;
}

/** Only what differs is touched: the list may be open, or ten thousand items long. */
function showItems(select: HTMLSelectElement, items: readonly string[]): void {
    const { options } = select;
    const placeholder = placeholderOf(select);
    const old = options.length - (placeholder ? 1 : 0);
    const shared = Math.min(old, items.length);
    let start = 0;
    while (start < shared && options[start]?.textContent === items[start]) {
        start += 1;
    }
    let same = 0;
    while (same < shared - start && options[old - 1 - same]?.textContent === items.at(-1 - same)) {
        same += 1;
    }
    for (let index = old - same - 1; index >= start; index -= 1) {
        options[index]?.remove();
    }
    const added = items.slice(start, items.length - same);
    select.insertBefore(optionsOf(added), options[start] ?? null);
}

let lastItems: readonly string[] = [];
let lastOptions = document.createDocumentFragment();

/** The boxes of a table mostly hold the same items, and a clone is cheaper than making them anew. */
function optionsOf(items: readonly string[]): Node {
    const known =
        items.length === lastItems.length && items.every((item, at) => item === lastItems[at]);
    if (!known) {
        lastItems = items;
        lastOptions = document.createDocumentFragment();
        items.forEach((item) => lastOptions.append(optionOf(item)));
    }
    return lastOptions.cloneNode(true);
}

function optionOf(text: string): HTMLOptionElement {
    const option = document.createElement('option');
    option.textContent = text;
    return option;
}

function showPlaceholder(select: HTMLSelectElement, text: string): void {
    placeholderOf(select)?.remove();
    if (text !== '') {
        const option = optionOf(text);
        option.disabled = true;
        option.hidden = true;
        select.append(option);
    }
}

/** Where the browser does not say, its list takes the keys while it is open. */
const tellsOpen = CSS.supports('selector(:open)');

function isOpen(select: HTMLElement): boolean {
    return tellsOpen && select.matches(':open');
}

/** One item of a list, by the browser's own control. */
export const choiceBox: WidgetKind = {
    type: Kind.comboBox,
    prototype,
    nameAfter: (element, object, previous) => nameByNeighbour(element, object, previous, 'Choice'),
    appliers: {
        ...namingAppliers(),
        enable: enableControl,
        entries: (element, entries, object) => {
            showItems(element as HTMLSelectElement, entries);
            showCurrent(element as HTMLSelectElement, object);
        },
        currentindex: (element, _index, object) => {
            showCurrent(element as HTMLSelectElement, object);
        },
        placeholder: (element, placeholder, object) => {
            showPlaceholder(element as HTMLSelectElement, placeholder);
            showCurrent(element as HTMLSelectElement, object);
        },
        select: (element, text, object, host) => {
            if (selectByText(element, text, object, host)) {
                showCurrent(element as HTMLSelectElement, object);
            }
        },
    },
    events: {
        change: (object, element, _event, host) => {
            tellSelected(object, (element as HTMLSelectElement).selectedIndex, host);
        },
        keydown: (object, element, event, host) => {
            if (event.key === 'Enter' && !event.defaultPrevented && !isOpen(element)) {
                host.pressDefault(object);
            }
        },
    },
};
