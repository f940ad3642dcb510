import { clientChannel, parseChannel, type Channel } from '../../src/gateway/channel.ts';
import { Inbox } from '../../src/page/Inbox.ts';
import { Kind, ROOT_CHANNEL } from '../../src/protocol/names.ts';
import type { MessageBox } from '../../src/protocol/messagebox.ts';
import { propertyNames, type Name } from '../../src/protocol/properties.ts';
import { ObjectStore } from '../../src/store/ObjectStore.ts';
import { subtree, type StoredObject } from '../../src/store/StoredObject.ts';
import { rows, type Ids, type Row, type Scene } from './wireRows.ts';

/** How a value that the page keeps stands on the wire; written without the page's own guards. */
type Form = (value: never) => unknown;

const points: Form = (point: { x: number; y: number }) => `[${point.x},${point.y}]`;
const sizes: Form = (size: { width: number; height: number }) =>
    `[${size.width.toFixed(6)},${size.height.toFixed(6)}]`;
const rects: Form = (rect: { x: number; y: number; width: number; height: number }) =>
    `[${rect.x},${rect.y},${rect.width},${rect.height}]`;

const forms: { readonly [N in Name]?: Form } = {
    geometry: rects,
    frameGeometry: rects,
    saveGeometry: rects,
    moveTo: points,
    move: (point: { x: number; y: number }) => `[${point.x}, ${point.y}]`,
    resize: sizes,
    setPreferredSize: sizes,
    setMinimumWidth: String,
    setMinimumHeight: String,
    setMaximumWidth: String,
    setMaximumHeight: String,
    buddy: (id: number) => String(id === 0 ? 4294967295 : id),
};

/** What a description says of an object that has nothing special. */
const initial: Readonly<Record<string, unknown>> = {
    visible: true,
    enable: true,
    tooltip: '',
    label: '',
    icon: '',
    checked: false,
    defaultbutton: false,
    text: '',
    buddy: '4294967295',
};

/** A page without a document, at the end of the wire. */
export class WirePage {
    readonly ids: Ids;
    readonly triggered: string[] = [];
    readonly boxes: MessageBox[] = [];
    pings = 0;
    readonly store = new ObjectStore({
        opened: () => undefined,
        reopened: () => undefined,
        closed: () => undefined,
        inserted: () => undefined,
        removed: () => undefined,
        changed: () => undefined,
        triggered: (object, trigger) => this.triggered.push(`${object.id} ${trigger}`),
    });
    private readonly m_inbox = new Inbox(this.store, {
        pinged: () => (this.pings += 1),
        described: () => undefined,
        told: (_window, box) => this.boxes.push(box),
    });

    /** The windows that the row's scene shows are there. */
    constructor(row: Row) {
        this.ids = rows.identifiersOf(row);
        const scene = row.scene ?? rows.scene;
        for (const name of scene.show) {
            this.feed(clientChannel, JSON.stringify(describe(scene, name, this.ids)));
        }
    }

    /** A text on a channel as rows write it. */
    arrives(address: string, text: string): void {
        this.feed(channelOf(rows.fillIn(address, this.ids)), text);
    }

    /** The value of a property as it would stand on the wire. */
    value(object: StoredObject, name: string): unknown {
        const value = object.values[name as Name];
        return value === undefined
            ? initial[name]
            : (forms[name as Name]?.(value as never) ?? value);
    }

    /** Every property of every object that is not as at the beginning. */
    state(): ReadonlyMap<string, unknown> {
        const state = new Map<string, unknown>();
        const names = new Map([...this.ids].map(([name, id]) => [id, name]));
        for (const object of [...this.store.windows.values()].flatMap((top) => [...subtree(top)])) {
            for (const name of propertyNames) {
                if (object.values[name] !== undefined) {
                    const owner = names.get(object.id) ?? String(object.id);
                    state.set(`${owner}.${name}`, this.value(object, name));
                }
            }
        }
        return state;
    }

    private feed(channel: Channel | undefined, text: string): void {
        if (channel !== undefined) {
            this.m_inbox.received(channel, text);
            this.store.flush();
        }
    }
}

/** Full channels as the gateway shortens them. */
export function shortChannel(address: string): string {
    return address.replace(/^\/dova2\/web\/[^/]+/, '.');
}

function channelOf(address: string): Channel | undefined {
    return parseChannel(address === ROOT_CHANNEL ? address : shortChannel(address));
}

function describe(scene: Scene, name: string, ids: Ids): object {
    const kind = scene.objects.find((object) => object.name === name)?.kind ?? Kind.dialog;
    const inner = scene.objects.filter((object) => object.parent === name);
    const contents = inner.map((object) => describe(scene, object.name, ids));
    return { id: String(ids.get(name)), type: kind, contents };
}
