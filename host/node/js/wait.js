'use strict';
// What the interpreter has to do while script waits inside the component: timers, ticks, and a look at whether promises run.

let probeRan = true;
let areStuck = false;

/** A wait begins. When it began in a timer, that timer has disarmed the others until it returns: a new one arms them. */
function startWait() {
    setTimeout(() => {}, 1).unref();
    probeRan = false;
    queueMicrotask(() => { probeRan = true; });
}

function runTicks() {
    process._tickCallback();
    return true;
}

const stuckWarning = 'A promise waits in show() or in another call that takes long, and this version of Node.js runs no '
    + 'other promise meanwhile: async handlers are not waited for. Use "await window.showAsync()" instead.';

/** Looks whether promises run during this wait, and warns when they stop doing so; true when they do not. */
function lookForStuckPromises() {
    if (!areStuck && !probeRan) {
        process.emitWarning(stuckWarning, { code: 'TARN_SHOW_IN_PROMISE' });
    }
    areStuck = !probeRan;
    return areStuck;
}

/** What the last look found. */
function arePromisesStuck() {
    return areStuck;
}

module.exports = { arePromisesStuck, lookForStuckPromises, runTicks, startWait };
