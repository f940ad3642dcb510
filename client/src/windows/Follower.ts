import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { afterLayout } from '../widgets/afterLayout.ts';
import type { PageSizes } from '../widgets/tabs/PageSizes.ts';
import type { Press } from './Press.ts';
import type { WindowFrame } from './WindowFrame.ts';

/**
 * Has windows follow what they hold, once before the next frame however much has changed, but not
 * while a user presses something that might move.
 */
export class Follower {
    readonly #changed = new Map<WindowFrame, boolean>();
    readonly #pages: PageSizes;
    readonly #press: Press;

    constructor(pages: PageSizes, press: Press) {
        this.#pages = pages;
        this.#press = press;
    }

    /** The object takes another room; `anew` when something came that was not there before. */
    changed(frame: WindowFrame, object: StoredObject, anew: boolean): void {
        for (let at: StoredObject | undefined = object; at !== undefined; at = at.parent) {
            if (at.type === Kind.tab && at.view !== undefined) {
                this.#pages.forget(at.view as HTMLElement);
            }
        }
        if (this.#changed.size === 0) {
            afterLayout(() => this.#press.whenUp(() => this.#follow()));
        }
        this.#changed.set(frame, anew || (this.#changed.get(frame) ?? false));
    }

    #follow(): void {
        const changed = [...this.#changed];
        this.#changed.clear();
        for (const [frame, anew] of changed) {
            if (frame.element.open) {
                this.#pages.measure(frame.body);
                frame.follow(anew);
            }
        }
    }
}
