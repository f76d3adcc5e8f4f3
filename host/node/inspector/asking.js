'use strict';
// The inspector's way to the component (runtime/guiinspector.h). Nothing here waits for the script.

const { tarn } = require('./package.js');

const { callDesktop } = tarn[Symbol.for('tarn-gui inside')];

/** A promise of the answer. `window`: the inspector's own, for the requests that need it. */
function ask(request, window) {
    let answered;
    const answer = new Promise((resolve) => { answered = (json) => resolve(JSON.parse(json)); });
    callDesktop('the inspector', 'inspect', JSON.stringify(request), answered, ...window === undefined ? [] : [window]);
    return answer;
}

/** What is on the window, as the test driver sees it: { title, items } or { isGone }. */
function look(windowId) {
    return new Promise((resolve) => {
        callDesktop('the inspector', 'drive', JSON.stringify({ do: 'look', window: windowId, isOnlooker: true }), (json) => resolve(JSON.parse(json)));
    });
}

module.exports = { ask, look };
