import { html, nothing, type TemplateResult } from 'lit/html.js';
import { caption } from './field.ts';
import { canBePutBack, deed, holdsText, type Loss } from './Loss.ts';

/** So much of a long text is shown; it is copied and put back whole. */
const SHOWN_CHARACTERS = 2_000;

interface LossActions {
    readonly copy: (losses: readonly Loss[]) => void;
    readonly putBack: (loss: Loss) => void;
    readonly hasTarget: (loss: Loss) => boolean;
    readonly dismiss: () => void;
}

/** The list of what is lost, with what can be done about it. */
export function lossView(
    losses: readonly Loss[],
    isKept: boolean,
    notice: string,
    actions: LossActions,
): TemplateResult {
    const texts = losses.filter(holdsText);
    return html`<details class="losses-details" open>
            <summary id="losses-title">Not in the program: ${losses.length}</summary>
            <p>
                The session that you worked in is lost. This was not confirmed by the program, or
                it does not show it any more. Nothing of it is sent by itself.
            </p>
            <ul>
                ${losses.map((loss) => entry(loss, actions))}
            </ul>
            ${
                isKept
                    ? nothing
                    : html`<p>This list does not outlast a reload of the page: copy what you need.</p>`
            }
        </details>
        <p class="losses-notice" aria-live="polite">${notice}</p>
        <div class="losses-buttons">
            ${texts.length > 1 ? button('Copy all', '', () => actions.copy(losses)) : nothing}
            ${button('Dismiss', 'Puts this list away', actions.dismiss)}
        </div>`;
}

function entry(loss: Loss, actions: LossActions): TemplateResult {
    const name = caption(loss.field);
    const text =
        loss.value.length > SHOWN_CHARACTERS
            ? `${loss.value.slice(0, SHOWN_CHARACTERS)}… (${loss.value.length} characters)`
            : loss.value;
    const back = (): void => actions.putBack(loss);
    const canPutBack = canBePutBack(loss) && !loss.isBack && actions.hasTarget(loss);
    return html`<li>
        <div>
            <strong>${name}</strong> ${deed(loss)}${
                loss.confirmed ? ', received before, not shown any more' : nothing
            }${loss.isBack ? '; put back' : nothing}
        </div>
        ${holdsText(loss) && text !== '' ? html`<pre tabindex="0">${text}</pre>` : nothing}
        <div class="losses-buttons">
            ${
                holdsText(loss) && text !== ''
                    ? button('Copy', name, () => actions.copy([loss]))
                    : nothing
            }
            ${canPutBack ? button('Put back', name, back) : nothing}
        </div>
    </li>`;
}

/** Described by the field, not named: what looks for the field itself must not find its buttons. */
function button(text: string, of: string, press: () => void): TemplateResult {
    return html`<button type="button" class="button" aria-description=${of} @click=${press}>
        ${text}
    </button>`;
}
