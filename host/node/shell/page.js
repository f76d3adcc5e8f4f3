'use strict';
// A page of the caller's own. What it shows are the values of the command line, and what ends it is one of its buttons.

const path = require('node:path');
const { format } = require('./formats.js');
const { UsageError } = require('./usage.js');

/** A value of the command line as the control takes it. */
function converted(present, text) {
    if (typeof present === 'boolean') {
        return !['', '0', 'false', 'no', 'off'].includes(text.toLowerCase());
    }
    return text;
}

function fill(window, { page, assignments }) {
    for (const [name, value] of assignments) {
        if (!(name in window.form)) {
            throw new UsageError(`${page} has no control "${name}"`);
        }
        try {
            window.form[name] = converted(window.form[name], value);
        } catch (error) {
            throw new UsageError(error.message);
        }
    }
}

/** Shows the page; the exit code. */
function showPage(tarn, options, print) {
    class Page extends tarn.GuiWindow {
        ok() { this.end(0); }
        cancel() { this.end(1); }
        exit(session, code = '0') { this.end(Number(code)); }
        end(code) {
            print(format({ ...this.form }, options.format));
            this.setReturnValue(code);
            this.close();
        }
    }
    const window = new Page(path.resolve(options.page));
    if (options.title !== undefined) {
        window.setTitle(options.title);
    }
    fill(window, options);
    return { window, result: window.showAsync().then((code) => code ?? 1) };
}

module.exports = { showPage };
