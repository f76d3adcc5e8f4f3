'use strict';
// The folder of the script that called the package: relative names of pages start there.

const path = require('node:path');
const { fileURLToPath } = require('node:url');

function folderOfFrame(frame) {
    const name = frame.getFileName?.();
    if (typeof name !== 'string' || name.startsWith(__dirname + path.sep) || name.startsWith('node:')) {
        return undefined;
    }
    const file = name.startsWith('file://') ? fileURLToPath(name) : name;
    return path.isAbsolute(file) ? path.dirname(file) : undefined;
}

/** The folder of the nearest file on the stack that is not one of this folder; "" when there is none. */
function callerFolder() {
    const { prepareStackTrace, stackTraceLimit } = Error;
    let folder = '';
    Error.stackTraceLimit = 16;
    Error.prepareStackTrace = (error, frames) => {
        folder = frames.map(folderOfFrame).find((found) => found !== undefined) ?? '';
    };
    void new Error('').stack;
    Error.prepareStackTrace = prepareStackTrace;
    Error.stackTraceLimit = stackTraceLimit;
    return folder;
}

module.exports = { callerFolder };
