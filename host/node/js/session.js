'use strict';
// The session and what belongs to it, for reading.

const { native } = require('./native.js');

const empty = Object.freeze({ currentWindow: null, currentControl: null, currentForm: null });

/** The session object; before the first window, one whose properties are null. */
function currentSession() {
    return native.session() ?? empty;
}

/** The text of the page that is being filtered for this form, "" when there was none. */
function pageText(form) {
    return native.pageText(form);
}

module.exports = { currentSession, pageText };
