import { widget, type Stage } from './browser.ts';

const items = ['red', 'green', 'blue'];

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
    widget(20, 'GroupBox', { title: 'Options' }, [
        { id: '21', type: 'BoxLayout', contents: [widget(22, 'CheckBox', { label: 'In a box' })] },
    ]),
    widget(30, 'TabContainer', { tabcount: 3, currentindex: 0, closable: true }, [
        page(31, 'First', widget(32, 'Button', { label: 'On the first' })),
        page(33, 'Second', widget(34, 'Button', { label: 'On the second' })),
        page(35, 'Third', widget(36, 'Text', { text: 'On the third' })),
    ]),
    widget(40, 'Button', { label: 'Off', enable: false }),
];

export function page(id: number, name: string, content: object): object {
    const layout = { id: String(id + 100), type: 'BoxLayout', contents: [content] };
    return { id: String(id), type: 'Tab', name, contents: [layout] };
}

/** What the page told of an object: the event, and whatever came with it. */
export function eventsOf({ gateway }: Stage, id: number): unknown[][] {
    const messages = gateway.messages('./1') as Readonly<Record<string, unknown>>[];
    return messages
        .filter((message) => message['id'] === String(id) && message['event'] !== undefined)
        .map(({ id: _id, ...rest }) => Object.values(rest));
}

export async function untilEvents(stage: Stage, id: number, expected: unknown[][]): Promise<void> {
    const told = (): string => JSON.stringify(eventsOf(stage, id));
    const wanted = JSON.stringify(expected);
    await stage.gateway.until(() => told() === wanted, `${wanted} of ${id}`);
}

/** Everything that was sent up to here is shown. */
export async function settled({ gateway, page }: Stage): Promise<void> {
    marks += 1;
    gateway.write(1, 13, { label: `mark ${marks}` });
    await page.getByRole('button', { name: `mark ${marks}`, exact: true }).waitFor();
}

let marks = 0;
