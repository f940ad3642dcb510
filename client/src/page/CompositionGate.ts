import type { Channel } from '../gateway/channel.ts';
import { Key } from '../protocol/names.ts';

/**
 * Holds back what replaces elements while the text of an input method is still open: it would
 * destroy the field and with it what is being composed. What comes after it waits behind it.
 */
export class CompositionGate {
    private readonly m_deliver: (channel: Channel, text: string) => void;
    private m_held: (readonly [Channel, string])[] = [];
    private m_composing = false;

    constructor(root: HTMLElement, deliver: (channel: Channel, text: string) => void) {
        this.m_deliver = deliver;
        root.addEventListener('compositionstart', () => (this.m_composing = true));
        root.addEventListener('compositionend', () => this.open());
        root.addEventListener('focusout', () => this.open());
    }

    /** Whether the text was taken, to be delivered later. */
    holds(channel: Channel, text: string): boolean {
        const held = this.m_held.length > 0 || (this.m_composing && replaces(channel, text));
        if (held) {
            this.m_held.push([channel, text]);
        }
        return held;
    }

    open(): void {
        this.m_composing = false;
        const held = this.m_held;
        this.m_held = [];
        for (const [channel, text] of held) {
            this.m_deliver(channel, text);
        }
    }

    /** What was held belongs to a session that is gone. */
    drop(): void {
        this.m_held = [];
    }
}

function replaces(channel: Channel, text: string): boolean {
    return channel.kind === 'client' || text.includes(`"${Key.messageType}"`);
}
