import {
    bases,
    elementBases,
    eventMembers,
    events,
    forms,
    gateway,
    kinds,
    lifeCycle,
    messages,
    nameOf,
    ofElements,
    ofObjects,
    once,
    paths,
} from '../table.mjs';
import { mark } from './mark.mjs';

/** The names of each room of the C++ side. No room knows another, so each has its own file. */

const quote = (text) => JSON.stringify(text);
const quoted = (constants) => constants.map(([constant, text]) => [constant, quote(text)]);
/** Names as they stand in a JSON text, within quotation marks. */
const inJson = (constants) => quoted(quoted(constants));
/** `[constant, text]` of names that are their own constants, and of those that have another. */
const same = (names) => once(names).map((name) => [name, name]);
const named = (list) => list.map(({ constant, name }) => [constant, name]);

function file(path, ...lines) {
    return [path, [`// ${mark}`, ...lines.flat(), ''].join('\n')];
}

/** A file's namespace with these lines, each block apart. */
function namespace(name, lines, comment) {
    const before = comment === undefined ? [''] : ['', `/// ${comment}`];
    return [...before, `namespace ${name} {`, '', ...lines, '', `}  // namespace ${name}`];
}

// ---- the library: constants with a definition

const literals = {
    QString: (text) => `QStringLiteral(${quote(text)})`,
    'std::string': quote,
    'std::u16string': (text) => `u${quote(text)}`,
};

function pair(path, blocks) {
    const declared = blocks.map(([comment, name, type, constants]) => {
        const lines = constants.map(([constant]) => `extern const ${type} ${constant};`);
        return namespace(`DOVA::${name}`, lines, comment);
    });
    const defined = blocks.map(([, name, type, constants]) => {
        const literal = literals[type];
        const lines = constants.map(
            ([constant, text]) => `const ${type} ${constant} = ${literal(text)};`,
        );
        return namespace(`DOVA::${name}`, lines);
    });
    const includes = ['', '#include <QString>', '#include <string>'];
    return [
        file(`${path}.h`, '#pragma once', includes, ...declared),
        file(`${path}.cpp`, `#include "${path.split('/').pop()}.h"`, ...defined),
    ];
}

const describedByControls = ofObjects.filter(({ entries }) =>
    [...entries.values()].some(
        ({ kind, element, described }) => kind.isControl && (element || described !== 'never'),
    ),
);
const words = ofObjects.flatMap((property) => Object.entries(property.words));

const propertyNames = pair('web/core/PropertyNames', [
    [
        'The members of messages, and of what controls describe: for QJsonObject.',
        'keys',
        'QString',
        same([...messages.down.members, ...describedByControls.map(nameOf)]),
    ],
    [
        'The members of what a client sends.',
        'received',
        'QString',
        same([...eventMembers, ...forms.reportedRectangle.members]),
    ],
    [
        'What can have happened to an object of a client.',
        'events',
        'QString',
        same(events.map(nameOf)),
    ],
    [
        "What an object is. An object with a model element bears the name of the element's type.",
        'kinds',
        'std::string',
        named([...kinds, ...bases]),
    ],
    [
        'Words that stand as values.',
        'words',
        'std::u16string',
        [...Object.entries(messages.down.types), ...words],
    ],
    [
        'The properties, for the typed operations of objects.',
        'names',
        'std::u16string',
        same(['type', ...ofObjects.map(nameOf), ...forms.style.members]),
    ],
]);

const { channels } = messages;
const rootChannel = ['rootChannel', channels.root.address];

const lifeCycleNames = pair('web/core/LifeCycleNames', [
    [
        'The keys of the messages that tell of clients and dialogs rather than of objects.',
        'lifecycle',
        'QString',
        same(lifeCycle.map(nameOf)),
    ],
    [
        'The channel that all others of a page begin with.',
        'lifecycle',
        'std::string',
        [rootChannel],
    ],
]);

