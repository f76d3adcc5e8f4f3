'use strict';
// Immediates while script waits inside the component. Node runs them in a loop of its own that is not made to be entered
// again: what an immediate throws inside of another callback ends the process, and below an immediate that waits, the
// inner loop stumbles over the outer one's place in the queue. So they are taken out of the queue and run here.

const { AsyncResource } = require('node:async_hooks');
const { native } = require('./native.js');

/** The immediates that wait for their turn, the oldest first. The newest one knows the one before it, and so on. */
function waiting() {
    const newest = setImmediate(() => {});
    const found = [];
    for (let each = newest._idlePrev; each; each = each._idlePrev) {
        found.push(each);
    }
    clearImmediate(newest);
    return found.reverse();
}

const numbers = ['asyncId', 'triggerId'];

/** A scope with what the immediate has kept for AsyncLocalStorage; the scope has numbers of its own. */
function scopeOf(immediate) {
    const scope = new AsyncResource('Immediate');
    for (const key of Object.getOwnPropertySymbols(immediate).filter((symbol) => !numbers.includes(symbol.description))) {
        scope[key] = immediate[key];
    }
    return scope;
}

/** Unless an immediate before it has cleared it. */
function run(immediate) {
    const { _onImmediate: callback, _argv: args } = immediate;
    if (typeof callback !== 'function') {
        return;
    }
    clearImmediate(immediate);
    try {
        scopeOf(immediate).runInAsyncScope(callback, immediate, ...args ?? []);
    } catch (error) {
        native.report(error);
    }
    native.runMicrotasks();
}

/** Whether this version of Node.js keeps its immediates in the way that is read here. */
function canTake() {
    const [first, second] = [setImmediate(() => {}), setImmediate(() => {}, 1)];
    const isKnown = second._idlePrev === first && typeof second._onImmediate === 'function' && second._argv?.[0] === 1;
    clearImmediate(first);
    clearImmediate(second);
    return isKnown && typeof first._onImmediate !== 'function';
}

const isSupported = canTake();

/** Runs those that wait. True when Node's own loop may run behind this: it finds none, or nobody can do better. */
function runImmediates() {
    if (!isSupported) {
        return true;
    }
    waiting().forEach(run);
    const left = process.getActiveResourcesInfo?.() ?? ['Immediate'];
    return !left.includes('Immediate');
}

module.exports = { runImmediates };
