'use strict';
// Rows of standard input to choose from. The window is there before the first of them.

const readline = require('node:readline');

/** How long rows are collected before they are shown, in milliseconds. */
const pause = 200;

function pageOf({ html }, { text, title, multiple }) {
    return html`<head><title>${title ?? 'Choose'}</title></head><body width="480" height="360">
<frameset rows="*,52"><td cellpadding="8"><table width="100%" height="100%" cellspacing="0">${text === '' ? '' : html`<tr><td height="28">${text}</td></tr>`}
<tr><td><object classid="listview" name="rows" zebra ${multiple ? html`multiple` : ''} onactivate="event://ok" width="100%" height="100%"></object></td></tr></table></td>
<td cellpadding="10"><table width="100%"><tr><td></td>
<td width="98"><input type="button" name="okButton" value="OK" onclick="event://ok" width="92" height="28"></td>
<td width="92"><input type="button" name="cancelButton" value="Cancel" onclick="event://close" width="92" height="28"></td></tr></table></td></frameset></body>`;
}

/** Shows the lines as they come; what was chosen stays so. */
async function readRows(window, lines, input) {
    const show = () => {
        const list = window.control('rows');
        if (window.isOpen() && list.rowCount !== lines.length) {
            const { selection } = list;
            list.setRows(lines.map((line, index) => ({ value: String(index), texts: line.split('\t') })));
            list.selection = selection;
        }
    };
    const timer = setInterval(show, pause).unref(); // the input may outlive the window
    try {
        for await (const line of readline.createInterface({ input })) {
            lines.push(line);
        }
    } finally {
        clearInterval(timer);
        show();
    }
}

/** Lets the user choose; a window and a promise of the exit code. */
function showList(tarn, options, print, input) {
    const lines = [];
    class List extends tarn.GuiWindow {
        ok() {
            const chosen = this.control('rows').selection;
            if (chosen.length > 0) {
                print(chosen.map((value) => lines[Number(value)]).join('\n'));
                this.setReturnValue(0);
                this.close();
            }
        }
    }
    const window = List.from(pageOf(tarn, options));
    if (options.columns) {
        window.control('rows').columns = options.columns.map((text) => ({ text, sort: 'natural' }));
    }
    window.setEnterControl('okButton');
    window.setEscapeControl('X');
    const result = window.showAsync().then((code) => code ?? 1);
    readRows(window, lines, input).catch(() => {}); // an input that breaks off has no more rows
    return { window, result };
}

module.exports = { showList };
