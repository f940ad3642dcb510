/**
 * The frames of the socket: "SEQ,ACK" and then any number of records, each U+001E, channel,
 * U+001F, text. JSON text never holds those two characters raw, so nothing is encoded again.
 */
interface Frame {
    /** The number of the first record; without records, the number that the next one will have. */
    readonly sequence: number;
    /**
     * The number of the last record that came in order from the other side; with records of the
     * program, the last one that it knew when it said them.
     */
    readonly acknowledged: number;
    readonly records: readonly FrameRecord[];
}

export interface FrameRecord {
    readonly channel: string;
    readonly text: string;
}

/** The gateway takes frames of up to 1 MiB. */
const LONGEST_TEXT = 1_000_000;
const RECORD = '\u001e';
const FIELD = '\u001f';

/** Whether a text can travel at all. */
export function fitsIntoFrame(text: string): boolean {
    return text.length * 3 <= LONGEST_TEXT || new TextEncoder().encode(text).length <= LONGEST_TEXT;
}

export function encodeFrame(frame: Frame): string {
    let text = `${frame.sequence},${frame.acknowledged}`;
    for (const record of frame.records) {
        text += RECORD + record.channel + FIELD + record.text;
    }
    return text;
}

/** Undefined when the text is no frame; half-right frames are not read in part. */
export function decodeFrame(text: string): Frame | undefined {
    const parts = text.split(RECORD);
    const numbers = /^([1-9]\d{0,14}),(\d{1,15})$/.exec(parts[0] ?? '');
    const records = decodeRecords(parts);
    return numbers === null || records === undefined
        ? undefined
        : { sequence: Number(numbers[1]), acknowledged: Number(numbers[2]), records };
}

/** The first part is the frame's head. */
function decodeRecords(parts: readonly string[]): readonly FrameRecord[] | undefined {
    const records: FrameRecord[] = [];
    for (let index = 1; index < parts.length; index += 1) {
        const part = parts[index] ?? '';
        const end = part.indexOf(FIELD);
        if (end < 1 || part.includes(FIELD, end + 1)) {
            return undefined;
        }
        records.push({ channel: part.slice(0, end), text: part.slice(end + 1) });
    }
    return records;
}
