'use strict';
// The class GuiWindow: what JavaScript adds to the component's class.

const path = require('node:path');
const { callerFolder } = require('./callerfolder.js');
const { formOf } = require('./forms.js');
const { describe } = require('./kinds.js');
const { native, classes } = require('./native.js');
const { checkOptions } = require('./options.js');
const { checkPaper, PdfError } = require('./paper.js');
const { loadText, pageArguments, requirePage } = require('./pages.js');
const { watching } = require('./watching.js');

const prototype = classes.GuiWindow.prototype;
const { findText, getReturnValue, getSelection, readZoom, startPrint, startShow, writePdf, writeZoom } = prototype;
// For this package alone.
['findText', 'getReturnValue', 'getSelection', 'readZoom', 'startPrint', 'startShow', 'writePdf', 'writeZoom'].forEach((name) => delete prototype[name]);

const findOptions = { next: 'boolean', previous: 'boolean', case: 'boolean' };

/** Those who wait for the end of a window, by window. */
const closeListeners = new WeakMap();

/** For the component: the window has closed. Its next opening may have come before this news. */
function windowClosed(window) {
    if (native.isOpen(window)) {
        return;
    }
    const listeners = closeListeners.get(window);
    closeListeners.delete(window);
    listeners?.forEach((listener) => listener());
}

function whenClosed(window) {
    return new Promise((resolve) => {
        closeListeners.set(window, [...closeListeners.get(window) ?? [], resolve]);
    });
}

/** How many calls of show() may wait inside each other: each takes its part of the interpreter's stack. */
const deepestShow = 50;
let waitingShows = 0;

const leastZoom = 0.5;
const mostZoom = 3;

class GuiWindow extends classes.GuiWindow {
    #form = null;

    constructor(...args) {
        watching.begin?.();
        const folder = callerFolder();
        const page = pageArguments(args, folder, new.target);
        super(...page);
        this.#form = formOf(this);
        requirePage(this, page, folder);
    }

    /** A window, or one of the class that it is called on, whose page is this text. */
    static from(page) {
        const window = new this();
        loadText(page, (name) => super.prototype.load.call(window, name));
        return window;
    }

    /** The first page of a window counts as a whole one: its title and its sizes become the window's. */
    setText(markup) {
        return super.setText(markup) || (!this.isValid() && loadText(markup, (name) => super.load(name)));
    }

    get form() {
        return this.#form;
    }

    get selection() {
        return getSelection.call(this);
    }

    /** Marks all places of a text on the page and selects one of them; how many there are. */
    find(text, options) {
        const caller = 'GuiWindow.find(text, options)';
        const { next, previous, case: matchCase } = checkOptions(caller, options, findOptions, this.find);
        return findText.call(this, text, matchCase === true, previous === true ? -1 : Number(next === true));
    }

    get zoom() {
        return readZoom.call(this) / 100;
    }

    set zoom(factor) {
        if (typeof factor !== 'number' || !(factor >= leastZoom && factor <= mostZoom)) {
            throw new TypeError(`GuiWindow.zoom: expected a number from ${leastZoom} to ${mostZoom}, not ${describe(factor)}`);
        }
        writeZoom.call(this, Math.round(factor * 100));
    }

    /** Writes the page as it is now; a promise, since that is what writing a file is elsewhere. */
    savePdf(file, options) {
        const caller = 'GuiWindow.savePdf(path, options)';
        const paper = checkPaper(caller, options, this.savePdf);
        const target = path.resolve(file);
        const problem = writePdf.call(this, target, ...paper);
        if (problem === '') {
            return Promise.resolve();
        }
        return Promise.reject(new PdfError(`${caller}: ${problem === null ? 'the window has no page' : `can not write ${target}: ${problem}`}`, target));
    }

    /** Shows the desktop's print dialog, which keeps the program alive; whether the page was printed. */
    print() {
        const alive = setInterval(() => {}, 2 ** 30);
        return new Promise((resolve, reject) => {
            startPrint.call(this, (...answers) => {
                clearInterval(alive);
                const [problem] = answers;
                if (problem) {
                    reject(new Error(`GuiWindow.print(): ${problem}`));
                }
                resolve(answers.length > 0);
            });
        });
    }

    show(...args) {
        if (waitingShows >= deepestShow) {
            throw new Error(`GuiWindow.show() waits inside ${deepestShow} others already; "await window.showAsync()" takes no stack`);
        }
        ++waitingShows;
        try {
            return super.show(...args);
        } finally {
            --waitingShows;
        }
    }

    async showAsync() {
        const closed = whenClosed(this); // before the window opens, for it may close while it does
        if (!startShow.call(this)) {
            windowClosed(this);
            return null;
        }
        windowClosed(this);
        await closed;
        return getReturnValue.call(this);
    }
}

native.setPublicClass('GuiWindow', GuiWindow);

module.exports = { GuiWindow, windowClosed };
