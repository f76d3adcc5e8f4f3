'use strict';
// What the interpreter needs while script waits inside the component: timers, ticks, and a check that promises run.

let probeRan = true;
let areStuck = false;
let isTold = false;

/** Times that a program hardly has timers of, all of them at once. */
const rareMs = [7, 11, 13];

/**
 * A wait begins. Node has disarmed its timers if one of them began it; setting a new one arms them again, unless there is one
 * of the same time already: the one that waits, for example.
 */
function startWait() {
    rareMs.forEach((ms) => setTimeout(() => {}, ms).unref());
    probeRan = false;
    areStuck = false;
    queueMicrotask(() => { probeRan = true; });
}

/** Without this function of Node.js, ticks and rejections wait until the call into the component returns. */
function runTicks() {
    process._tickCallback?.();
    return true;
}

const stuck = 'tarn: show() or another call waits inside a promise continuation (what follows an "await"), and this Node.js runs no other '
    + 'promise meanwhile; say "await window.showAsync()" instead of "window.show()"\n';

/** Checks whether promises run during this wait; true, which is told once, when they do not. */
function lookForStuckPromises() {
    if (!probeRan && !isTold) {
        process.stderr.write(stuck);
        isTold = true;
    }
    areStuck = !probeRan;
    return areStuck;
}

/** What the last check found. */
function arePromisesStuck() {
    return areStuck;
}

module.exports = { arePromisesStuck, lookForStuckPromises, runTicks, startWait };
