// Functions that run inside the page. Each is sent there as text and sees of the others only what
// the first one leaves in the window.

/** Notes when each text reaches the page, before the page's own code sees it, and what it sends. */
export function watchSocket() {
    window.button = (name) =>
        [...document.querySelectorAll('button')].find(
            (button) => button.textContent.trim() === name,
        );
    const Original = window.WebSocket;
    window.measured = { arrivals: [], sent: [] };
    window.WebSocket = class extends Original {
        constructor(...args) {
            super(...args);
            window.measured.socket = this;
            this.addEventListener('message', (event) =>
                window.measured.arrivals.push([performance.now(), event.data]),
            );
        }
        send(text) {
            window.measured.sent.push(text);
            super.send(text);
        }
    };
}

/** Resolves when the program's dialog is there. */
export function waitForDialog() {
    const isThere = () => window.button('Click') !== undefined;
    return new Promise((resolve) => {
        const observer = new MutationObserver(() => {
            if (isThere()) {
                observer.disconnect();
                resolve();
            }
        });
        observer.observe(document, { childList: true, subtree: true });
        if (isThere()) resolve();
    });
}

/** Resolves when the model document has come, which belongs to the start and to no click. */
export function waitForDocument() {
    return new Promise((resolve) => {
        const look = () => {
            const isThere = window.measured.arrivals.some(([, text]) =>
                text.includes('"snapshot":'),
            );
            if (isThere) resolve();
            else setTimeout(look, 5);
        };
        look();
    });
}

/** Bytes that the socket carried: header, mask (upward only) and payload of each frame. */
export function countBytes() {
    const sizeOf = (texts, mask) =>
        texts
            .map((text) => new TextEncoder().encode(text).length)
            .reduce(
                (sum, length) => sum + length + mask + (length < 126 ? 2 : length < 65536 ? 4 : 10),
                0,
            );
    return {
        up: sizeOf(window.measured.sent, 4),
        down: sizeOf(
            window.measured.arrivals.map(([, text]) => text),
            0,
        ),
    };
}

/** Makes the blank page's button send a text of a click's size and show what comes back. */
export function connectEcho(port) {
    const socket = new WebSocket(`ws://127.0.0.1:${port}/`);
    const shown = document.querySelector('span');
    let count = 0;
    window.bare = { socket, onText: (text) => (shown.textContent = text) };
    socket.addEventListener('message', (event) => window.bare.onText(event.data));
    document.querySelector('button').addEventListener('click', () => {
        socket.send(`${++count},${count} ./1 {"event":"onClick","id":"5"}`);
    });
    return new Promise((resolve) => socket.addEventListener('open', () => resolve()));
}

/** Milliseconds from each click() to the mutation that answers it, one after the other. */
export async function timeClicks({ warmUp, counted }) {
    const button = window.button('Click');
    const shown = document.querySelector('[data-type="Text"]') ?? document.querySelector('span');
    const times = [];
    for (let i = 0; i < warmUp + counted; ++i) {
        const start = performance.now();
        await new Promise((resolve) => {
            const observer = new MutationObserver(() => {
                times.push(performance.now() - start);
                observer.disconnect();
                resolve();
            });
            observer.observe(shown, { childList: true, characterData: true, subtree: true });
            button.click();
        });
        // A task of its own, so that the next click does not run inside this answer.
        await new Promise((resolve) => setTimeout(resolve, 0));
    }
    return times.slice(warmUp);
}

/** Opens the window of rows; milliseconds from its arrival to all rows in the document. */
export async function timeWindow(rows) {
    const before = document.querySelectorAll('[data-type="Button"]').length;
    window.measured.arrivals.length = 0;
    await new Promise((resolve) => {
        const observer = new MutationObserver(() => {
            if (document.querySelectorAll('[data-type="Button"]').length === before + rows) {
                observer.disconnect();
                resolve();
            }
        });
        observer.observe(document, { childList: true, subtree: true });
        window.button('Open').click();
    });
    [...document.querySelectorAll('.box')].at(-1).getBoundingClientRect();
    const done = performance.now();
    const [arrival] = window.measured.arrivals.find(([, text]) => text.includes('Row 0'));
    return done - arrival;
}

