// Large windows as a user feels them, each figure as a ratio to a floor of the same run.

import * as inPage from './in_large_page.mjs';

const rows = { large: 10000, small: 100 };
const loads = 5;

/**
 * `tools` of run.mjs: start, openDialog, openBlank (a page without a program), median, report.
 */
export async function measureLarge(tools) {
    const program = await tools.start('bench_program', 0, 0, 0, rows.large);
    const little = await tools.start('bench_program', 0, 0, 0, rows.small);
    const results = [];
    for (let load = 0; load < loads; ++load) {
        results.push({
            bare: await measureBare(tools),
            large: await measureWindow(tools, program.line, rows.large),
            small: await measureWindow(tools, little.line, rows.small),
        });
    }
    program.stop();
    little.stop();
    reportAll(tools, results);
}

/** A page with one field, and one with as many native rows in a form that scrolls. */
async function measureBare({ openBlank }) {
    const one = await openBlank();
    const letter = await one.evaluate(inPage.timeLetters, { selector: 'input', addField: true });
    await one.close();
    const many = await openBlank();
    const painted = await many.evaluate(inPage.timeBareRows, rows.large);
    await many.close();
    return { letter, painted };
}

async function measureWindow({ openDialog }, address, count) {
    const page = await openDialog(address);
    const arrival = await page.evaluate(inPage.timeFields, count);
    const selector = '.window:last-of-type input[data-id]';
    const letter = await page.evaluate(inPage.timeLetters, { selector, at: count >> 1 });
    const scroll = await page.evaluate(inPage.timeScrolling);
    const resize = await page.evaluate(inPage.timeResizing);
    await page.close();
    return { ...arrival, letter, scroll, resize };
}

function reportAll({ median, report }, results) {
    const of = (find) => median(results.map(find));
    const letter = of(({ large }) => large.letter.median);
    const most = of(({ large }) => large.letter.most);
    const { first, all, longest } = {
        first: of(({ large }) => large.first),
        all: of(({ large }) => large.all),
        longest: of(({ large }) => large.longest),
    };
    const bare = of((result) => result.bare.painted);
    const show = (values) => values.map((value) => value.toFixed(1)).join(', ');
    console.log(
        `10,000 rows of label and field: first screen ${first.toFixed(1)} ms, all ${all.toFixed(1)} ms, bare ${bare.toFixed(1)} ms; all of each load ${show(results.map(({ large }) => large.all))}`,
    );
    console.log(`a letter ${letter.toFixed(1)} ms, the slowest ${most.toFixed(1)} ms`);
    report(
        'letter to next frame, 10,000 rows / a page with one field',
        letter / of((result) => result.bare.letter.median),
        2,
    );
    report('first screen of 10,000 rows / all of them bare', first / bare, 0.5);
    report('10,000 rows painted / all of them bare', all / bare, 1.2);
    report('longest task while they arrive', longest, 50, ' ms');
    for (const [what, limit] of [
        ['resize', 2],
        ['scroll', 1.2],
    ]) {
        const ratio = of(({ large }) => large[what]) / of(({ small }) => small[what]);
        report(`a frame of a ${what}, 10,000 rows / 100`, ratio, limit);
    }
}
