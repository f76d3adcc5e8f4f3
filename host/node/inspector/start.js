'use strict';
// Loaded by a program that is to be inspected (TARN_INSPECT=1): Ctrl+Shift+I in a window opens the inspector for it.

const { isMainThread } = require('node:worker_threads');
const { ask } = require('./asking.js');
const { EventLog } = require('./eventlog.js');
const { tarn } = require('./package.js');

const { watchCalls } = tarn[Symbol.for('tarn-gui inside')];

const log = new EventLog();
let inspector = null;

function isInspector(object) {
    return inspector !== null && (object === inspector || object?.window === inspector);
}

/** Not inside a promise's continuation: what a window runs when it opens may wait. */
function show(windowId) {
    setImmediate(() => {
        const { Inspector } = require('./inspector.js');
        if (inspector?.windowId === windowId) {
            inspector.pick(true);
            return;
        }
        inspector?.close();
        inspector = Inspector.open(windowId, log);
    });
}

async function waitForKeys() {
    for (;;) {
        const { window } = await ask({ do: 'wait' });
        show(window);
    }
}

/** The component is started now, since it has to know before the first page is read. */
function start() {
    try {
        ask({ do: 'start' });
    } catch {
        return; // without a display, for one; the program hears of it when it makes a window
    }
    watchCalls((call) => { if (call.name !== '' && !isInspector(call.self)) log.add(call); });
    waitForKeys();
}

if (isMainThread) {
    start();
}
