/** Shows an image of the program in front of what the element has at `before`, or none. */
export function showIcon(
    element: HTMLElement,
    address: string | undefined,
    before: () => ChildNode | null,
): void {
    element.querySelector('img')?.remove();
    element.classList.toggle('has-icon', address !== undefined);
    if (address !== undefined) {
        const image = document.createElement('img');
        image.alt = '';
        image.src = address;
        image.onerror = () => image.remove();
        element.insertBefore(image, before());
    }
}
