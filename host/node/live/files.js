'use strict';
// Watches single files by the folders that they lie in: a file may be written in place, replaced by another one, removed and
// made again, and so may its folder.

const fs = require('node:fs');
const path = require('node:path');

function nodeNumber(folder) {
    try {
        return fs.statSync(folder).ino;
    } catch {
        return null;
    }
}

function realPath(file) {
    try {
        return fs.realpathSync(file);
    } catch {
        return file;
    }
}

/** The nearest folder around this one that there is. */
function nearest(folder) {
    const around = path.dirname(folder);
    return around === folder || nodeNumber(around) !== null ? around : nearest(around);
}

class FileWatch {
    #onTouch;
    /** By folder: its names, with the files as they were asked for. */
    #folders = new Map();
    /** By folder: { watcher, at, node }; `at` is another folder while the folder itself is not there. */
    #watchers = new Map();

    /** `onTouch(file)` hears of every touch, of one save perhaps several times; the file may be gone. Keeps no process alive. */
    constructor(onTouch) {
        this.#onTouch = onTouch;
    }

    /** `file`: a full path, which need not exist. */
    add(file) {
        this.#addName(file, file);
        this.#addName(realPath(file), file);
    }

    close() {
        this.#watchers.forEach(({ watcher }) => watcher?.close());
        this.#watchers.clear();
        this.#folders.clear();
    }

    #addName(place, file) {
        const folder = path.dirname(place);
        if (!this.#folders.has(folder)) {
            this.#folders.set(folder, new Map());
            this.#watch(folder);
        }
        const names = this.#folders.get(folder);
        const name = path.basename(place);
        names.set(name, (names.get(name) ?? new Set()).add(file));
    }

    #watch(folder) {
        this.#watchers.get(folder)?.watcher?.close();
        const node = nodeNumber(folder);
        const at = node === null ? nearest(folder) : folder;
        const entry = { watcher: null, at, node };
        this.#watchers.set(folder, entry);
        try {
            entry.watcher = fs.watch(at, { persistent: false }, (_type, name) => this.#onEvent(folder, entry, name));
            entry.watcher.on('error', () => this.#renew(folder, entry));
        } catch {
            return; // gone between two lines, or there are too many watches
        }
        if (node === null && nodeNumber(folder) !== null) {
            this.#renew(folder, entry); // it has come meanwhile
        }
    }

    #renew(folder, entry) {
        if (this.#watchers.get(folder) === entry) {
            this.#watch(folder);
            this.#touchAll(folder);
        }
    }

    #touchAll(folder) {
        this.#folders.get(folder)?.forEach((files) => files.forEach((file) => this.#onTouch(file)));
    }

    #onEvent(folder, entry, name) {
        const isElsewhere = entry.at !== folder;
        if (isElsewhere || nodeNumber(folder) !== entry.node) {
            // The folder has come, has gone, or is another one now.
            if (!isElsewhere || nodeNumber(folder) !== null || nearest(folder) !== entry.at) {
                this.#renew(folder, entry);
            }
            return;
        }
        this.#folders.get(folder)?.get(name)?.forEach((file) => this.#onTouch(file));
    }
}

module.exports = { FileWatch };
