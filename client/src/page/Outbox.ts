import { clientChannel, rootChannel, windowChannel } from '../gateway/channel.ts';
import { fitsIntoFrame } from '../gateway/frame.ts';
import type { Link } from '../gateway/Link.ts';
import type { Losses } from '../losses/Losses.ts';
import { clientReady, dialogDestroyed } from '../protocol/lifecycle.ts';
import type { PartialValues } from '../protocol/values.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { Banner } from './Banner.ts';

/** What waits for a connection is bounded; before the bound is passed the page stops taking more. */
const WAITING_RECORDS = 10_000;
const WAITING_CHARACTERS = 4_000_000;

/** What the page tells the program. */
export class Outbox {
    readonly #link: Link;
    readonly #store: ObjectStore;
    readonly #losses: Losses;
    readonly #banner: Banner;
    readonly #root: HTMLElement;
    #isFull = false;

    constructor(link: Link, store: ObjectStore, losses: Losses, banner: Banner, root: HTMLElement) {
        this.#link = link;
        this.#store = store;
        this.#losses = losses;
        this.#banner = banner;
        this.#root = root;
    }

    announce(): void {
        this.#link.send(rootChannel, clientReady(this.#link.clientId));
    }

    askToClose(window: StoredObject): void {
        this.#link.send(clientChannel, dialogDestroyed(window.id));
    }

    /** The number of the record; none when the message is too long to be sent. */
    send(object: StoredObject, message: string): number | undefined {
        if (!fitsIntoFrame(message)) {
            this.#banner.tooLong();
            return undefined;
        }
        this.#losses.sent(object, message);
        const record = this.#link.send(windowChannel(object.windowId), message);
        this.check();
        return record;
    }

    /** See WidgetHost. */
    tell(object: StoredObject, message: string, values: PartialValues, isMade = false): void {
        const record = this.send(object, message);
        if (record !== undefined) {
            this.#store.own.put(object.id, values, object.values, record, isMade);
        }
        Object.assign(object.values, values);
    }

    /** Lets the user do no more, or more again, as there is room for what waits. */
    check(): void {
        const { pending, pendingCharacters } = this.#link.session;
        const isFull = pending.length >= WAITING_RECORDS || pendingCharacters >= WAITING_CHARACTERS;
        if (isFull !== this.#isFull) {
            this.#isFull = isFull;
            this.#root.inert = isFull;
            this.#banner.full(isFull);
        }
    }
}
