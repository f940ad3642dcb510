import { html, render } from 'lit/html.js';
import { asFlag, asId, asText, isObject } from '../protocol/guards.ts';
import { decodeMessageBox, type Level, type MessageBox } from '../protocol/messagebox.ts';

const signs: Readonly<Record<Level, string>> = {
    information: 'i',
    warning: '!',
    error: '×',
    question: '?',
};

interface OpenBox {
    readonly windowId: number;
    readonly box: MessageBox;
    readonly element: HTMLDialogElement;
    /** Where the keyboard was before. */
    readonly before: Element | null;
}

/** What the program has to tell, each in a small dialog of its own until the user has read it. */
export class MessageBoxes {
    #open: OpenBox[] = [];
    #count = 0;
    readonly #root: HTMLElement;
    readonly #topChanged: () => void;

    constructor(root: HTMLElement, topChanged: () => void) {
        this.#root = root;
        this.#topChanged = topChanged;
    }

    get topModal(): HTMLDialogElement | undefined {
        return this.#open.findLast((open) => open.element.matches(':modal'))?.element;
    }

    show(windowId: number, box: MessageBox): void {
        const element = document.createElement('dialog');
        const open: OpenBox = { windowId, box, element, before: document.activeElement };
        element.className = 'messagebox';
        element.dataset['level'] = box.level;
        element.setAttribute('role', 'alertdialog');
        element.setAttribute('aria-label', box.title || box.level);
        this.#count += 1;
        const text = `message-${this.#count}`;
        element.setAttribute('aria-describedby', text);
        element.addEventListener('keydown', (event) => {
            if (event.key === 'Escape') {
                event.preventDefault();
                this.#close(open);
            }
        });
        element.addEventListener('close', () => this.#close(open));
        render(
            contents(box, text, () => this.#close(open)),
            element,
        );
        this.#open.push(open);
        this.#root.append(element);
        // Below an open modal window nobody could read it or put it away.
        if (box.modal || document.querySelector(':modal') !== null) {
            element.showModal();
        } else {
            element.show();
        }
        element.querySelector('button')?.focus();
        this.#topChanged();
    }

    closeAll(): void {
        [...this.#open].forEach((open) => this.#close(open));
    }

    store(): unknown {
        return this.#open.map(({ windowId, box }) => ({ ...box, windowId }));
    }

    restore(stored: unknown): void {
        for (const box of Array.isArray(stored) ? (stored as unknown[]) : []) {
            if (isObject(box) && asText(box['body']) !== undefined) {
                const modal = asFlag(box['modal']) ?? false;
                this.show(asId(box['windowId']) ?? 0, { ...decodeMessageBox(box), modal });
            }
        }
    }

    #close(open: OpenBox): void {
        if (!this.#open.includes(open)) {
            return;
        }
        this.#open = this.#open.filter((other) => other !== open);
        const hadFocus = open.element.contains(document.activeElement);
        open.element.close();
        open.element.remove();
        if (hadFocus && open.before instanceof HTMLElement && open.before.isConnected) {
            open.before.focus({ preventScroll: true });
        }
        this.#topChanged();
    }
}

function contents(box: MessageBox, text: string, close: () => void): unknown {
    return html`<h1 class="messagebox-title">${box.title}</h1>
        <div class="messagebox-body">
            <span class="sign" aria-hidden="true">${signs[box.level]}</span>
            <p id=${text}>${box.body}</p>
        </div>
        <div class="messagebox-buttons">
            <button type="button" class="button" data-default @click=${close}>OK</button>
        </div>`;
}
