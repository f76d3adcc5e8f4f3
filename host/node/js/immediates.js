'use strict';
// Immediates while script waits inside the component. Node's own loop over them cannot be entered again: an error thrown in it
// while another callback is on the stack ends the process, and while an immediate waits, a second loop trips over the first
// one's place in the queue. So they are taken out of the queue and run here.

const { AsyncResource } = require('node:async_hooks');
const { clearImmediate, setImmediate } = require('node:timers'); // the real ones, whatever a program puts in their place later
const { native } = require('./native.js');

/** The pending immediates, oldest first. Each one knows the one before it. */
function pending() {
    const newest = setImmediate(() => {});
    const found = [];
    for (let each = newest._idlePrev; each; each = each._idlePrev) {
        found.push(each);
    }
    clearImmediate(newest);
    return found.reverse();
}

const numbers = ['asyncId', 'triggerId'];

/** From Node.js 24 on the context is one object, which each kind of resource keeps under a symbol of its own. */
const frameOfImmediate = 'kAsyncContextFrame';
const frameOfScope = 'context_frame';

/** A scope with what the immediate keeps for AsyncLocalStorage. The numbers are the scope's own. */
function scopeOf(immediate) {
    const scope = new AsyncResource('Immediate');
    const frame = Object.getOwnPropertySymbols(scope).find((symbol) => symbol.description === frameOfScope);
    for (const key of Object.getOwnPropertySymbols(immediate).filter((symbol) => !numbers.includes(symbol.description))) {
        scope[key.description === frameOfImmediate ? frame ?? key : key] = immediate[key];
    }
    return scope;
}

/** Runs one, unless an immediate before it has cleared it. */
function run(immediate) {
    const { _onImmediate: callback, _argv: args } = immediate;
    if (typeof callback !== 'function') {
        return;
    }
    const scope = scopeOf(immediate); // clearing takes the context away
    clearImmediate(immediate);
    try {
        scope.runInAsyncScope(callback, immediate, ...args ?? []);
    } catch (error) {
        native.report(error);
    }
    native.runMicrotasks();
}

/** Whether this version of Node.js keeps its immediates as expected here. */
function canTake() {
    const [first, second] = [setImmediate(() => {}), setImmediate(() => {}, 1)];
    const isKnown = second._idlePrev === first && typeof second._onImmediate === 'function' && second._argv?.[0] === 1;
    clearImmediate(first);
    clearImmediate(second);
    return isKnown && typeof first._onImmediate !== 'function';
}

const isSupported = canTake();

/** Runs what is pending. True when Node's own loop may run after this: it finds nothing, or there is no better way. */
function runImmediates() {
    if (!isSupported) {
        return true;
    }
    pending().forEach(run);
    const left = process.getActiveResourcesInfo?.() ?? ['Immediate'];
    return !left.includes('Immediate');
}

module.exports = { runImmediates };
