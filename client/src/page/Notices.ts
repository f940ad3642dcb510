import type { LinkStatus } from '../gateway/LinkListener.ts';
import type { Losses } from '../losses/Losses.ts';
import { LossPanel } from '../losses/LossPanel.ts';
import { Banner } from './Banner.ts';
import { placeAside } from './placeAside.ts';

/** What the page itself has to say, in a corner where it is in nobody's way. */
export class Notices {
    readonly banner: Banner;
    readonly #element = document.createElement('div');
    readonly #panel: LossPanel;
    #isBegunAnew = false;

    /** `again` begins a session anew, `retry` tries at once to go on with the one that is. */
    constructor(losses: Losses, again: () => void, retry: () => void) {
        this.#element.className = 'notices';
        this.banner = new Banner(again, retry, () => this.#place());
        this.#panel = new LossPanel(losses, () => this.#place());
        this.#element.append(this.#panel.element, this.banner.element);
        this.#panel.element.hidden = true;
        const place = (): void => this.#place();
        addEventListener('resize', place);
        for (const name of ['pointerup', 'keyup', 'focusin']) {
            document.addEventListener(name, place);
        }
    }

    /** Everything outside an open modal dialog is out of reach, so they go where one can. */
    standIn(host: Element): void {
        if (this.#element.parentNode !== host) {
            host.append(this.#element);
        }
        this.#place();
    }

    showLosses(): void {
        this.#panel.show();
    }

    /** Something of a session may be lost: the next connection is none that goes on with it. */
    sessionLost(): void {
        this.#isBegunAnew = true;
    }

    status(status: LinkStatus, reason: string): void {
        this.banner.status(status, reason, this.#isBegunAnew);
        this.#isBegunAnew &&= status !== 'open';
    }

    /** Looking for a place lays the whole page out, so it is not looked for without need. */
    #place(): void {
        const shown = this.banner.isShown || !this.#panel.element.hidden;
        if (shown && !this.#element.contains(document.activeElement)) {
            placeAside(this.#element);
        }
    }
}
