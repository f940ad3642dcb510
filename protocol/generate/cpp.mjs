import {
    bases, elementBases, eventForms, eventMembers, events, forms, gateway, kinds, messages,
    ofElements, ofObjects, once,
} from '../table.mjs';
import { mark } from './mark.mjs';

/** The names of each room of the C++ side. No room knows another, so each has its own file. */

const types = {
    QString: { wide: (text) => `QStringLiteral(${text})`, include: '<QString>' },
    'std::string': { wide: (text) => text, include: '<string>' },
    'std::u16string': { wide: (text) => `u${text}`, include: '<string>' },
};

/** `[constant, text]` of names that are their own constants. */
const same = (names) => once(names).map((name) => [name, name]);

const quote = (text) => JSON.stringify(text);
const wordsOf = (table) => table.flatMap(({ words }) => Object.entries(words));
const childless = (constants) => constants.map(({ constant, name }) => [constant, name]);
const styleMembers = forms.style.members;

// ---- names with a definition, for the library

const described = ofObjects.filter(({ entries }) =>
    [...entries.values()].some(
        (entry) => entry.kind.isControl && (entry.element || entry.described !== 'never'),
    ),
);

const propertyNames = [
    {
        comment: 'The members of messages, and of what controls describe: for QJsonObject.',
        namespace: 'keys',
        type: 'QString',
        constants: same([...messages.down.members, ...described.map(({ name }) => name)]),
    },
    {
        comment: 'The members of what a client sends.',
        namespace: 'received',
        type: 'QString',
        constants: same([...eventMembers, ...eventForms.reportedRectangle.members]),
    },
    {
        comment: 'What can have happened to an object of a client.',
        namespace: 'events',
        type: 'QString',
        constants: same(events.map(({ name }) => name)),
    },
    {
        comment:
            'What an object is. An object with a model element bears the name of the element\'s type.',
        namespace: 'kinds',
        type: 'std::string',
        constants: childless([...kinds, ...bases]),
    },
    {
        comment: 'Words that stand as values.',
        namespace: 'words',
        type: 'std::u16string',
        constants: [...Object.entries(messages.down.types), ...wordsOf(ofObjects)],
    },
    {
        comment: 'The properties, for the typed operations of objects.',
        namespace: 'names',
        type: 'std::u16string',
        constants: same(['type', ...ofObjects.map(({ name }) => name), ...styleMembers]),
    },
];

const { root: rootChannel } = messages.channels;
const lifeCycleNames = [
    {
        comment: 'The keys of the messages that tell of clients and dialogs rather than of objects.',
        namespace: 'lifecycle',
        type: 'QString',
        constants: same(messages.lifeCycle.map(({ name }) => name)),
    },
    {
        comment: 'The channel that all others of a page begin with.',
        namespace: 'lifecycle',
        type: 'std::string',
        constants: [['rootChannel', rootChannel.address]],
    },
];

function includesOf(blocks) {
    const includes = once(blocks.map(({ type }) => types[type].include)).sort();
    return includes.map((include) => `#include ${include}`);
}

function declared({ comment, namespace, type, constants }) {
    return [
        `/// ${comment}`,
        `namespace DOVA::${namespace} {`,
        '',
        ...constants.map(([constant]) => `extern const ${type} ${constant};`),
        '',
        `}  // namespace DOVA::${namespace}`,
        '',
    ];
}

function defined({ namespace, type, constants }) {
    const { wide } = types[type];
    return [
        `namespace DOVA::${namespace} {`,
        '',
        ...constants.map(([constant, text]) => `const ${type} ${constant} = ${wide(quote(text))};`),
        '',
        `}  // namespace DOVA::${namespace}`,
        '',
    ];
}

function pair(path, blocks) {
    const header = ['#pragma once', '', ...includesOf(blocks), '', ...blocks.flatMap(declared)];
    const source = [`#include "${path.split('/').pop()}.h"`, '', ...blocks.flatMap(defined)];
    return [
        [`${path}.h`, text(header)],
        [`${path}.cpp`, text(source)],
    ];
}

// ---- names in headers alone, for the platform

const VIEW = 'std::string_view';
const CHARACTERS = 'const char*';

function inline({ comment, namespace, type = VIEW, constants }) {
    return [
        `/// ${comment}`,
        `namespace ${namespace} {`,
        '',
        ...constants.map(([constant, value]) => `inline constexpr ${type} ${constant} = ${value};`),
        '',
        `}  // namespace ${namespace}`,
        '',
    ];
}

function header(path, includes, ...blocks) {
    return [path, text(['#pragma once', '', ...includes, '', ...blocks.flatMap(inline)])];
}

const quoted = (names) => names.map(([constant, name]) => [constant, quote(name)]);
/** Names as they stand in a JSON text, within quotation marks. */
const inJson = (names) => names.map(([constant, name]) => [constant, quote(quote(name))]);

const viewInclude = '#include <string_view>';
const model = 'platform/model';

const propertyName = header(`${model}/include/model/PropertyName.h`, [viewInclude], {
    comment: 'The names that change records give the properties of the elements.',
    namespace: 'tdom::PropertyName',
    constants: quoted(same(ofElements.map(({ name }) => name))),
});

