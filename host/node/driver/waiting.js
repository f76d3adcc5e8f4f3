'use strict';
// How the driver waits: for what it wants to do to become possible, and then until the program is done with it.

const { state } = require('./component.js');

/** What a test could not do. `code` is "TARN_DRIVE". */
class DriveError extends Error {
    constructor(message) {
        super(message);
        this.name = 'DriveError';
        this.code = 'TARN_DRIVE';
    }
}

const defaultMs = 5000;
const pollMs = 8;
/** A handler whose window has been closed goes on when the queue of what comes to the script has been empty for once. */
const turnMs = 2;
const sleep = (ms) => new Promise((resolve) => { setTimeout(resolve, ms); });

/** The pause behind each action, for somebody who watches. */
const slowMs = () => Number(process.env.TARN_SLOW) || 0;

/** The time that one call of the test may take, and what it is called in messages. */
class Limit {
    constructor(what, ms = defaultMs) {
        this.what = what;
        this.ms = ms;
        this.end = Date.now() + ms;
    }

    get isOver() {
        return Date.now() >= this.end;
    }

    fail(problem) {
        throw new DriveError(`${this.what}: ${problem} (waited ${this.ms} ms)`);
    }

    /** Tries until `attempt()` has no problem: it resolves to { problem } or to anything else, which is the result. */
    async until(attempt) {
        for (;;) {
            const result = await attempt();
            if (result?.problem === undefined) {
                return result;
            }
            if (result.isFinal) {
                throw new DriveError(`${this.what}: ${result.problem}`);
            }
            if (this.isOver) {
                this.fail(result.problem);
            }
            await sleep(pollMs);
        }
    }
}

const numbers = ({ windows }) => new Set(windows.map(({ id }) => id));

/** A window or dialog that has come since: an action that has opened one need not have ended. */
function hasNewWindow(before, now) {
    const known = numbers(before);
    return now.windows.some(({ id, kind }) => (kind === 'page' || kind === 'dialog') && !known.has(id));
}

function isDone(before, now) {
    return !now.isBusy && (now.promises <= before.promises || hasNewWindow(before, now));
}

/**
 * Waits until handlers, layout and painting are done. `before`: the state when an action began, whose async handler is waited for
 * too, unless it has opened a window since; or 0, when all that are async are waited for.
 */
async function settle(limit, before) {
    const now = await state();
    const from = before === 0 ? { ...now, promises: 0 } : before ?? { ...now, promises: Infinity };
    for (let wasDone = false; ;) {
        const then = await state();
        const done = isDone(from, then);
        if (done && wasDone) {
            return;
        }
        if (!done && limit.isOver) {
            limit.fail(then.isBusy ? 'a handler has not returned' : 'a handler\'s promise has not settled');
        }
        wasDone = done;
        await sleep(done ? turnMs : pollMs);
    }
}

/** Tries an action until it is possible, and waits until the program is done with it. */
async function act(limit, attempt) {
    const before = await state();
    const result = await limit.until(attempt);
    await settle(limit, before);
    if (slowMs() > 0) {
        await sleep(slowMs());
    }
    return result;
}

module.exports = { DriveError, Limit, act, settle, sleep };
