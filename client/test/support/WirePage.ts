import { parseChannel } from '../../src/gateway/channel.ts';
import { Inbox } from '../../src/page/Inbox.ts';
import type { MessageBox } from '../../src/protocol/messagebox.ts';
import { propertyNames } from '../../src/protocol/properties.ts';
import { initialValues, type Name } from '../../src/protocol/values.ts';
import { describe } from '../../src/store/describe.ts';
import { ObjectStore } from '../../src/store/ObjectStore.ts';
import { type StoredObject, subtree } from '../../src/store/StoredObject.ts';
import { whole } from '../../src/store/steps.ts';
import { ofObjects } from './table.ts';
import { type Ids, type Row, rows, shownWindows } from './wireRows.ts';

/** How a value that the page keeps stands on the wire; written without the page's own guards. */
type Form = (value: never) => unknown;

function list(between: string, write: (number: number) => string): Form {
    return (value: object) => `[${Object.values(value).map(write).join(between)}]`;
}

const places = list(',', String);
const sizes = list(',', (number) => number.toFixed(6));

const forms = new Map<string, Form>([
    ['rectangle', places],
    ['savedRectangle', places],
    ['point', places],
    ['spacedPoint', list(', ', String)],
    ['size', sizes],
    ['length', String],
    ['buddy', (id: number) => String(id === 0 ? 4294967295 : id)],
]);
const formOf = new Map(ofObjects.map(({ name, formName }) => [name, forms.get(formName)]));

/** A page without a document, at the end of the wire. */
export class WirePage {
    readonly ids: Ids;
    /** What the store told, each as an event, the object's name and details. */
    readonly told: string[] = [];
    box: MessageBox | undefined;
    #pings = 0;
    readonly #names: ReadonlyMap<number, string>;
    readonly store = new ObjectStore({
        opened: (window) => this.#note('opened', window),
        reopened: (window) => this.#note('reopened', window),
        closed: (window) => this.#note('closed', window),
        inserted: (object, before) => this.#note('inserted', object, before ? 'for old' : 'last'),
        removed: (object) => this.#note('removed', object),
        changed: (object, names) => this.#note('changed', object, [...names].join()),
        triggered: (object, trigger) => this.#note('triggered', object, trigger),
    });
    readonly #inbox = new Inbox(this.store, {
        pinged: () => (this.#pings += 1),
        described: () => undefined,
        told: (_window, box) => (this.box = box),
        modelNeeded: () => undefined,
    });

    /** The windows that the row's scene shows are there. */
    constructor(row: Row) {
        this.ids = rows.identifiersOf(row);
        this.#names = new Map([...this.ids].map(([name, id]) => [id, name]));
        shownWindows(row, this.ids).forEach((window) => this.arrives('.', JSON.stringify(window)));
        this.told.length = 0;
    }

    arrives(address: string, text: string): void {
        const channel = parseChannel(address);
        if (channel !== undefined) {
            whole(this.#inbox.received(channel, text));
            this.store.flush();
        }
    }

    /** What shows the windows goes, and comes again as it was kept. */
    reload(): void {
        const kept = [...this.store.windows.values()].map((window) => describe(window));
        this.store.clear();
        kept.forEach((window) => this.arrives('.', JSON.stringify(window)));
    }

    nameOf(object: StoredObject): string {
        return this.#names.get(object.id) ?? String(object.id);
    }

    /** The value of a property as it would stand on the wire. */
    value(object: StoredObject, name: string): unknown {
        const value = object.values[name as Name] ?? initialValues[name as Name];
        const form = formOf.get(name);
        return value === undefined || form === undefined ? value : form(value as never);
    }

    /** What every object has that it did not begin with, and how they stand in each other. */
    state(): State {
        const windows = [...this.store.windows.values()];
        const state: Record<string, unknown> = { 'page.windows': this.#namesOf(windows) };
        for (const object of windows.flatMap((window) => [...subtree(window)])) {
            const owner = this.nameOf(object);
            for (const name of propertyNames) {
                const value = object.values[name];
                if (value !== undefined && value !== initialValues[name]) {
                    state[`${owner}.${name}`] = this.value(object, name);
                }
            }
            if (object.children.length > 0) {
                state[`${owner}.contents`] = this.#namesOf(object.children);
            }
        }
        return { ...state, 'page.pings': this.#pings, 'page.box': this.box };
    }

    #namesOf(objects: readonly StoredObject[]): string {
        return objects.map((object) => this.nameOf(object)).join();
    }

    #note(event: string, object: StoredObject, details = ''): void {
        this.told.push(`${event} ${this.nameOf(object)} ${details}`.trim());
    }
}

type State = Readonly<Record<string, unknown>>;

/** What differs between two states, in the form of rows. */
export function changes(before: State, now: State): readonly unknown[] {
    const text = (state: State, key: string): string => JSON.stringify(state[key] ?? null);
    return Object.keys({ ...before, ...now })
        .filter((key) => text(before, key) !== text(now, key))
        .map((key) => [...key.split('.'), JSON.parse(text(now, key))])
        .sort();
}
