import { Kind } from '../protocol/names.ts';
import type { StoredObject } from '../store/StoredObject.ts';
import { boxLayout } from './boxlayout/boxLayout.ts';
import { button } from './button/button.ts';
import { checkBox } from './checkbox/checkBox.ts';
import { comboBox } from './combobox/comboBox.ts';
import { container } from './container/container.ts';
import { edit } from './edit/edit.ts';
import { gridLayout } from './gridlayout/gridLayout.ts';
import { groupBox } from './groupbox/groupBox.ts';
import { panel } from './panel/panel.ts';
import { tabContainer } from './tabs/tabContainer.ts';
import { tabPage } from './tabs/tabPage.ts';
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
    [Kind.comboBox, comboBox],
    [Kind.groupBox, groupBox],
    [Kind.tabContainer, tabContainer],
    [Kind.tab, tabPage],
]);

export function kindOf(object: StoredObject): WidgetKind {
    const kind = kinds.get(object.type) ?? container;
    return kind.variantOf?.(object) ?? kind;
}

/** Whether the element was made of this kind, and not before the object's state asked for it. */
export function isOfKind(element: HTMLElement, kind: WidgetKind): boolean {
    return element.localName === kind.prototype.localName;
}
