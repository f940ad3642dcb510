/**
 * The frames of the socket: "SEQ,ACK" and then any number of records, each U+001E, channel,
 * U+001F, text. JSON text never holds those two characters raw, so nothing is encoded again.
 */
export interface Frame {
    /** The number of the first record; without records, the number that the next one will have. */
    readonly sequence: number;
    /** The number of the last record that came in order from the other side. */
    readonly acknowledged: number;
    readonly records: readonly FrameRecord[];
}

export interface FrameRecord {
    readonly channel: string;
    readonly text: string;
}

const RECORD = '\u001e';
const FIELD = '\u001f';

export function encodeFrame(frame: Frame): string {
    let text = `${frame.sequence},${frame.acknowledged}`;
    for (const record of frame.records) {
        text += RECORD + record.channel + FIELD + record.text;
    }
    return text;
}

/** Undefined when the text is no frame; half-right frames are not read in part. */
export function decodeFrame(text: string): Frame | undefined {
    const [head = '', ...parts] = text.split(RECORD);
    const numbers = /^([1-9]\d{0,14}),(\d{1,15})$/.exec(head);
    if (numbers === null) {
        return undefined;
    }
    const records: FrameRecord[] = [];
    for (const part of parts) {
        const end = part.indexOf(FIELD);
        if (end < 1 || part.indexOf(FIELD, end + 1) >= 0) {
            return undefined;
        }
        records.push({ channel: part.slice(0, end), text: part.slice(end + 1) });
    }
    return { sequence: Number(numbers[1]), acknowledged: Number(numbers[2]), records };
}
