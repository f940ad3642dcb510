import { MODEL_CHANNEL, OWN_CHANNEL, ROOT_CHANNEL } from '../protocol/names.ts';

/** Where a text belongs: the root channel, the page's own, a window's below it, the model's. */
export type Channel =
    | { readonly kind: 'root' }
    | { readonly kind: 'client' }
    | { readonly kind: 'window'; readonly id: number }
    | { readonly kind: 'model' };

export const rootChannel: Channel = { kind: 'root' };
export const clientChannel: Channel = { kind: 'client' };
export const modelChannel: Channel = { kind: 'model' };

export function windowChannel(id: number): Channel {
    return { kind: 'window', id };
}

/** The short form of the wire, in which "." stands for the page's own channel. */
export function channelName(channel: Channel): string {
    switch (channel.kind) {
        case 'root':
            return ROOT_CHANNEL;
        case 'client':
            return OWN_CHANNEL;
        case 'window':
            return `${OWN_CHANNEL}/${channel.id}`;
        case 'model':
            return MODEL_CHANNEL;
    }
}

export function parseChannel(name: string): Channel | undefined {
    if (name === ROOT_CHANNEL) {
        return rootChannel;
    }
    if (name === OWN_CHANNEL) {
        return clientChannel;
    }
    if (name === MODEL_CHANNEL) {
        return modelChannel;
    }
    return /^\.\/[1-9]\d{0,9}$/.test(name) ? windowChannel(Number(name.slice(2))) : undefined;
}

/** Most records are for the channel of the one before, which is then not read again. */
export class ChannelReader {
    #name = '';
    #channel: Channel | undefined;

    read(name: string): Channel | undefined {
        if (name !== this.#name) {
            this.#name = name;
            this.#channel = parseChannel(name);
        }
        return this.#channel;
    }
}
