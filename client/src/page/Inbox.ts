import type { Channel } from '../gateway/channel.ts';
import { ModelFeed } from '../model/ModelFeed.ts';
import { decodeWindow } from '../protocol/description.ts';
import { asIntegers, type JsonObject, parseJson } from '../protocol/guards.ts';
import { isPing } from '../protocol/lifecycle.ts';
import type { MessageBox } from '../protocol/messagebox.ts';
import { decodeWindowMessage } from '../protocol/windowMessage.ts';
import { describe } from '../store/describe.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { none } from '../store/steps.ts';

export interface InboxListener {
    /** The program asks who is there. */
    pinged(): void;
    /** A window was described, for the first time or again. */
    described(window: StoredObject): void;
    told(windowId: number, box: MessageBox): void;
    /** The model document is needed as a whole. */
    modelNeeded(): void;
}

/** Takes the texts of the program and brings what they say into the store; without a document. */
export class Inbox {
    readonly model: ModelFeed;
    readonly #store: ObjectStore;
    readonly #listener: InboxListener;

    constructor(store: ObjectStore, listener: InboxListener) {
        this.#store = store;
        this.#listener = listener;
        this.model = new ModelFeed(store, () => listener.modelNeeded());
    }

    /**
     * `known`: which of the page's records the program knew when it said this. Answers what is left
     * to do, in steps; nothing else is to be received before that is done.
     */
    received(channel: Channel, text: string, known = Infinity): Iterator<void> {
        this.#store.known = known;
        switch (channel.kind) {
            case 'root':
                if (isPing(text)) {
                    this.#listener.pinged();
                }
                return none;
            case 'client':
                return this.#openWindow(text);
            case 'window':
                return this.#windowMessage(channel.id, text);
            case 'model':
                return this.model.received(text);
        }
    }

    /** What it has brought into the store, and what of that is the user's own. */
    store(): JsonObject {
        return {
            windows: [...this.#store.windows.values()].map(describe),
            own: this.#store.own.store(),
            elements: [...this.model.objects],
        };
    }

    restore(stored: JsonObject): void {
        const windows = stored['windows'];
        for (const window of Array.isArray(windows) ? (windows as unknown[]) : []) {
            const description = decodeWindow(window);
            if (description !== undefined) {
                this.#store.open(description);
            }
        }
        this.#store.own.restore(stored['own']);
    }

    /** The session of what was restored goes on. */
    goOn(stored: JsonObject): void {
        this.model.begin(asIntegers(stored['elements']));
    }

    *#openWindow(text: string): Generator<void> {
        const description = decodeWindow(parseJson(text));
        if (description === undefined) {
            return;
        }
        yield;
        this.#store.flush();
        const window = yield* this.#store.opening(description);
        if (window !== undefined) {
            this.#listener.described(window);
            yield* this.model.described(window.id);
        }
    }

    #windowMessage(windowId: number, text: string): Iterator<void> {
        const message = decodeWindowMessage(text);
        switch (message?.kind) {
            case 'writes':
                for (const write of message.writes) {
                    this.#store.apply(windowId, write);
                }
                break;
            case 'refresh':
                this.#store.refresh(windowId, message.refresh);
                return this.model.described(windowId);
            case 'messageBox':
                this.#store.flush();
                this.#listener.told(windowId, message.box);
                break;
            case undefined:
                break;
        }
        return none;
    }
}
