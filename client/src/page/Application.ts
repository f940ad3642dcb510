import {
    clientChannel,
    modelChannel,
    rootChannel,
    windowChannel,
    type Channel,
} from '../gateway/channel.ts';
import { Link, type LinkListener, type LinkStatus } from '../gateway/Link.ts';
import { Session } from '../gateway/Session.ts';
import type { Clock, Connect } from '../gateway/transport.ts';
import { decodeWindow } from '../protocol/description.ts';
import { fontSizeStep } from '../protocol/events.ts';
import { asIntegers, asText, type JsonObject } from '../protocol/guards.ts';
import { clientReady, dialogDestroyed, dialogReady } from '../protocol/lifecycle.ts';
import type { MessageBox } from '../protocol/messagebox.ts';
import { snapshotRequest } from '../protocol/modelMessage.ts';
import { ObjectStore } from '../store/ObjectStore.ts';
import { describe } from '../store/snapshot.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { EditTexts } from '../widgets/edit/EditTexts.ts';
import { listen } from '../widgets/events.ts';
import { PageSizes } from '../widgets/tabs/PageSizes.ts';
import { TabPositions } from '../widgets/tabs/TabPositions.ts';
import { Buddies } from '../widgets/text/Buddies.ts';
import { Renderer } from '../widgets/Renderer.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import { Desktop, type DesktopListener } from '../windows/Desktop.ts';
import { MessageBoxes } from '../windows/MessageBoxes.ts';
import { Banner } from './Banner.ts';
import { CompositionGate } from './CompositionGate.ts';
import { showEmptyNote } from './emptyNote.ts';
import { imageAddress, isClientId, makeClientId } from './identity.ts';
import { Inbox, type InboxListener } from './Inbox.ts';
import { PageObserver } from './PageObserver.ts';

/** What waits for a connection is bounded; before the bound is passed the page stops taking more. */
const WAITING_RECORDS = 10_000;
const WAITING_CHARACTERS = 4_000_000;
/** A socket does not say why it was refused: after so many attempts the page asks by other means. */
const FAILURES_BEFORE_DOUBT = 3;
/** The gateway takes frames of up to 1 MiB. */
const LONGEST_TEXT = 1_000_000;

const UNAUTHORIZED = 401;

/** The page as a whole: what comes from the program goes into the store, what is done goes up. */
export class Application implements LinkListener, InboxListener, WidgetHost, DesktopListener {
    readonly edits = new EditTexts();
    readonly buddies = new Buddies((id) => this.m_renderer.control(id));
    readonly tabs = new TabPositions();
    readonly pageSizes = new PageSizes();
    readonly link: Link;
    private readonly m_token: string;
    private readonly m_root: HTMLElement;
    private readonly m_note = document.createElement('div');
    private readonly m_store: ObjectStore;
    private readonly m_inbox: Inbox;
    private readonly m_renderer: Renderer;
    private readonly m_desktop: Desktop;
    private readonly m_boxes: MessageBoxes;
    private readonly m_banner = new Banner(() => this.link.startAfresh());
    private readonly m_observer: PageObserver;
    private readonly m_gate: CompositionGate;
    private m_hadWindows = false;
    private m_full = false;
    private m_failures = 0;

    constructor(root: HTMLElement, token: string, connect: Connect, clock: Clock) {
        this.m_root = root;
        this.m_token = token;
        const newId = (): string => makeClientId((bytes) => crypto.getRandomValues(bytes));
        this.link = new Link({ connect, clock, listener: this, makeClientId: newId });
        this.m_observer = new PageObserver();
        this.m_store = new ObjectStore(this.m_observer);
        this.m_inbox = new Inbox(this.m_store, this);
        this.m_renderer = new Renderer(this.m_store, this);
        this.m_note.className = 'note';
        root.append(this.m_note);
        this.m_desktop = new Desktop(root, this.m_renderer, this, clock, this);
        this.m_observer.connect(this.m_renderer, this.m_desktop, () => this.showNote());
        this.m_boxes = new MessageBoxes(root, () => this.topChanged());
        listen(root, this.m_store, this);
        this.m_gate = new CompositionGate(root, (channel, text) => {
            this.m_inbox.received(channel, text);
            this.m_store.flush();
        });
        this.topChanged();
    }

