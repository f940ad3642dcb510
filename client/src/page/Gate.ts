import type { Channel } from '../gateway/channel.ts';
import { Key } from '../protocol/names.ts';
import type { Press } from '../windows/Press.ts';
import type { Arrival } from './Intake.ts';

/**
 * Holds back what replaces elements while the text of an input method is still open: it would
 * destroy the field and with it what is being composed. And holds back everything while a user
 * presses something: that must neither move away nor be replaced before it is a click. What comes
 * after it waits behind it.
 */
export class Gate {
    readonly #press: Press;
    readonly #deliver: (...arrival: Arrival) => void;
    readonly #delivered: () => void;
    #held: Arrival[] = [];
    #isComposing = false;

    constructor(
        root: HTMLElement,
        press: Press,
        deliver: (...arrival: Arrival) => void,
        delivered: () => void,
    ) {
        this.#press = press;
        this.#deliver = deliver;
        this.#delivered = delivered;
        root.addEventListener('compositionstart', () => (this.#isComposing = true));
        root.addEventListener('compositionend', () => this.#composed());
        root.addEventListener('focusout', () => this.#composed());
    }

    /** Whether the text was taken, to be delivered later. */
    holds(...arrival: Arrival): boolean {
        const [channel, text] = arrival;
        const isReplacing = this.#isComposing && replaces(channel, text);
        const isShown = channel.kind !== 'root';
        const isHeld = isShown && (this.#held.length > 0 || this.#press.isDown || isReplacing);
        if (isHeld && this.#held.push(arrival) === 1) {
            this.#press.whenUp(() => this.#letThrough());
        }
        return isHeld;
    }

    /** Whatever the user is doing. */
    open(): void {
        const held = this.#held;
        this.#held = [];
        for (const arrival of held) {
            this.#deliver(...arrival);
        }
        if (held.length > 0) {
            this.#delivered();
        }
    }

    /** What was held belongs to a session that is gone. */
    drop(): void {
        this.#held = [];
    }

    #composed(): void {
        this.#isComposing = false;
        this.#press.whenUp(() => this.#letThrough());
    }

    #letThrough(): void {
        if (!this.#isComposing && !this.#press.isDown) {
            this.open();
        }
    }
}

function replaces(channel: Channel, text: string): boolean {
    return channel.kind === 'client' || text.includes(`"${Key.msgType}"`);
}
