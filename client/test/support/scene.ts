import { widget } from './Stage.ts';

const items = ['red', 'green', 'blue'];

/** A page of tabs with one widget. */
export function tabPage(id: number, name: string, content: object): object {
    const layout = { id: String(id + 100), type: 'BoxLayout', contents: [content] };
    return { id: String(id), type: 'Tab', name, contents: [layout] };
}

/** A window of every kind of widget: what a person may meet in a program. */
export const everyKind: readonly object[] = [
    widget(10, 'Text', { text: 'Name', buddy: '11' }),
    widget(11, 'Edit', { text: 'Ada', tooltip: 'Who it is' }),
    widget(12, 'CheckBox', { label: 'Agree', checked: true }),
    widget(13, 'Button', { label: 'Push', icon: '', defaultbutton: false }),
    widget(14, 'Button', { label: 'Go', icon: '', defaultbutton: true }),
    widget(15, 'Text', { text: 'Colour', buddy: '16' }),
    widget(16, 'ComboBox', { editable: false, currentindex: 1, text: 'green', entries: items }),
    widget(17, 'Text', { text: 'Town' }),
    widget(18, 'ComboBox', { editable: true, currentindex: -1, text: 'grey', entries: items }),
    widget(20, 'GroupBox', {
        title: 'Options',
        contents: [widget(22, 'CheckBox', { label: 'In a box' })],
    }),
    widget(30, 'TabContainer', {
        ...{ tabcount: 3, currentindex: 0, closable: true },
        contents: [
            tabPage(31, 'First', widget(32, 'Button', { label: 'On the first' })),
            tabPage(33, 'Second', widget(34, 'Button', { label: 'On the second' })),
            tabPage(35, 'Third', widget(36, 'Text', { text: 'On the third' })),
        ],
    }),
    widget(40, 'Button', { label: 'Off', enable: false }),
];