/** Hands the page a window of rows of each kind as a frame; milliseconds until all is laid out. */
export async function timeMixedWindow(rows) {
    const items = ['red', 'orange', 'yellow', 'green', 'blue'];
    const widget = (id, type, values) => ({
        enable: true,
        id: String(id),
        tooltip: '',
        type,
        visible: true,
        ...values,
    });
    const contents = [];
    for (let row = 0; row < rows; ++row) {
        const id = 1000 + row * 5;
        contents.push(
            widget(id, 'Text', { buddy: '4294967295', text: `Name ${row}` }),
            widget(id + 1, 'Edit', { text: `value ${row}` }),
            widget(id + 2, 'CheckBox', { checked: false, label: `Option ${row}` }),
            widget(id + 3, 'ComboBox', {
                currentindex: row % 5,
                editable: false,
                entries: items,
                text: '',
            }),
            widget(id + 4, 'Button', { defaultbutton: false, icon: '', label: `Row ${row}` }),
        );
    }
    const described = {
        contents: [{ contents, id: '999', type: 'BoxLayout' }],
        id: '998',
        type: 'Dialog',
    };
    const { arrivals, socket } = window.measured;
    const frames = arrivals.map(([, text]) => text).filter((text) => /^\d+,/.test(text));
    const sequence = Number(frames.at(-1).split(',')[0]) + frames.at(-1).split('\u001e').length - 1;
    const data = `${sequence},0\u001e.\u001f${JSON.stringify(described)}`;
    // The gateway knows nothing of this frame, so it must not hear of it.
    socket.send = () => {};
    const start = performance.now();
    socket.dispatchEvent(new MessageEvent('message', { data }));
    const last = 999 + rows * 5;
    while (!document.querySelector(`[data-id="${last}"]`)) {
        await new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
    }
    document.querySelector('[data-id="999"]').getBoundingClientRect();
    return performance.now() - start;
}

/** The elements of the window of rows: tags, attributes and texts. */
export function listRows() {
    const anyRow = [...document.querySelectorAll('[data-type="Button"]')].find((row) =>
        row.textContent.includes('Row 0'),
    );
    const elementsOf = (element) => [
        element.tagName,
        [...element.attributes].map((attribute) => [attribute.name, attribute.value]),
        [...element.children].map(elementsOf),
        element.children.length === 0 ? element.textContent : '',
    ];
    const rows = anyRow
        .closest('.box')
        .querySelectorAll(':scope > [data-id], :scope > .block > [data-id]');
    return [...rows].map(elementsOf);
}

/** Milliseconds to create the same elements by hand and to show them in a bare dialog. */
export function timeByHand(list) {
    const create = ([tag, attributes, children, text]) => {
        const element = document.createElement(tag);
        for (const [name, value] of attributes) element.setAttribute(name, value);
        for (const child of children) element.append(create(child));
        if (text) element.textContent = text;
        return element;
    };
    const start = performance.now();
    const box = document.createElement('div');
    for (const row of list) box.append(create(row));
    const dialog = document.createElement('dialog');
    box.className = 'box';
    dialog.append(box);
    document.body.append(dialog);
    dialog.show();
    box.getBoundingClientRect();
    return performance.now() - start;
}

/** Has the program write a text many times in one go; tells whether every write came, in order. */
export async function timeBurst(writes) {
    const shown = document.querySelector('[data-type="Text"]');
    window.measured.arrivals.length = 0;
    const start = performance.now();
    const time = await new Promise((resolve) => {
        const observer = new MutationObserver(() => {
            if (shown.textContent.includes(`burst ${writes}`)) {
                observer.disconnect();
                resolve(performance.now() - start);
            }
        });
        observer.observe(shown, { childList: true, characterData: true, subtree: true });
        window.button('Burst').click();
    });
    const frames = window.measured.arrivals.filter(([, frame]) => frame.includes('burst '));
    const texts = frames.flatMap(([, frame]) => frame.match(/burst \d+/g));
    const inOrder = texts.every((text, index) => text === `burst ${index + 1}`);
    const bytes = frames.reduce((sum, [, frame]) => sum + frame.length, 0);
    return {
        time,
        first: frames[0][0] - start,
        last: frames.at(-1)[0] - start,
        frames: frames.length,
        received: texts.length,
        inOrder,
        size: Math.round(bytes / writes),
    };
}

/** The same number of texts of the same size from the bare sender, each one taken out and shown. */
export function timeBareBurst({ writes, size }) {
    const { socket } = window.bare;
    const shown = document.querySelector('span');
    let received = 0;
    const start = performance.now();
    return new Promise((resolve) => {
        window.bare.onText = (frame) => {
            for (const text of frame.split('\u001e').slice(1)) {
                shown.textContent = text;
                if (++received === writes) resolve(performance.now() - start);
            }
        };
        socket.send(`burst ${writes} ${size}`);
    });
}
