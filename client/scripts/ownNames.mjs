// Which names of members the build may shorten: those that the page's own code alone knows.

import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import ts from 'typescript';

const client = join(dirname(fileURLToPath(import.meta.url)), '..');
/** Made from the protocol's table: its members have the names of the wire. */
const wire = join(client, 'src/protocol/values.ts');

/** The page's sources, and the declarations of all that they use: browser, language, libraries. */
function filesOf(entry) {
    const { config } = ts.readConfigFile(join(client, 'tsconfig.json'), ts.sys.readFile);
    const { options } = ts.parseJsonConfigFileContent(config, ts.sys, client);
    return ts.createProgram([entry], { ...options, types: [] }).getSourceFiles();
}

function nodesOf(file) {
    const nodes = [file];
    for (const node of nodes) {
        ts.forEachChild(node, (child) => void nodes.push(child));
    }
    return nodes;
}

/** Names that classes and interfaces declare; those of private members are shortened anyway. */
function membersIn(nodes) {
    const members = nodes.filter((node) => ts.isClassElement(node) || ts.isTypeElement(node));
    const names = members.map(({ name }) => name);
    return names.filter((name) => name && !ts.isPrivateIdentifier(name)).map(({ text }) => text);
}

/** Every word in a text: it may be the name of a member, such as one that is kept or sent. */
function wordsIn(nodes) {
    const texts = nodes.filter(
        (node) => ts.isStringLiteralLike(node) || ts.isTemplateLiteralToken(node),
    );
    return texts.flatMap(({ text }) => text.match(/[\w$]+/g) ?? []);
}

/**
 * The names that classes and interfaces of the page declare, less those that mean something
 * elsewhere: members of the browser's and the libraries' objects, of the wire, and all that occur
 * in a text of the sources, since an object may be read by that name.
 */
export function ownNames(entry) {
    const own = new Set();
    const foreign = new Set();
    for (const file of filesOf(join(client, entry))) {
        const nodes = nodesOf(file);
        const isOwn = !file.isDeclarationFile && file.fileName !== wire;
        membersIn(nodes).forEach((name) => (isOwn ? own : foreign).add(name));
        if (!file.isDeclarationFile) {
            wordsIn(nodes).forEach((word) => foreign.add(word));
        }
    }
    return [...own].filter((name) => !foreign.has(name));
}
