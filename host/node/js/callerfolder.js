'use strict';
// The folder of the script that called the package: relative names of pages start there.

const path = require('node:path');
const { fileURLToPath } = require('node:url');

function fileOfFrame(frame) {
    const name = frame.getFileName?.();
    if (typeof name !== 'string' || name.startsWith(__dirname + path.sep) || name.startsWith('node:')) {
        return undefined;
    }
    const file = name.startsWith('file://') ? fileURLToPath(name) : name;
    return path.isAbsolute(file) ? file : undefined;
}

/** The frames of the stack, newest first; none when the program has frozen Error. */
function framesOfStack() {
    const { prepareStackTrace, stackTraceLimit } = Error;
    let found = [];
    Reflect.set(Error, 'stackTraceLimit', 16);
    Reflect.set(Error, 'prepareStackTrace', (error, frames) => { found = frames; });
    void new Error('').stack;
    Reflect.set(Error, 'prepareStackTrace', prepareStackTrace);
    Reflect.set(Error, 'stackTraceLimit', stackTraceLimit);
    return found;
}

function findCaller() {
    return framesOfStack().map(fileOfFrame).find((file) => file !== undefined);
}

/** The folder of the nearest file on the stack that is not part of this package; "" when there is none. */
function callerFolder() {
    const file = findCaller();
    return file === undefined ? '' : path.dirname(file);
}

/** That file itself; where there is none, one in the working folder. */
function callerFile() {
    return findCaller() ?? path.join(process.cwd(), 'page');
}

module.exports = { callerFile, callerFolder };
