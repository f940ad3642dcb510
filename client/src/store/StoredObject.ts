import type { Description } from '../protocol/description.ts';
import type { Name, PartialValues, Trigger } from '../protocol/values.ts';

/** One object of the program, as the page knows it: its state and its place in the tree. */
export class StoredObject {
    readonly id: number;
    readonly type: string;
    readonly values: PartialValues;
    /** What its description asked for; of use when it is shown for the first time. */
    readonly triggers: readonly Trigger[];
    /** The window whose channel speaks for it; a window is its own. */
    readonly windowId: number;
    readonly children: StoredObject[] = [];
    parent: StoredObject | undefined;
    /** What shows the object: kept here for whoever does, so that nobody has to look it up. */
    view: object | undefined;
    /** Written since the observer was last told; undefined when nothing was. */
    unseen: Set<Name> | undefined;
    /** The program is about to take over what the page had made before this said otherwise. */
    isMistaken = false;

    constructor(description: Description, windowId: number, parent?: StoredObject) {
        this.id = description.id;
        this.type = description.type;
        this.values = description.values;
        this.triggers = description.triggers;
        this.windowId = windowId;
        this.parent = parent;
    }
}

/** The object and everything below it, parents first. */
export function* subtree(top: StoredObject): Generator<StoredObject> {
    yield top;
    for (const child of top.children) {
        yield* subtree(child);
    }
}