// ---- the platform: constants in headers alone

const VIEW = 'std::string_view';
const CHARACTERS = 'const char*';

function inline(comment, name, type, constants) {
    const lines = constants.map(
        ([constant, value]) => `inline constexpr ${type} ${constant} = ${value};`,
    );
    return namespace(name, lines, comment);
}

function header(path, include, ...blocks) {
    return file(path, '#pragma once', '', `#include ${include}`, ...blocks);
}

const model = 'platform/model';

const modelHeaders = [
    header(
        `${model}/include/model/PropertyName.h`,
        '<string_view>',
        inline(
            'The names that change records give the properties of the elements.',
            'tdom::PropertyName',
            VIEW,
            quoted(same(ofElements.map(nameOf))),
        ),
    ),
    header(
        `${model}/ElementName.h`,
        '<string_view>',
        inline('The types of elements, their bases included.', 'tdom::ElementName', VIEW, [
            ...elementBases.map((name) => [name[0].toLowerCase() + name.slice(1), quote(name)]),
            ...quoted(named(kinds.filter(({ isControl }) => isControl))),
        ]),
    ),
    header(
        `${model}/include/model/DocumentName.h`,
        '<string_view>',
        inline(
            'The channel on which pages ask for the document and hear of its changes.',
            'tdom',
            CHARACTERS,
            [['tdom_channel', quote(channels.model.address)]],
        ),
        inline(
            'The members of the messages on that channel, and the first one of an element.',
            'tdom::DocumentName',
            VIEW,
            quoted(same([...messages.model.members, 'type'])),
        ),
    ),
];

/** What does not start as all values of its form do; an element that says nothing starts unset. */
function propertyStart() {
    const isUnset = ({ entries }) => [...entries.values()].some(({ unset }) => unset);
    const flags = ofElements.filter((each) => each.start === true || isUnset(each));
    const numbers = ofElements.filter(({ start }) => typeof start === 'number' && start !== 0);
    const constants = (type, list) =>
        list
            .filter((each) => !isUnset(each))
            .map(({ name, start }) => `inline constexpr ${type} ${name} = ${start};`);
    const rows = (type, constant, list) => [
        `inline constexpr std::pair<std::string_view, ${type}> ${constant}[] = {`,
        ...list.map((each) => {
            const start = isUnset(each) ? 'std::nullopt' : each.name;
            return `    {PropertyName::${each.name}, ${start}},`;
        }),
        '};',
    ];
    const headers = ['cstdint', 'optional', 'string_view', 'utility'];
    const includes = headers.map((name) => `#include <${name}>`);
    const lines = [
        ...constants('bool', flags),
        ...constants('std::int32_t', numbers),
        '',
        '/// The flags among them; nothing for one that starts unset, so that both flags are a change.',
        ...rows('std::optional<bool>', 'flags', flags),
        ...rows('std::int32_t', 'numbers', numbers),
    ];
    return file(
        `${model}/include/model/PropertyStart.h`,
        '#pragma once',
        '',
        includes,
        '',
        '#include "model/PropertyName.h"',
        namespace(
            'tdom::PropertyDefault',
            lines,
            'What properties start with that do not start as false, 0 or empty.',
        ),
    );
}

const sessions = Object.entries(gateway.greeting.sessions);

const sessionNames = header(
    'platform/session/ProtocolNames.h',
    '<string_view>',
    inline(
        'The channels that pages see.',
        'DOVA::session::names',
        CHARACTERS,
        quoted([
            rootChannel,
            ['modelChannel', channels.model.address],
            ['ownChannel', gateway.ownChannel],
        ]),
    ),
    inline(
        'Members and words of JSON texts, within their quotation marks.',
        'DOVA::session::json',
        VIEW,
        inJson([
            ...same(lifeCycle.filter(({ channel }) => channel === 'root').map(nameOf)),
            ...same(['snapshot', 'properties', gateway.greeting.member]),
            ...same(sessions.flatMap(([, { members }]) => Object.keys(members))),
            ...sessions.map(([constant, { word }]) => [constant, word]),
        ]),
    ),
);

