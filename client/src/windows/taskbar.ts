import { html, nothing, type TemplateResult } from 'lit/html.js';
import type { WindowFrame } from './WindowFrame.ts';

/** The minimized windows, each a button that brings it back. */
export function taskbar(
    minimized: readonly WindowFrame[],
    restore: (window: WindowFrame) => void,
): TemplateResult | typeof nothing {
    if (minimized.length === 0) {
        return nothing;
    }
    return html`<nav class="taskbar" aria-label="Minimized windows">
        ${minimized.map(
            (window) =>
                html`<button type="button" class="button" @click=${() => restore(window)}>
                    ${window.object.values.title || 'Window'}
                </button>`,
        )}
    </nav>`;
}
