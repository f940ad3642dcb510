import type { Channel } from '../gateway/channel.ts';
import { Key } from '../protocol/names.ts';
import type { Press } from '../windows/Press.ts';

/** What came on a channel, and which of the page's records the program knew then. */
type Arrival = readonly [channel: Channel, text: string, known: number];

/**
 * Holds back what replaces elements while the text of an input method is still open: it would
 * destroy the field and with it what is being composed. And holds back everything while a person
 * presses something: that must neither move away nor be replaced before it is a click. What comes
 * after it waits behind it.
 */
export class Gate {
    private readonly m_press: Press;
    private readonly m_deliver: (...arrival: Arrival) => void;
    private readonly m_delivered: () => void;
    private m_held: Arrival[] = [];
    private m_isComposing = false;

    constructor(
        root: HTMLElement,
        press: Press,
        deliver: (...arrival: Arrival) => void,
        delivered: () => void,
    ) {
        this.m_press = press;
        this.m_deliver = deliver;
        this.m_delivered = delivered;
        root.addEventListener('compositionstart', () => (this.m_isComposing = true));
        root.addEventListener('compositionend', () => this.composed());
        root.addEventListener('focusout', () => this.composed());
    }

    /** Whether the text was taken, to be delivered later. */
    holds(...arrival: Arrival): boolean {
        const [channel, text] = arrival;
        const isReplacing = this.m_isComposing && replaces(channel, text);
        const isShown = channel.kind !== 'root';
        const isHeld =
            isShown && (this.m_held.length > 0 || this.m_press.isDown || isReplacing);
        if (isHeld && this.m_held.push(arrival) === 1) {
            this.m_press.whenUp(() => this.letThrough());
        }
        return isHeld;
    }

    /** Whatever the person is doing. */
    open(): void {
        const held = this.m_held;
        this.m_held = [];
        for (const arrival of held) {
            this.m_deliver(...arrival);
        }
        if (held.length > 0) {
            this.m_delivered();
        }
    }

    /** What was held belongs to a session that is gone. */
    drop(): void {
        this.m_held = [];
    }

    private composed(): void {
        this.m_isComposing = false;
        this.m_press.whenUp(() => this.letThrough());
    }

    private letThrough(): void {
        if (!this.m_isComposing && !this.m_press.isDown) {
            this.open();
        }
    }
}

function replaces(channel: Channel, text: string): boolean {
    return channel.kind === 'client' || text.includes(`"${Key.msgType}"`);
}
