import type { LinkStatus } from '../gateway/LinkListener.ts';
import { LossPanel } from '../losses/LossPanel.ts';
import type { Losses } from '../losses/Losses.ts';
import { Banner } from './Banner.ts';
import { placeAside } from './placeAside.ts';

/** What the page itself has to say, in a corner where it is in nobody's way. */
export class Notices {
    readonly banner: Banner;
    private readonly m_element = document.createElement('div');
    private readonly m_panel: LossPanel;
    private m_isBegunAnew = false;

    /** `again` begins a session anew, `retry` tries at once to go on with the one that is. */
    constructor(losses: Losses, again: () => void, retry: () => void) {
        this.m_element.className = 'notices';
        this.banner = new Banner(again, retry, () => this.place());
        this.m_panel = new LossPanel(losses, () => this.place());
        this.m_element.append(this.m_panel.element, this.banner.element);
        this.m_panel.element.hidden = true;
        const place = (): void => this.place();
        addEventListener('resize', place);
        for (const name of ['pointerup', 'keyup', 'focusin']) {
            document.addEventListener(name, place);
        }
    }

    /** Everything outside an open modal dialog is out of reach, so they go where one can. */
    standIn(host: Element): void {
        if (this.m_element.parentNode !== host) {
            host.append(this.m_element);
        }
        this.place();
    }

    showLosses(): void {
        this.m_panel.show();
    }

    /** Something of a session may be lost: the next connection is none that goes on with it. */
    sessionLost(): void {
        this.m_isBegunAnew = true;
    }

    status(status: LinkStatus, reason: string): void {
        this.banner.status(status, reason, this.m_isBegunAnew);
        this.m_isBegunAnew &&= status !== 'open';
    }

    /** Looking for a place lays the whole page out, so it is not looked for without need. */
    private place(): void {
        const shown = this.banner.isShown || !this.m_panel.element.hidden;
        if (shown && !this.m_element.contains(document.activeElement)) {
            placeAside(this.m_element);
        }
    }
}
