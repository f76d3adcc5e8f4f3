'use strict';
// The package tarn-gui: native windows for a script. This file assembles it: what a script gets, and the functions that
// the addon calls ("helpers"). Each of them is explained in js/.

const { isMainThread } = require('node:worker_threads');
const { native, classes } = require('./js/native.js');
const { checkPromises, runCall, runHandler } = require('./js/calls.js');
const { checkClass } = require('./js/checked.js');
const { clipboard } = require('./js/clipboard.js');
const { dialogs } = require('./js/dialogs.js');
const { CustomElement, construct, register } = require('./js/elements.js');
const { getListener, setListener } = require('./js/errors.js');
const { confine, mount, mountDefaults } = require('./js/files.js');
const { html } = require('./js/html.js');
const { inside, insideKey } = require('./js/inside.js');
const { startInspector } = require('./js/inspect.js');
const { runImmediates } = require('./js/immediates.js');
const { displayLost } = require('./js/display.js');
const { startFromEnvironment, watch } = require('./js/live.js');
const { hasMethod, scanMethods } = require('./js/methods.js');
const { defineAccessor, defineMethod, tie, untie } = require('./js/objects.js');
const { pageText, session } = require('./js/session.js');
const { makeTableProxy } = require('./js/tables.js');
const { taskbar } = require('./js/taskbar.js');
const { tray } = require('./js/tray.js');
const { runTicks, startWait } = require('./js/wait.js');
require('./js/controls.js');
const { GuiWindow, windowClosed } = require('./js/windows.js');

native.start({
    checkPromises, construct, defineAccessor, defineMethod, displayLost, hasMethod, isAlive: () => true, makeTableProxy, runCall,
    runHandler, runImmediates, runTicks, scanMethods, startWait, tie, untie, windowClosed,
});
mountDefaults();
Object.entries(classes).forEach(([name, Class]) => checkClass(name, Class));
checkClass('GuiWindow', GuiWindow);

// The component ends with the program, before the process unloads its libraries. A worker thread only stops calling into
// script here; calls further down its stack still have to return.
process.on('exit', isMainThread ? native.end : native.close);

module.exports = {
    GuiWindow,
    GuiControl: classes.GuiControl,
    GuiSizePolicy: classes.GuiSizePolicy,
    GuiToolkit: classes.GuiToolkit,
    GuiImage: classes.GuiImage,
    CustomElement,
    session,

    get onError() {
        return getListener();
    },
    set onError(listener) {
        setListener(listener);
    },

    html,
    register,
    mount,
    confine,
    pageText,
    clipboard,
    taskbar,
    tray,
    watch,
    ...dialogs,
};

Object.defineProperty(module.exports, insideKey, { value: inside });
startFromEnvironment(module.exports);
startInspector(module.exports);
