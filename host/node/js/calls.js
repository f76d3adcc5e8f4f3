'use strict';
// Calls of script methods by the component, and the promises that some of them return.

const { reportError, windowOf } = require('./errors.js');
const { findMethod } = require('./methods.js');
const { native } = require('./native.js');
const { whileCurrent } = require('./session.js');
const { watching } = require('./watching.js');
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

/** How many handlers may run inside each other: each takes its part of the interpreter's stack. */
const deepestCall = 150;
let runningCalls = 0;

/** Hears of each call; null: nobody does. */
let callWatcher = null;

/** From now on `watcher` hears of each call when it has returned: { self, name, args, ms, error }, `ms` how long it took. */
function watchCalls(watcher) {
    callWatcher = watcher;
}

function callWatched(method, self, name, args) {
    const begin = performance.now();
    let error;
    try {
        return Reflect.apply(method, self, args);
    } catch (thrown) {
        error = thrown;
        throw thrown;
    } finally {
        callWatcher({ self, name, args, ms: performance.now() - begin, error });
    }
}

/** The result of the method; null without one. */
function callMethod(target, self, name, args) {
    const method = findMethod(target, name);
    if (method === undefined) {
        return null;
    }
    if (runningCalls >= deepestCall) {
        throw new RangeError(`the handler ${name}() was called inside ${deepestCall} handlers that are still running`);
    }
    ++runningCalls;
    try {
        return whileCurrent(windowOf(self), () => (callWatcher === null ? Reflect.apply(method, self, args)
            : callWatched(method, self, name, args)));
    } finally {
        --runningCalls;
    }
}

/** Calls a method for the component and answers under `id`, now or when the promise that it returns has settled. */
function runCall(id, target, self, name, args) {
    try {
        const call = () => callMethod(target, self, name, args);
        // Filters and includes are called for the window itself. An element's events are its own: what it reads is no part of the page.
        const isForPage = watching.call !== null && self === windowOf(self);
        answer(id, self, name, isForPage ? watching.call(self, call) : call());
    } catch (error) {
        fail(id, error, self, name);
    }
    return true;
}

/** The call of a handler whose promise nobody waits for ends when that has settled, if anybody still wants to know. */
function leavePromise(id, promise, self, name) {
    native.promised(id);
    Promise.resolve(promise).then((value) => native.complete(id, value), (error) => fail(id, error, self, name));
}

/** Calls a handler of a page. When it returns a promise, the page goes on. */
function runHandler(id, target, self, name, args) {
    try {
        const result = callMethod(target, self, name, args);
        if (isThenable(result)) {
            leavePromise(id, result, self, name);
        } else {
            native.complete(id, result);
        }
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

module.exports = { checkPromises, runCall, runHandler, watchCalls };
