'use strict';
// Which files the program itself reads while it filters or includes something for a page: the page depends on them. This is
// seen by standing in front of the functions that read whole files.

const { AsyncLocalStorage } = require('node:async_hooks');
const fs = require('node:fs');
const { syncBuiltinESMExports } = require('node:module');
const path = require('node:path');
const { fileURLToPath } = require('node:url');

const current = new AsyncLocalStorage();

function fileOf(given) {
    if (given instanceof URL) {
        return given.protocol === 'file:' ? fileURLToPath(given) : null;
    }
    return typeof given === 'string' ? path.resolve(given) : null;
}

/** Stands in front of `object[name]`; what gives it back. */
function precede(object, name) {
    const original = object[name];
    object[name] = function (file, ...rest) {
        const note = current.getStore();
        const read = note === undefined ? null : fileOf(file);
        if (read !== null) {
            note(read);
        }
        return Reflect.apply(original, this, [file, ...rest]);
    };
    return () => { object[name] = original; };
}

/** From now on notes are taken; what ends that. */
function watchReads() {
    const undo = [precede(fs, 'readFileSync'), precede(fs, 'readFile'), precede(fs.promises, 'readFile')];
    syncBuiltinESMExports();
    return () => {
        undo.forEach((each) => each());
        syncBuiltinESMExports();
    };
}

/** Runs `work()`; `note(file)` hears of the files that it reads, also after it has returned a promise. */
const whileNoting = (note, work) => current.run(note, work);

module.exports = { watchReads, whileNoting };
