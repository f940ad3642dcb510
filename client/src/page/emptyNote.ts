import { html, nothing, render } from 'lit/html.js';

type Emptiness = 'windows' | 'waiting' | 'closed';

/** What stands on a desktop without windows. */
export function showEmptyNote(into: HTMLElement, emptiness: Emptiness, again: () => void): void {
    const waiting = html`<p>The program has not opened a dialog yet.</p>`;
    const closed = html`<p>All dialogs are closed.</p>
        <button type="button" class="button" @click=${again}>Start again</button>`;
    const note = { windows: nothing, waiting, closed }[emptiness];
    render(note, into);
}

export function showMissingToken(into: HTMLElement): void {
    render(
        html`<div class="note">
            <p>This address is not complete.</p>
            <p>Please open the address that the program printed, with all that follows the #.</p>
        </div>`,
        into,
    );
}
