import type { Channel } from './channel.ts';
import type { FrameRecord } from './frame.ts';
import type { AskWhy, Clock, Connect, Refusal } from './transport.ts';

/**
 * connecting: first connection not there yet; open: all is well; slow: what was done is not
 * answered yet; silent: nobody answers, trying again; lost: the connection is gone, trying again;
 * a refusal: trying again slowly; ended: the program ended, trying again slowly; duplicated,
 * takenOver, refused: given up until the user asks.
 */
export type LinkStatus =
    | Refusal
    | 'connecting'
    | 'open'
    | 'slow'
    | 'silent'
    | 'lost'
    | 'ended'
    | 'duplicated'
    | 'takenOver'
    | 'refused';

export interface LinkListener {
    /**
     * A session is over before it came to its end; these records nobody has confirmed. It broke
     * off, or the user has left it.
     */
    over(records: readonly FrameRecord[], brokeOff: boolean): void;
    /** A session begins from nothing: whatever is shown belongs to one that is gone. */
    began(clientId: string): void;
    received(channel: Channel, text: string): void;
    /** What is sent next may acknowledge what came: the gateway does not have it any more then. */
    readonly aboutToSend?: (() => void) | undefined;
    /** All records of a frame were handed over. */
    settled(): void;
    status(status: LinkStatus, reason: string): void;
}

export interface LinkSetup {
    readonly connect: Connect;
    readonly askWhy: AskWhy;
    readonly clock: Clock;
    readonly listener: LinkListener;
    readonly makeClientId: () => string;
}
