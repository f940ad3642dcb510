import type { Name, PartialValues, Values } from '../protocol/values.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import type { OpenEdits } from './edit/OpenEdits.ts';
import type { PageSizes } from './tabs/PageSizes.ts';
import type { TabPositions } from './tabs/TabPositions.ts';
import type { Buddies } from './text/Buddies.ts';

/** What a widget may ask of the page around it. */
export interface WidgetHost {
    readonly edits: OpenEdits;
    readonly buddies: Buddies;
    readonly tabs: TabPositions;
    readonly pageSizes: PageSizes;
    /** Tells the program, on the window's channel. */
    send(object: StoredObject, message: string): void;
    /**
     * Tells it what the user gave the object, which the program takes over; `isMade` when the
     * page made it of what the program has said.
     */
    tell(object: StoredObject, message: string, values: PartialValues, isMade?: boolean): void;
    /** What shows the object takes another room now: its window follows. */
    contentsChanged(object: StoredObject): void;
    /** Presses the default button of the object's window, if it has one that can be pressed. */
    pressDefault(object: StoredObject): void;
    /** Where an image of the program is to be had; undefined when it has no path. */
    imageAddress(path: string): string | undefined;
}

/** What a write of each property does to the element. Writing a value again must do no harm. */
export type Appliers = {
    readonly [N in Name]?: (
        element: HTMLElement,
        value: Values[N],
        object: StoredObject,
        host: WidgetHost,
    ) => void;
};

export type EventName =
    | 'click'
    | 'change'
    | 'input'
    | 'keydown'
    | 'focusout'
    | 'compositionstart'
    | 'compositionend'
    | 'beforematch';

export type WidgetEvents = {
    readonly [E in EventName]?: (
        object: StoredObject,
        element: HTMLElement,
        event: HTMLElementEventMap[E],
        host: WidgetHost,
    ) => void;
};

/**
 * One kind of widget: a table, not a class, because a window may hold ten thousand of one kind.
 * Its element carries `data-id` and `data-type`; its events are heard once for the whole page.
 */
export interface WidgetKind {
    /** The name that the clones carry; one that stands in for others has none. */
    readonly type?: string;
    /** What the elements of this kind are clones of. */
    readonly prototype: HTMLElement;
    readonly appliers: Appliers;
    readonly events?: WidgetEvents;
    /** The kind in the shape that the object's state asks for; the kind itself if absent. */
    variantOf?(object: StoredObject): WidgetKind;
    /** Told once its children are there, and again whenever one has come or gone. */
    arrange?(element: HTMLElement, object: StoredObject, host: WidgetHost): void;
    /** The element that takes the focus and that labels point at; the element itself if absent. */
    control?(element: HTMLElement): HTMLElement;
    /** Gives a control that nothing else names a name, if need be by the element before it. */
    nameAfter?(element: HTMLElement, object: StoredObject, previous: Element | undefined): void;
}
