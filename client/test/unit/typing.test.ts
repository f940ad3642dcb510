import assert from 'node:assert/strict';
import { test } from 'node:test';
import { ObjectStore, type StoreObserver } from '../../src/store/ObjectStore.ts';
import { caretIn } from '../../src/widgets/edit/caret.ts';

/** Typing on a line that is as slow as it likes, in front of programs that answer as they like. */

type Handler = (typed: string, set: (text: string) => void) => void;

interface Field {
    readonly handler: Handler;
    /** The front object writes back what it hears, as ours does; others need not. */
    readonly echoes?: boolean;
    /** The program sets the text by itself now and then. */
    readonly timer?: boolean;
    /** What the field shows at any time, of what was typed so far. */
    readonly always?: (typed: string) => string;
    readonly shown?: (text: string) => string;
    /** The user types in the middle, too. */
    readonly moves?: boolean;
}

const same = (text: string): string => text;
const upper = (text: string): string => text.toUpperCase();
const digits = (text: string): string => text.replaceAll('-', '');
const masked = (text: string): string => digits(text).replace(/(...)(?=.)/g, '$1-');
const none: Handler = () => undefined;
const answer =
    (change: (text: string) => string): Handler =>
    (typed, set) =>
        set(change(typed));

const fields: Readonly<Record<string, Field>> = {
    'leaves the text alone': { handler: none, always: same, moves: true },
    'does not even echo': { handler: none, echoes: false, always: same, moves: true },
    'sets it to what it is': { handler: answer(same), echoes: false, always: same },
    'puts it in capitals': { handler: answer(upper), always: upper, shown: upper, moves: true },
    'puts it in capitals, without an echo': {
        handler: answer(upper),
        echoes: false,
        always: upper,
        shown: upper,
        moves: true,
    },
    'puts dashes in': { handler: answer(masked), always: digits, shown: digits },
    'takes no more than five letters': { handler: answer((text) => text.slice(0, 5)) },
    'trims it': { handler: answer((text) => text.trim()) },
    'refuses everything': { handler: answer(() => 'no') },
    'has a timer': { handler: none, timer: true },
    'has a timer and capitals': { handler: answer(upper), timer: true },
};

/** Numbers that look random and come again with the same seed. */
function dice(seed: number): (sides: number) => number {
    let state = seed;
    return (sides) => {
        state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
        return Math.floor((state / 2 ** 32) * sides);
    };
}

class Scene {
    text = '';
    /** What the user has in mind, whatever the program makes of it, and where the caret is. */
    meant = '';
    meantCaret = 0;
    field = '';
    caret = 0;
    #sent = 0;
    #known = 0;
    readonly #up: string[] = [];
    readonly #down: { readonly known: number; readonly text: string }[] = [];
    readonly #observer: Partial<StoreObserver> = {
        opened: () => undefined,
        changed: (object) => this.#show(object.values.text ?? ''),
    };
    readonly #store = new ObjectStore(this.#observer as StoreObserver);

    constructor(
        private readonly m_field: Field,
        private readonly m_roll: (sides: number) => number,
    ) {
        const contents = [{ id: '2', type: 'Edit', text: '' }];
        this.#store.open({ id: 1, type: 'Dialog', values: {}, triggers: [], contents, raw: {} });
    }

    get isQuiet(): boolean {
        return this.#up.length + this.#down.length === 0;
    }

    /** The user types at the caret, or moves it first. */
    type(letter: string): void {
        if (this.m_field.moves && this.m_roll(8) === 0) {
            this.caret = this.meantCaret = this.m_roll(this.field.length + 1);
        }
        const at = this.meantCaret;
        this.meant = this.meant.slice(0, at) + letter + this.meant.slice(at);
        this.meantCaret += 1;
        this.field = this.field.slice(0, this.caret) + letter + this.field.slice(this.caret);
        this.caret += 1;
        this.#up.push(this.field);
        const values = this.#store.get(2)?.values ?? {};
        this.#sent += 1;
        this.#store.own.put(2, { text: this.field }, values, this.#sent);
        values.text = this.field;
    }

    /** The program hears of the next change. */
    hear(): void {
        const typed = this.#up.shift();
        if (typed !== undefined) {
            this.#known += 1;
            if (this.m_field.echoes !== false) {
                this.set(typed);
            }
            this.m_field.handler(typed, (text) => this.set(text));
        }
    }

    set(text: string): void {
        if (text !== this.text) {
            this.text = text;
            this.#down.push({ known: this.#known, text });
        }
    }

    /** A frame arrives: some or all of the texts that knew the same. */
    receive(): void {
        const known = this.#down[0]?.known ?? 0;
        const last = this.#down.findLastIndex((text) => text.known === known);
        this.#store.known = known;
        for (const { text } of this.#down.splice(0, 1 + this.m_roll(last + 1))) {
            this.#store.apply(1, { id: '2', text });
        }
        this.#store.flush();
    }

    #show(text: string): void {
        this.caret = caretIn(this.field, this.caret, text);
        this.field = text;
    }
}

function play(field: Field, seed: number): Scene {
    const roll = dice(seed);
    const scene = new Scene(field, roll);
    const [typing, hearing, receiving] = [1 + roll(6), 1 + roll(6), 1 + roll(6)];
    for (let left = 30; left > 0 || !scene.isQuiet; ) {
        const step = roll(typing + hearing + receiving);
        if (step < typing && left > 0) {
            scene.type('aB c1\u00e9'.charAt(roll(6)));
            left -= 1;
        } else if (step < typing + hearing) {
            scene.hear();
        } else {
            scene.receive();
        }
        if (field.timer && left > 0 && roll(10) === 0) {
            scene.set(`timer ${left}`);
        }
        const { always, shown = same } = field;
        if (always !== undefined) {
            assert.equal(shown(scene.field), always(scene.meant), `seed ${seed}`);
        }
        assert.equal(scene.caret, field.moves ? scene.meantCaret : scene.caret, `seed ${seed}`);
    }
    return scene;
}

for (const [name, field] of Object.entries(fields)) {
    test(`typing: a program that ${name}`, () => {
        const first = Date.now() % 1e6;
        for (let seed = first; seed < first + 300; seed += 1) {
            const scene = play(field, seed);
            const expected = field.echoes === false && field.handler === none;
            assert.equal(scene.field, expected ? scene.meant : scene.text, `seed ${seed}`);
        }
    });
}

const carets: readonly (readonly [before: string, now: string])[] = [
    ['ab|c', 'AB|C'],
    ['abc|', 'ABC-|'],
    ['12|34', '12-|34'],
    ['abX|c', 'abX|'],
    [' a|b', 'a|b'],
    ['a|bc', 'x|yz'],
    ['abc|d', 'x|'],
    ['a\u{1f600}|b', '\u{1f600}\u{1f600}|c'],
    ['|abc', '|'],
];

test('the caret stays where it stood, by what is around it', () => {
    const moved = carets.map(([before, now]) => {
        const text = now.replace('|', '');
        const caret = caretIn(before.replace('|', ''), before.indexOf('|'), text);
        return `${text.slice(0, caret)}|${text.slice(caret)}`;
    });
    assert.deepEqual(
        moved,
        carets.map(([, now]) => now),
    );
});
