import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { test } from 'node:test';

function css(path: string): string {
    return readFileSync(path, 'utf8').replace(/\/\*.*?\*\//gs, '');
}

function found(text: string, pattern: RegExp): ReadonlySet<string> {
    return new Set(Array.from(text.matchAll(pattern), ([all, part]) => part ?? all));
}

const declarations = ['styles/tokens.css', 'styles/lengths.css'];
const files = readdirSync('styles', { recursive: true })
    .map((name) => `styles/${name as string}`)
    .filter((name) => name.endsWith('.css') && !declarations.includes(name));
const declared = /(--[\w-]+):/g;
const [tokens, lengths] = declarations.map((file) => found(css(file), declared)) as [
    ReadonlySet<string>,
    ReadonlySet<string>,
];
const guide = readFileSync('README.md', 'utf8');
const forThemes = found(guide.match(/^\| Token \|.*?\n\n/ms)?.[0] ?? '', /`(--[\w-]+)`/g);

/** What the page sets on single elements. */
const setByCode = [
    ...['--grid-columns', '--below'],
    ...['--columns', '--first', '--rows', '--row-height', '--spacing'],
];

function without(names: ReadonlySet<string>, known: ReadonlySet<string>): readonly string[] {
    return [...names].filter((name) => !known.has(name));
}

for (const file of files) {
    test(`${file}: colours and lengths have names, and the names stand for something`, () => {
        const text = css(file).replace(/@(media|supports)[^{]*/g, '');
        assert.deepEqual(
            [...found(text, /#[\da-f]{3,8}\b|rgb\(|\b[\d.]*[1-9][\d.]*(?:px|r?em)\b/g)],
            [],
        );
        const own = new Set([...tokens, ...lengths, ...found(text, declared), ...setByCode]);
        assert.deepEqual(without(found(text, /var\((--[\w-]+)/g), own), []);
    });
}

test('a theme may set all tokens and nothing else, and each name is used', () => {
    assert.deepEqual([...forThemes].sort(), [...tokens].sort());
    const theme = found(css('../examples/gallery/theme.css'), declared);
    assert.deepEqual(without(theme, tokens), []);
    const used = found([...declarations, ...files].map(css).join(), /var\((--[\w-]+)/g);
    assert.deepEqual(without(new Set([...tokens, ...lengths]), used), []);
});
