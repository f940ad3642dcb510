import { type Channel, modelChannel } from '../gateway/channel.ts';
import type { FrameRecord } from '../gateway/frame.ts';
import { Link } from '../gateway/Link.ts';
import type { LinkListener, LinkStatus } from '../gateway/LinkListener.ts';
import { Session } from '../gateway/Session.ts';
import { actionsIn } from '../losses/action.ts';
import { Losses } from '../losses/Losses.ts';
import { fontSizeStep } from '../protocol/events.ts';
import { asText, type JsonObject } from '../protocol/guards.ts';
import { dialogReady } from '../protocol/lifecycle.ts';
import type { MessageBox } from '../protocol/messagebox.ts';
import { snapshotRequest } from '../protocol/modelMessage.ts';
import { ObjectStore } from '../store/ObjectStore.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { listen } from '../widgets/events.ts';
import { Renderer } from '../widgets/Renderer.ts';
import { Desktop } from '../windows/Desktop.ts';
import { MessageBoxes } from '../windows/MessageBoxes.ts';
import { Press } from '../windows/Press.ts';
import { showEmptyNote } from './emptyNote.ts';
import { Gate } from './Gate.ts';
import { Inbox, type InboxListener } from './Inbox.ts';
import { Intake } from './Intake.ts';
import { isClientId, makeClientId } from './identity.ts';
import { Notices } from './Notices.ts';
import { Outbox } from './Outbox.ts';
import { PageObserver } from './PageObserver.ts';
import { PageWidgets } from './PageWidgets.ts';
import type { Surroundings } from './Surroundings.ts';

const WAITING = 'What you did is handled when it answers.';

/** The page as a whole: what comes from the program goes into the store, what is done goes up. */
export class Application implements LinkListener, InboxListener {
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
    readonly #widgets: PageWidgets;
    readonly #desktop: Desktop;
    readonly #boxes: MessageBoxes;
    readonly #notices: Notices;
    readonly #outbox: Outbox;
    readonly #observer = new PageObserver();
    readonly #gate: Gate;
    readonly #intake: Intake;
    #hadWindows = false;

    /** In the order of their needs; nothing is called before `start`. */
    constructor(root: HTMLElement, token: string, surroundings: Surroundings) {
        const { connect, askWhy, clock, storage } = surroundings;
        this.#root = root;
        this.#token = token;
        const newId = (): string => makeClientId((bytes) => crypto.getRandomValues(bytes));
        const control = (id: number): HTMLElement | undefined => this.#renderer.control(id);
        this.link = new Link({ connect, askWhy, clock, listener: this, makeClientId: newId });
        this.#store = new ObjectStore(this.#observer);
        this.#inbox = new Inbox(this.#store, this);
        this.losses = new Losses({
            store: this.#store,
            control,
            clock,
            storage,
            changed: () => this.#notices.showLosses(),
        });
        this.#notices = new Notices(
            this.losses,
            () => this.link.startAfresh(),
            () => this.link.retryNow(),
        );
        this.#outbox = new Outbox(this.link, this.#store, this.losses, this.#notices.banner, root);
        this.#widgets = new PageWidgets(this.#outbox, () => this.#desktop, control);
        this.#renderer = new Renderer(this.#store, this.#widgets);
        this.#note.className = 'note';
        root.append(this.#note);
        const press = new Press(root, clock);
        const topChanged = (): void => this.#topChanged();
        this.#boxes = new MessageBoxes(root, topChanged);
        this.#desktop = new Desktop(root, this.#renderer, this.#widgets, clock, press, {
            closeRequested: (window) => this.#outbox.askToClose(window),
            zoomed: (window, larger) => this.#outbox.send(window, fontSizeStep(window.id, larger)),
            topChanged,
        });
        this.#observer.connect(this.#renderer, this.#desktop, () => this.#windowsChanged());
        listen(root, this.#store, this.#widgets);
        const settled = (): void => this.settled();
        const take = this.#inbox.received.bind(this.#inbox);
        this.#intake = new Intake(press, take, settled);
        const receive = this.#intake.receive.bind(this.#intake);
        this.#gate = new Gate(root, press, receive, settled);
    }

    // What the link tells.

    over(records: readonly FrameRecord[], brokeOff: boolean): void {
        if (this.losses.over(records, brokeOff)) {
            this.#notices.sessionLost();
        }
    }

    began(): void {
        this.#closeAll();
        this.#outbox.announce();
        this.#inbox.model.begin();
    }

    received(channel: Channel, text: string): void {
        const { known } = this.link.session;
        if (!this.#gate.holds(channel, text, known)) {
            this.#intake.receive(channel, text, known);
        }
    }

    settled(): void {
        if (this.#intake.isBusy) {
            return;
        }
        this.#store.flush();
        this.losses.windowsShown();
        this.#outbox.check();
    }

    status(status: LinkStatus, reason: string): void {
        const isWaiting = status === 'slow' && actionsIn(this.link.session.pending).length > 0;
        this.#notices.status(status, isWaiting ? WAITING : reason);
        this.#outbox.check();
    }

    // What the program tells.

    pinged(): void {
        this.#outbox.announce();
    }

    described(window: StoredObject): void {
        this.#outbox.send(window, dialogReady(window.id));
    }

    told(windowId: number, box: MessageBox): void {
        this.#boxes.show(windowId, box);
    }

    modelNeeded(): void {
        this.link.send(modelChannel, snapshotRequest(this.link.clientId));
    }

    #topChanged(): void {
        const modal = this.#boxes.topModal ?? this.#desktop.stack.topModal?.element;
        this.#notices.standIn(modal ?? document.body);
    }

    // Over a reload.

    /** Undefined when there is nothing that a reload could go on with. */
    state(): JsonObject | undefined {
        this.#gate.open();
        this.#intake.finish();
        if (!this.link.resumable) {
            this.losses.unconfirmed(this.link.session.takePending());
        }
        return this.link.resumable
            ? {
                  token: this.#token,
                  clientId: this.link.clientId,
                  session: this.link.session.store(),
                  desktop: this.#desktop.store(),
                  edits: this.#widgets.edits.store(),
                  tabs: this.#widgets.tabs.store(),
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
        this.#topChanged();
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
        this.#intake.drop();
        this.#store.clear();
        this.#boxes.closeAll();
    }

    #showStored(stored: JsonObject): void {
        this.#widgets.edits.restore(stored['edits']);
        this.#widgets.tabs.restore(stored['tabs']);
        this.#observer.quietly(() => this.#inbox.restore(stored));
        this.#hadWindows = this.#store.windows.size > 0;
        this.#desktop.restore(this.#store.windows, stored['desktop']);
        this.#boxes.restore(stored['boxes']);
        this.#renderer.focus.takeUp(stored['focus']);
        this.losses.restore(stored['given']);
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
