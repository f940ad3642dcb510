// Made from protocol/ by protocol/generate.mjs; do not edit.
export const ROOT_CHANNEL = '/dova2/web';
export const MODEL_CHANNEL = '/tdom';
export const OWN_CHANNEL = '.';
export const SUB_PROTOCOL = 'dova.gateway.1';
export const TOKEN_PROTOCOL = 'token.';
export const SOCKET_PATH = 'socket';
export const ICON_PATH = 'icon/';

/** Words that are the value of a property. */
export const VERSION_DESCRIPTION_VERSION = '0.5';
export const COMMAND_CLOSE = 'close';
export const META_STANDARD_BUTTON_SET = 'StandardButtonSet';
export const TABPOSITION_NORTH = 'North';
export const TABPOSITION_SOUTH = 'South';
export const TABPOSITION_WEST = 'West';
export const TABPOSITION_EAST = 'East';

/** What stands in the place of an identifier where there is none. */
export const NO_BUDDY = 4294967295;

/** Keys of the life-cycle messages that a page says or hears. */
export const LifeCycle = {
    ping: 'ping',
    clientReady: 'clientReady',
    dialogDestroyed: 'dialogDestroyed',
    dialogReady: 'dialogReady',
} as const;

/** Members of the messages that come down. */
export const Key = {
    id: 'id',
    type: 'type',
    contents: 'contents',
    msgType: 'msgType',
    parentId: 'parentId',
    level: 'level',
    title: 'title',
    body: 'body',
    modal: 'modal',
    command: 'command',
} as const;

/** The types of messages that are told by a member. */
export const MessageType = {
    refresh: 'refresh',
    messageBox: 'messagebox',
} as const;

/** What an object is. */
export const Kind = {
    dialog: 'Dialog',
    panel: 'Panel',
    groupBox: 'GroupBox',
    tabContainer: 'TabContainer',
    tab: 'Tab',
    boxLayout: 'BoxLayout',
    gridLayout: 'GridLayout',
    button: 'Button',
    checkBox: 'CheckBox',
    comboBox: 'ComboBox',
    edit: 'Edit',
    text: 'Text',
} as const;

/** Members of what the page sends up. */
export const Up = {
    id: 'id',
    event: 'event',
    value: 'value',
    index: 'index',
    newIndex: 'newIndex',
    increaseFontSize: 'increaseFontSize',
    decreaseFontSize: 'decreaseFontSize',
    resize: 'resize',
    geometry: 'geometry',
    frameGeometry: 'frameGeometry',
    maximized: 'maximized',
    minimized: 'minimized',
} as const;

/** What can have happened to an object. */
export const Event = {
    onClick: 'onClick',
    onToggle: 'onToggle',
    onEdit: 'onEdit',
    onEditFinish: 'onEditFinish',
    onSelectionChange: 'onSelectionChange',
    textShown: 'textShown',
    tabchanged: 'tabchanged',
    close: 'close',
} as const;

/** Members of a style. */
export const StyleKey = {
    backgroundColor: 'backgroundColor',
    color: 'color',
} as const;

/** Members of the messages on the model document's channel. */
export const ModelKey = {
    version: 'version',
    snapshot: 'snapshot',
    properties: 'properties',
    patch: 'patch',
} as const;

/** Members of every element of that document. */
export const ElementKey = {
    type: 'type',
    tag: 'tag',
} as const;

/** Parameters of the page's requests. */
export const Query = {
    token: 'token',
    client: 'client',
    received: 'received',
    attempt: 'attempt',
    ready: 'ready',
    origin: 'origin',
} as const;

/** Members of the first frame of a connection. */
export const GreetingKey = {
    session: 'session',
    received: 'received',
} as const;

/** What became of the session that the page asked for. */
export const Greeted = {
    fresh: 'new',
    resumed: 'resumed',
    lost: 'lost',
} as const;

/** Close codes that the page tells apart. */
export const CloseCode = {
    programEnded: 1001,
    abnormal: 1006,
    refused: 1008,
    frameMissing: 1012,
    duplicated: 4001,
    takenOver: 4002,
} as const;

/** Close codes after which the page starts afresh. */
export const SESSION_OVER: ReadonlySet<number> = new Set([
    1002, 1003, 1007, 1009, 4000, 4003, 4004,
]);

/** How serious a message box is; a word that is none of these counts as the first. */
export const LEVELS = ['information', 'warning', 'error', 'question'] as const;
