import { readdirSync, readFileSync } from 'node:fs';
import { join, relative } from 'node:path';
import { fileURLToPath } from 'node:url';

/**
 * The names that the C++ side knows, read from the tables in its sources. What does not look as
 * these tables do today is an exception, so that no name is passed over unseen.
 */

const root = fileURLToPath(new URL('../..', import.meta.url));

export function read(path) {
    return readFileSync(join(root, path), 'utf8');
}

/** The paths of all files below a folder whose name ends so. */
export function filesBelow(folder, ending) {
    const here = join(root, folder);
    return readdirSync(here, { withFileTypes: true }).flatMap((entry) => {
        const path = relative(root, join(here, entry.name));
        if (entry.isDirectory()) {
            return filesBelow(path, ending);
        }
        return ending.test(entry.name) ? [path] : [];
    });
}

/** A source of C++ or TypeScript without its comments; lines keep their numbers. */
export function withoutComments(text) {
    return text.replace(/"(?:[^"\\\n]|\\.)*"|\/\/.*|\/\*[^]*?\*\//g, (found) =>
        found.startsWith('"') ? found : found.replace(/[^\n]/g, ''),
    );
}

const constant = /^const (?:QString|std::string|std::u16string) (\w+) = (?:QStringLiteral\("([^"]+)"\)|u?"([^"]+)");$/;
const viewConstant = /^inline constexpr std::string_view (\w+) = "([^"]+)";$/;

const tables = [
    { file: 'web/core/PropertyNames.cpp', form: constant },
    { file: 'web/core/LifeCycleNames.cpp', form: constant },
    { file: 'platform/model/include/model/PropertyName.h', form: viewConstant },
];

/** What the names in each namespace are. */
const sorts = {
    'DOVA::keys': 'property',
    'DOVA::names': 'property',
    'DOVA::received': 'member',
    'DOVA::events': 'event',
    'DOVA::kinds': 'kind',
    'DOVA::words': 'word',
    'DOVA::lifecycle': 'life cycle',
    'tdom::PropertyName': 'element property',
};

function readTable({ file, form }) {
    let namespace;
    return withoutComments(read(file)).split('\n').flatMap((line, index) => {
        const [, opened] = /^namespace (\S+) \{$/.exec(line) ?? [];
        const [, identifier, ...values] = form.exec(line) ?? [];
        if (namespace === undefined && opened in sorts) {
            namespace = opened;
        } else if (namespace !== undefined && line.trim() === '}') {
            namespace = undefined;
        } else if (namespace !== undefined && identifier !== undefined) {
            const name = values.find((value) => value !== undefined);
            return [{ sort: sorts[namespace], name, identifier: `${namespace}::${identifier}` }];
        } else if (line !== '' && !line.startsWith('#')) {
            throw new Error(`${file}:${index + 1}: this is no line of a table of names: ${line}`);
        }
        return [];
    });
}

/** The types of the model's elements, each where its class says it. */
function elementTypes() {
    const stated = filesBelow('platform/model', /\.cpp$/).flatMap((file) =>
        [...read(file).matchAll(/::s_type\{"(\w+)"/g)].map(([, name]) => name),
    );
    const declared = filesBelow('platform/model/include', /\.h$/).filter((file) =>
        /static const Type s_type;/.test(read(file)),
    );
    if (stated.length !== declared.length || stated.length === 0) {
        throw new Error(`${declared.length} classes of elements, types of ${stated.length}`);
    }
    return stated.flatMap((name) => [{ sort: 'element', name }, { sort: 'kind', name }]);
}

/** What the factory makes, under the names of its operations. */
function madeKinds() {
    const made = [...read('include/core/WebFactory2.h').matchAll(/void create(\w+?)2?\(/g)];
    if (made.length === 0) {
        throw new Error('the factory makes nothing');
    }
    return made.map(([, name]) => ({ sort: 'kind', name })).filter(({ name }) => name !== 'Factory');
}

export const constants = tables.flatMap(readTable);

/** `{sort, name}` of everything that the C++ side knows, each once. */
export const known = [
    ...new Map(
        [...constants, ...elementTypes(), ...madeKinds()].map(({ sort, name }) => [
            `${sort} ${name}`,
            { sort, name },
        ]),
    ).values(),
];

const tableFiles = tables.map(({ file }) => file);
const sources = ['web', 'include', 'platform/model']
    .flatMap((folder) => filesBelow(folder, /\.(cpp|h)$/))
    .map((file) => ({ file, text: withoutComments(read(file)) }));

/** The constants that no source uses: names that only seem to be known. */
export function unusedConstants() {
    return constants.filter(({ identifier }) => {
        const name = identifier.replace(/^(DOVA|tdom)::/, '');
        const use = new RegExp(`\\b${name}\\b`);
        return !sources.some(({ file, text }) => !tableFiles.includes(file) && use.test(text));
    });
}

/**
 * The words in quotation marks that the library's sources hold beside the tables. What is for
 * scripts has no messages.
 */
export function looseWords() {
    const library = sources.filter(
        ({ file }) => !tableFiles.includes(file) && !/^platform\/|\/scripting\//.test(file),
    );
    return library.flatMap(({ file, text }) => {
        const own = text.replace(/extern "C"|^#include .*/gm, '');
        return [...own.matchAll(/"([A-Za-z][\w.:-]*)"/g)].map(([, word]) => ({ file, word }));
    });
}
