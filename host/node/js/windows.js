'use strict';
// The class GuiWindow: what JavaScript adds to the component's class.

const { callerFolder } = require('./callerfolder.js');
const { findMethod } = require('./methods.js');
const { native, classes } = require('./native.js');
const { loadText, pageArguments, requirePage } = require('./pages.js');

/** Promises of showAsync(), by window. */
const closeListeners = new WeakMap();

/** For the component: the window has closed. */
function windowClosed(window) {
    const listeners = closeListeners.get(window);
    closeListeners.delete(window);
    listeners?.forEach((listener) => listener());
}

function whenClosed(window) {
    return new Promise((resolve) => {
        closeListeners.set(window, [...closeListeners.get(window) ?? [], resolve]);
    });
}

class GuiWindow extends classes.GuiWindow {
    #returnValue = null;

    constructor(...args) {
        const folder = callerFolder();
        const page = pageArguments(args, folder, new.target);
        super(...page);
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

    setReturnValue(...args) {
        const result = super.setReturnValue(...args);
        if (args.length === 1 && this.isValid()) {
            this.#returnValue = args[0] ?? null;
        }
        return result;
    }

    async showAsync() {
        if (!this.open(true)) {
            return null;
        }
        const closed = whenClosed(this);
        await findMethod(this, 'ePostOpen')?.call(this, native.session());
        await closed;
        return this.#returnValue;
    }
}

native.setPublicClass('GuiWindow', GuiWindow);

module.exports = { GuiWindow, windowClosed };
