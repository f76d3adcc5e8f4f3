'use strict';
// Watches single files by the folders that they lie in: a file may be written in place, replaced by another one, removed and
// made again, and so may each folder on the way to it, or a link.

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

/** A folder on the way to a file. */
class Folder {
    watcher = null;
    /** What tells it from another one of its name; null while it is not there. */
    node = null;
    /** Why it can not be watched. */
    failure = null;
    /** By name: the files that lie in it, as they were asked for. */
    names = new Map();
    /** The folders in it that are on the way, by their full paths. */
    below = new Set();
}

class FileWatch {
    #onTouch;
    /** By full path. */
    #folders = new Map();
    /** By file as it was asked for: where it lies, or has lain, by its own name and behind links. */
    #places = new Map();
    /** Folders of which it was said that they can not be watched. */
    #told = new Set();

    /** `onTouch(file)` hears of every touch, of one save perhaps several times; the file may be gone. Keeps no process alive. */
    constructor(onTouch) {
        this.#onTouch = onTouch;
    }

    /** `file`: a full path, which need not exist. A folder that can not be watched is told once, on standard error. */
    add(file) {
        const places = this.#places.get(file) ?? new Set();
        this.#places.set(file, places.add(file).add(realPath(file)));
        places.forEach((place) => this.#addPlace(place, file));
    }

    /** Nobody wants to hear of the file any more. */
    remove(file) {
        const places = this.#places.get(file) ?? [];
        this.#places.delete(file);
        for (const place of places) {
            const { names } = this.#folders.get(path.dirname(place));
            const files = names.get(path.basename(place));
            files.delete(file);
            if (files.size === 0) {
                names.delete(path.basename(place));
                this.#drop(path.dirname(place));
            }
        }
    }

    close() {
        this.#folders.forEach(({ watcher }) => watcher?.close());
        this.#folders.clear();
        this.#places.clear();
    }

    #addPlace(place, file) {
        const at = path.dirname(place);
        const folder = this.#folderAt(at);
        const name = path.basename(place);
        folder.names.set(name, (folder.names.get(name) ?? new Set()).add(file));
        this.#tell(at, folder);
    }

    /** The folder, watched, and so are the ones around it. */
    #folderAt(at) {
        let folder = this.#folders.get(at);
        if (folder === undefined) {
            folder = new Folder();
            this.#folders.set(at, folder);
            if (path.dirname(at) !== at) {
                this.#folderAt(path.dirname(at)).below.add(at);
            }
            this.#watch(at, folder);
        } else if (folder.failure !== null) {
            this.#watch(at, folder);
        }
        return folder;
    }

    /** A folder that is on no way any more goes, and then perhaps the one around it. */
    #drop(at) {
        const folder = this.#folders.get(at);
        if (folder === undefined || folder.names.size > 0 || folder.below.size > 0) {
            return;
        }
        folder.watcher?.close();
        folder.watcher = null;
        this.#folders.delete(at);
        this.#folders.get(path.dirname(at))?.below.delete(at);
        this.#drop(path.dirname(at));
    }

    #watch(at, folder) {
        folder.watcher?.close();
        folder.watcher = null;
        folder.failure = null;
        folder.node = nodeNumber(at);
        if (folder.node === null) {
            return; // the one around it tells when it comes
        }
        try {
            const watcher = fs.watch(at, { persistent: false }, (type, name) => folder.watcher === watcher && this.#onEvent(at, folder, type, name));
            watcher.on('error', () => folder.watcher === watcher && this.#renew(at, folder));
            folder.watcher = watcher;
        } catch (error) {
            folder.failure = error.code === 'ENOENT' ? null : error.code;
        }
        if (nodeNumber(at) !== folder.node) {
            this.#watch(at, folder); // it has gone, or is another one meanwhile
        }
    }

    #tell(at, { failure }) {
        if (failure !== null && !this.#told.has(at)) {
            this.#told.add(at);
            process.stderr.write(`tarn: ${at} can not be watched: ${failure}\n`);
        }
    }

    /** The folder has come, has gone, or is another one now, and so is what lies in it. */
    #renew(at, folder) {
        this.#watch(at, folder);
        [...folder.names.values()].forEach((files) => this.#touch(files));
        [...folder.below].forEach((each) => this.#renew(each, this.#folders.get(each)));
    }

    /** The files may be links, and lead elsewhere now. */
    #touch(files) {
        for (const file of [...files]) {
            this.add(file);
            this.#onTouch(file);
        }
    }

    #onEvent(at, folder, type, name) {
        if (folder.names.size > 0 && nodeNumber(at) !== folder.node) {
            this.#renew(at, folder);
            return;
        }
        const inside = name === null ? at : path.join(at, name);
        if (type === 'rename' && folder.below.has(inside)) {
            this.#renew(inside, this.#folders.get(inside));
        }
        this.#touch(folder.names.get(name) ?? []);
    }
}

module.exports = { FileWatch };
