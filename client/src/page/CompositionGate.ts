import type { Channel } from '../gateway/channel.ts';
import { Key } from '../protocol/names.ts';

/** What came on a channel, and which of the page's records the program knew then. */
type Arrival = readonly [channel: Channel, text: string, known: number];

/**
 * Holds back what replaces elements while the text of an input method is still open: it would
 * destroy the field and with it what is being composed. What comes after it waits behind it.
 */
export class CompositionGate {
    private readonly m_deliver: (...arrival: Arrival) => void;
    private m_held: Arrival[] = [];
    private m_composing = false;

    constructor(root: HTMLElement, deliver: (...arrival: Arrival) => void) {
        this.m_deliver = deliver;
        root.addEventListener('compositionstart', () => (this.m_composing = true));
        root.addEventListener('compositionend', () => this.open());
        root.addEventListener('focusout', () => this.open());
    }

    /** Whether the text was taken, to be delivered later. */
    holds(...arrival: Arrival): boolean {
        const [channel, text] = arrival;
        const held = this.m_held.length > 0 || (this.m_composing && replaces(channel, text));
        if (held) {
            this.m_held.push(arrival);
        }
        return held;
    }

    open(): void {
        this.m_composing = false;
        const held = this.m_held;
        this.m_held = [];
        for (const arrival of held) {
            this.m_deliver(...arrival);
        }
    }

    /** What was held belongs to a session that is gone. */
    drop(): void {
        this.m_held = [];
    }
}

function replaces(channel: Channel, text: string): boolean {
    return channel.kind === 'client' || text.includes(`"${Key.msgType}"`);
}
