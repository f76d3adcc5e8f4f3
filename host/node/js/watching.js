'use strict';
// What live reload hears of, while it is on; all null until then. It lies in files of its own, live/, which are only loaded
// then.

const watching = {
    /** Before the first window. */
    begin: null,
    /** Runs `work()` in place of a call of script that pages wait for; `window`: whose call it is, or null. */
    call: null,
    /** What a call of script throws; true when nobody else is to hear of it. */
    error: null,
};

module.exports = { watching };
