/** Every name that appears on the wire, once. */

export const ROOT_CHANNEL = '/dova2/web';
export const MODEL_CHANNEL = '/tdom';
export const SUB_PROTOCOL = 'dova.gateway.1';
export const SOCKET_PATH = '/socket';
export const ICON_PATH = '/icon/';

export const LifeCycle = {
    clientReady: 'clientReady',
    ping: 'ping',
    dialogReady: 'dialogReady',
    dialogDestroyed: 'dialogDestroyed',
} as const;

/** Members of the messages that come down. */
export const Key = {
    id: 'id',
    type: 'type',
    contents: 'contents',
    messageType: 'msgType',
    parentId: 'parentId',
    level: 'level',
    title: 'title',
    body: 'body',
    modal: 'modal',
    command: 'command',
} as const;

export const MessageType = { refresh: 'refresh', messageBox: 'messagebox' } as const;
export const COMMAND_CLOSE = 'close';
export const META_BUTTON_SET = 'StandardButtonSet';
/** A text without a buddy names this identifier. */
export const NO_BUDDY = 0xffffffff;

export const Kind = {
    dialog: 'Dialog',
    panel: 'Panel',
    boxLayout: 'BoxLayout',
    gridLayout: 'GridLayout',
    groupBox: 'GroupBox',
    tabContainer: 'TabContainer',
    tab: 'Tab',
    button: 'Button',
    checkBox: 'CheckBox',
    edit: 'Edit',
    text: 'Text',
    comboBox: 'ComboBox',
} as const;

/** Members of what the page sends up. */
export const Up = {
    id: 'id',
    event: 'event',
    value: 'value',
    index: 'index',
    newIndex: 'newIndex',
    geometry: 'geometry',
    frameGeometry: 'frameGeometry',
    maximized: 'maximized',
    minimized: 'minimized',
    resize: 'resize',
    increaseFontSize: 'increaseFontSize',
    decreaseFontSize: 'decreaseFontSize',
} as const;

export const Event = {
    click: 'onClick',
    toggle: 'onToggle',
    edit: 'onEdit',
    editFinish: 'onEditFinish',
    selectionChange: 'onSelectionChange',
    textShown: 'textShown',
    tabChanged: 'tabchanged',
    tabClose: 'close',
} as const;

/** Members of the messages on the model document's channel. */
export const ModelKey = {
    version: 'version',
    snapshot: 'snapshot',
    properties: 'properties',
    patch: 'patch',
} as const;

/** Members of the model document's elements that the page reads. */
export const ElementKey = {
    type: 'type',
    tag: 'tag',
    entries: 'entries',
    placeholder: 'placeholder',
    checkable: 'checkable',
    checked: 'checked',
    icon: 'icon',
} as const;

/** Close codes of the gateway's socket that mean something to the page. */
export const CloseCode = {
    programEnded: 1001,
    /** What a browser reports when a connection ended without a word. */
    abnormal: 1006,
    refused: 1008,
    tooBig: 1009,
    lost: 4000,
    duplicated: 4001,
    takenOver: 4002,
    protocolError: 4003,
    channelRefused: 4004,
} as const;
