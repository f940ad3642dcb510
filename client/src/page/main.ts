import { askByRequest, browserClock, webSocketConnect } from '../gateway/webSocket.ts';
import { TabStorage } from '../store/TabStorage.ts';
import { Application } from './Application.ts';
import { showMissingToken } from './emptyNote.ts';
import { tokenOf } from './identity.ts';
import { Keep } from './Keep.ts';
import { styled } from './styled.ts';

const base = document.baseURI;
/** Behind a proxy other programs may have the same origin. */
const storage = new TabStorage(() => sessionStorage, new URL('.', base).pathname);

function start(root: HTMLElement, token: string): void {
    const application = new Application(root, token, {
        connect: webSocketConnect(base, token),
        askWhy: askByRequest(base, token),
        clock: browserClock,
        storage,
    });
    const keep = new Keep(storage);
    listen(application, keep);
    application.start(keep.take());
}

/** What the browser tells of the page and of the network. */
function listen(application: Application, keep: Keep): void {
    const put = (): boolean => {
        const state = application.state();
        return state === undefined || keep.put(state);
    };
    addEventListener('pagehide', (event) => {
        if (!put() && !event.persisted) {
            // Nothing can go on with the session; of what was not sent at least the user hears.
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
}

const TOKEN = 'token';

/**
 * The token of the address stays with the tab, for reloads, and leaves the address: it is not for
 * bookmarks, shared screens and copied addresses. Without a storage it has to stay.
 */
function takeToken(): string {
    const given = tokenOf(location.hash);
    if (given !== '' && storage.write(TOKEN, given)) {
        history.replaceState(history.state, '', location.pathname + location.search);
    }
    return given || storage.read(TOKEN);
}

const root = document.getElementById('desktop');
const token = takeToken();
addEventListener('hashchange', () => location.reload());
if (root !== null && token === '') {
    showMissingToken(root);
} else if (root !== null) {
    styled().then(() => start(root, token));
}
