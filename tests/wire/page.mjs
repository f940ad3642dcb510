import { filesBelow, read, withoutComments } from './library.mjs';

/**
 * What the page does something with, read from its sources. A form that is not looked for here
 * counts as nothing done, so a new one is noticed.
 */

const namesFile = 'client/src/protocol/names.ts';
const sources = new Map(
    filesBelow('client/src', /\.ts$/).map((file) => [file, withoutComments(read(file))]),
);

/** The names in these blocks of the page's table that one of the files uses. */
function usedFrom(blocks, files = [...sources.keys()]) {
    const uses = files
        .filter((file) => file !== namesFile)
        .map((file) => sources.get(file))
        .join('\n');
    return blocks.flatMap((block) => {
        const [, members, value] =
            new RegExp(`export const ${block} = (?:\\{([^}]*)\\} as const|'(\\w+)');`)
                .exec(sources.get(namesFile)) ?? [];
        const entries = value === undefined
            ? [...members.matchAll(/(\w+): '(\w+)'/g)].map(([, key, name]) => [`${block}.${key}`, name])
            : [[block, value]];
        return entries
            .filter(([constant]) => new RegExp(`\\b${constant.replace('.', '\\.')}\\b`).test(uses))
            .map(([, name]) => name);
    });
}

const showing = [...sources]
    .filter(([file]) => /^client\/src\/(widgets\/|windows\/|page\/PageObserver)/.test(file))
    .map(([, text]) => text)
    .join('\n');

/** Whether what shows the objects asks for a property, has an entry for it or a case. */
function isShown(name) {
    return [
        `\\b(?:values|style)\\.${name}\\b`,
        `\\{[^{}]*\\b${name}\\b[^{}]*\\} = [\\w.]*\\bvalues\\b`,
        `^\\s+${name}(?:: |,$)`,
        `case '${name}':`,
    ].some((form) => new RegExp(form, 'm').test(showing));
}

const reports = sources.get('client/src/protocol/events.ts');
const element = 'client/src/model/elementValues.ts';

const handled = {
    kind: usedFrom(['Kind'], ['client/src/widgets/kinds.ts', 'client/src/protocol/description.ts']),
    event: usedFrom(['Event']),
    member: usedFrom(['Up']),
    word: usedFrom(['MessageType', 'COMMAND_CLOSE', 'META_BUTTON_SET']),
    'life cycle': usedFrom(['LifeCycle']),
    property: usedFrom(['Key']),
    element: usedFrom(['Kind'], [element]),
    'element property': usedFrom(['ElementKey']),
};

const others = {
    property: isShown,
    member: (name) => new RegExp(`[{,] ${name}: `).test(reports),
};

/** Whether the page does something with a name of this sort. */
export function handles({ sort, name }) {
    return handled[sort].includes(name) || (others[sort]?.(name) ?? false);
}
