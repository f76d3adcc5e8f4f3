'use strict';
// The keyboard alone: through folders, new ones, other names, in place too, and away with them.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, beforeEach, test } = require('node:test');
const { launch } = require('../../host/node/test');

const outside = fs.mkdtempSync(path.join(os.tmpdir(), 'filemanager-'));
after(() => fs.rmSync(outside, { recursive: true }));
const top = path.join(outside, 'home');

beforeEach(() => {
    fs.rmSync(top, { recursive: true, force: true });
    fs.mkdirSync(path.join(top, 'letters', 'old'), { recursive: true });
    for (const name of ['file 10.txt', 'file 9.txt', 'letters/ann.txt']) fs.writeFileSync(path.join(top, name), name);
});

const start = async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: [top] });
    return { program, w: await program.window('home - File manager') };
};
const names = async (w, list = 'files') => (await w.rows(list)).map(({ texts }) => texts[0]);
const inTop = () => fs.readdirSync(top).sort();

test('folders are entered and left, in both lists', async () => {
    const { program, w } = await start();
    assert.deepEqual([await names(w), await w.text('status')], [['letters', 'file 9.txt', 'file 10.txt'], '3 entries']);
    await w.press('Space');
    assert.equal(await w.text('status'), 'letters');
    await w.press('Return');
    assert.deepEqual([await w.title(), await names(w), await names(w, 'folders')], ['letters - File manager', ['old', 'ann.txt'], ['home', 'letters', 'old']]);
    await w.press('Alt+Up');
    assert.deepEqual([await w.title(), (await w.find('up'))?.enabled], ['home - File manager', false]);
    await w.press('Shift+Tab, Shift+Tab, Down'); // past the divider: the tree
    assert.equal(await w.title(), 'letters - File manager');
    await w.press('Tab, Right, Right, Tab'); // the divider is moved
    await w.press('Down, Up, Down');
    assert.equal(await w.text('status'), 'ann.txt');
    await w.press('Return');
    assert.match(await w.text('status'), /ann\.txt: a file$/);
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('folders are made, files renamed and removed', async () => {
    const { program, w } = await start();
    await w.press('Ctrl+Shift+N');
    const folder = await program.dialog();
    await folder.type('new');
    await folder.press('Return');
    assert.deepEqual(inTop(), ['file 10.txt', 'file 9.txt', 'letters', 'new']);

    await w.press('Down, Down, F2, Ctrl+A'); // in its place
    await w.type('nine.txt');
    await w.press('Return');
    assert.deepEqual(inTop(), ['file 10.txt', 'letters', 'new', 'nine.txt']);
    assert.equal((await names(w)).at(-1), 'nine.txt');
    await w.press('End, F2, Ctrl+A');
    await w.type('letters');
    await w.press('Return'); // which is a folder
    await (await program.dialog()).press('Return');
    assert.equal((await names(w)).at(-1), 'nine.txt', 'the old name is back');

    await w.press('Alt+F, R');
    const name = await program.dialog();
    await name.press('Ctrl+A');
    await name.type('ten.txt');
    await name.press('Return');
    assert.ok(inTop().includes('ten.txt'));
    await w.press('End, Shift+Delete');
    await (await program.dialog()).press('Escape');
    assert.equal(inTop().length, 4, 'not without being sure');
    await w.press('Shift+F10, M'); // the context menu
    await (await program.dialog()).press('Return');
    assert.equal(inTop().length, 3);
    assert.equal(await program.close(), 0);
});
