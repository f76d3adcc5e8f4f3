'use strict';
// Calls of script methods by the component, and the promises that some of them return.

const { reportError } = require('./errors.js');
const { findMethod } = require('./methods.js');
const { native } = require('./native.js');
const { arePromisesStuck, lookForStuckPromises } = require('./wait.js');

/** Handlers whose promise has not settled, by the number of their call. */
const unsettled = new Set();

function isThenable(value) {
    return value !== null && (typeof value === 'object' || typeof value === 'function') && typeof value.then === 'function';
}

function finish(id, value) {
    unsettled.delete(id);
    native.complete(id, value);
}

/** The call is completed before its error is reported: the report may end the process. */
function fail(id, error, self, name) {
    finish(id, null);
    reportError(error, self, name);
}

function awaitResult(id, promise, self, name) {
    unsettled.add(id);
    Promise.resolve(promise).then((value) => finish(id, value), (error) => fail(id, error, self, name));
    if (arePromisesStuck() && native.isWaiting()) {
        finish(id, null);
    }
}

/** What a custom element hears while the user goes on working: nobody waits for what such a handler does later. */
const elementEvents = new Set(['eCreate', 'eDestroy', 'ePaint', 'eMouseMove', 'eMouseOver', 'eMouseOut', 'eMouseDown', 'eMouseUp',
    'eMouseWheel', 'eKey', 'eFocus', 'eBlur']);

function answer(id, self, name, result) {
    if (!isThenable(result)) {
        finish(id, result);
    } else if (elementEvents.has(name)) {
        finish(id, null);
        Promise.resolve(result).catch((error) => reportError(error, self, name));
    } else {
        awaitResult(id, result, self, name);
    }
}

/** Calls a method for the component and answers under `id`, now or when the promise that it returns has settled. */
function runCall(id, target, self, name, args) {
    try {
        const method = findMethod(target, name);
        const result = method === undefined ? null : Reflect.apply(method, self, args);
        answer(id, self, name, result);
    } catch (error) {
        fail(id, error, self, name);
    }
    return true;
}

/** Called only where the addon cannot run promises inside a promise: ends the calls whose promise cannot settle meanwhile. */
function checkPromises() {
    if (lookForStuckPromises()) {
        [...unsettled].forEach((id) => finish(id, null));
    }
    return true;
}

module.exports = { checkPromises, runCall };
