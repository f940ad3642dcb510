import type { Name, Trigger, Values } from '../protocol/values.ts';
import { enableContents, maximum } from '../widgets/base.ts';
import { panel } from '../widgets/panel/panel.ts';
import type { WidgetHost } from '../widgets/WidgetKind.ts';
import { PAGE_MARGIN } from './placement.ts';
import type { Stack } from './Stack.ts';
import type { WindowFrame } from './WindowFrame.ts';

/** What a window does for the desktop that only the desktop can do. */
export interface WindowActions {
    readonly stack: Stack;
    showModality(window: WindowFrame): void;
    showVisible(window: WindowFrame): void;
    showAgain(window: WindowFrame): void;
}

type WindowAppliers = {
    readonly [N in Name]?: (
        window: WindowFrame,
        value: Values[N],
        actions: WindowActions,
        host: WidgetHost,
    ) => void;
};

/** The contents of a window are those of a panel: what concerns them goes to its body. */
function toBody<N extends Name>(name: N) {
    return (window: WindowFrame, value: Values[N], _: WindowActions, host: WidgetHost): void => {
        panel.appliers[name]?.(window.body, value, window.object, host);
    };
}

/** Nothing makes a window larger than what it gets when it is first shown. */
function atLeast(window: WindowFrame, side: 'minWidth' | 'minHeight', length: number): void {
    const page = side === 'minWidth' ? '100vw' : '100vh';
    window.element.style[side] = `min(${length}px, ${page} - ${PAGE_MARGIN}px)`;
}

function atMost(window: WindowFrame, side: 'maxWidth' | 'maxHeight', length: number): void {
    window.element.style[side] = maximum(length);
}

/** What a write of each property does to a window. */
const appliers: WindowAppliers = {
    title: (window) => window.showChrome(),
    windowicon: (window) => window.showChrome(),
    transient: (window) => window.showChrome(),
    modal: (window, _modal, actions) => actions.showModality(window),
    visible: (window, _visible, actions) => actions.showVisible(window),
    enable: (window, enabled) => enableContents(window.body, enabled),
    tooltip: (window, tooltip) => (window.body.title = tooltip),
    scrollable: (window, scrollable) => window.body.classList.toggle('scrollable', scrollable),
    objectName: (window, name) => (window.element.dataset['name'] = name),
    style: toBody('style'),
    layoutGrid: toBody('layoutGrid'),
    meta: toBody('meta'),
    geometry: (window, rect) => window.setFrameAsked(window.frameFor(rect)),
    frameGeometry: (window, rect) => window.setFrameAsked(rect),
    saveGeometry: (window, rect) => window.setFrameAsked(rect),
    move: (window, point) => window.setFrameAsked({ ...window.frame, ...point }),
    moveTo: (window, point) => window.setFrameAsked({ ...window.frame, ...point }),
    resize: (window, size) => resizeContent(window, size.width, size.height),
    setPreferredSize: (window, size) => resizeContent(window, size.width, size.height),
    setMinimumWidth: (window, width) => atLeast(window, 'minWidth', width),
    setMinimumHeight: (window, height) => atLeast(window, 'minHeight', height),
    setMaximumWidth: (window, width) => atMost(window, 'maxWidth', width),
    setMaximumHeight: (window, height) => atMost(window, 'maxHeight', height),
    updateEnabled: (window, _enabled, actions) => actions.showAgain(window),
};

function resizeContent(window: WindowFrame, width: number, height: number): void {
    const { x, y } = window.report().geometry;
    window.setFrameAsked(window.frameFor({ x, y, width, height }));
}

const triggers: {
    readonly [T in Trigger]?: (window: WindowFrame, actions: WindowActions) => void;
} = {
    showMinimized: (window) => window.setMode('minimized'),
    showNormal: (window) => window.setMode('normal'),
    showMaximized: (window) => window.setMode('maximized'),
    activateWindow: (window, actions) => actions.stack.activate(window),
    setFocus: (window, actions) => actions.stack.activate(window),
    raise: (window, actions) => actions.stack.raise(window),
    adjustsize: (window) => window.adjustSize(),
    update: (window, actions) => actions.showAgain(window),
    refresh: (window, actions) => actions.showAgain(window),
};

export function applyToWindow<N extends Name>(
    window: WindowFrame,
    name: N,
    actions: WindowActions,
    host: WidgetHost,
): void {
    appliers[name]?.(window, window.object.values[name] as Values[N], actions, host);
}

export function triggerWindow(window: WindowFrame, trigger: Trigger, actions: WindowActions): void {
    triggers[trigger]?.(window, actions);
}
