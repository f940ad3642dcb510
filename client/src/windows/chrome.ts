import { html, nothing, svg, type TemplateResult } from 'lit/html.js';

/** What the frame around a window shows and what its buttons do. */
interface Chrome {
    readonly title: string;
    readonly iconAddress: string | undefined;
    readonly maximized: boolean;
    readonly canMinimize: boolean;
    readonly minimize: () => void;
    readonly toggleMaximize: () => void;
    readonly close: () => void;
}

const glyphs = {
    minimize: svg`<path d="M3 8.5h10" />`,
    maximize: svg`<rect x="3.5" y="3.5" width="9" height="9" rx="1" />`,
    restore: svg`<path d="M5.5 5.5v-2h7v7h-2M3.5 5.5h7v7h-7z" />`,
    close: svg`<path d="M4 4l8 8M12 4l-8 8" />`,
};

function tool(name: string, glyph: TemplateResult<2>, press: () => void): TemplateResult {
    return html`<button type="button" class="tool" aria-label=${name} title=${name} @click=${press}>
        <svg viewBox="0 0 16 16" aria-hidden="true">${glyph}</svg>
    </button>`;
}

function hideBroken(event: Event): void {
    (event.target as HTMLElement).hidden = true;
}

function showLoaded(event: Event): void {
    (event.target as HTMLElement).hidden = false;
}

/** The body comes last and is filled by the renderer: nothing in here touches its contents. */
export function chrome(window: Chrome): TemplateResult {
    const hint = 'Arrow keys move the window, Shift and arrow keys resize it';
    return html`<header class="bar">
            ${
                window.iconAddress === undefined
                    ? nothing
                    : html`<img
                      class="window-icon"
                      alt=""
                      src=${window.iconAddress}
                      @error=${hideBroken}
                      @load=${showLoaded}
                  />`
            }
            <button type="button" class="grip" aria-description=${hint}>${window.title}</button>
            ${window.canMinimize ? tool('Minimize', glyphs.minimize, window.minimize) : nothing}
            ${
                window.maximized
                    ? tool('Restore', glyphs.restore, window.toggleMaximize)
                    : tool('Maximize', glyphs.maximize, window.toggleMaximize)
            }
            ${tool('Close', glyphs.close, window.close)}
        </header>
        <fieldset class="body" role="none"></fieldset>`;
}
