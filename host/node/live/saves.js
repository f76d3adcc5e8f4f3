'use strict';
// When a file that somebody writes to has been saved: nobody touches it any more, and it does not look like a part of one.

const fs = require('node:fs');
const path = require('node:path');

/** Milliseconds without a touch after which a file counts as saved. */
const quietMs = 10;
/** How long after its last touch a file may be missing, empty, or without its end, in milliseconds. */
const patienceMs = { missing: 60, empty: 250, part: 60 };

const tailBytes = 64;

/** How whole files of these kinds end; the others are not looked into. */
const ends = {
    '.png': (tail) => tail.includes('IEND', 0, 'latin1'),
    '.jpg': (tail) => tail.includes(Buffer.from([0xff, 0xd9])),
    '.jpeg': (tail) => tail.includes(Buffer.from([0xff, 0xd9])),
    '.gif': (tail) => tail.includes(0x3b),
    '.svg': (tail) => /<\/svg>/.test(tail.toString('latin1')),
};
const pageEnd = /<\/(html|body)>\s*$/i;

/** The last bytes of a file and what tells one save from another; null when there is no such file. */
function look(file) {
    let descriptor;
    try {
        descriptor = fs.openSync(file, fs.constants.O_RDONLY | fs.constants.O_NONBLOCK);
        const { size, mtimeNs, ino } = fs.fstatSync(descriptor, { bigint: true });
        const tail = Buffer.alloc(Math.min(tailBytes, Number(size)));
        fs.readSync(descriptor, tail, 0, tail.length, Number(size) - tail.length);
        return { stamp: `${size} ${mtimeNs} ${ino}`, size: Number(size), tail };
    } catch {
        return null;
    } finally {
        if (descriptor !== undefined) {
            fs.closeSync(descriptor);
        }
    }
}

/** What a file is short of, one of `patienceMs`; null when it looks whole. `endsPage`: the last one had the tags at the end. */
function lack(file, seen, endsPage) {
    if (seen === null) {
        return 'missing';
    }
    if (seen.size === 0) {
        return 'empty';
    }
    const isWhole = ends[path.extname(file).toLowerCase()] ?? ((tail) => !endsPage || pageEnd.test(tail.toString('latin1')));
    return isWhole(seen.tail) ? null : 'part';
}

class Saves {
    #onSaved;
    /** By file: { stamp, endsPage } of the last save that was told. */
    #known = new Map();
    /** By file: { timer, since, stamp }. */
    #touched = new Map();

    /** `onSaved(file, since)` hears of each save, and of a file that is gone; `since`: of its last touch, as Date.now() gives it. */
    constructor(onSaved) {
        this.#onSaved = onSaved;
    }

    /**
     * What the file is like is known: what it is like now or, by `stamp`, what it was like when it was read, "" for a file that
     * was not there. If that is not the same, it has been saved since.
     */
    note(file, stamp) {
        if (this.#known.has(file)) {
            return;
        }
        const seen = look(file);
        this.#keep(file, seen);
        if (stamp !== undefined && stamp !== (seen?.stamp ?? '')) {
            this.#known.get(file).stamp = stamp || null;
            this.touch(file);
        }
    }

    touch(file) {
        clearTimeout(this.#touched.get(file)?.timer);
        this.#wait(file, { since: Date.now(), stamp: undefined });
    }

    /** Nobody wants to hear of the file any more. */
    remove(file) {
        clearTimeout(this.#touched.get(file)?.timer);
        this.#touched.delete(file);
        this.#known.delete(file);
    }

    close() {
        this.#touched.forEach(({ timer }) => clearTimeout(timer));
        this.#touched.clear();
    }

    #keep(file, seen) {
        this.#known.set(file, { stamp: seen?.stamp ?? null, endsPage: seen !== null && pageEnd.test(seen.tail.toString('latin1')) });
    }

    #wait(file, touch) {
        const timer = setTimeout(() => this.#check(file, touch), quietMs);
        timer.unref();
        this.#touched.set(file, { ...touch, timer });
    }

    #check(file, { since, stamp }) {
        const seen = look(file);
        const known = this.#known.get(file);
        const lacking = lack(file, seen, known?.endsPage === true);
        const isMoving = stamp !== undefined && stamp !== (seen?.stamp ?? null);
        if (isMoving || (lacking !== null && Date.now() - since < patienceMs[lacking])) {
            this.#wait(file, { since: isMoving ? Date.now() : since, stamp: seen?.stamp ?? null });
            return;
        }
        this.#touched.delete(file);
        if (known?.stamp !== (seen?.stamp ?? null)) {
            this.#keep(file, seen);
            this.#onSaved(file, since);
        }
    }
}

module.exports = { Saves };
