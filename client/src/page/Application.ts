import {
    clientChannel,
    modelChannel,
    rootChannel,
    windowChannel,
    type Channel,
} from '../gateway/channel.ts';
import { Link } from '../gateway/Link.ts';
import type { LinkListener, LinkStatus } from '../gateway/LinkListener.ts';
import { Session } from '../gateway/Session.ts';
import { fitsIntoFrame, type FrameRecord } from '../gateway/frame.ts';
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
import { PageSizes } from '../widgets/tabs/PageSizes.ts';
import { TabPositions } from '../widgets/tabs/TabPositions.ts';
import { Buddies } from '../widgets/text/Buddies.ts';
import { Renderer } from '../widgets/Renderer.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import { Desktop, type DesktopListener } from '../windows/Desktop.ts';
import { MessageBoxes } from '../windows/MessageBoxes.ts';
import { Press } from '../windows/Press.ts';
import { showEmptyNote } from './emptyNote.ts';
import { Gate } from './Gate.ts';
import { imageAddress, isClientId, makeClientId } from './identity.ts';
import { Inbox, type InboxListener } from './Inbox.ts';
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
    readonly buddies = new Buddies((id) => this.m_renderer.control(id));
    readonly tabs = new TabPositions();
    readonly pageSizes = new PageSizes();
    readonly link: Link;
    readonly losses: Losses;
    /** Set while there is reason to keep what is shown before anything is sent. */
    aboutToSend: (() => void) | undefined;
    private readonly m_token: string;
    private readonly m_root: HTMLElement;
    private readonly m_note = document.createElement('div');
    private readonly m_store: ObjectStore;
    private readonly m_inbox: Inbox;
    private readonly m_renderer: Renderer;
    private readonly m_desktop: Desktop;
    private readonly m_boxes: MessageBoxes;
    private readonly m_notices: Notices;
    private readonly m_observer: PageObserver;
    private readonly m_gate: Gate;
    private m_hadWindows = false;
    private m_full = false;

    constructor(root: HTMLElement, token: string, surroundings: Surroundings) {
        const { connect, askWhy, clock, storage } = surroundings;
        this.m_root = root;
        this.m_token = token;
        const newId = (): string => makeClientId((bytes) => crypto.getRandomValues(bytes));
        this.link = new Link({ connect, askWhy, clock, listener: this, makeClientId: newId });
        this.m_observer = new PageObserver();
        this.m_store = new ObjectStore(this.m_observer);
        this.m_inbox = new Inbox(this.m_store, this);
        this.m_renderer = new Renderer(this.m_store, this);
        this.losses = new Losses({
            store: this.m_store,
            control: (id) => this.m_renderer.control(id),
            clock,
            storage,
            changed: () => this.m_notices.showLosses(),
        });
        this.m_notices = new Notices(
            this.losses,
            () => this.link.startAfresh(),
            () => this.link.retryNow(),
        );
        this.m_note.className = 'note';
        root.append(this.m_note);
        const press = new Press(root, clock);
        this.m_desktop = new Desktop(root, this.m_renderer, this, clock, press, this);
        this.m_observer.connect(this.m_renderer, this.m_desktop, () => this.windowsChanged());
        this.m_boxes = new MessageBoxes(root, () => this.topChanged());
        listen(root, this.m_store, this);
        const take = this.m_inbox.received.bind(this.m_inbox);
        this.m_gate = new Gate(root, press, take, () => this.settled());
        this.topChanged();
    }

    // What the link tells.

    over(records: readonly FrameRecord[], brokeOff: boolean): void {
        if (this.losses.over(records, brokeOff)) {
            this.m_notices.sessionLost();
        }
    }

    began(): void {
        this.closeAll();
        this.announce();
        this.m_inbox.model.begin();
    }

    received(channel: Channel, text: string): void {
        const { known } = this.link.session;
        if (!this.m_gate.holds(channel, text, known)) {
            this.m_inbox.received(channel, text, known);
        }
    }

    settled(): void {
        this.m_store.flush();
        this.losses.windowsShown();
        this.checkQueue();
    }

    status(status: LinkStatus, reason: string): void {
        const isWaiting = status === 'slow' && actionsIn(this.link.session.pending).length > 0;
        this.m_notices.status(status, isWaiting ? WAITING : reason);
        this.checkQueue();
    }

    // What the program tells.

    pinged(): void {
        this.announce();
    }

    described(window: StoredObject): void {
        this.send(window, dialogReady(window.id));
    }

    told(windowId: number, box: MessageBox): void {
        this.m_boxes.show(windowId, box);
    }

    modelNeeded(): void {
        this.link.send(modelChannel, snapshotRequest(this.link.clientId));
    }

    // What widgets and windows ask for.

    send(object: StoredObject, message: string): number | undefined {
        if (!fitsIntoFrame(message)) {
            this.m_notices.banner.tooLong();
            return undefined;
        }
        this.losses.sent(object, message);
        const record = this.link.send(windowChannel(object.windowId), message);
        this.checkQueue();
        return record;
    }

    tell(object: StoredObject, message: string, values: PartialValues, isMade = false): void {
        const record = this.send(object, message);
        if (record !== undefined) {
            this.m_store.own.put(object.id, values, object.values, record, isMade);
        }
        Object.assign(object.values, values);
    }

    contentsChanged(object: StoredObject): void {
        this.m_desktop.contentsChanged(object);
    }

    pressDefault(object: StoredObject): void {
        const body = this.m_desktop.windows.find(
            (window) => window.object.id === object.windowId,
        )?.body;
        const buttons = body?.querySelectorAll<HTMLButtonElement>('[data-default]:enabled') ?? [];
        [...buttons].find((button) => button.checkVisibility())?.click();
    }

    imageAddress(path: string): string | undefined {
        return imageAddress(path, this.m_token);
    }

    closeRequested(window: StoredObject): void {
        this.link.send(clientChannel, dialogDestroyed(window.id));
    }

    zoomed(window: StoredObject, larger: boolean): void {
        this.send(window, fontSizeStep(window.id, larger));
    }

    topChanged(): void {
        const modal = this.m_boxes?.topModal ?? this.m_desktop?.stack.topModal?.element;
        this.m_notices.standIn(modal ?? document.body);
    }

    // Over a reload.

    /** Undefined when there is nothing that a reload could go on with. */
    state(): JsonObject | undefined {
        this.m_gate.open();
        if (!this.link.resumable) {
            this.losses.unconfirmed(this.link.takeUnconfirmed());
        }
        return this.link.resumable
            ? {
                  token: this.m_token,
                  clientId: this.link.clientId,
                  session: this.link.session.store(),
                  desktop: this.m_desktop.store(),
                  edits: this.edits.store(),
                  tabs: this.tabs.store(),
                  ...this.m_inbox.store(),
                  boxes: this.m_boxes.store(),
                  focus: this.m_renderer.focus.store(this.m_root),
                  given: this.losses.store(),
              }
            : undefined;
    }

    start(stored: JsonObject | undefined): void {
        const session = Session.restore(stored?.['session']);
        const clientId = asText(stored?.['clientId']) ?? '';
        const mine = stored?.['token'] === this.m_token && isClientId(clientId);
        if (stored !== undefined && session !== undefined && mine) {
            this.link.resume(clientId, session);
            this.showStored(stored);
            this.m_inbox.goOn(stored);
        } else {
            this.leave(stored, session);
            this.link.start();
        }
        this.m_notices.showLosses();
        this.showNote();
    }

    /** What was kept belongs to another program, or cannot be gone on with. */
    private leave(stored: JsonObject | undefined, session: Session | undefined): void {
        if (stored !== undefined && session !== undefined) {
            this.showStored(stored);
            this.over(session.pending, true);
            this.closeAll();
            this.m_hadWindows = false;
        }
    }

    private closeAll(): void {
        this.m_gate.drop();
        this.m_store.clear();
        this.m_boxes.closeAll();
    }

    private showStored(stored: JsonObject): void {
        this.edits.restore(stored['edits']);
        this.tabs.restore(stored['tabs']);
        this.m_observer.quietly(() => this.m_inbox.restore(stored));
        this.m_hadWindows = this.m_store.windows.size > 0;
        this.m_desktop.restore(this.m_store.windows, stored['desktop']);
        this.m_boxes.restore(stored['boxes']);
        this.m_renderer.focus.takeUp(stored['focus']);
        this.losses.restore(stored['given']);
    }

    private announce(): void {
        this.link.send(rootChannel, clientReady(this.link.clientId));
    }

    private checkQueue(): void {
        const { pendingCount, pendingCharacters } = this.link.session;
        const full = pendingCount >= WAITING_RECORDS || pendingCharacters >= WAITING_CHARACTERS;
        if (full !== this.m_full) {
            this.m_full = full;
            this.m_root.inert = full;
            this.m_notices.banner.full(full);
        }
    }

    private windowsChanged(): void {
        this.showNote();
        if (this.losses.list.losses.length > 0) {
            this.m_notices.showLosses();
        }
    }

    private showNote(): void {
        const open = this.m_store.windows.size > 0;
        this.m_hadWindows ||= open;
        const emptiness = open ? 'windows' : this.m_hadWindows ? 'closed' : 'waiting';
        showEmptyNote(this.m_note, emptiness, () => this.link.startAfresh());
    }
}
