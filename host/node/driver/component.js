'use strict';
// The driver's way to the component. Nothing here waits: a handler that the user's click has called may show a window and wait
// for its end, and the test has to go on meanwhile.

const platform = require('./platform.js');

platform.choose(process.env); // before the component starts
const tarn = require('../index.js');

const inside = tarn[Symbol.for('tarn-gui inside')];

/** Asks the thread of the windows (runtime/guidriver.h); a promise of the answer. `window`: the GuiWindow that it is about. */
function ask(request, window) {
    return new Promise((resolve) => {
        let alive = null;
        const answered = (answer) => {
            clearInterval(alive);
            resolve(JSON.parse(answer));
        };
        inside.callDesktop('drive(window)', 'drive', JSON.stringify(request), answered, ...window === undefined ? [] : [window]);
        alive = setInterval(() => {}, 2 ** 30); // the last window may go meanwhile
    });
}

/** { windows, isBusy, promises } and, when it is open, the number of `window`; when everything under way has been handled. */
const state = (window) => ask({ do: 'state' }, window);

module.exports = { ask, inside, state, tarn };
