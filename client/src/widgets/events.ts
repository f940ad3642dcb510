import { asId } from '../protocol/guards.ts';
import type { ObjectStore } from '../store/ObjectStore.ts';
import { isOfKind, kindOf } from './kinds.ts';
import type { EventName, WidgetHost } from './WidgetKind.ts';

const names: readonly EventName[] = [
    'click',
    'change',
    'input',
    'keydown',
    'focusout',
    'compositionstart',
    'compositionend',
    'beforematch',
];

/** Hears the events of all widgets below `root` at one place and hands each to its kind. */
export function listen(root: HTMLElement, store: ObjectStore, host: WidgetHost): void {
    const hand = <E extends EventName>(name: E, event: HTMLElementEventMap[E]): void => {
        const target = event.target instanceof Element ? event.target : null;
        const element = target?.closest<HTMLElement>('[data-id]');
        const object = store.get(asId(element?.getAttribute('data-id')) ?? 0);
        // An element that has just given way to another has no say: losing the focus is not leaving.
        const kind = object && object.view === element ? kindOf(object) : undefined;
        if (element && object && kind && isOfKind(element, kind)) {
            kind.events?.[name]?.(object, element, event, host);
        }
    };
    for (const name of names) {
        root.addEventListener(name, (event) => hand(name, event));
    }
}
