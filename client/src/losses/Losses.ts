import type { FrameRecord } from '../gateway/frame.ts';
import type { Clock } from '../gateway/transport.ts';
import { asId, asText, isObject } from '../protocol/guards.ts';
import { Kind } from '../protocol/names.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import { type StoredObject, subtree } from '../store/StoredObject.ts';
import type { TabStorage } from '../store/TabStorage.ts';
import { type Action, actionsIn, isGiven, readAction } from './action.ts';
import { bestMatch, type Field, fieldOf, mayBe } from './field.ts';
import type { Loss } from './Loss.ts';
import { LossList } from './LossList.ts';
import { isUsable, putInto, shows } from './putBack.ts';

/** In this time a program has opened its windows; what they do not show then is lost. */
const WINDOWS_OPEN_WITHIN = 2_000;

/** Whose values a user gives. */
const giving: ReadonlySet<string> = new Set([Kind.edit, Kind.comboBox, Kind.checkBox, Kind.button]);

interface LossesSetup {
    readonly store: ObjectStore;
    readonly control: (id: number) => HTMLElement | undefined;
    readonly clock: Clock;
    readonly storage: TabStorage;
    /** The list is another one now, or the fields of its entries are. */
    readonly changed: () => void;
}

/**
 * Knows what the user did in a session that broke off and what of it the next one does not have:
 * records that nobody confirmed, and values that the program had and does not show any more.
 */
export class Losses {
    readonly list: LossList;
    readonly #setup: LossesSetup;
    readonly #given = new Map<number, Action>();
    /** What the program had; whether it still shows that is seen when its windows are there. */
    #doubtful: readonly Loss[] = [];
    #cancel: (() => void) | undefined;

    constructor(setup: LossesSetup) {
        this.#setup = setup;
        this.list = new LossList(setup.storage);
    }

    /** The user has done something to the object, and this tells the program. */
    sent(object: StoredObject, text: string): void {
        const action = giving.has(object.type) ? readAction(text) : undefined;
        if (action !== undefined && isGiven(action)) {
            this.#given.set(action.id, action);
        }
    }

    /**
     * A session is over; the store still holds what it showed. True when something may be lost. Of
     * one that the user has left the program lives on: it may show what it likes.
     */
    over(records: readonly FrameRecord[], brokeOff: boolean): boolean {
        const isTold = new Set(this.unconfirmed(records).map((action) => action.id));
        const given = brokeOff ? [...this.#given.values()] : [];
        const had = given.filter((action) => {
            const object = this.#setup.store.get(action.id);
            return !isTold.has(action.id) && object !== undefined && shows(object, action);
        });
        const doubtful = had.map((action) => this.#lossOf(action, true));
        this.#doubtful = [...this.#doubtful, ...doubtful];
        this.#given.clear();
        this.#cancel?.();
        this.#cancel = this.#setup.clock.after(WINDOWS_OPEN_WITHIN, () => this.#decide());
        return isTold.size > 0 || this.#doubtful.length > 0;
    }

    /** Puts on the list what a user did, of records that nobody has confirmed. */
    unconfirmed(records: readonly FrameRecord[]): readonly Action[] {
        const composed = this.#composed();
        const sent = actionsIn(records).filter(({ id }) => !composed.some((of) => of.id === id));
        const actions = [...sent, ...composed];
        if (actions.length > 0) {
            this.list.add(actions.map((action) => this.#lossOf(action, false)));
            this.#setup.changed();
        }
        return actions;
    }

    /** The windows of the new session are there, or some of them. */
    windowsShown(): void {
        if (this.#doubtful.length > 0 && this.#setup.store.windows.size > 0) {
            this.#decide();
        }
    }

    /** The object that a loss can be put back into, if the page has exactly one. */
    target(loss: Loss): StoredObject | undefined {
        return bestMatch(loss.field, this.#candidates(loss.field));
    }

    /** Does with the field what the user did. False when it cannot be used at the moment. */
    putBack(loss: Loss): boolean {
        const object = this.target(loss);
        const control = object && this.#setup.control(object.id);
        if (object === undefined || control === undefined || !isUsable(control)) {
            return false;
        }
        putInto(control, loss);
        this.list.putBack(loss);
        this.#setup.changed();
        return true;
    }

    clear(): void {
        this.list.clear();
        this.#setup.changed();
    }

    /** What was given is known over a reload. */
    store(): unknown {
        return [...this.#given.values()];
    }

    restore(stored: unknown): void {
        for (const value of Array.isArray(stored) ? (stored as unknown[]) : []) {
            const id = isObject(value) ? asId(value['id']) : undefined;
            const text = isObject(value) ? asText(value['value']) : undefined;
            if (id !== undefined && text !== undefined) {
                this.#given.set(id, { ...(value as Action), id, value: text });
            }
        }
    }

    #decide(): void {
        this.#cancel?.();
        this.#cancel = undefined;
        const lost = this.#doubtful.filter((loss) => {
            const object = this.target(loss);
            return object === undefined || !shows(object, loss);
        });
        this.#doubtful = [];
        if (lost.length > 0) {
            this.list.add(lost);
            this.#setup.changed();
        }
    }

    #lossOf(action: Action, confirmed: boolean): Loss {
        const { what, value, times } = action;
        const object = this.#setup.store.get(action.id);
        const field: Field = object
            ? fieldOf(object, this.#setup.control(object.id))
            : { window: '', kind: '', name: '', objectName: '', path: '?' };
        return { field, what, value, times, confirmed, isBack: false };
    }

    /** What stands in the field with the caret and was not sent, since it is being composed. */
    #composed(): readonly Action[] {
        const active = document.activeElement;
        const id = asId(active?.closest<HTMLElement>('[data-id]')?.dataset['id']);
        const object = this.#setup.store.get(id ?? 0);
        const isText = object?.type === Kind.edit && active instanceof HTMLInputElement;
        return isText && active.value !== (object.values.text ?? '')
            ? [{ id: object.id, what: 'typed', value: active.value, times: 1 }]
            : [];
    }

    *#candidates(field: Field): Generator<readonly [StoredObject, Field]> {
        for (const window of this.#setup.store.windows.values()) {
            for (const object of subtree(window)) {
                const control = this.#setup.control(object.id);
                if (object.type === field.kind && mayBe(field, object, control)) {
                    yield [object, fieldOf(object, control)];
                }
            }
        }
    }
}
