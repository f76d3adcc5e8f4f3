'use strict';
// The keyboard alone: from one difference to the next, other files, sides changed.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');
const { differenceOf } = require('./diff');

const app = path.join(__dirname, 'app.js');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'filediff-'));
after(() => fs.rmSync(folder, { recursive: true }));

function write(name, text) {
    fs.writeFileSync(path.join(folder, name), text);
    return path.join(folder, name);
}

const plain = (text) => (typeof text === 'string' ? text : text.text);
const selected = async (w) => (await w.rows('lines')).filter((row) => row.selected).map(({ texts }) => texts.map(plain));

test('the differences, one after the other, and back', async () => {
    const program = await launch(app);
    const w = await program.window('before.txt and after.txt - Differences');
    assert.deepEqual(await selected(w), [['1', 'Bread for two days', '1', 'Bread for the whole week']]);
    assert.equal(await w.text('status'), '1 of 5 differences: 6 lines removed, 6 added');
    await w.press('F8');
    assert.deepEqual(await selected(w), [['3', '500 g wheat flour', '3', '300 g wheat flour']]);
    await w.press('F8, F8');
    assert.deepEqual(await selected(w), [['', '', '13', 'Cut its top with a knife.']]);
    await w.press('F8, F8');
    assert.match(await w.text('status'), /^1 of 5/, 'the first comes after the last');
    await w.press('Shift+F8');
    assert.deepEqual(await selected(w), [['16', '', '', '']]);
    await w.press('Ctrl+T');
    assert.equal(await w.title(), 'after.txt and before.txt - Differences');
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('other files by the dialog; equal files; a far difference is scrolled to', async () => {
    const many = Array.from({ length: 3000 }, (_, i) => `line ${i}`);
    const first = write('first.txt', `${many.join('\n')}\n`);
    const second = write('second.txt', many.map((line, i) => `${i === 2500 ? 'changed' : line}\n`).join(''));
    const program = await launch(app, { args: [first, first] });
    const w = await program.window();
    assert.equal(await w.text('status'), 'The files are the same.');
    await w.press('Ctrl+R');
    const dialog = await program.dialog();
    await dialog.type(second);
    await dialog.press('Enter');
    assert.deepEqual(await selected(w), [['2501', 'line 2500', '2501', 'changed']]);
    await w.press('Ctrl+Q');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
});

test('the difference is the shortest, and is one of any two texts', () => {
    const of = (left, right) => { const { removed, added } = differenceOf([...left], [...right]); return [[...removed], [...added]]; };
    assert.deepEqual(of('abcabba', 'cbabac').map(({ length }) => length), [3, 2]);
    assert.deepEqual([of('', 'ab'), of('ab', ''), of('ab', 'ab')], [[[], [0, 1]], [[0, 1], []], [[], []]]);
    let seed = 7;
    const random = (below) => { seed = seed * 48271 % 2147483647; return seed % below; };
    for (let round = 0; round < 300; ++round) {
        const [left, right] = [0, 0].map(() => Array.from({ length: random(12) }, () => random(3)));
        const { removed, added } = differenceOf(left, right);
        assert.deepEqual(left.filter((_, i) => !removed.has(i)), right.filter((_, i) => !added.has(i)));
    }
    const [low, high] = [0, 5000].map((from) => Array.from({ length: 3000 }, (_, i) => from + i));
    assert.equal(differenceOf(low, high).removed.size, 3000, 'too many steps: they differ as a whole');
});
