'use strict';
// The keyboard alone: through folders and back, sorted, About in a frame, Help in the whole window with its bookmarks.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const top = path.join(fs.mkdtempSync(path.join(os.tmpdir(), 'files-')), 'home');
after(() => fs.rmSync(path.dirname(top), { recursive: true }));
fs.mkdirSync(path.join(top, 'letters', 'old'), { recursive: true });
for (const [name, size] of Object.entries({ 'a.txt': 10, 'b & c.txt': 2000, 'letters/ann.txt': 3 })) {
    fs.writeFileSync(path.join(top, name), 'x'.repeat(size));
    fs.utimesSync(path.join(top, name), 1.7e9, 1.7e9);
}

/** Follows the link that is so many stops further on. */
const follow = (w, stops) => w.press(`${'Tab, '.repeat(stops)}Return`);

/** Names in the list, in their order. */
const names = async (w) => (await w.text('list')).split('\n').slice(1).map((line) => line.split('\t')[0]).filter(Boolean);

test('folders, sorting, About, Help and the way back', async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: [top] });
    const w = await program.window('home - Files');
    // The links in their order: About, Help, Quit; the folders; Size, Changed; the entries.
    await follow(w, 4);
    assert.equal(await w.title(), 'letters - Files');
    assert.deepEqual(await names(w), ['old', 'ann.txt']);
    await follow(w, 1); // Up, which is there now
    assert.deepEqual(await names(w), ['letters', 'a.txt', 'b & c.txt']);
    await follow(w, 5); // by size
    assert.deepEqual(await names(w), ['letters', 'b & c.txt', 'a.txt']);
    await follow(w, 8); // the list was made anew, so it begins at the first link: past Name, Changed and letters
    assert.match(await w.text('status'), /^b & c\.txt: 2,000 bytes, changed 2023-11-14 22:13$/);
    await follow(w, 3); // Quit
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, 'You were in home.\n', '']);
});

test('About stays in its frame; Help takes the window, has places to go to, and gives it back', async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: [top] });
    const w = await program.window('home - Files');
    await follow(w, 1);
    assert.match(await w.text('list'), /^About this program/);
    assert.equal(await w.text('status'), '1 folder, 2 files', 'the other frames have stayed');
    await follow(w, 4); // behind Help, Quit and letters
    assert.match(await w.text('list'), /^Where links lead/);
    await follow(w, 2);
    assert.match(await w.text(), /This page has replaced the whole window/);
    const file = path.join(top, '..', 'help.png');
    const seenAfter = async (keys) => { await w.press(keys); return fs.readFileSync(await w.screenshot(file)); };
    const beginning = await seenAfter('Tab, Tab');
    assert.ok(!(await seenAfter('Return')).equals(beginning), 'a place further down');
    await w.press('Shift+Tab, Return'); // back to the files
    assert.deepEqual(await names(w), ['letters', 'a.txt', 'b & c.txt']);
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});
