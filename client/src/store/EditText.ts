import { asFlag, asNumber, asText, isObject } from '../protocol/guards.ts';

interface SentText {
    readonly text: string;
    readonly at: number;
}

/** What the page keeps over a reload of an edit that is being worked on. */
export interface StoredEditText {
    readonly typing: boolean;
    readonly sent: readonly SentText[];
}

/**
 * A program that does not echo must not find its next text taken for an echo; an echo that comes
 * later than this can do no harm any more, because the ones after it follow.
 */
const ECHO_LIFETIME = 5000;
const ECHOES_KEPT = 500;

/**
 * Decides, for one edit, which texts of the program are shown. The program sends back every text
 * that the person types; such an echo must not rewind a field that has gone on since. And while
 * somebody types, nothing overwrites the field: the program learns the person's text at the end.
 */
export class EditText {
    private m_sent: SentText[] = [];
    private m_typing = false;

    /** Something was typed since the last end of an edit. */
    get typing(): boolean {
        return this.m_typing;
    }

    /** The person has begun to change the text, which need not be told yet (composed input). */
    begin(): void {
        this.m_typing = true;
    }

    /** The person's text went to the program. */
    sent(text: string, now: number): void {
        this.m_typing = true;
        this.m_sent.push({ text, at: now });
        if (this.m_sent.length > ECHOES_KEPT) {
            this.m_sent.shift();
        }
    }

    /** The edit came to its end; from now on the program may change the text. */
    finish(): void {
        this.m_typing = false;
    }

    /** Whether a text that came from the program is to be shown. */
    accepts(text: string, focused: boolean, now: number): boolean {
        this.m_sent = this.m_sent.filter((sent) => now - sent.at < ECHO_LIFETIME);
        const echo = this.m_sent.findIndex((sent) => sent.text === text);
        this.m_sent.splice(0, echo + 1);
        const stale = echo >= 0 && this.m_sent.length > 0;
        return !stale && !(focused && this.m_typing);
    }

    store(): StoredEditText {
        return { typing: this.m_typing, sent: this.m_sent };
    }

    static restore(stored: unknown): EditText {
        const edit = new EditText();
        if (isObject(stored) && Array.isArray(stored['sent'])) {
            edit.m_typing = asFlag(stored['typing']) ?? false;
            edit.m_sent = (stored['sent'] as unknown[]).flatMap(asSentText);
        }
        return edit;
    }
}

function asSentText(value: unknown): SentText[] {
    const text = isObject(value) ? asText(value['text']) : undefined;
    const at = isObject(value) ? asNumber(value['at']) : undefined;
    return text !== undefined && at !== undefined ? [{ text, at }] : [];
}
