'use strict';
// Where the files of pages are looked for, and which of them pages may read.

const fs = require('node:fs');
const path = require('node:path');
const { fileURLToPath } = require('node:url');
const { callerFolder } = require('./callerfolder.js');
const { describe } = require('./kinds.js');
const { native } = require('./native.js');

let isConfined = false;

function folderPath(folder, caller) {
    if (folder instanceof URL && folder.protocol === 'file:') {
        return fileURLToPath(folder);
    }
    if (typeof folder !== 'string' || folder === '') {
        throw new TypeError(`${caller}: "folder" must be a path, as a string or a file URL, not ${describe(folder)}`);
    }
    return path.resolve(callerFolder(), folder);
}

function mount(name, folder) {
    if (typeof name !== 'string' || !/^[^/\0]+$/.test(name)) {
        throw new TypeError(`tarn.mount(name, folder): "name" must be a string without "/", not ${describe(name)}`);
    }
    native.mount(name, folderPath(folder, 'tarn.mount(name, folder)'));
}

/** From now on pages read only what lies below these folders, or in a mounted one. Script may name any file. */
function confine(...folders) {
    if (folders.length === 0) {
        throw new TypeError('tarn.confine(folder, ...): "folder" is missing');
    }
    folders.map((folder) => folderPath(folder, 'tarn.confine(folder, ...)')).forEach(native.confine);
    isConfined = true;
}

/** Script names a file relative to a folder: then that file may be read, wherever it is. */
function allowPath(folder, name) {
    if (isConfined) {
        native.allowFile(native.fileName(folder, name));
    }
}

/** The same when a method of an object is called with the name. */
function allowNamedFile(owner, object, name) {
    if (typeof object === 'object' && object !== null) {
        allowPath(object, name);
    }
}

/** Relative names without a script start at the folder of the main program; the component's own pictures are mounted too. */
function mountDefaults() {
    native.setDefaultFolder(process.argv[1] ? path.dirname(path.resolve(process.argv[1])) : process.cwd());
    native.mount('GuiWindow', path.join(__dirname, '..', 'vfs', 'GuiWindow'));
}

/** Why a file cannot be read as a page, as Node.js would say it; undefined when it can. `file`: its full path. */
function readingProblem(file) {
    try {
        if (!fs.statSync(file).isFile()) {
            return Object.assign(new Error('not a file'), { code: 'EISDIR' });
        }
        fs.accessSync(file, fs.constants.R_OK);
        return undefined;
    } catch (error) {
        return error;
    }
}

/** An Error with `code` and `path` when a page that was asked for by `name` cannot be read; undefined when it can. */
function missingPage(folder, name, caller) {
    const file = native.fileName(folder, name);
    const problem = file === '' ? { code: 'ENOENT' } : readingProblem(file);
    if (problem === undefined) {
        return undefined;
    }
    const shown = file === '' ? name : file;
    const reason = { ENOENT: 'no such file', EACCES: 'permission denied', EISDIR: 'not a file' }[problem.code] ?? problem.message;
    return Object.assign(new Error(`${problem.code}: ${caller}: cannot read the page ${shown} (${reason})`), { code: problem.code, path: shown });
}

module.exports = { allowNamedFile, allowPath, confine, missingPage, mount, mountDefaults };
