'use strict';
// Closing what a program has open.

const { ask, state } = require('./component.js');
const { sleep } = require('./waiting.js');

/** Closes all windows, those in front first, as their title bars do; the titles of those that stay open for so long. */
async function closeAll(ms) {
    for (const end = Date.now() + ms; Date.now() < end;) {
        const { windows } = await state();
        const open = windows.filter(({ kind }) => kind === 'page' || kind === 'dialog').sort((a, b) => b.id - a.id);
        if (open.length === 0) {
            return [];
        }
        for (const { id } of open) {
            await ask({ window: id, do: 'close' });
        }
        await sleep(10);
    }
    return (await state()).windows.map(({ title }) => title);
}

module.exports = { closeAll };
