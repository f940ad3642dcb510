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

    /** `known`: which of the page's records the program knew when it said this. */
    received(channel: Channel, text: string, known = Infinity): void {
        this.#store.known = known;
        switch (channel.kind) {
            case 'root':
                if (isPing(text)) {
                    this.#listener.pinged();
                }
                break;
            case 'client':
                this.#openWindow(text);
                break;
            case 'window':
                this.#windowMessage(channel.id, text);
                break;
            case 'model':
                this.model.received(text);
                break;
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

    #openWindow(text: string): void {
        const description = decodeWindow(parseJson(text));
        if (description === undefined) {
            return;
        }
        this.#store.flush();
        const window = this.#store.open(description);
        if (window !== undefined) {
            this.model.described(window.id);
            this.#listener.described(window);
        }
    }

    #windowMessage(windowId: number, text: string): void {
        const message = decodeWindowMessage(text);
        switch (message?.kind) {
            case 'writes':
                for (const write of message.writes) {
                    this.#store.apply(windowId, write);
                }
                break;
            case 'refresh':
                this.#store.refresh(windowId, message.refresh);
                this.model.described(windowId);
                break;
            case 'messageBox':
                this.#store.flush();
                this.#listener.told(windowId, message.box);
                break;
            case undefined:
                break;
        }
    }
}
