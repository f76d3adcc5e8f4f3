'use strict';
// The session, and the text of a page while it is filtered.

const { describe } = require('./kinds.js');
const { native } = require('./native.js');

const empty = Object.freeze({ currentWindow: null, currentControl: null, currentForm: null });

/** The session object; before the first window, one whose properties are null. */
function currentSession() {
    return native.session() ?? empty;
}

/** The text of the page that is being filtered for this form, "" when there was none. */
function pageText(form) {
    if (typeof form !== 'object' || form === null) {
        throw new TypeError(`tarn.pageText(form): "form" must be the form of a window, not ${describe(form)}`);
    }
    return native.pageText(form);
}

module.exports = { currentSession, pageText };
