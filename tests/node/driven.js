'use strict';
// What the tests of the test driver share: a page that is shown and driven, and what its handlers were called with.

const assert = require('node:assert/strict');
const path = require('node:path');
const { packageFolder } = require('./helpers.js');
const tarn = require(packageFolder);
const driver = require(path.join(packageFolder, 'test.js'));

/** The window that was opened last, and the calls of its handlers: their names, what the page says, the type of the event. */
const shown = { window: null, calls: [] };

/** Shows a page and drives it; each of `handlers` is noted before it does what it does. `body`: attributes. */
async function open(content, handlers = {}, body = '') {
    shown.window?.close();
    const window = tarn.GuiWindow.from(`<html><head><title>Order</title></head><body width="420" height="300" ${body}>${content}</body></html>`);
    Object.assign(shown, { window, calls: [] });
    for (const [name, act] of Object.entries(handlers)) {
        window[name] = function (session, ...args) {
            shown.calls.push([name, ...args, ...session.event?.type === undefined ? [] : [session.event.type]]);
            return act.call(this, session, ...args);
        };
    }
    return driver.drive(window);
}

/** Ends what open() has begun. */
const end = () => shown.window?.close();

/** The verb fails with exactly this message. */
const fails = (promise, message) => assert.rejects(promise, (error) => {
    assert.ok(error instanceof driver.DriveError, error.stack);
    assert.equal(error.message, message);
    return true;
});

/** How long a verb that must fail tries. */
const short = { timeout: 60 };
const nothing = () => {};

module.exports = { driver, end, fails, nothing, open, short, shown, tarn };
