'use strict';
// The form of a window: the values of its page's controls as properties. While a handler of the page runs they are plain data,
// which the component brings and takes; at any other time each is read from the page and shown on it at once.

const { native, classes } = require('./native.js');

const prototype = classes.GuiWindow.prototype;
const { getForm, isFormValid, readForm, writeForm } = prototype;
['getForm', 'isFormValid', 'readForm', 'writeForm'].forEach((name) => delete prototype[name]); // for this package alone

/** The windows of forms. A form does not keep its window. */
const windows = new WeakMap();

/** The form of a window. */
function formOf(window) {
    const form = getForm.call(window);
    if (form !== null) {
        windows.set(form, new WeakRef(window));
    }
    return form;
}

function windowOf(form) {
    return windows.get(form)?.deref();
}

function isForm(object) {
    return windows.has(object);
}

/** Whether the values are to be read from the page now. */
function isLive(form) {
    return windows.has(form) && !native.isInHandler(form);
}

function cannotTake(what, value) {
    const shown = typeof value === 'string' ? JSON.stringify(value) : typeof value === 'object' && value !== null ? 'an object' : String(value);
    return new TypeError(`${what} cannot take ${shown}`);
}

/** Text, a number, a boolean or null; others are no values of controls, whatever control it is. */
function checkValue(what, value) {
    if (value !== null && !['string', 'number', 'boolean'].includes(typeof value)) {
        throw cannotTake(what, value);
    }
}

/** Brings the value of one control into the form. */
function refresh(form, name) {
    const window = windowOf(form);
    if (window !== undefined && isLive(form)) {
        readForm.call(window, name);
    }
}

/** Brings all values into the form. */
function refreshAll(form) {
    const window = windowOf(form);
    if (window !== undefined && isLive(form)) {
        readForm.call(window);
    }
}

/** Whether what the page shows now is as it asks for. */
function isValid(form) {
    const window = windowOf(form);
    return window === undefined || isFormValid.call(window);
}

function write(form, name, value) {
    const window = windowOf(form);
    const isLater = !isLive(form);
    if (window === undefined || (isLater && typeof value === 'string')) {
        native.tableSet(form, name, value);
        return;
    }
    if (!writeForm.call(window, name, value, isLater)) {
        throw cannotTake(`the control "${name}" of the form`, value);
    }
}

module.exports = { cannotTake, checkValue, formOf, isForm, isValid, refresh, refreshAll, write };
