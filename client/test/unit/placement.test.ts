import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Rect } from '../../src/protocol/geometry.ts';
import {
    edgeCursor,
    edgesAt,
    firstPlace,
    fitSize,
    keepReachable,
    resized,
} from '../../src/windows/placement.ts';

const viewport = { width: 1000, height: 600 };

function rect(x: number, y: number, width: number, height: number): Rect {
    return { x, y, width, height };
}

const reachable: readonly (readonly [name: string, from: Rect, to: Rect])[] = [
    ['inside', rect(10, 20, 300, 200), rect(10, 20, 300, 200)],
    ['above', rect(10, -50, 300, 200), rect(10, 0, 300, 200)],
    ['far left', rect(-900, 20, 300, 200), rect(-204, 20, 300, 200)],
    ['far right', rect(5000, 20, 300, 200), rect(904, 20, 300, 200)],
    ['below', rect(10, 5000, 300, 200), rect(10, 566, 300, 200)],
    ['larger than the screen', rect(10, 20, 5000, 5000), rect(0, 0, 1000, 600)],
    ['too small to hold', rect(10, 20, 0, 0), rect(10, 20, 140, 72)],
];

for (const [name, from, to] of reachable) {
    test(`a window ${name} is within reach`, () =>
        assert.deepEqual(keepReachable(from, viewport), to));
}

const start = rect(100, 100, 300, 200);
const drags: readonly (readonly [name: string, edges: object, by: object, to: Rect])[] = [
    ['right', { right: true }, { x: 20, y: 50 }, rect(100, 100, 320, 200)],
    ['left', { left: true }, { x: 20, y: 0 }, rect(120, 100, 280, 200)],
    ['left beyond right', { left: true }, { x: 900, y: 0 }, rect(260, 100, 140, 200)],
    ['top beyond bottom', { top: true }, { x: 0, y: 900 }, rect(100, 228, 300, 72)],
    ['corner', { right: true, bottom: true }, { x: -10, y: 10 }, rect(100, 100, 290, 210)],
];

for (const [name, edges, by, to] of drags) {
    test(`dragging ${name}`, () => {
        assert.deepEqual(resized(start, edges, { x: 0, y: 0, ...by }), to);
    });
}

test('the pointer shows which edge it is on', () => {
    const cursors = [
        [100, 100],
        [250, 101],
        [399, 299],
        [101, 200],
        [250, 200],
    ].map(([x = 0, y = 0]) => edgeCursor(edgesAt(start, { x, y }, 6)));
    assert.deepEqual(cursors, ['nw-resize', 'n-resize', 'se-resize', 'w-resize', '']);
});

test('new windows stand in the viewport, each a step from the last, whatever their size', () => {
    const size = fitSize({ width: 5000, height: 300 }, viewport);
    assert.ok(size.width <= viewport.width);
    const places = Array.from({ length: 20 }, (_, index) =>
        firstPlace({ width: 300, height: 200 }, viewport, index),
    );
    assert.equal(new Set(places.map((place) => JSON.stringify(place))).size, 8);
    for (const place of places) {
        assert.ok(place.x >= 0 && place.x + 300 <= 1000 && place.y >= 0 && place.y + 200 <= 600);
    }
});