const gatewayNames = header(
    'platform/gateway/RequestNames.h',
    '<string_view>',
    inline(
        'Where pages come in.',
        'DOVA::gateway::names',
        CHARACTERS,
        quoted([
            ['subProtocol', gateway.subProtocol],
            ['tokenProtocol', gateway.tokenProtocol],
            ['iconCookie', gateway.iconCookie],
            ...Object.entries(paths).map(([name, path]) => [`${name}Path`, path]),
        ]),
    ),
    inline(
        "The parameters of a page's requests.",
        'DOVA::gateway::query',
        VIEW,
        quoted(same(gateway.query.map(nameOf))),
    ),
);

/** What a page reads and writes that is made in numbers, without a browser. */
const loadNames = header(
    'tools/load/ProtocolNames.h',
    '<cstdint>',
    inline('Where a page comes in, and its channels.', 'DOVA::load::names', CHARACTERS, [
        ...quoted([
            ['subProtocol', gateway.subProtocol],
            ['tokenProtocol', gateway.tokenProtocol],
            ['socketPath', channels.socket.address],
            rootChannel,
            ['ownChannel', gateway.ownChannel],
        ]),
    ]),
    inline(
        "The parameters of a page's requests.",
        'DOVA::load::query',
        CHARACTERS,
        quoted(same(gateway.query.map(nameOf))),
    ),
    inline(
        'The members of the messages that a page reads and writes.',
        'DOVA::load::keys',
        CHARACTERS,
        quoted(
            same([
                ...['id', 'type', 'title', 'contents', 'text', 'event', 'value'],
                ...['geometry', 'frameGeometry', 'dialogReady', 'clientReady', 'clientDestroyed'],
                ...[gateway.greeting.member, 'received'],
            ]),
        ),
    ),
    inline('What stands in these members.', 'DOVA::load::words', CHARACTERS, [
        ...quoted(sessions.map(([constant, { word }]) => [constant, word])),
        ...quoted(named(kinds.filter(({ name }) => ['Dialog', 'Edit', 'Text'].includes(name)))),
        ...quoted(same(events.map(nameOf).filter((name) => name === 'onEdit'))),
    ]),
    inline('Close codes that a page tells apart.', 'DOVA::load::close_code', 'std::uint16_t', [
        ...gateway.closeCodes
            .filter(({ name }) => ['duplicated', 'takenOver', 'refused'].includes(name))
            .map(({ name, code }) => [name, code]),
        [
            'sessionOver[]',
            `{${gateway.closeCodes
                .filter(({ afresh }) => afresh)
                .map(({ code }) => code)
                .join(', ')}}`,
        ],
    ]),
);

const reasons = gateway.closeCodes.flatMap(({ code, reasons: texts = {} }) =>
    Object.entries(texts).map(([name, text]) => [
        `s_${name[0].toLowerCase()}${name.slice(1)}`,
        `{${code}, ${quote(text)}}`,
    ]),
);

export const outputs = [
    ...propertyNames,
    ...lifeCycleNames,
    ...modelHeaders,
    propertyStart(),
    sessionNames,
    gatewayNames,
    loadNames,
    header(
        'platform/session/CloseReasons.h',
        '"CloseReason.h"',
        inline(
            'Every reason for which the connection of a page is closed.',
            'DOVA::session::close_reason',
            'CloseReason',
            reasons,
        ),
    ),
    file(
        'platform/runtime/ProtocolNames.h',
        '#pragma once',
        inline(
            'What the runtime hears of pages and of what they ask for.',
            'DOVA::runtime::names',
            CHARACTERS,
            quoted([rootChannel, ...same(['clientReady', 'clientDestroyed', 'dialogDestroyed'])]),
        ),
    ),
];
