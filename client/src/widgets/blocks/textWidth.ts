import type { StoredObject } from '../../store/StoredObject.ts';

let canvas: CanvasRenderingContext2D | null = null;
const widths = new Map<number, number>();

/** Of a letter as it stands alone. */
function letterWidth(code: number): number {
    let width = widths.get(code);
    if (width === undefined) {
        canvas ??= document.createElement('canvas').getContext('2d');
        width = canvas?.measureText(String.fromCharCode(code)).width ?? 1;
        widths.set(code, width);
    }
    return width;
}

function lineWidth(line: string): number {
    let width = 0;
    for (let at = 0; at < line.length; at += 1) {
        width += letterWidth(line.charCodeAt(at));
    }
    return width;
}

/**
 * How wide the widest line is that the object shows, or all that it holds: not how wide it is, but
 * good to tell which of two is wider, ten thousand times in no time.
 */
export function textWidth({ children, values }: StoredObject): number {
    const { entries, text = values.label ?? '' } = values;
    let width = children.reduce((sum, child) => sum + textWidth(child), 0);
    for (const line of entries ?? text.split('\n')) {
        width = Math.max(width, lineWidth(line));
    }
    return width;
}
