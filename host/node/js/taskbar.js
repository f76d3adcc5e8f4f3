'use strict';
// tarn.taskbar(): progress and a number on the program's entry in the desktop's taskbar or dock.

const { typeError } = require('./arguments.js');
const { callDesktop } = require('./desktop.js');
const { checkOptions } = require('./options.js');

const largest = 2 ** 31 - 1;
const options = {
    desktopFile: { accepts: (value) => /^[^/]+\.desktop$/.test(value), says: 'the name of a desktop file, such as "mail.desktop"' },
    progress: { accepts: (value) => value === null || (value >= 0 && value <= 1), says: 'a number from 0 to 1, or null' },
    count: { accepts: (value) => Number.isInteger(value) && value >= 0 && value <= largest, says: 'a whole number, not below 0' },
    urgent: { accepts: (value) => typeof value === 'boolean', says: 'true or false' },
};
const caller = 'taskbar(options: { desktopFile, progress, count, urgent })';

/** What is not named is not shown. Whether there is a desktop that may show it. */
function taskbar(given) {
    const { desktopFile, progress = null, count = 0, urgent = false } = checkOptions(caller, given, options, taskbar);
    if (desktopFile === undefined) {
        throw typeError(`${caller}: the option "desktopFile" is missing`, taskbar);
    }
    return callDesktop(caller, 'showOnTaskbar', desktopFile, progress ?? -1, count, urgent);
}

module.exports = { taskbar };
