'use strict';
// A game of falling blocks, as data: it knows nothing of windows, clocks and keys, so a test can play it.

const [columns, rows] = [10, 18];
const shapes = [ // x and y in turn
    [0, 0, 1, 0, 2, 0, 3, 0], [0, 0, 1, 0, 0, 1, 1, 1], [0, 0, 1, 0, 2, 0, 1, 1], [0, 0, 1, 0, 2, 0, 2, 1], [0, 0, 1, 0, 2, 0, 0, 1], [0, 0, 1, 0, 1, 1, 2, 1], [1, 0, 2, 0, 0, 1, 1, 1],
];
const points = [0, 1, 3, 5, 8]; // for so many full rows at once
const placesOf = (shape) => Array.from({ length: shape.length / 2 }, (_, i) => [shape[2 * i], shape[2 * i + 1]]);

class Field {
    /** `random`: a function like Math.random. */
    constructor(random = Math.random) {
        this.random = random;
        this.cells = Array.from({ length: rows }, () => Array(columns).fill(-1)); // the number of a shape, -1 for none
        this.score = 0;
        this.drop();
    }

    /** A new block at the top; the end when there is no room. */
    drop() {
        this.kind = Math.floor(this.random() * shapes.length);
        this.block = placesOf(shapes[this.kind]).map(([x, y]) => [x + 3, y]);
        this.isOver = !this.fits(this.block);
    }

    fits(block) { return block.every(([x, y]) => x >= 0 && x < columns && y < rows && (y < 0 || this.cells[y][x] === -1)); }

    /** Moves the block there if there is room; whether there was. */
    tryPut(block) {
        if (this.isOver || !this.fits(block)) return false;
        this.block = block;
        return true;
    }

    move(by) { return this.tryPut(this.block.map(([x, y]) => [x + by, y])); }

    /** A quarter to the right around the second square, a step aside at a wall. */
    turn() {
        const [middleX, middleY] = this.block[1];
        const turned = this.block.map(([x, y]) => [middleX - (y - middleY), middleY + (x - middleX)]);
        return [0, 1, -1].some((aside) => this.tryPut(turned.map(([x, y]) => [x + aside, y])));
    }

    /** One row down; a block that cannot stays, and the next one comes. Whether it could. */
    fall() {
        if (this.isOver || this.tryPut(this.block.map(([x, y]) => [x, y + 1]))) return !this.isOver;
        for (const [x, y] of this.block) if (y >= 0) this.cells[y][x] = this.kind;
        const left = this.cells.filter((row) => row.includes(-1));
        this.score += points[rows - left.length];
        this.cells = [...Array.from({ length: rows - left.length }, () => Array(columns).fill(-1)), ...left];
        this.drop();
        return false;
    }

    /** All squares that are seen, as [x, y, kind]. */
    squares() {
        const all = this.cells.flatMap((row, y) => row.map((kind, x) => [x, y, kind]));
        return [...all.filter(([, , kind]) => kind !== -1), ...this.block.map(([x, y]) => [x, y, this.kind])];
    }
}

module.exports = { Field, columns, rows };
