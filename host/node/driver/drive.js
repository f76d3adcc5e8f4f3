'use strict';
// drive(): a window of this process in the hands of a test.

const { inside, state, tarn } = require('./component.js');
const { Limit, settle } = require('./waiting.js');
const { DrivenWindow } = require('./window.js');

const options = { timeout: 'number' };

/** The titles of the windows that there are, for messages. */
function openTitles(windows) {
    const titles = windows.filter(({ kind }) => kind === 'page' || kind === 'dialog').map(({ title }) => JSON.stringify(title));
    return titles.length === 0 ? 'none is open' : `open are ${titles.join(', ')}`;
}

/** Shows the window as show() does. Not inside a promise's continuation: what a window runs when it opens may wait. */
function open(window) {
    setImmediate(() => { window.showAsync().catch((error) => process.nextTick(() => { throw error; })); });
}

async function findByObject(limit, window) {
    const now = await state(window);
    if (now.window === undefined) {
        open(window);
    }
    return limit.until(async () => ((await state(window)).window === undefined ? { problem: 'the window does not open' } : state(window)));
}

function findByTitle(limit, title) {
    return limit.until(async () => {
        const { windows } = await state();
        const found = windows.findLast(({ kind, title: shown }) => kind === 'page' && (title === undefined || shown === title));
        const wanted = title === undefined ? 'no window is open' : `no window has the title ${JSON.stringify(title)}; ${openTitles(windows)}`;
        return found === undefined ? { problem: wanted } : { window: found.id };
    });
}

/** A window of this process: one that is made already, which is shown if it is not, or the one of a title, once it is there. */
async function drive(window, given) {
    const isTitle = typeof window === 'string';
    if (!isTitle && !(window instanceof tarn.GuiWindow)) {
        throw new TypeError(`drive(window): "window" must be a GuiWindow or a title, not ${inside.describe(window)}`);
    }
    const { timeout } = inside.checkOptions('drive(window, options)', given, options);
    const limit = new Limit(`drive(${isTitle ? JSON.stringify(window) : 'window'})`, timeout);
    const { window: id } = await (isTitle ? findByTitle(limit, window) : findByObject(limit, window));
    await settle(limit);
    return new DrivenWindow(id, { timeout });
}

/** The window that was opened last. */
async function driveAny(given) {
    const { timeout } = given ?? {};
    const { window: id } = await findByTitle(new Limit('window()', timeout), undefined);
    return new DrivenWindow(id, { timeout });
}

/** The dialog that is open, once there is one: alert(), confirm(), prompt() and those for files and colours. */
async function dialog(given) {
    const { timeout } = inside.checkOptions('dialog(options)', given, options);
    const found = await new Limit('dialog()', timeout).until(async () => {
        const { windows } = await state();
        const shown = windows.filter(({ kind }) => kind === 'dialog').sort((a, b) => b.id - a.id)[0];
        return shown ?? { problem: `no dialog is open; ${openTitles(windows)}` };
    });
    return new DrivenWindow(found.id, { timeout });
}

module.exports = { dialog, drive, driveAny };
