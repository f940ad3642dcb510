import { Kind } from '../protocol/names.ts';
import { boxLayout } from './boxlayout/boxLayout.ts';
import { button } from './button/button.ts';
import { checkBox } from './checkbox/checkBox.ts';
import { container } from './container/container.ts';
import { edit } from './edit/edit.ts';
import { gridLayout } from './gridlayout/gridLayout.ts';
import { panel } from './panel/panel.ts';
import { text } from './text/text.ts';
import type { WidgetKind } from './WidgetKind.ts';

const kinds = new Map<string, WidgetKind>([
    [Kind.panel, panel],
    [Kind.boxLayout, boxLayout],
    [Kind.gridLayout, gridLayout],
    [Kind.button, button],
    [Kind.checkBox, checkBox],
    [Kind.edit, edit],
    [Kind.text, text],
]);

export function kindOf(type: string): WidgetKind {
    return kinds.get(type) ?? container;
}
