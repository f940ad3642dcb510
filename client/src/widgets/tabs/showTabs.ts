import { html, nothing, render, type TemplateResult } from 'lit';
import { Kind } from '../../protocol/names.ts';
import type { StoredObject } from '../../store/StoredObject.ts';

/** Pages that were in the container when it was described, beyond the tabs that it counted. */
const surplus = new WeakSet<StoredObject>();

/** The pages that have a tab, in the order in which the program counts them. */
export function pagesOf(object: StoredObject): readonly StoredObject[] {
    return object.children.filter((child) => child.type === Kind.tab && !surplus.has(child));
}

/** A page beyond the number of tabs was taken out of the tabs without being destroyed. */
export function countTabs(object: StoredObject, count: number): void {
    pagesOf(object)
        .slice(Math.max(0, count))
        .forEach((page) => surplus.add(page));
}

export function isTabEnabled(page: StoredObject): boolean {
    return page.values.enabled !== false && page.values.enable !== false;
}

function isTabVisible(page: StoredObject): boolean {
    return page.values.visible !== false;
}

/** An index beyond the tabs means the last one: those before it may have gone. */
function currentOf(object: StoredObject, pages: readonly StoredObject[]): StoredObject | undefined {
    const index = object.values.currentindex ?? -1;
    return index < 0 ? undefined : pages[Math.min(index, pages.length - 1)];
}

export function isVertical(object: StoredObject): boolean {
    return object.values.tabposition === 'West' || object.values.tabposition === 'East';
}

/** Shows the tabs of all pages and the current page, as the container's state says. */
export function showTabs(element: HTMLElement, object: StoredObject): void {
    const pages = pagesOf(object);
    const current = currentOf(object, pages);
    const list = element.firstElementChild as HTMLElement;
    const active = document.activeElement;
    list.setAttribute('aria-orientation', isVertical(object) ? 'vertical' : 'horizontal');
    render(tabStrip(object, pages, current), list);
    for (const child of object.children) {
        showPage(child, child === current && isTabVisible(child));
    }
    if (active instanceof HTMLElement && active.closest('[hidden]') && element.contains(active)) {
        list.querySelector<HTMLElement>('[aria-selected="true"]')?.focus({ preventScroll: true });
    }
}

function showPage(page: StoredObject, shown: boolean): void {
    const view = page.view as HTMLElement;
    view.id ||= `page-${page.id}`;
    view.setAttribute('aria-labelledby', `tab-${page.id}`);
    view.hidden = !shown;
}

/** One tab takes the focus with the Tab key, the arrow keys reach the others. */
function tabStrip(
    object: StoredObject,
    pages: readonly StoredObject[],
    current: StoredObject | undefined,
): readonly TemplateResult[] {
    const usable = pages.filter((page) => isTabVisible(page) && isTabEnabled(page));
    const focusable = current && usable.includes(current) ? current : usable[0];
    const closable = object.values.closable ?? false;
    return pages.map((page, index) => {
        const name = page.values.name ?? '';
        return html`<button
            type="button"
            role="tab"
            class="tab"
            id="tab-${page.id}"
            data-index=${index}
            aria-controls=${(page.view as HTMLElement).id || `page-${page.id}`}
            aria-selected=${page === current ? 'true' : 'false'}
            aria-label=${name === '' ? `Tab ${index + 1}` : nothing}
            aria-keyshortcuts=${closable ? 'Delete' : nothing}
            tabindex=${page === focusable ? 0 : -1}
            ?hidden=${!isTabVisible(page)}
            ?disabled=${!isTabEnabled(page)}
        >
            <span>${name}</span>${closable ? closeSign : nothing}
        </button>`;
    });
}

/** For the pointer; by the keyboard it is the Delete key, since a tab holds no other control. */
const closeSign = html`<span class="tab-close" title="Close" aria-hidden="true">×</span>`;
