import {
    type Channel,
    clientChannel,
    modelChannel,
    rootChannel,
    windowChannel,
} from '../gateway/channel.ts';
import { type FrameRecord, fitsIntoFrame } from '../gateway/frame.ts';
import { Link } from '../gateway/Link.ts';
import type { LinkListener, LinkStatus } from '../gateway/LinkListener.ts';
import { Session } from '../gateway/Session.ts';
import { actionsIn } from '../losses/action.ts';
import { Losses } from '../losses/Losses.ts';
import { fontSizeStep } from '../protocol/events.ts';
import { asText, type JsonObject } from '../protocol/guards.ts';
import { clientReady, dialogDestroyed, dialogReady } from '../protocol/lifecycle.ts';
import type { MessageBox } from '../protocol/messagebox.ts';
import { snapshotRequest } from '../protocol/modelMessage.ts';
import type { PartialValues } from '../protocol/values.ts';
import { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { OpenEdits } from '../widgets/edit/OpenEdits.ts';
import { listen } from '../widgets/events.ts';
import { Renderer } from '../widgets/Renderer.ts';
import { PageSizes } from '../widgets/tabs/PageSizes.ts';
import { TabPositions } from '../widgets/tabs/TabPositions.ts';
import { Buddies } from '../widgets/text/Buddies.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import { Desktop, type DesktopListener } from '../windows/Desktop.ts';
import { MessageBoxes } from '../windows/MessageBoxes.ts';
import { Press } from '../windows/Press.ts';
import { showEmptyNote } from './emptyNote.ts';
import { Gate } from './Gate.ts';
import { Inbox, type InboxListener } from './Inbox.ts';
import { imageAddress, isClientId, makeClientId } from './identity.ts';
import { Notices } from './Notices.ts';
import { PageObserver } from './PageObserver.ts';
import type { Surroundings } from './Surroundings.ts';

/** What waits for a connection is bounded; before the bound is passed the page stops taking more. */
const WAITING_RECORDS = 10_000;
const WAITING_CHARACTERS = 4_000_000;
const WAITING = 'What you did is handled when it answers.';

/** The page as a whole: what comes from the program goes into the store, what is done goes up. */
export class Application implements LinkListener, InboxListener, WidgetHost, DesktopListener {
    readonly edits = new OpenEdits();
    readonly buddies = new Buddies((id) => this.#renderer.control(id));
    readonly tabs = new TabPositions();
    readonly pageSizes = new PageSizes();
    readonly link: Link;
    readonly losses: Losses;
    /** Set while there is reason to keep what is shown before anything is sent. */
    aboutToSend: (() => void) | undefined;
    readonly #token: string;
    readonly #root: HTMLElement;
    readonly #note = document.createElement('div');
    readonly #store: ObjectStore;
    readonly #inbox: Inbox;
    readonly #renderer: Renderer;
    readonly #desktop: Desktop;
    readonly #boxes: MessageBoxes;
    readonly #notices: Notices;
    readonly #observer: PageObserver;
    readonly #gate: Gate;
    #hadWindows = false;
    #full = false;

    constructor(root: HTMLElement, token: string, surroundings: Surroundings) {
        const { connect, askWhy, clock, storage } = surroundings;
        this.#root = root;
        this.#token = token;
        const newId = (): string => makeClientId((bytes) => crypto.getRandomValues(bytes));
        this.link = new Link({ connect, askWhy, clock, listener: this, makeClientId: newId });
        this.#observer = new PageObserver();
        this.#store = new ObjectStore(this.#observer);
        this.#inbox = new Inbox(this.#store, this);
        this.#renderer = new Renderer(this.#store, this);
        this.losses = new Losses({
            store: this.#store,
            control: (id) => this.#renderer.control(id),
            clock,
            storage,
            changed: () => this.#notices.showLosses(),
        });
        this.#notices = new Notices(
            this.losses,
            () => this.link.startAfresh(),
            () => this.link.retryNow(),
        );
        this.#note.className = 'note';
        root.append(this.#note);
        const press = new Press(root, clock);
        this.#desktop = new Desktop(root, this.#renderer, this, clock, press, this);
        this.#observer.connect(this.#renderer, this.#desktop, () => this.#windowsChanged());
        this.#boxes = new MessageBoxes(root, () => this.topChanged());
        listen(root, this.#store, this);
        const take = this.#inbox.received.bind(this.#inbox);
        this.#gate = new Gate(root, press, take, () => this.settled());
        this.topChanged();
    }

    // What the link tells.

    over(records: readonly FrameRecord[], brokeOff: boolean): void {
        if (this.losses.over(records, brokeOff)) {
            this.#notices.sessionLost();
        }
    }

    began(): void {
        this.#closeAll();
        this.#announce();
        this.#inbox.model.begin();
    }

    received(channel: Channel, text: string): void {
        const { known } = this.link.session;
        if (!this.#gate.holds(channel, text, known)) {
            this.#inbox.received(channel, text, known);
        }
    }

    settled(): void {
        this.#store.flush();
        this.losses.windowsShown();
        this.#checkQueue();
    }

    status(status: LinkStatus, reason: string): void {
        const isWaiting = status === 'slow' && actionsIn(this.link.session.pending).length > 0;
        this.#notices.status(status, isWaiting ? WAITING : reason);
        this.#checkQueue();
    }

    // What the program tells.

    pinged(): void {
        this.#announce();
    }

    described(window: StoredObject): void {
        this.send(window, dialogReady(window.id));
    }

    told(windowId: number, box: MessageBox): void {
        this.#boxes.show(windowId, box);
    }

    modelNeeded(): void {
        this.link.send(modelChannel, snapshotRequest(this.link.clientId));
    }

    // What widgets and windows ask for.

    send(object: StoredObject, message: string): number | undefined {
        if (!fitsIntoFrame(message)) {
            this.#notices.banner.tooLong();
            return undefined;
        }
        this.losses.sent(object, message);
        const record = this.link.send(windowChannel(object.windowId), message);
        this.#checkQueue();
        return record;
    }

    tell(object: StoredObject, message: string, values: PartialValues, isMade = false): void {
        const record = this.send(object, message);
        if (record !== undefined) {
            this.#store.own.put(object.id, values, object.values, record, isMade);
        }
        Object.assign(object.values, values);
    }

    contentsChanged(object: StoredObject): void {
        this.#desktop.contentsChanged(object);
    }

    pressDefault(object: StoredObject): void {
        const body = this.#desktop.windows.find(
            (window) => window.object.id === object.windowId,
        )?.body;
        const buttons = body?.querySelectorAll<HTMLButtonElement>('[data-default]:enabled') ?? [];
        [...buttons].find((button) => button.checkVisibility())?.click();
    }

    imageAddress(path: string): string | undefined {
        return imageAddress(path, this.#token);
    }

    closeRequested(window: StoredObject): void {
        this.link.send(clientChannel, dialogDestroyed(window.id));
    }

    zoomed(window: StoredObject, larger: boolean): void {
        this.send(window, fontSizeStep(window.id, larger));
    }

    topChanged(): void {
        const modal = this.#boxes?.topModal ?? this.#desktop?.stack.topModal?.element;
        this.#notices.standIn(modal ?? document.body);
    }

    // Over a reload.

    /** Undefined when there is nothing that a reload could go on with. */
    state(): JsonObject | undefined {
        this.#gate.open();
        if (!this.link.resumable) {
            this.losses.unconfirmed(this.link.takeUnconfirmed());
        }
        return this.link.resumable
            ? {
                  token: this.#token,
                  clientId: this.link.clientId,
                  session: this.link.session.store(),
                  desktop: this.#desktop.store(),
                  edits: this.edits.store(),
                  tabs: this.tabs.store(),
                  ...this.#inbox.store(),
                  boxes: this.#boxes.store(),
                  focus: this.#renderer.focus.store(this.#root),
                  given: this.losses.store(),
              }
            : undefined;
    }

    start(stored: JsonObject | undefined): void {
        const session = Session.restore(stored?.['session']);
        const clientId = asText(stored?.['clientId']) ?? '';
        const mine = stored?.['token'] === this.#token && isClientId(clientId);
        if (stored !== undefined && session !== undefined && mine) {
            this.link.resume(clientId, session);
            this.#showStored(stored);
            this.#inbox.goOn(stored);
        } else {
            this.#leave(stored, session);
            this.link.start();
        }
        this.#notices.showLosses();
        this.#showNote();
    }

    /** What was kept belongs to another program, or cannot be gone on with. */
    #leave(stored: JsonObject | undefined, session: Session | undefined): void {
        if (stored !== undefined && session !== undefined) {
            this.#showStored(stored);
            this.over(session.pending, true);
            this.#closeAll();
            this.#hadWindows = false;
        }
    }

    #closeAll(): void {
        this.#gate.drop();
        this.#store.clear();
        this.#boxes.closeAll();
    }

    #showStored(stored: JsonObject): void {
        this.edits.restore(stored['edits']);
        this.tabs.restore(stored['tabs']);
        this.#observer.quietly(() => this.#inbox.restore(stored));
        this.#hadWindows = this.#store.windows.size > 0;
        this.#desktop.restore(this.#store.windows, stored['desktop']);
        this.#boxes.restore(stored['boxes']);
        this.#renderer.focus.takeUp(stored['focus']);
        this.losses.restore(stored['given']);
    }

    #announce(): void {
        this.link.send(rootChannel, clientReady(this.link.clientId));
    }

    #checkQueue(): void {
        const { pendingCount, pendingCharacters } = this.link.session;
        const full = pendingCount >= WAITING_RECORDS || pendingCharacters >= WAITING_CHARACTERS;
        if (full !== this.#full) {
            this.#full = full;
            this.#root.inert = full;
            this.#notices.banner.full(full);
        }
    }

    #windowsChanged(): void {
        this.#showNote();
        if (this.losses.list.losses.length > 0) {
            this.#notices.showLosses();
        }
    }

    #showNote(): void {
        const open = this.#store.windows.size > 0;
        this.#hadWindows ||= open;
        const emptiness = open ? 'windows' : this.#hadWindows ? 'closed' : 'waiting';
        showEmptyNote(this.#note, emptiness, () => this.link.startAfresh());
    }
}
