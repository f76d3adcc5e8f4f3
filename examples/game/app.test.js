'use strict';
// The keyboard alone: a whole game. The test thinks ahead on a field of its own, and presses what it has thought of.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');
const { Field, columns, rows } = require('./field');

const seeded = (seed) => () => { seed = seed * 48271 % 2147483647; return seed / 2147483647; };

/** How bad it is: holes under squares, then height. */
function badness({ cells }) {
    let sum = 0;
    for (let x = 0; x < columns; ++x) {
        const top = cells.findIndex((row) => row[x] !== -1);
        if (top === -1) continue;
        sum += (rows - top) ** 2 + 40 * cells.slice(top).filter((row) => row[x] === -1).length;
    }
    return sum;
}

/** A field whose block has been turned, moved and dropped. */
function after(field, turns, by) {
    const copy = Object.assign(Object.create(Field.prototype), field, { cells: field.cells.map((row) => [...row]), random: () => 0 });
    for (let i = 0; i < turns; ++i) copy.turn();
    for (let i = 0; i < Math.abs(by); ++i) copy.move(Math.sign(by));
    while (copy.fall());
    return copy;
}

/** The keys that bring the block where it is least bad. */
function think(field) {
    const ways = [0, 1, 2, 3].flatMap((turns) => Array.from({ length: 11 }, (_, i) => ({ turns, by: i - 5 })));
    const marks = ways.map(({ turns, by }) => badness(after(field, turns, by)));
    const { turns, by } = ways[marks.indexOf(Math.min(...marks))];
    return [...Array(turns).fill('Up'), ...Array(Math.abs(by)).fill(by < 0 ? 'Left' : 'Right'), 'Space'];
}

const play = { Up: (field) => field.turn(), Left: (field) => field.move(-1), Right: (field) => field.move(1), Space: (field) => { while (field.fall()); } };

test('rows are filled by the keys, until the end; then another game', async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: ['7'] });
    const w = await program.window('Blocks');
    const field = new Field(seeded(7));
    for (let block = 0; block < 60 && field.score < 3; ++block) {
        const keys = think(field);
        keys.forEach((key) => play[key](field));
        await w.press(keys.join(', '));
        assert.equal(await w.text('status'), `${field.score} points`);
    }
    assert.ok(field.score >= 3, `${field.score} points`);
    await w.press('P');
    assert.equal(await w.text('status'), `${field.score} points. Pause`);
    await w.press('Space, P');
    assert.equal(await w.text('status'), `${field.score} points`, 'no key counts in a pause');
    for (let block = 0; block < 30 && !field.isOver; ++block) play.Space(field);
    for (let block = 0; block < 30 && !(await w.text('status')).endsWith('The end'); ++block) await w.press('Space');
    assert.equal(await w.text('status'), `${field.score} points. The end`);
    await w.press('F2');
    assert.equal(await w.text('status'), '0 points');
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('full rows go away, and count the more the more there are at once', () => {
    for (const [full, points] of [[1, 1], [2, 3]]) {
        const field = new Field(() => 0.2); // squares, which come down in the columns 3 and 4
        for (let row = 0; row < full; ++row) field.cells[rows - 1 - row] = field.cells[rows - 1 - row].map((none, x) => (x === 3 || x === 4 ? none : 0));
        play.Space(field);
        assert.equal(field.score, points);
        assert.equal(field.cells.flat().filter((kind) => kind !== -1).length, 4 - 2 * full);
    }
});

test('a block falls by itself, and the program ends in the middle of a game', async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: ['7'] });
    const w = await program.window('Blocks');
    const file = path.join(os.tmpdir(), `game-${process.pid}.png`);
    const picture = async () => fs.readFileSync(await w.screenshot(file));
    const first = await picture();
    let now = first;
    for (const end = Date.now() + 4000; Date.now() < end && now.equals(first);) now = await picture();
    fs.rmSync(file);
    assert.ok(!now.equals(first), 'the picture has changed');
    assert.equal(await program.close(), 0);
});
