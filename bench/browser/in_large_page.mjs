// Functions that run inside the page. Each is sent there as text, so it brings what it needs.

/** Opens the window of fields: milliseconds to its first frame, to the last row painted, and of the
 * longest task until everything is laid out. */
export async function timeFields(rows) {
    const tasks = [];
    const watch = new PerformanceObserver((list) =>
        tasks.push(...list.getEntries().map(({ duration }) => duration)),
    );
    watch.observe({ type: 'longtask' });
    const painted = () =>
        new Promise((done) =>
            requestAnimationFrame(() => setTimeout(() => done(performance.now()))),
        );
    const fields = document.getElementsByTagName('input');
    window.measured.arrivals.length = 0;
    window.button('Fields').click();
    while (fields.length === 0) await new Promise((done) => setTimeout(done));
    const first = await painted();
    const isWhole = () => document.querySelectorAll('input[data-id]').length === rows;
    while (!isWhole()) await painted();
    const all = await painted();
    while (document.querySelector('.block:not(.laid)')) await painted();
    await new Promise((done) => setTimeout(done, 100));
    const [arrival] = window.measured.arrivals.find(([, text]) => text.includes('Label of row 0'));
    return { first: first - arrival, all: all - arrival, longest: Math.max(0, ...tasks) };
}

/** Milliseconds until as many native rows in a box that scrolls are painted. No form: the browser
 * looks at all of its fields for each that comes, which takes half a minute. */
export async function timeBareRows(rows) {
    const box = document.createElement('div');
    box.style.cssText = 'height:500px;overflow:auto';
    const start = performance.now();
    for (let row = 0; row < rows; ++row) {
        const label = document.createElement('label');
        label.textContent = `Label of row ${row}`;
        label.htmlFor = `field-${row}`;
        const field = document.createElement('input');
        field.id = label.htmlFor;
        field.defaultValue = `value ${row}`;
        const line = document.createElement('div');
        line.append(label, field);
        box.append(line);
    }
    document.body.append(box);
    await new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
    return performance.now() - start;
}

/** Milliseconds from a letter in a field to the end of the frame that shows it. */
export async function timeLetters({ selector, at = 0, addField = false }) {
    if (addField) document.body.append(document.createElement('input'));
    const field = document.querySelectorAll(selector)[at];
    const painted = () => new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
    field.focus();
    field.scrollIntoView({ block: 'center' });
    for (let frame = 0; frame < 10; ++frame) await painted();
    const times = [];
    for (let letter = 0; letter < 60; ++letter) {
        const start = performance.now();
        document.execCommand('insertText', false, 'x');
        await painted();
        times.push(performance.now() - start);
        await new Promise((done) => setTimeout(done, (letter * 7) % 20));
    }
    times.sort((a, b) => a - b);
    return { median: times[times.length >> 1], most: times.at(-1) };
}

/** What a frame of scrolling costs: milliseconds of the page's rendering, the middle of many. */
export async function timeScrolling() {
    const scroller = document.querySelector('.gives');
    const rendered = () =>
        new Promise((done) =>
            requestAnimationFrame(() => {
                const before = performance.now();
                setTimeout(() => done(performance.now() - before));
            }),
        );
    const times = [];
    for (let step = 0; step < 80; ++step) {
        scroller.scrollTop += step % 20 < 10 ? 120 : -120;
        times.push(await rendered());
    }
    times.sort((a, b) => a - b);
    return times[times.length >> 1];
}

/** The same while the window's corner is drawn. */
export async function timeResizing() {
    const window = [...document.querySelectorAll('.window')].at(-1);
    const { right, bottom } = window.getBoundingClientRect();
    const point = (type, x, y) =>
        window.dispatchEvent(
            new PointerEvent(type, {
                bubbles: true,
                isPrimary: true,
                pointerId: 1,
                button: 0,
                buttons: type === 'pointerup' ? 0 : 1,
                clientX: x,
                clientY: y,
            }),
        );
    const rendered = () =>
        new Promise((done) =>
            requestAnimationFrame(() => {
                const before = performance.now();
                setTimeout(() => done(performance.now() - before));
            }),
        );
    point('pointerdown', right - 2, bottom - 2);
    const times = [];
    for (let step = 0; step < 60; ++step) {
        const by = step % 20 < 10 ? step % 20 : 20 - (step % 20);
        point('pointermove', right - 2 - 8 * by, bottom - 2 - 4 * by);
        times.push(await rendered());
    }
    point('pointerup', right - 2, bottom - 2);
    times.sort((a, b) => a - b);
    return times[times.length >> 1];
}
