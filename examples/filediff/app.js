'use strict';
// Two text files beside each other, with what differs marked. app.js [LEFT RIGHT]
//
// Both sides are columns of one list: so they scroll together, and a line that one side lacks is an empty cell there.

const fs = require('node:fs');
const path = require('node:path');
const tarn = require('../../host/node');
const { differenceOf } = require('./diff');

const [removedGround, addedGround, emptyGround] = ['#FFE3E0', '#DDF4E1', '#F1F2F4'];
const linesOf = (file) => fs.readFileSync(file, 'utf8').replace(/\n$/, '').split('\n');

/** Rows for the list, { left, right }: the number of a line on each side, null for none. */
function pair(left, right, { removed, added }) {
    const rows = [];
    for (let x = 0, y = 0; x < left.length || y < right.length;) {
        const [hasLeft, hasRight] = [removed.has(x), added.has(y)];
        const isSame = !hasLeft && !hasRight; // both sides go on
        rows.push({ isSame, left: isSame || hasLeft ? x++ : null, right: isSame || hasRight ? y++ : null });
    }
    return rows;
}

const cells = (lines, line, ground) => (line === null ? [{ text: '', bgcolor: emptyGround }, { text: '', bgcolor: emptyGround }]
    : [String(line + 1), lines[line].replaceAll('\t', '    ')].map((text) => (ground ? { text, bgcolor: ground, color: '#1F2328' } : text)));

class FileDiff extends tarn.GuiWindow {
    places = [0]; // rows where differences begin
    at = 0; // which of them is selected

    constructor(files) {
        super('filediff.html');
        this.files = files;
        this.setFocus('lines');
        this.compare();
    }

    compare() {
        const [left, right] = this.files.map(linesOf);
        const difference = differenceOf(left, right);
        const rows = pair(left, right, difference);
        this.places = rows.flatMap(({ isSame }, row) => (!isSame && (row === 0 || rows[row - 1].isSame) ? [row] : []));
        this.control('lines').setRows(rows.map((row, index) => ({
            value: String(index), texts: [...cells(left, row.left, !row.isSame && removedGround), ...cells(right, row.right, !row.isSame && addedGround)],
        })));
        this.summary = `${this.places.length} differences: ${difference.removed.size} lines removed, ${difference.added.size} added`;
        const names = this.files.map((file) => path.basename(file));
        names.forEach((name, side) => this.control('lines').setColumnText(2 * side + 2, name));
        this.setTitle(`${names.join(' and ')} - Differences`);
        for (const item of ['next', 'previous']) this.control('menu').enableItem(item, this.places.length > 0);
        this.go(0);
    }

    /** Selects the difference of this number, which scrolls to it. */
    go(number) {
        if (this.places.length === 0) {
            this.control('status').setText('The files are the same.');
            return;
        }
        this.at = (number + this.places.length) % this.places.length; // round and round
        this.control('lines').selection = [String(this.places[this.at])];
        this.control('status').setText(`${this.at + 1} of ${this.summary}`);
    }

    async choose(side) {
        const file = await tarn.openFileAsync({ title: `The file on the ${side === 0 ? 'left' : 'right'}`, folder: path.dirname(this.files[side]) });
        if (file === null) return;
        this.files[side] = file;
        this.compare();
    }

    actions = {
        left: () => this.choose(0),
        right: () => this.choose(1),
        swap: () => { this.files.reverse(); this.compare(); },
        next: () => this.go(this.at + 1),
        previous: () => this.go(this.at - 1),
        quit: () => this.close(),
    };

    eMenu(session, item) { return this.actions[item](); }
}

const given = process.argv.slice(2, 4);
new FileDiff(given.length === 2 ? given : ['before.txt', 'after.txt'].map((name) => path.join(__dirname, name))).showAsync();
