import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Rect } from '../../src/protocol/geometry.ts';
import * as placement from '../../src/windows/placement.ts';

const viewport = { width: 1000, height: 600 };
const start = rect(100, 100, 300, 200);

function rect(x: number, y: number, width: number, height: number): Rect {
    return { x, y, width, height };
}

const reachable: readonly (readonly [name: string, from: Rect, to: Rect])[] = [
    ['inside', rect(10, 20, 300, 200), rect(10, 20, 300, 200)],
    ['above', rect(10, -50, 300, 200), rect(10, 0, 300, 200)],
    ['far left', rect(-900, 20, 300, 200), rect(-204, 20, 300, 200)],
    ['far right', rect(5000, 20, 300, 200), rect(904, 20, 300, 200)],
    ['below', rect(10, 5000, 300, 200), rect(10, 568, 300, 200)],
    ['larger than the screen', rect(10, 20, 5000, 5000), rect(0, 0, 1000, 600)],
    ['too small to hold', rect(10, 20, 0, 0), rect(10, 20, 140, 72)],
];

for (const [name, from, to] of reachable) {
    test(`a window ${name} is within reach`, () =>
        assert.deepEqual(placement.keepReachable(from, viewport, 32), to));
}

const drags: readonly (readonly [edges: readonly string[], x: number, y: number, to: Rect])[] = [
    [['right'], 20, 50, rect(100, 100, 320, 200)],
    [['left'], 20, 0, rect(120, 100, 280, 200)],
    [['left'], 900, 0, rect(260, 100, 140, 200)],
    [['top'], 0, 900, rect(100, 228, 300, 72)],
    [['right', 'bottom'], -10, 10, rect(100, 100, 290, 210)],
];

for (const [edges, x, y, to] of drags) {
    test(`dragging ${edges.join(' and ')} by ${x}, ${y}`, () => {
        const dragged = Object.fromEntries(edges.map((edge) => [edge, true]));
        assert.deepEqual(placement.resized(start, dragged, { x, y }), to);
    });
}

test('the pointer shows which edge it is on', () => {
    const points = [rect(100, 100, 0, 0), rect(250, 101, 0, 0), rect(399, 299, 0, 0)];
    points.push(rect(101, 200, 0, 0), rect(250, 200, 0, 0));
    const cursors = points.map((at) => placement.edgeCursor(placement.edgesAt(start, at, 6)));
    assert.deepEqual(cursors, ['nw-resize', 'n-resize', 'se-resize', 'w-resize', '']);
});

test('new windows stand in the viewport, each a step from the last, whatever their size', () => {
    assert.ok(placement.fitSize({ width: 5000, height: 300 }, viewport).width <= viewport.width);
    const size = { width: 300, height: 200 };
    const places = Array.from({ length: 20 }, (_, index) =>
        placement.firstPlace(size, viewport, index),
    );
    assert.equal(new Set(places.map((place) => JSON.stringify(place))).size, 8);
    assert.ok(places.every(({ x, y }) => x >= 0 && x + 300 <= 1000 && y >= 0 && y + 200 <= 600));
});
