import { asCount, isObject, type JsonObject, parseJson } from './guards.ts';
import { ModelKey } from './names.ts';
import { elementDefaults } from './values.ts';

/** Down, model channel: the whole document, or what changed in it since the version before. */
type ModelMessage =
    | { readonly kind: 'snapshot'; readonly version: number; readonly document: JsonObject }
    | { readonly kind: 'patch'; readonly version: number; readonly patch: readonly unknown[] };

export function decodeModelMessage(text: string): ModelMessage | undefined {
    const message = parseJson(text);
    const version = isObject(message) ? asCount(message[ModelKey.version]) : undefined;
    if (!isObject(message) || version === undefined) {
        return undefined;
    }
    const document = message[ModelKey.snapshot];
    if (isObject(document)) {
        return { kind: 'snapshot', version, document };
    }
    const patch = message[ModelKey.patch];
    return Array.isArray(patch) ? { kind: 'patch', version, patch } : undefined;
}

/**
 * Up, model channel: this page wants of the document what no other message tells; of the rest it
 * would only hear a second time.
 */
export function snapshotRequest(clientId: string): string {
    return JSON.stringify({
        [ModelKey.snapshot]: clientId,
        [ModelKey.properties]: Object.keys(elementDefaults),
    });
}
