'use strict';
// The handlers that a program's windows have called: when, with what, how long they took.

const { inspect } = require('node:util');

const mostEntries = 500;
const mostLetters = 120;

/** One line for a value, however large it is. */
function brief(value) {
    const text = inspect(value, { depth: 0, maxArrayLength: 5, maxStringLength: 60, breakLength: Infinity, getters: false });
    return text.length > mostLetters ? `${text.slice(0, mostLetters - 1)}…` : text;
}

/** 13:05:09.123 */
function clock(time) {
    const date = new Date(time);
    const two = (number) => String(number).padStart(2, '0');
    return `${two(date.getHours())}:${two(date.getMinutes())}:${two(date.getSeconds())}.${String(date.getMilliseconds()).padStart(3, '0')}`;
}

class EventLog {
    constructor() {
        this.entries = [];
        this.count = 0;
    }

    /** `args`: what the handler was given; the session, which each gets first, is left out. */
    add({ self, name, args, ms, error }) {
        const given = args.slice(1).map(brief).join(', ');
        const ended = error === undefined ? `${ms.toFixed(1)} ms` : `threw ${error}`;
        this.entries.unshift({ value: String(++this.count), texts: [clock(Date.now()), `${self?.constructor?.name ?? '?'}.${name}`, given, ended] });
        this.entries.length = Math.min(this.entries.length, mostEntries);
    }

    clear() {
        this.entries = [];
        ++this.count;
    }
}

module.exports = { EventLog, brief };
