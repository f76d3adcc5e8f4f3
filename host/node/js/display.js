'use strict';
// The end of a program whose display is gone.

const { isMainThread } = require('node:worker_threads');
const { native } = require('./native.js');

const display = () => ['WAYLAND_DISPLAY', 'DISPLAY'].filter((name) => process.env[name]).map((name) => `${name}=${process.env[name]}`);

/** For the component, which serves nothing any more: ends the program, with its listeners of "exit". */
function displayLost() {
    process.stderr.write(`tarn: the connection to the display is lost (${display().join(', ')}); the program ends\n`);
    if (isMainThread) {
        process.exit(1);
    }
    // A worker thread that waits in a window would never end.
    process.emit('exit', 1);
    native.leave(1);
}

module.exports = { displayLost };
