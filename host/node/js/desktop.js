'use strict';
// What the component offers beside windows: it is started by the first use.

const { native, classes } = require('./native.js');

const { onLoad } = classes.GuiWindow; // without arguments it does nothing but make the session

/** Calls what the component has added to its session. `caller`: whom an error is about, such as a missing display. */
function callDesktop(caller, name, ...args) {
    native.ensureStarted(caller);
    if (native.session() === null) {
        Reflect.apply(onLoad, classes.GuiWindow, []);
    }
    return native.callSession(name, args);
}

module.exports = { callDesktop };
