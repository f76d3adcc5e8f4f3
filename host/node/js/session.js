'use strict';
// The session, and the text of a page while it is filtered.

const { describe } = require('./kinds.js');
const { inspect } = require('node:util');
const { formOf } = require('./forms.js');
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

/** What the session says in the handlers that run, the innermost last; undefined in one that belongs to no window. */
const running = [];

/** Runs a handler of this window, or of none. Until it returns, the session's three properties are about that window. */
function whileCurrent(window, handler) {
    const control = window === null ? null : shown().currentControl;
    running.push(window === null ? undefined : { currentWindow: window, currentControl: control, currentForm: formOf(window) });
    try {
        return handler();
    } finally {
        running.pop();
    }
}

const operations = ['get', 'has', 'set', 'deleteProperty', 'ownKeys', 'getOwnPropertyDescriptor', 'defineProperty'];
const traps = Object.fromEntries(operations.map((name) => [name, (_target, ...args) => Reflect[name](shown(), ...args)]));
traps.get = (_target, name) => (Object.hasOwn(before, name) ? running.at(-1) ?? shown() : shown())[name];

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

module.exports = { adoptSession, pageText, session, whileCurrent };
