'use strict';
// What handlers throw: the program may hear of it in tarn.onError. Otherwise it is an uncaught error of the process.

const { describe } = require('./kinds.js');
const { native, classes } = require('./native.js');
const { watching } = require('./watching.js');

let listener = null;

function setListener(value) {
    if (value !== null && value !== undefined && typeof value !== 'function') {
        throw new TypeError(`tarn.onError must be a function or null, not ${describe(value)}`);
    }
    listener = value ?? null;
}

/** The window of the object whose handler it was; null for a filter, which belongs to none. */
function windowOf(object) {
    const window = object instanceof classes.GuiWindow ? object : object?.window;
    return window instanceof classes.GuiWindow ? window : null;
}

/** `object`: whose handler it was, `handler`: the handler's name, "" for a function without one. */
function reportError(error, object, handler) {
    if (watching.error?.(error)) {
        return;
    }
    if (listener === null) {
        native.report(error);
        return;
    }
    try {
        listener(error, { window: windowOf(object), handler });
    } catch (another) {
        native.report(another);
    }
}

module.exports = { getListener: () => listener, reportError, setListener, windowOf };
