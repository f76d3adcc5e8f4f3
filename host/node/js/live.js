'use strict';
// The way to live reload: tarn.watch(), and TARN_WATCH=1 in the environment.

const path = require('node:path');
const { isMainThread } = require('node:worker_threads');

let tarn = null;

/** A file of live reload, which has the package. */
function live(file) {
    require('../live/package.js').tarn = tarn;
    return file();
}

function watch(...args) {
    return live(() => require('../live/watch.js')).watch(...args);
}

/** Whether this process may put another one in front of itself: it runs a script, and nobody speaks with it or restarts it. */
function isAlone() {
    return process.argv[1] !== undefined && !process.channel && !process.env.WATCH_REPORT_DEPENDENCIES && !process.env.NODE_TEST_CONTEXT;
}

/** Starts the program again, below a process that starts it anew when a script is saved; this one ends with it. */
function runSupervised() {
    const { spawnSync } = require('node:child_process');
    const command = path.join(__dirname, '..', 'bin', 'tarn-gui.js');
    const { status, signal } = spawnSync(process.execPath, [...process.execArgv, command, 'watch', ...process.argv.slice(1)], { stdio: 'inherit' });
    process.exit(status ?? (signal === null ? 1 : 128));
}

/** Once the package, `made`, is complete. */
function startFromEnvironment(made) {
    tarn = made;
    if (!['1', 'true'].includes(process.env.TARN_WATCH) || !isMainThread) {
        return;
    }
    const { TARN_WATCH_LINK: link, TARN_WATCH_PLACES: places } = process.env;
    // What this program starts is not watched.
    ['TARN_WATCH', 'TARN_WATCH_LINK', 'TARN_WATCH_PLACES'].forEach((name) => delete process.env[name]);
    if (link !== undefined) {
        live(() => require('../live/supervised.js')).follow(Number(link), places);
    } else if (isAlone()) {
        process.env.TARN_WATCH = '1';
        runSupervised();
    } else {
        live(() => require('../live/watch.js')).begin();
    }
}

module.exports = { startFromEnvironment, watch };
