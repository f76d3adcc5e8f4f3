'use strict';
// The keyboard alone: chapters are opened by the links of the column, of the page and of the foot, and scrolled.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const read = async (w) => (await w.text()).match(/(\d) of 7 pages read/)[1];

test('chapters are read, and the program says how many', async () => {
    const program = await launch(app);
    const w = await program.window('The tarn handbook');
    assert.equal(await read(w), '1');
    await w.press('Tab, Return'); // the open chapter is no link, so the first link is the second chapter
    assert.match(await w.text(), /A page is a text file\./);
    await w.press('Tab, Tab, Tab, Return');
    assert.equal(await read(w), '3');
    for (let chapter = 4; chapter < 7; ++chapter) {
        assert.doesNotMatch(await w.text(), /This was the last page\./);
        await w.press('Shift+Tab, Return'); // the last link of the window is that at the foot
    }
    assert.match(await w.text(), /This was the last page\./);
    assert.equal(await read(w), '6');
    await w.press('Tab, Return'); // the first chapter
    assert.match(await w.text(), /You are looking at such a page/);
    await w.press('Shift+Tab, Shift+Tab, Return'); // in front of the foot: close the handbook
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, 'Goodbye after 6 pages.\n', '']);
});

test('a long chapter is scrolled by the keys', async () => {
    const program = await launch(app);
    const w = await program.window('The tarn handbook');
    const file = path.join(os.tmpdir(), `handbook-${process.pid}.png`);
    const seenAfter = async (keys) => { await w.press(keys); return fs.readFileSync(await w.screenshot(file)); };
    await w.press('Tab, Return');
    const top = await seenAfter('Tab, Tab, Tab, Tab, Tab, Tab, Tab'); // behind the six links of the column the page is a stop, which scrolls
    const below = await seenAfter('PgDown');
    assert.ok(!below.equals(top));
    assert.ok((await seenAfter('Home')).equals(top));
    fs.rmSync(file);
    assert.equal(await program.close(), 0);
});
