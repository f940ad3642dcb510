import { kindOf } from './protocol.mjs';
import { identifiersOf, modelSteps, readRows, stepsOf, textOf } from './rows.mjs';

/** What the rows put on the wire, form by form. */

const defaultChannel = '/dova2/web/page/${window}';

/** A channel as rows write it: that of a window ends with the placeholder of an object. */
function channelKind(address) {
    if (address === '/dova2/web') {
        return 'root';
    }
    if (address === '/tdom') {
        return 'model';
    }
    return /\$\{\w+\}$/.test(address) ? 'window' : 'client';
}

/** The value of a JSON text; undefined if it is none. */
export function parse(text) {
    try {
        return JSON.parse(text);
    } catch {
        return undefined;
    }
}

/** One text of a row; `kind` is the message that the schemas take it for, if any. */
function entryOf(row, channel, action, value, conforms = true) {
    const text = textOf(value, identifiersOf(row));
    const payload = channel === 'socket' && !row.first ? text : parse(text);
    return { row, action, text, payload, conforms, kind: kindOf(channel, action, payload) };
}

export function libraryTexts(row) {
    return stepsOf(row).flatMap((step) => {
        const sent = step.publishes ?? (step.sends ?? []).map((text) => [defaultChannel, text]);
        const entries = sent.map(([address, text]) =>
            entryOf(row, channelKind(address), 'send', text),
        );
        const { channel = defaultChannel, text, conforms } = step;
        return text === undefined
            ? entries
            : [...entries, entryOf(row, channelKind(channel), 'receive', text, conforms)];
    });
}

function garbledTexts(row) {
    const channel = channelKind(row.channel ?? defaultChannel);
    return row.applies === 'any' ? [] : [entryOf(row, channel, 'send', row.text, row.conforms)];
}

/** The frame, and what it carries on the model channel if it is handled. */
function frameTexts(row) {
    const action = row.direction === 'up' ? 'receive' : 'send';
    const ofModel = (row.records ?? []).filter(([, channel]) => channelKind(channel) === 'model');
    return [
        entryOf(row, 'socket', action, row.frame, row.conforms),
        ...ofModel.map(([, , text]) => entryOf(row, 'model', action, text)),
    ];
}

function modelTexts(row) {
    return modelSteps(row)
        .flat()
        .map((text) => entryOf(row, 'model', 'send', text));
}

export const forms = {
    library: {
        rows: ['outgoing', 'descriptions', 'incoming', 'lifecycle'].flatMap(readRows),
        texts: libraryTexts,
    },
    garbled: { rows: readRows('garbled'), texts: garbledTexts },
    frames: {
        rows: readRows('frames'),
        texts: frameTexts,
    },
    model: { rows: readRows('model'), texts: modelTexts },
};
