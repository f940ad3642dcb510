const CONTROLS = 'input, select, button';

/** Whether the keyboard can go there: neither switched off nor hidden, not on a page behind. */
function canTakeFocus(control: HTMLElement): boolean {
    return (
        control.tabIndex >= 0 &&
        !control.matches(':disabled') &&
        control.closest('[inert]') === null &&
        control.checkVisibility({ visibilityProperty: true })
    );
}

/** The first control in the element that can take the focus; the element itself if it can. */
export function firstControl(element: HTMLElement): HTMLElement | undefined {
    if (element.matches(CONTROLS)) {
        return canTakeFocus(element) ? element : undefined;
    }
    return [...element.querySelectorAll<HTMLElement>(CONTROLS)].find(canTakeFocus);
}
