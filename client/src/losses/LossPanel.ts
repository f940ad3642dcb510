import { nothing, render } from 'lit/html.js';
import { asPlainText, type Loss } from './Loss.ts';
import type { Losses } from './Losses.ts';
import { lossView } from './lossView.ts';

/** Shows what was lost until the user has put it away. */
export class LossPanel {
    readonly element = document.createElement('section');
    readonly #losses: Losses;
    readonly #placed: () => void;
    #notice = '';

    /** `placed` is called when the panel has another size. */
    constructor(losses: Losses, placed: () => void) {
        this.#losses = losses;
        this.#placed = placed;
        this.element.className = 'losses';
        this.element.setAttribute('aria-labelledby', 'losses-title');
        this.element.addEventListener('toggle', placed, true);
    }

    show(): void {
        const { losses, isKept } = this.#losses.list;
        this.element.hidden = losses.length === 0;
        const view = lossView(losses, isKept, this.#notice, {
            copy: (which) => void this.#copy(which),
            putBack: (loss) => this.#putBack(loss),
            hasTarget: (loss) => this.#losses.target(loss) !== undefined,
            dismiss: () => this.#losses.clear(),
        });
        render(losses.length === 0 ? nothing : view, this.element);
        this.#placed();
    }

    #putBack(loss: Loss): void {
        const isDone = this.#losses.putBack(loss);
        this.#say(isDone ? '' : 'This field cannot be used now: bring it to the front first.');
    }

    async #copy(which: readonly Loss[]): Promise<void> {
        const [only] = which;
        const text = which.length === 1 && only ? only.value : asPlainText(which);
        this.#say(
            (await copyText(text, this.element)) ? 'Copied.' : 'Copying is not allowed here.',
        );
    }

    #say(notice: string): void {
        this.#notice = notice;
        this.show();
    }
}

/** Pages that came without encryption from elsewhere have no clipboard but the selection's. */
async function copyText(text: string, beside: HTMLElement): Promise<boolean> {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        const before = document.activeElement;
        const field = document.createElement('textarea');
        field.value = text;
        beside.append(field);
        field.select();
        const isCopied = document.execCommand('copy');
        field.remove();
        (before as HTMLElement | null)?.focus();
        return isCopied;
    }
}
