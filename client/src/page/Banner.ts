import { html, nothing, render } from 'lit/html.js';
import type { LinkStatus } from '../gateway/LinkListener.ts';

interface Notice {
    readonly text: string;
    readonly tone: 'quiet' | 'bad' | 'good';
    readonly action?: string;
}

const LATER = 'what you do meanwhile is sent when it is back.';

const notices: Readonly<Record<LinkStatus, Notice | undefined>> = {
    connecting: { text: 'Connecting…', tone: 'quiet' },
    open: undefined,
    slow: { text: 'Waiting for the program.', tone: 'quiet' },
    silent: {
        text: `No answer: the connection is lost or the program is busy. Trying again; ${LATER}`,
        tone: 'quiet',
    },
    lost: { text: `Connection lost. Trying again; ${LATER}`, tone: 'bad' },
    ended: { text: 'The program has ended. Waiting for it to come back.', tone: 'bad' },
    outdated: {
        text: 'This address is out of date: open the one that the program has printed last.',
        tone: 'bad',
    },
    barred: { text: 'The program refuses this page.', tone: 'bad', action: 'Try again' },
    crowded: { text: 'The program has too many connections. Trying again.', tone: 'bad' },
    blocked: {
        text: 'The program is there, but something on the way stops the connection. Trying again.',
        tone: 'bad',
    },
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

/** Of these a page has not heard anything that would be over now. */
const unremarkable: ReadonlySet<LinkStatus> = new Set(['open', 'connecting', 'slow']);
const withReasons: ReadonlySet<LinkStatus> = new Set(['slow', 'refused', 'barred']);

const BACK: Notice = { text: 'Connected again.', tone: 'good' };
const ANSWERS: Notice = { text: 'The program answers again.', tone: 'quiet' };
const ANEW: Notice = { text: 'The session was lost; a new one has begun.', tone: 'quiet' };
const FULL: Notice = {
    text: 'Waiting for the program: nothing more can be kept until the connection is back.',
    tone: 'bad',
};
const TOO_LONG: Notice = { text: 'That text is too long to be sent.', tone: 'bad' };
const SHORTLY = 2500;
/** What says that something is lost stays long enough to be read. */
const LONGER = 8000;

/** One line that says how the connection is. */
export class Banner {
    readonly element = document.createElement('div');
    readonly #again: () => void;
    readonly #retry: () => void;
    readonly #shown: () => void;
    #status: LinkStatus = 'open';
    #reason = '';
    #full = false;
    #timer: ReturnType<typeof setTimeout> | undefined;

    constructor(again: () => void, retry: () => void, shown: () => void) {
        this.#again = again;
        this.#retry = retry;
        this.#shown = shown;
        this.element.className = 'banner';
        this.element.setAttribute('role', 'status');
    }

    /** `anew`: another session than the one before is open now. */
    status(status: LinkStatus, reason: string, anew: boolean): void {
        const before = this.#status;
        // A program that has ended refuses all further attempts.
        this.#status = status === 'lost' && before === 'ended' ? 'ended' : status;
        this.#reason = reason;
        if (status === 'open' && anew) {
            this.#shortly(ANEW, LONGER);
        } else if (status === 'open' && before === 'silent') {
            this.#shortly(ANSWERS);
        } else if (status === 'open' && !unremarkable.has(before)) {
            this.#shortly(BACK);
        } else if (status !== before || status !== 'open') {
            this.#show(this.#lasting);
        }
    }

    get isShown(): boolean {
        return (this.element.dataset['tone'] ?? '') !== '';
    }

    full(full: boolean): void {
        this.#full = full;
        this.#show(this.#lasting);
    }

    tooLong(): void {
        this.#shortly(TOO_LONG);
    }

    get #lasting(): Notice | undefined {
        const notice = this.#full ? FULL : notices[this.#status];
        if (notice === undefined || this.#reason === '' || !withReasons.has(this.#status)) {
            return notice;
        }
        const reason = this.#status === 'slow' ? this.#reason : `(${this.#reason})`;
        return { ...notice, text: `${notice.text} ${reason}` };
    }

    #shortly(notice: Notice, time = SHORTLY): void {
        this.#show(notice);
        this.#timer = setTimeout(() => this.#show(this.#lasting), time);
    }

    #show(notice: Notice | undefined): void {
        clearTimeout(this.#timer);
        this.element.dataset['tone'] = notice?.tone ?? '';
        const press = this.#status === 'barred' ? this.#retry : this.#again;
        const action = notice?.action
            ? html`<button type="button" class="button" @click=${press}>${notice.action}</button>`
            : nothing;
        render(notice ? html`<span>${notice.text}</span>${action}` : nothing, this.element);
        this.#shown();
    }
}
