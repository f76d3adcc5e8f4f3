'use strict';
// A notification of the desktop.

const { UsageError } = require('./errors.js');

/** The names that themes of icons give to what a message is about. */
const icons = { info: 'dialog-information', warning: 'dialog-warning', error: 'dialog-error', question: 'dialog-question' };

/** No window is shown, so no display is needed: the session bus alone is. */
function prepareNotice() {
    process.env.QT_QPA_PLATFORM = 'offscreen';
}

/** The exit code, as soon as the desktop has taken it. The time limit is the notification's own. */
async function showNotice(tarn, { text, title, icon, timeout }) {
    const { callDesktop } = tarn[Symbol.for('tarn-gui inside')];
    const [head, body] = title === undefined ? [text, ''] : [title, text];
    const alive = setInterval(() => {}, 2 ** 30); // what the bus is asked keeps no process alive
    const complaint = await new Promise((resolve) => {
        callDesktop('--notify', 'showNotice', head, body, icons[icon] ?? '', Math.min(timeout, 2 ** 31 - 1), resolve);
    });
    clearInterval(alive);
    if (complaint !== '') {
        throw new UsageError(`--notify: ${complaint}`);
    }
    return 0;
}

module.exports = { prepareNotice, showNotice };
