import assert from 'node:assert/strict';
import type { JsonObject } from '../../src/protocol/guards.ts';
import { Kind } from '../../src/protocol/names.ts';
import { triggers } from '../../src/protocol/values.ts';
import type { StoredObject } from '../../src/store/StoredObject.ts';
import type { WirePage } from './WirePage.ts';
import type { Row } from './wireRows.ts';

/** What the program says: every property in it is applied, but for those that no page can use. */

/** Members of what the program says that are no properties. */
export const structure: ReadonlySet<string> = new Set([
    'id',
    'type',
    'contents',
    'msgType',
    'parentId',
    'command',
    'version',
]);
const triggerNames: ReadonlySet<string> = new Set(triggers);

/** Every object in a message of the program, with what it says of it. */
export function* objectsIn(message: unknown): Generator<JsonObject> {
    for (const object of [message].flat() as JsonObject[]) {
        yield object;
        yield* objectsIn(object['contents'] ?? []);
    }
}

/** A window that another brings along, and that the page shows already, stays as it is there. */
function isKept(page: WirePage, message: JsonObject): boolean {
    const object = page.store.get(Number(message['id']));
    return message['type'] === Kind.dialog && object !== undefined && object.parent === undefined;
}

/** What a message describes beside its object: all but the windows that are kept. */
function contentsOf(page: WirePage, message: JsonObject): readonly JsonObject[] {
    const contents = (message['contents'] ?? []) as readonly JsonObject[];
    return contents.filter((inner) => !isKept(page, inner));
}

/** Expects the message to be in the page; answers whether its objects are there. */
export function assertApplied(page: WirePage, row: Row, message: JsonObject): boolean {
    const object = page.store.get(Number(message['id']));
    if (message['type'] === 'messagebox') {
        const { title, body, level, modal } = message;
        const expected = { title, body, level: level || 'information', modal: modal === 'true' };
        assert.deepEqual({ ...page.box }, expected);
    } else if (message['command'] === 'close') {
        assert.equal(object, undefined, 'a closed window is still there');
    } else if (object === undefined) {
        return false;
    } else {
        assertProperties(page, row, object, message);
        assertPlace(page, object, message);
    }
    return contentsOf(page, message).every((inner) => assertApplied(page, row, inner));
}

function assertProperties(
    page: WirePage,
    row: Row,
    object: StoredObject,
    message: JsonObject,
): void {
    for (const [name, sent] of Object.entries(message)) {
        if (triggerNames.has(name)) {
            const told = page.told.includes(`triggered ${page.nameOf(object)} ${name}`);
            assert.ok(told || object.triggers.some((trigger) => trigger === name), name);
        } else if (!structure.has(name)) {
            const expected = row.unusable?.includes(name) ? undefined : sent;
            assert.deepEqual(page.value(object, name), expected, name);
        }
    }
}

function assertPlace(page: WirePage, object: StoredObject, message: JsonObject): void {
    if ('msgType' in message) {
        assert.equal(object.parent?.id, Number(message['parentId']));
    }
    if ('contents' in message || 'msgType' in message) {
        assert.deepEqual(
            object.children.map((child) => String(child.id)),
            contentsOf(page, message).map(({ id }) => id),
        );
    }
}
