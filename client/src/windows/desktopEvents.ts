import { asId } from '../protocol/guards.ts';
import type { Desktop } from './Desktop.ts';
import type { WindowFrame } from './WindowFrame.ts';

const TAKES_FOCUS = 'input, select, label, legend, .body button, .tool, .choices';

/** What the user does to windows, as opposed to what is in them. */
export function listenOnDesktop(desktop: Desktop, root: HTMLElement): void {
    root.addEventListener('focusin', (event) => {
        const frame = desktop.frameOf(event.target);
        const inside = frame?.body.contains(event.target as Node);
        const owner = (event.target as Element).closest<HTMLElement>('[data-id]');
        if (frame !== undefined) {
            desktop.stack.entered(frame, inside ? asId(owner?.dataset['id']) : undefined);
        }
    });
    root.addEventListener('mousedown', (event) => keepFocus(desktop, event));
    root.addEventListener('keydown', (event) => {
        const frame = desktop.frameOf(event.target);
        if (frame !== undefined) {
            pressed(desktop, frame, event);
        }
    });
    // An image has its width only now.
    const loaded = (event: Event): void => {
        const frame = desktop.frameOf(event.target);
        if (frame !== undefined) {
            desktop.contentsChanged(frame.object);
        }
    };
    root.addEventListener('load', loaded, true);
    // A browser may close a modal dialog on its own; only the program decides that.
    root.addEventListener('cancel', (event) => event.preventDefault(), true);
    root.addEventListener(
        'close',
        (event) => {
            const frame = desktop.frameOf(event.target);
            if (frame !== undefined && frame.element === event.target) {
                desktop.stack.show(frame);
            }
        },
        true,
    );
}

/** A click beside all controls brings the window up, and leaves the keyboard where it was in it. */
function keepFocus(desktop: Desktop, event: MouseEvent): void {
    const frame = desktop.frameOf(event.target);
    if (frame !== undefined && !(event.target as Element).closest(TAKES_FOCUS)) {
        event.preventDefault();
        desktop.stack.activate(frame);
    }
}

function pressed(desktop: Desktop, frame: WindowFrame, event: KeyboardEvent): void {
    if (event.key === 'Escape' && !event.isComposing) {
        escapePressed(desktop, frame, event);
    } else if (event.ctrlKey && !event.altKey && !event.metaKey) {
        zoom(desktop, frame, event);
    }
}

/** Escape puts away what was put in front of the work, not the work itself; a list comes first. */
function escapePressed(desktop: Desktop, frame: WindowFrame, event: KeyboardEvent): void {
    event.preventDefault();
    if ((event.target as Element).getAttribute('aria-expanded') === 'true') {
        return;
    }
    if (frame.modal || frame.object.values.transient) {
        desktop.closeRequested(frame);
    }
}

function zoom(desktop: Desktop, frame: WindowFrame, event: KeyboardEvent): void {
    const larger = event.key === '=' || event.key === '+';
    if (larger || event.key === '-') {
        event.preventDefault();
        desktop.zoom(frame, larger);
    } else if (event.key === '0') {
        event.preventDefault();
        frame.setZoom(1);
        desktop.placed(frame, true);
    }
}
