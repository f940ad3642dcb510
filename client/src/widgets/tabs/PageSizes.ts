/** What is larger than this is not laid out before it is turned to: it fills a screen anyway. */
const MOST_ELEMENTS = 2000;

/**
 * The room that pages behind take, so that a tab container is as large as its largest page: each
 * is laid out once, unseen, when it or what it holds has changed, and has a size without contents
 * from then on.
 */
export class PageSizes {
    #unknown = new Set<HTMLElement>();

    /** The page went behind, or something in it has changed. */
    forget(page: HTMLElement): void {
        this.#unknown.add(page);
    }

    /** Finds out the sizes of those below `root`, inner pages before those that hold them. */
    measure(root: Element): void {
        let left = [...this.#unknown].filter((page) => root.contains(page) && isBehind(page));
        left.forEach((page) => this.#unknown.delete(page));
        left = left.filter(isSmall);
        while (left.length > 0) {
            const inner = left.filter((page) => !left.some((other) => isWithin(other, page)));
            measureAll(inner);
            left = left.filter((page) => !inner.includes(page));
        }
        this.#unknown.forEach((page) => page.isConnected || this.#unknown.delete(page));
    }
}

function isBehind(page: HTMLElement): boolean {
    return page.matches('[hidden="until-found"]');
}

function isSmall(page: HTMLElement): boolean {
    return page.getElementsByTagName('*').length <= MOST_ELEMENTS;
}

function isWithin(inner: Element, outer: Element): boolean {
    return inner !== outer && outer.contains(inner);
}

function measureAll(pages: readonly HTMLElement[]): void {
    pages.forEach((page) => page.classList.add('measured'));
    const sizes = pages.map((page) => {
        const em = parseFloat(getComputedStyle(page).fontSize);
        return `${page.offsetWidth / em}em ${page.offsetHeight / em}em`;
    });
    pages.forEach((page, index) => {
        page.classList.remove('measured');
        page.style.setProperty('contain-intrinsic-size', sizes[index] ?? '');
    });
}
