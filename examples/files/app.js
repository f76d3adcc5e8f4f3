'use strict';
// A file browser: a folder tree, the files of the open folder, and a line about the file that was chosen.
//
//     ./tarn run examples/files/app.js [FOLDER]
//
// The window is a frameset (files.html). Its frames are empty; the script fills them, each by its name:
//
//     this.control('list').setText(markup)
//
// A link can not carry just any file name, so the pages number what they show, and the links name the number.

const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow } = require('../../host/node');
const pages = require('./pages');

class Files extends GuiWindow {
    constructor(top) {
        super('files.html');
        this.top = top;
        this.sortedBy = 'name';
        /** @type {any[]} */
        this.entries = [];
        this.openFolder(top);
    }

    // ---- What the links call. The first argument is the session. ----

    onFolder(session, number) { this.openFolder(this.tree[number].folder); }

    onEntry(session, number) {
        const entry = this.entries[number];
        if (entry.isFolder) this.openFolder(entry.path);
        else this.choose(entry);
    }

    onUp() {
        if (this.folder !== this.top) this.openFolder(path.dirname(this.folder));
    }

    onSort(session, column) {
        this.sortedBy = column;
        this.showEntries();
    }

    /** From the help, which has taken the whole window: the frames are loaded anew, and filled. */
    onBack() {
        this.loadFile('files.html');
        this.openFolder(this.folder);
    }

    onQuit() {
        this.setReturnValue(this.folder);
        this.close();
    }

    // ---- What the window shows ----

    openFolder(folder) {
        this.folder = folder;
        this.entries = readFolder(folder);
        this.chosen = null;
        this.tree = treeTo(folder, this.top);
        this.setTitle(`${path.basename(folder)} - Files`);
        this.fill('bar', pages.bar(path.relative(path.dirname(this.top), folder), folder !== this.top));
        this.fill('folders', pages.tree(this.tree, folder));
        this.showEntries();
    }

    choose(entry) {
        this.chosen = entry;
        this.showEntries();
    }

    showEntries() {
        this.entries.sort(orders[this.sortedBy]);
        this.fill('list', pages.list(this.entries, this.sortedBy, this.chosen));
        this.fill('status', pages.status(this.entries, this.chosen));
    }

    fill(frame, markup) { this.control(frame).setText(markup); }
}

/** Folders first; what comes next is the column's business. */
const byName = (a, b) => b.isFolder - a.isFolder || a.name.localeCompare(b.name, 'en');
const orders = {
    name: byName,
    size: (a, b) => b.isFolder - a.isFolder || b.size - a.size || byName(a, b),
    changed: (a, b) => b.changed - a.changed || byName(a, b),
};

/** The visible entries of a folder; none when it can not be read. */
function readFolder(folder) {
    let found;
    try {
        found = fs.readdirSync(folder, { withFileTypes: true });
    } catch {
        return [];
    }
    return found.filter((entry) => !entry.name.startsWith('.')).map((entry) => describe(folder, entry)).sort(byName);
}

function describe(folder, entry) {
    const whole = path.join(folder, entry.name);
    const stat = fs.statSync(whole, { throwIfNoEntry: false });
    const { size, mtime } = stat ?? { size: 0, mtime: new Date(0) }; // a link that leads nowhere
    return { name: entry.name, path: whole, isFolder: entry.isDirectory(), size, changed: mtime };
}

/** The folders from the top down to the open one, and beside each of them its sisters: { folder, depth }. */
function treeTo(open, folder, depth = 0) {
    const isOnTheWay = open === folder || open.startsWith(folder + path.sep);
    const below = isOnTheWay ? readFolder(folder).filter((entry) => entry.isFolder) : [];
    return [{ folder, depth }, ...below.flatMap((entry) => treeTo(open, entry.path, depth + 1))];
}

const top = path.resolve(process.argv[2] ?? path.join(__dirname, '..'));
const last = new Files(top).show();
if (last !== null) {
    console.log(`You were in ${path.relative(path.dirname(top), last)}.`);
}
