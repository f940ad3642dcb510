/**
 * Resolves once every style sheet of the document is there, or cannot be had. Windows are measured
 * with them, and WebKit does not wait for them before it runs a script.
 */
export async function styled(): Promise<void> {
    const links = document.querySelectorAll<HTMLLinkElement>('link[rel="stylesheet"]');
    const isOnItsWay = ({ sheet }: HTMLLinkElement): boolean =>
        sheet === null && document.readyState !== 'complete';
    const arrivals = Array.from(links).filter(isOnItsWay).map(arrival);
    await Promise.all(arrivals);
}

function arrival(link: HTMLLinkElement): Promise<void> {
    return new Promise((resolve) => {
        const done = (): void => resolve();
        link.addEventListener('load', done);
        link.addEventListener('error', done);
        // It may have failed before anybody listened.
        addEventListener('load', done);
    });
}
