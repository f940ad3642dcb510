import { askByRequest, browserClock, webSocketConnect } from '../gateway/webSocket.ts';
import { Application } from './Application.ts';
import { showMissingToken } from './emptyNote.ts';
import { tokenOf } from './identity.ts';
import { Keep } from './Keep.ts';

function tabStorage(): Storage | undefined {
    try {
        return sessionStorage;
    } catch {
        return undefined;
    }
}

function start(root: HTMLElement, token: string): void {
    const storage = tabStorage();
    const keep = new Keep(storage);
    const application = new Application(root, token, {
        connect: webSocketConnect(location, token),
        askWhy: askByRequest(location, token),
        clock: browserClock,
        storage,
    });
    const put = (): boolean => {
        const state = application.state();
        return state === undefined || keep.put(state);
    };
    addEventListener('pagehide', (event) => {
        if (!put() && !event.persisted) {
            // Nothing can go on with the session; of what was not sent at least the person hears.
            application.losses.unconfirmed(application.link.session.pending);
        }
    });
    const retry = (): void => application.link.retryNow();
    addEventListener('pageshow', (event) => {
        keep.clear();
        if (event.persisted) {
            retry();
        }
    });
    addEventListener('online', retry);
    addEventListener('offline', retry);
    document.addEventListener('resume', retry);
    document.addEventListener('visibilitychange', () => {
        const hidden = document.visibilityState === 'hidden';
        // The browser may throw the page away without another word.
        application.aboutToSend = hidden ? put : undefined;
        if (hidden) {
            put();
        } else {
            keep.clear();
            retry();
        }
    });
    application.start(keep.take());
}

const TOKEN = 'dova.token';

/**
 * The token of the address stays with the tab, for reloads, and leaves the address: it is not for
 * bookmarks, shared screens and copied addresses. Without a storage it has to stay.
 */
function takeToken(): string {
    const given = tokenOf(location.hash);
    try {
        if (given === '') {
            return sessionStorage.getItem(TOKEN) ?? '';
        }
        sessionStorage.setItem(TOKEN, given);
        history.replaceState(history.state, '', location.pathname + location.search);
    } catch {
        // The browser keeps nothing for this page.
    }
    return given;
}

const root = document.getElementById('desktop');
const token = takeToken();
addEventListener('hashchange', () => location.reload());
if (root !== null && token === '') {
    showMissingToken(root);
} else if (root !== null) {
    start(root, token);
}
