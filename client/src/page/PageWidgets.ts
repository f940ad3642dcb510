import type { PartialValues } from '../protocol/values.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { OpenEdits } from '../widgets/edit/OpenEdits.ts';
import { PageSizes } from '../widgets/tabs/PageSizes.ts';
import { TabPositions } from '../widgets/tabs/TabPositions.ts';
import { Buddies } from '../widgets/text/Buddies.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import type { Desktop } from '../windows/Desktop.ts';
import { imageAddress } from './identity.ts';
import type { Outbox } from './Outbox.ts';

/** What the widgets of this page have around them. */
export class PageWidgets implements WidgetHost {
    readonly edits = new OpenEdits();
    readonly tabs = new TabPositions();
    readonly pageSizes = new PageSizes();
    readonly buddies: Buddies;
    readonly #outbox: Outbox;
    readonly #desktop: () => Desktop;

    /** `desktop` and `control` are asked only once there are widgets. */
    constructor(
        outbox: Outbox,
        desktop: () => Desktop,
        control: (id: number) => HTMLElement | undefined,
    ) {
        this.#outbox = outbox;
        this.#desktop = desktop;
        this.buddies = new Buddies(control);
    }

    send(object: StoredObject, message: string): void {
        this.#outbox.send(object, message);
    }

    tell(object: StoredObject, message: string, values: PartialValues, isMade?: boolean): void {
        this.#outbox.tell(object, message, values, isMade);
    }

    contentsChanged(object: StoredObject): void {
        this.#desktop().contentsChanged(object);
    }

    pressDefault(object: StoredObject): void {
        const window = this.#desktop().windows.find(({ object: { id } }) => id === object.windowId);
        this.#desktop().finish();
        const buttons =
            window?.body.querySelectorAll<HTMLButtonElement>('[data-default]:enabled') ?? [];
        [...buttons].find((button) => button.checkVisibility())?.click();
    }

    imageAddress(path: string): string | undefined {
        return imageAddress(path);
    }
}
