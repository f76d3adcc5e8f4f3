'use strict';
// Live reload: watches the files that the pages of each window name, and has pages read anew when one of them was saved. No
// program loads this unless somebody turns it on.

const path = require('node:path');
const { FileWatch } = require('./files.js');
const { tarn } = require('./package.js');
const { watchReads, whileNoting } = require('./reads.js');
const { Saves } = require('./saves.js');

const inside = tarn[Symbol.for('tarn-gui inside')];
const { watching } = inside;

/** Milliseconds until a page that the user is in the middle of using is looked at again. */
const busyMs = 30;

/** Asks the thread of the windows (runtime/guireload.h); a promise of the answer. */
function ask(request, ...window) {
    return new Promise((resolve) => {
        inside.callDesktop('tarn.watch()', 'reload', JSON.stringify(request), (answer) => resolve(JSON.parse(answer)), ...window);
    });
}

/** An error of a filter, in one line that says where it was thrown. */
function lineOf(error) {
    const place = /\(?([^()\s]+:\d+):\d+\)?$/m.exec(error?.stack ?? '')?.[1];
    return `${error instanceof Error ? `${error.name}: ${error.message}` : String(error)}${place === undefined ? '' : ` (${place})`}`.replace(/\s+/g, ' ');
}

/** Files of the program are named as from its own folder. */
function shortened(problem) {
    const folder = process.argv[1] === undefined ? process.cwd() : path.dirname(path.resolve(process.argv[1]));
    return problem.replaceAll(`${folder}${path.sep}`, '');
}

/** What one window waits for. */
class Pending {
    files = new Set(); // saved, and not looked at
    unshown = new Set(); // looked at, and something was wrong
    since = 0; // of the last touch
    isRunning = false;
}

class LiveReload {
    #saves = new Saves((file, since) => this.#onSaved(file, since));
    #files = new FileWatch((file) => this.#saves.touch(file));
    #windowsOf = new Map(); // by file: references
    #referenceTo = new WeakMap();
    #gone = new FinalizationRegistry((reference) => this.#forget(reference));
    #pending = new WeakMap();
    /** The reload that runs: errors of script, and the texts that were read, are of one window at a time. */
    #turn = Promise.resolve();
    #listeners = new Set();
    #hasBegun = false;
    #isClosed = false;
    #endReads = watchReads();

    constructor() {
        watching.call = (window, work) => whileNoting((file) => this.#name(window, file), work);
        watching.begin = () => this.begin();
    }

    /** Before the first window: the component is started now. */
    begin() {
        if (!this.#hasBegun) {
            this.#hasBegun = true;
            watching.begin = null;
            inside.callDesktop('tarn.watch()', 'watchFiles', (window, file, stamp) => this.#name(window, file, stamp));
        }
    }

    listen(listener) {
        this.#listeners.add(listener);
        return () => this.#listeners.delete(listener);
    }

    close() {
        this.#isClosed = true;
        this.#files.close();
        this.#saves.close();
        this.#endReads();
        watching.call = null;
        watching.begin = null;
    }

    /** A page of the window depends on this file. `stamp`: see Saves.note(). */
    #name(window, file, stamp) {
        if (this.#isClosed || !(window instanceof tarn.GuiWindow) || file.startsWith(path.join(__dirname, '..', 'vfs'))) {
            return;
        }
        if (!this.#referenceTo.has(window)) {
            const reference = new WeakRef(window);
            this.#referenceTo.set(window, reference);
            this.#gone.register(window, reference);
        }
        if (!this.#windowsOf.has(file)) {
            this.#windowsOf.set(file, new Set());
        }
        this.#windowsOf.get(file).add(this.#referenceTo.get(window));
        this.#files.add(file);
        this.#saves.note(file, stamp);
    }

    /** The window of the reference is gone: files that only its pages named are not watched any more. */
    #forget(reference) {
        for (const [file, references] of this.#windowsOf) {
            references.delete(reference);
            if (references.size === 0) {
                this.#windowsOf.delete(file);
                this.#files.remove(file);
                this.#saves.remove(file);
            }
        }
    }

    #onSaved(file, since) {
        for (const reference of this.#windowsOf.get(file) ?? []) {
            const window = reference.deref();
            if (window === undefined) {
                continue; // #forget() is about to be called
            }
            const pending = this.#pending.get(window) ?? new Pending();
            this.#pending.set(window, pending);
            pending.files.add(file);
            pending.since = since;
            this.#run(window, pending);
        }
    }

    /** One reload after the other, each of all that was saved meanwhile. */
    async #run(window, pending) {
        if (pending.isRunning) {
            return;
        }
        pending.isRunning = true;
        while (pending.files.size > 0 && !this.#isClosed) {
            if (!await this.#inTurn(() => this.#reload(window, pending))) {
                await new Promise((resolve) => { setTimeout(resolve, busyMs).unref(); });
            }
        }
        pending.isRunning = false;
    }

    /** Runs `work()` when the reloads of all windows that were asked for before have ended; a promise of its result. */
    #inTurn(work) {
        const done = this.#turn.then(work);
        this.#turn = done.catch(() => {}); // who waits for it hears of it
        return done;
    }

    /** False when the user is in the middle of something. */
    async #reload(window, pending) {
        if (this.#isClosed) {
            return true;
        }
        const saved = [...pending.files];
        const files = [...new Set([...pending.unshown, ...saved])];
        const { since } = pending;
        pending.files.clear();
        const { isBusy, isGone, problem } = await this.#show(window, files);
        if (isBusy) {
            saved.forEach((file) => pending.files.add(file));
            return false;
        }
        if (isGone) {
            return true;
        }
        pending.unshown = new Set(problem === undefined ? [] : files);
        const told = { window, files: saved, problem: problem ?? null, ms: Date.now() - since };
        this.#listeners.forEach((listener) => listener(told));
        return true;
    }

    /** Shows the pages, or what is wrong with them, unless the window is busy or gone; both may happen between check and show. */
    async #show(window, files) {
        const { isBusy, isGone, problem: found } = await this.#check(window, files);
        if (isBusy || isGone) {
            return { isBusy, isGone };
        }
        if (found === undefined) {
            return await ask({ do: 'show', files }, window) ?? {};
        }
        const problem = shortened(found);
        process.stderr.write(`tarn: ${problem}\n`);
        await ask({ do: 'tell', message: problem }, window);
        return { problem };
    }

    /** Has the pages read; what a filter throws meanwhile is what is wrong with them. */
    async #check(window, files) {
        let thrown;
        watching.error = (error) => {
            thrown ??= { problem: lineOf(error) };
            return true;
        };
        try {
            const answer = await ask({ do: 'check', files }, window);
            return { ...answer, ...thrown };
        } finally {
            watching.error = null;
        }
    }
}

let live = null;
let users = 0;

function begin() {
    live ??= new LiveReload();
    ++users;
    return live;
}

function end() {
    if (--users === 0) {
        live.close();
        live = null;
    }
}

const options = { onReload: { accepts: (value) => typeof value === 'function', says: 'a function' } };

/** Turns live reload on for this program, until the result is closed. */
function watch(given) {
    const { onReload } = inside.checkOptions('tarn.watch(options)', given, options, watch);
    const reload = begin();
    reload.begin();
    const forget = onReload === undefined ? () => {} : reload.listen(onReload);
    let isOpen = true;
    return {
        close() {
            if (isOpen) {
                isOpen = false;
                forget();
                end();
            }
        },
    };
}

module.exports = { ask, begin, watch };
