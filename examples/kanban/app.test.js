'use strict';
// The board, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

test('cards are written, changed, moved and removed, and the file has them', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-kanban-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'board.json');
    fs.writeFileSync(file, JSON.stringify({ 'To do': ['one', 'two', 'three'], Doing: [], Done: ['zero'] }));
    const saved = () => Object.values(JSON.parse(fs.readFileSync(file, 'utf8')));

    const app = await launch(path.join(__dirname, 'app.js'), { args: [file] });
    const w = await app.window('Board');
    assert.equal(await w.text('status'), 'To do: 1 of 3');
    await w.press('Down, Ctrl+Right');
    assert.deepEqual(saved(), [['one', 'three'], ['two'], ['zero']]);
    assert.equal(await w.text('status'), 'Doing: 1 of 1', 'the card is still the current one');
    await w.press('Ctrl+Right, Ctrl+Right');
    assert.deepEqual(saved(), [['one', 'three'], [], ['two', 'zero']], 'no further than the last column');
    await w.press('Ctrl+Down, Ctrl+Down');
    assert.deepEqual(saved()[2], ['zero', 'two']);
    await w.press('Ctrl+Up');
    assert.deepEqual(saved()[2], ['two', 'zero']);

    await w.press('Left');
    assert.equal(await w.text('status'), 'Doing: no cards');
    await w.press('Delete, F2, Return, Ctrl+Left'); // there is nothing that these could be about
    await w.press('Ctrl+N');
    await (await app.dialog()).type('four & five');
    await (await app.dialog()).press('Enter');
    await w.idle();
    assert.deepEqual(saved()[1], ['four & five']);
    await w.press('F2');
    const dialog = await app.dialog();
    await dialog.press('End');
    await dialog.type(', six');
    await dialog.press('Enter');
    await w.idle();
    assert.deepEqual(saved()[1], ['four & five, six']);
    await w.press('Return');
    await (await app.dialog()).press('Escape');
    await w.press('Left, Down, Delete');
    assert.deepEqual(saved(), [['one'], ['four & five, six'], ['two', 'zero']]);
    assert.equal(await w.text('status'), 'To do: 1 of 1');

    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
