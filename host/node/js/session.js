'use strict';
// The session, and the text of a page while it is filtered.

const { describe } = require('./kinds.js');
const { inspect } = require('node:util');
const { native } = require('./native.js');

/** What the session shows until the first window is made, and the component's own object from then on. */
const before = { currentWindow: null, currentControl: null, currentForm: null };
let table;

function shown() {
    if (table === undefined) {
        native.session(); // calls adoptSession as soon as there is one
    }
    return table ?? before;
}

const operations = ['get', 'has', 'set', 'deleteProperty', 'ownKeys', 'getOwnPropertyDescriptor', 'defineProperty'];
const traps = Object.fromEntries(operations.map((name) => [name, (_target, ...args) => Reflect[name](shown(), ...args)]));

/** The session, the same object from the beginning to the end. */
const session = new Proxy({ [inspect.custom]: () => ({ ...session }) }, traps);

/** The component has a session; what script sees of it. */
function adoptSession(made) {
    table = made;
    return session;
}

/** The text of the page that is being filtered for this form, "" when there was none. */
function pageText(form) {
    if (typeof form !== 'object' || form === null) {
        throw new TypeError(`tarn.pageText(form): "form" must be the form of a window, not ${describe(form)}`);
    }
    return native.pageText(form);
}

module.exports = { adoptSession, pageText, session };
