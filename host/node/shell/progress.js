'use strict';
// How far something has come, as standard input tells: a line with a number is a percentage, "# TEXT" says what is done now.

const readline = require('node:readline');

const pageOf = ({ html }, { text, title }) => html`<head><title>${title ?? 'Progress'}</title></head><body width="420" height="130" noresize>
<table width="100%" cellpadding="6"><tr><td name="now" height="34">${text}</td></tr>
<tr><td height="34"><progress name="bar" width="100%" height="20"></progress></td></tr>
<tr><td height="44" align="right"><input type="button" name="end" value="Cancel" onclick="event://onEnd" width="92" height="28"></td></tr></table></body>`;

function showLine({ html }, window, line) {
    const text = /^#\s*(.*)/.exec(line)?.[1];
    if (text !== undefined) {
        window.control('now').setText(html`${text}`);
    } else if (line.trim() !== '' && !Number.isNaN(Number.parseFloat(line))) {
        window.form.bar = Math.min(Math.max(Number.parseFloat(line) / 100, 0), 1);
    }
}

/** A window, and a promise of the exit code: 0 when the input ended first, 1 when the user did. */
function showProgress(tarn, options, print, input) {
    let isDone = false;
    class Progress extends tarn.GuiWindow {
        onEnd() { this.close(); }
    }
    const window = Progress.from(pageOf(tarn, options));
    window.setEscapeControl('end');
    const result = window.showAsync().then(() => (isDone ? 0 : 1));
    const follow = async () => {
        for await (const line of readline.createInterface({ input })) {
            if (window.isOpen()) {
                showLine(tarn, window, line);
            }
        }
        isDone = true;
        if (!window.isOpen()) {
            return;
        }
        window.form.bar = 1;
        window.control('end').setCaption('OK');
        if (options.close) {
            window.close();
        }
    };
    follow();
    return { window, result };
}

module.exports = { showProgress };
