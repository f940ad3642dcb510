import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { PageSizes } from '../widgets/tabs/PageSizes.ts';
import type { Press } from './Press.ts';
import type { WindowFrame } from './WindowFrame.ts';

/**
 * Has windows follow what they hold, once before the next frame however much has changed, but not
 * while a person presses something that might move.
 */
export class Follower {
    private readonly m_changed = new Map<WindowFrame, boolean>();
    private readonly m_pages: PageSizes;
    private readonly m_press: Press;

    constructor(pages: PageSizes, press: Press) {
        this.m_pages = pages;
        this.m_press = press;
    }

    /** The object takes another room; `anew` when something came that was not there before. */
    changed(frame: WindowFrame, object: StoredObject, anew: boolean): void {
        for (let at: StoredObject | undefined = object; at !== undefined; at = at.parent) {
            if (at.type === Kind.tab && at.view !== undefined) {
                this.m_pages.forget(at.view as HTMLElement);
            }
        }
        if (this.m_changed.size === 0) {
            afterLayout(() => this.m_press.whenUp(() => this.follow()));
        }
        this.m_changed.set(frame, anew || (this.m_changed.get(frame) ?? false));
    }

    private follow(): void {
        const changed = [...this.m_changed];
        this.m_changed.clear();
        for (const [frame, anew] of changed) {
            if (frame.element.open) {
                this.m_pages.measure(frame.body);
                frame.follow(anew);
            }
        }
    }
}

/** Before the next frame is painted, or soon when the page is hidden and paints none. */
export function afterLayout(call: () => void): void {
    let done = false;
    const once = (): void => {
        if (!done) {
            done = true;
            call();
        }
    };
    requestAnimationFrame(once);
    setTimeout(once, 200);
}
