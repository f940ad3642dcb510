import type { WidgetKind } from '../WidgetKind.ts';
import { choiceBox } from './choiceBox.ts';
import { editableBox } from './editableBox.ts';

/** A list to choose from; an editable one takes any text besides. */
export const comboBox: WidgetKind = {
    ...choiceBox,
    variantOf: (object) => (object.values.editable ? editableBox : choiceBox),
};