    // What the link tells.

    began(): void {
        this.m_gate.drop();
        this.m_store.clear();
        this.m_boxes.closeAll();
        this.announce();
        this.m_inbox.model.begin();
    }

    received(channel: Channel, text: string): void {
        if (!this.m_gate.holds(channel, text)) {
            this.m_inbox.received(channel, text);
        }
    }

    settled(): void {
        this.m_store.flush();
        this.checkQueue();
    }

    status(status: LinkStatus, reason: string): void {
        this.m_banner.status(status, reason);
        this.m_failures = status === 'lost' || status === 'ended' ? this.m_failures + 1 : 0;
        if (this.m_failures === FAILURES_BEFORE_DOUBT) {
            void this.checkAddress();
        }
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

    send(object: StoredObject, message: string): void {
        if (message.length * 3 > LONGEST_TEXT && utf8Length(message) > LONGEST_TEXT) {
            this.m_banner.tooLong();
            return;
        }
        this.link.send(windowChannel(object.windowId), message);
        this.checkQueue();
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

    /** Everything outside an open modal dialog is out of reach, so the banner goes where one can. */
    topChanged(): void {
        const modal = this.m_boxes?.topModal ?? this.m_desktop?.stack.topModal?.element;
        const host = modal ?? document.body;
        if (this.m_banner.element.parentNode !== host) {
            host.append(this.m_banner.element);
        }
    }

    // Over a reload.

    /** Undefined when there is nothing that a reload could go on with. */
    state(): JsonObject | undefined {
        this.m_gate.open();
        return this.link.resumable
            ? {
                  token: this.m_token,
                  clientId: this.link.clientId,
                  session: this.link.session.store(),
                  windows: [...this.m_store.windows.values()].map(describe),
                  desktop: this.m_desktop.store(),
                  edits: this.edits.store(),
                  tabs: this.tabs.store(),
                  elements: [...this.m_inbox.model.objects],
                  boxes: this.m_boxes.store(),
                  focus: this.m_renderer.focus.store(this.m_root),
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
            this.m_inbox.model.begin(asIntegers(stored['elements']));
        } else {
            this.link.start();
        }
        this.showNote();
    }

    private showStored(stored: JsonObject): void {
        const windows = Array.isArray(stored['windows']) ? (stored['windows'] as unknown[]) : [];
        this.edits.restore(stored['edits']);
        this.tabs.restore(stored['tabs']);
        this.m_observer.quietly(() => {
            for (const window of windows) {
                const description = decodeWindow(window);
                if (description !== undefined) {
                    this.m_store.open(description);
                }
            }
        });
        this.m_hadWindows = this.m_store.windows.size > 0;
        this.m_desktop.restore(this.m_store.windows, stored['desktop']);
        this.m_boxes.restore(stored['boxes']);
        this.m_renderer.focus.takeUp(stored['focus']);
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
            this.m_banner.full(full);
        }
    }

    /** A program that was started again has another token: trying on would never succeed. */
    private async checkAddress(): Promise<void> {
        const response = await fetch(imageAddress('none.png', this.m_token) ?? '').catch(
            () => null,
        );
        if (response?.status === UNAUTHORIZED) {
            this.m_banner.outdated();
        } else {
            this.m_failures = 0;
        }
    }

    private showNote(): void {
        const open = this.m_store.windows.size > 0;
        this.m_hadWindows ||= open;
        const emptiness = open ? 'windows' : this.m_hadWindows ? 'closed' : 'waiting';
        showEmptyNote(this.m_note, emptiness, () => this.link.startAfresh());
    }
}

function utf8Length(text: string): number {
    return new TextEncoder().encode(text).length;
}
