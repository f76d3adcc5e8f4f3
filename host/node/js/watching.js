'use strict';
// What live reload hears of, while it is on; all null until then. It lies in files of its own, live/, which are only loaded
// then.

const watching = {
    /** Before the first window. */
    begin: null,
    /** Runs `work()`, a filter or the handler of an include, in place of its call; `window`: whose page waits for it. */
    call: null,
    /** What a call of script throws; true when nobody else is to hear of it. */
    error: null,
};

module.exports = { watching };
