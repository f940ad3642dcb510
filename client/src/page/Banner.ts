import { html, nothing, render } from 'lit';
import type { LinkStatus } from '../gateway/Link.ts';

interface Notice {
    readonly text: string;
    readonly tone: 'quiet' | 'bad' | 'good';
    readonly action?: string;
}

const notices: Readonly<Record<LinkStatus, Notice | undefined>> = {
    connecting: { text: 'Connecting…', tone: 'quiet' },
    open: undefined,
    lost: {
        text: 'Connection lost. Trying again; what you do meanwhile is sent when it is back.',
        tone: 'bad',
    },
    ended: { text: 'The program has ended. Waiting for it to come back.', tone: 'bad' },
    duplicated: {
        text: 'This session was opened in another tab.',
        tone: 'bad',
        action: 'Use it here',
    },
    takenOver: {
        text: 'Another page has taken over.',
        tone: 'bad',
        action: 'Take it back',
    },
    refused: { text: 'The program refused this page.', tone: 'bad', action: 'Try again' },
};

const BACK: Notice = { text: 'Connected again.', tone: 'good' };
const FULL: Notice = {
    text: 'Waiting for the program: nothing more can be kept until the connection is back.',
    tone: 'bad',
};
const TOO_LONG: Notice = { text: 'That text is too long to be sent.', tone: 'bad' };
const OUTDATED: Notice = {
    text: 'This address is out of date: open the one that the program has printed last.',
    tone: 'bad',
};
const SHORTLY = 2500;

/** One line that says how the connection is, in whatever lies on top, so that it can be used. */
export class Banner {
    readonly element = document.createElement('div');
    private readonly m_action: () => void;
    private m_status: LinkStatus = 'open';
    private m_outdated = false;
    private m_full = false;
    private m_timer: ReturnType<typeof setTimeout> | undefined;

    constructor(action: () => void) {
        this.m_action = action;
        this.element.className = 'banner';
        this.element.setAttribute('role', 'status');
    }

    status(status: LinkStatus, reason: string): void {
        const back =
            status === 'open' && this.m_status !== 'open' && this.m_status !== 'connecting';
        // A program that has ended refuses all further attempts.
        this.m_status = status === 'lost' && this.m_status === 'ended' ? 'ended' : status;
        this.m_outdated &&= status !== 'open';
        if (back) {
            this.shortly(BACK);
        } else {
            const notice = this.lasting;
            this.show(notice && status === 'refused' ? withReason(notice, reason) : notice);
        }
    }

    full(full: boolean): void {
        this.m_full = full;
        this.show(this.lasting);
    }

    tooLong(): void {
        this.shortly(TOO_LONG);
    }

    /** From now on it is not the connection that is missing. */
    outdated(): void {
        this.m_outdated = true;
        this.show(this.lasting);
    }

    private get lasting(): Notice | undefined {
        return this.m_outdated ? OUTDATED : this.m_full ? FULL : notices[this.m_status];
    }

    private shortly(notice: Notice): void {
        this.show(notice);
        this.m_timer = setTimeout(() => this.show(this.lasting), SHORTLY);
    }

    private show(notice: Notice | undefined): void {
        clearTimeout(this.m_timer);
        this.element.dataset['tone'] = notice?.tone ?? '';
        const action = notice?.action
            ? html`<button type="button" class="button" @click=${this.m_action}>
                  ${notice.action}
              </button>`
            : nothing;
        render(notice ? html`<span>${notice.text}</span>${action}` : nothing, this.element);
    }
}

function withReason(notice: Notice, reason: string): Notice {
    return reason === '' ? notice : { ...notice, text: `${notice.text} (${reason})` };
}
