import { html, nothing, render, type TemplateResult } from 'lit/html.js';
import { happened } from '../../protocol/events.ts';
import { Event, TABPOSITION_EAST, TABPOSITION_WEST } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import type { WidgetHost } from '../WidgetKind.ts';

type Pages = readonly (StoredObject | undefined)[];

export function isTabEnabled(page: StoredObject): boolean {
    return page.values.enabled !== false && page.values.enable !== false;
}

function isTabVisible(page: StoredObject): boolean {
    return page.values.visible !== false;
}

/** Where the current page has gone or is hidden, the next one shows, or else the last. */
function currentOf(object: StoredObject, pages: Pages): StoredObject | undefined {
    const index = object.values.currentindex ?? -1;
    const there = (page: StoredObject | undefined): boolean => !!page && isTabVisible(page);
    return index < 0 ? undefined : (pages.slice(index).find(there) ?? pages.filter(there).at(-1));
}

export function isVertical(object: StoredObject): boolean {
    const { tabposition } = object.values;
    return tabposition === TABPOSITION_WEST || tabposition === TABPOSITION_EAST;
}

/** Shows the tabs of all pages and the current page, as the container's state says. */
export function showTabs(element: HTMLElement, object: StoredObject, host: WidgetHost): void {
    const pages = host.tabs.pagesOf(object);
    const current = currentOf(object, pages);
    const list = element.firstElementChild as HTMLElement;
    const active = document.activeElement;
    list.setAttribute('aria-orientation', isVertical(object) ? 'vertical' : 'horizontal');
    render(tabStrip(object, pages, current), list);
    for (const child of object.children) {
        showPage(child, stateOf(child, current), host);
    }
    if (active instanceof HTMLElement && active.closest('[hidden]') && element.contains(active)) {
        list.querySelector<HTMLElement>('[aria-selected="true"]')?.focus({ preventScroll: true });
    }
}

/** The user turned to a page. */
export function turnTo(object: StoredObject, index: number, host: WidgetHost): void {
    if (index !== object.values.currentindex) {
        const message = happened(object.id, Event.tabchanged, { newIndex: index });
        host.tell(object, message, { currentindex: index });
        showTabs(object.view as HTMLElement, object, host);
        host.contentsChanged(object);
    }
}

/** Where the browser can, its search finds what stands on a page that does not show. */
function showPage(
    page: StoredObject,
    state: 'shown' | 'findable' | 'hidden',
    host: WidgetHost,
): void {
    const view = page.view as HTMLElement;
    view.id ||= `page-${page.id}`;
    view.setAttribute('aria-labelledby', `tab-${page.id}`);
    if (state === 'shown') {
        view.removeAttribute('hidden');
    } else {
        view.setAttribute('hidden', state === 'findable' ? 'until-found' : '');
        if (view.style.getPropertyValue('contain-intrinsic-size') === '') {
            host.pageSizes.forget(view);
        }
    }
}

function stateOf(
    page: StoredObject,
    current: StoredObject | undefined,
): 'shown' | 'findable' | 'hidden' {
    if (!isTabVisible(page)) {
        return 'hidden';
    }
    return page === current ? 'shown' : isTabEnabled(page) ? 'findable' : 'hidden';
}

/** One tab takes the focus with the Tab key, the arrow keys reach the others. */
function tabStrip(
    object: StoredObject,
    pages: Pages,
    current: StoredObject | undefined,
): readonly (TemplateResult | typeof nothing)[] {
    const usable = pages.filter((page) => page && isTabVisible(page) && isTabEnabled(page));
    const focusable = usable.includes(current) ? current : usable[0];
    const closable = object.values.closable ?? false;
    return pages.map((page, index) =>
        page === undefined
            ? nothing
            : html`<button
                  type="button"
                  role="tab"
                  class="tab"
                  id="tab-${page.id}"
                  data-index=${index}
                  aria-controls=${(page.view as HTMLElement).id || `page-${page.id}`}
                  aria-selected=${page === current ? 'true' : 'false'}
                  aria-label=${page.values.name ? nothing : `Tab ${index + 1}`}
                  aria-keyshortcuts=${closable ? 'Delete' : nothing}
                  tabindex=${page === focusable ? 0 : -1}
                  ?hidden=${!isTabVisible(page)}
                  ?disabled=${!isTabEnabled(page)}
              >
                  <span>${page.values.name}</span>${closable ? closeSign : nothing}
              </button>`,
    );
}

/** For the pointer; by the keyboard it is the Delete key, since a tab holds no other control. */
const closeSign = html`<span class="tab-close" title="Close" aria-hidden="true">×</span>`;
