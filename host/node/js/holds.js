'use strict';
// What keeps the program alive while the user has something before him: an open dialog does, as an open window does.

const { native } = require('./native.js');

let areDropped = false;

/** Keeps the program alive until release(). */
function hold() {
    const timer = setInterval(() => {}, 2 ** 30);
    return areDropped ? timer.unref() : timer;
}

const release = (timer) => clearInterval(timer);

/** From now on no window and no dialog keeps the program alive: a test whose check has failed leaves them open. */
function dropHolds() {
    areDropped = true;
    native.dropHold();
}

module.exports = { dropHolds, hold, release };