const elementName = header(`${model}/ElementName.h`, [viewInclude], {
    comment: 'The types of elements, their bases included.',
    namespace: 'tdom::ElementName',
    constants: quoted([
        ...elementBases.map((name) => [name[0].toLowerCase() + name.slice(1), name]),
        ...childless(kinds.filter(({ isControl }) => isControl)),
    ]),
});

const documentName = header(
    `${model}/include/model/DocumentName.h`,
    [viewInclude],
    {
        comment: 'The channel on which pages ask for the document and hear of its changes.',
        namespace: 'tdom',
        type: CHARACTERS,
        constants: [['tdom_channel', quote(messages.channels.model.address)]],
    },
    {
        comment: 'The members of the messages on that channel, and the first one of an element.',
        namespace: 'tdom::DocumentName',
        constants: quoted(same([...messages.model.members, 'type'])),
    },
);

/** What does not start as all values of its form do; an element that says nothing starts unset. */
function defaults() {
    const flags = [];
    const numbers = [];
    for (const { name, start, form, entries } of ofElements) {
        const isUnset = [...entries.values()].some(({ unset }) => unset);
        if (typeof start === 'boolean' && (start || isUnset)) {
            flags.push([name, isUnset ? undefined : start]);
        } else if (typeof form.empty === 'number' && start !== 0) {
            numbers.push([name, start]);
        }
    }
    return { flags, numbers };
}

function propertyStart() {
    const { flags, numbers } = defaults();
    const constants = (type, list) =>
        list
            .filter(([, value]) => value !== undefined)
            .map(([name, value]) => `inline constexpr ${type} ${name} = ${value};`);
    const rows = (type, constant, list) => [
        `inline constexpr std::pair<std::string_view, ${type}> ${constant}[] = {`,
        ...list.map(
            ([name, value]) =>
                `    {PropertyName::${name}, ${value === undefined ? 'std::nullopt' : name}},`,
        ),
        '};',
    ];
    return [
        `${model}/include/model/PropertyStart.h`,
        text([
            '#pragma once',
            '',
            ...['cstdint', 'optional', 'string_view', 'utility'].map((name) => `#include <${name}>`),
            '',
            '#include "model/PropertyName.h"',
            '',
            '/// What properties start with that do not start as false, 0 or empty.',
            'namespace tdom::PropertyDefault {',
            '',
            ...constants('bool', flags),
            ...constants('std::int32_t', numbers),
            '',
            '/// The flags among them; nothing for one that starts unset, so that both flags are a change.',
            ...rows('std::optional<bool>', 'flags', flags),
            ...rows('std::int32_t', 'numbers', numbers),
            '',
            '}  // namespace tdom::PropertyDefault',
            '',
        ]),
    ];
}

const { channels, lifeCycle } = messages;
const here = 'DOVA::gateway';
const lifeCycleSaid = same(lifeCycle.filter(({ channel }) => channel === 'root').map(({ name }) => name));
const sessions = Object.entries(gateway.greeting.sessions);

const gatewayNames = header(
    'platform/gateway/ProtocolNames.h',
    [viewInclude],
    {
        comment: 'Where pages come in, and the channels that they see.',
        namespace: `${here}::names`,
        type: CHARACTERS,
        constants: quoted([
            ['rootChannel', channels.root.address],
            ['modelChannel', channels.model.address],
            ['ownChannel', gateway.ownChannel],
            ['subProtocol', gateway.subProtocol],
            ...Object.entries(gateway.paths).map(([name, path]) => [`${name}Path`, path]),
        ]),
    },
    {
        comment: "The parameters of a page's requests.",
        namespace: `${here}::query`,
        constants: quoted(same(gateway.query)),
    },
    {
        comment: 'Members and words of JSON texts, within their quotation marks.',
        namespace: `${here}::json`,
        constants: inJson([
            ...lifeCycleSaid,
            ...same(['snapshot', 'properties']),
            ...same([
                gateway.greeting.member,
                ...sessions.flatMap(([, { members }]) => Object.keys(members)),
            ]),
            ...sessions.map(([constant, { word }]) => [constant, word]),
        ]),
    },
);

const closeReasons = header('platform/gateway/CloseReasons.h', ['#include "CloseReason.h"'], {
    comment: 'Every reason for which the gateway closes.',
    namespace: `${here}::close_reason`,
    type: 'CloseReason',
    constants: gateway.closeCodes.flatMap(({ code, reasons = {} }) =>
        Object.entries(reasons).map(([name, reason]) => [`k${name}`, `{${code}, ${quote(reason)}}`]),
    ),
});

const runtimeNames = header('platform/runtime/ProtocolNames.h', [], {
    comment: 'What the runtime hears of pages and of what they ask for.',
    namespace: 'DOVA::runtime::names',
    type: CHARACTERS,
    constants: quoted([
        ['rootChannel', channels.root.address],
        ...same(['clientReady', 'clientDestroyed', 'dialogDestroyed']),
    ]),
});

function text(lines) {
    return [`// ${mark}`, ...lines].join('\n').replace(/\n{3,}/g, '\n\n');
}

export const outputs = [
    ...pair('web/core/PropertyNames', propertyNames),
    ...pair('web/core/LifeCycleNames', lifeCycleNames),
    propertyName,
    elementName,
    documentName,
    propertyStart(),
    gatewayNames,
    closeReasons,
    runtimeNames,
];
