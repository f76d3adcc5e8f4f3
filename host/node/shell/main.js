'use strict';
// The command tarn-gui: reads its arguments, shows a window, prints the answer.

const { create } = require('./create.js');
const { showEntry, showFile, showText } = require('./dialogs.js');
const { showList } = require('./lists.js');
const { prepareNotice, showNotice } = require('./notice.js');
const { showPage } = require('./page.js');
const { showProgress } = require('./progress.js');
const { showCalendar, showColor, showScale, showTextInfo } = require('./questions.js');
const { UsageError, help, readArguments } = require('./usage.js');
const { watch } = require('./watch.js');

const exitCodes = { wrongArguments: 2, timeout: 5 };
const windows = { 'page': showPage, 'list': showList, 'progress': showProgress, 'text-info': showTextInfo, 'calendar': showCalendar, 'scale': showScale };
const dialogs = { text: showText, entry: showEntry, file: showFile, color: showColor };

const print = (text) => process.stdout.write(`${text}\n`);

/** The exit code of a window, which closes by itself when its time is over. */
async function codeOf({ window, result }, timeout) {
    let isLate = false;
    const timer = timeout > 0 && setTimeout(() => { isLate = true; window.close(); }, timeout);
    const code = await result;
    clearTimeout(timer);
    return isLate ? exitCodes.timeout : code;
}

async function show(tarn, options) {
    if (options.kind === 'notify') {
        return showNotice(tarn, options);
    }
    if (windows[options.kind]) {
        return codeOf(await windows[options.kind](tarn, options, print, process.stdin), options.timeout);
    }
    // What the desktop shows can not be taken back: the process ends instead.
    const timer = options.timeout > 0 && setTimeout(() => process.exit(exitCodes.timeout), options.timeout);
    const code = await dialogs[options.kind](tarn, options, print);
    clearTimeout(timer);
    return code;
}

function complain(error) {
    process.stderr.write(`tarn-gui: ${error.message}\n`);
    return exitCodes.wrongArguments;
}

/**
 * Runs the command with these arguments; a promise of its exit code. `load` gives the package, and is called when there is
 * something to show.
 */
async function main(args, load) {
    try {
        const options = readArguments(args);
        if (options.kind === 'help' || options.kind === 'version') {
            process.stdout.write(options.kind === 'help' ? help : `${require('../package.json').version}\n`);
            return 0;
        }
        if (options.kind === 'create') {
            return create(options, print);
        }
        if (options.kind === 'watch') {
            return await watch(options);
        }
        if (options.kind === 'notify') {
            prepareNotice();
        }
        const code = await show(load(), options);
        process.stdin.destroy(); // whoever writes there need not go on
        return code;
    } catch (error) {
        if (error instanceof UsageError || error.code) {
            return complain(error);
        }
        throw error;
    }
}

module.exports = { main };
