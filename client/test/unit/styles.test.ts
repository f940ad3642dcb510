import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { test } from 'node:test';

function css(path: string): string {
    return readFileSync(path, 'utf8').replace(/\/\*.*?\*\//gs, '');
}

function found(text: string, pattern: RegExp): ReadonlySet<string> {
    return new Set(Array.from(text.matchAll(pattern), ([all, part]) => part ?? all));
}

const tokensFile = 'styles/tokens.css';
const files = readdirSync('styles', { recursive: true })
    .map((name) => `styles/${name as string}`)
    .filter((name) => name.endsWith('.css') && name !== tokensFile);
const declared = /(--[\w-]+):/g;
const tokens = found(css(tokensFile), declared);
const guide = readFileSync('README.md', 'utf8');
const forThemes = found(guide.match(/^\| Token \|.*?\n\n/ms)?.[0] ?? '', /`(--[\w-]+)`/g);

function without(names: ReadonlySet<string>, known: ReadonlySet<string>): readonly string[] {
    return [...names].filter((name) => !known.has(name));
}

for (const file of files) {
    test(`${file}: every colour and every length is a token, and there is such a token`, () => {
        const text = css(file).replace(/@(media|supports)[^{]*/g, '');
        assert.deepEqual(
            [...found(text, /#[\da-f]{3,8}\b|rgb\(|\b[\d.]*[1-9][\d.]*(?:px|r?em)\b/g)],
            [],
        );
        const own = new Set([...tokens, ...found(text, declared), '--grid-columns', '--below']);
        assert.deepEqual(without(found(text, /var\((--[\w-]+)/g), own), []);
    });
}

test('a theme may set tokens that there are, and the second theme sets no others', () => {
    assert.ok(forThemes.size > 0);
    assert.deepEqual(without(forThemes, tokens), []);
    const theme = found(css('../examples/gallery/theme.css'), declared);
    assert.deepEqual(without(theme, forThemes), []);
});
