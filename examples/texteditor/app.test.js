'use strict';
// The text editor, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

async function open(t, content) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-texteditor-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'a.txt');
    fs.writeFileSync(file, content);
    const app = await launch(path.join(__dirname, 'app.js'), { args: [file] });
    /** Presses keys that open a dialog, types into it, and answers by Enter, or by other keys. */
    const answer = async (w, keys, text, last = 'Enter') => {
        await w.press(keys);
        const dialog = await app.dialog();
        if (text) await dialog.type(text);
        await dialog.press(last);
        await w.idle();
    };
    return { answer, app, folder, read: (name) => fs.readFileSync(path.join(folder, name), 'utf8'), w: await app.window('a.txt - Text editor') };
}

test('a file is changed, saved, saved under another name', async (t) => {
    const { answer, app, folder, read, w } = await open(t, 'one\r\ntwo');
    assert.equal(await w.value('text'), 'one\ntwo');
    await w.press('Ctrl+End');
    await w.type(' & three\nfour');
    assert.equal(await w.title(), '*a.txt - Text editor');
    assert.equal(await w.text('status'), '3 lines, 5 words');
    await w.press('Ctrl+S');
    assert.equal(await w.title(), 'a.txt - Text editor');
    assert.equal(read('a.txt'), 'one\ntwo & three\nfour');
    await w.type('!');
    await w.press('Backspace');
    assert.equal(await w.title(), 'a.txt - Text editor', 'what was taken back is no change');

    await w.type('?');
    await answer(w, 'Ctrl+Shift+S', path.join(folder, 'b.txt'));
    assert.equal(await w.title(), 'b.txt - Text editor');
    assert.deepEqual([read('a.txt'), read('b.txt')], ['one\ntwo & three\nfour', 'one\ntwo & three\nfour?']);
    await answer(w, 'Ctrl+O', path.join(folder, 'a.txt'));
    assert.equal(await w.title(), 'a.txt - Text editor');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});

test('texts are found and replaced', async (t) => {
    const { app, w } = await open(t, 'The ice. No Ice (at all).\nice, twice');
    await w.press('Ctrl+F');
    await w.type('ic');
    assert.equal(await w.text('status'), '1 of 4');
    await w.type('e');
    assert.equal(await w.text('status'), '1 of 4', 'it stays at its place');
    await w.press('F3, F3, F3');
    assert.equal(await w.text('status'), '4 of 4');
    await w.press('F3');
    assert.equal(await w.text('status'), '1 of 4');
    await w.press('Shift+F3, Shift+F3');
    assert.equal(await w.text('status'), '3 of 4');
    await w.press('Ctrl+T');
    await w.type('Snow'); // in place of what was found
    assert.equal(await w.value('text'), 'The ice. No Ice (at all).\nSnow, twice');

    await w.press('Ctrl+F');
    await w.type('(at');
    assert.equal(await w.text('status'), '1 of 1');
    await w.press('Ctrl+F');
    await w.type('ice');
    await w.press('Tab');
    await w.type('icicle');
    await w.press('Enter, Ctrl+H');
    assert.equal(await w.value('text'), 'The icicle. No Ice (at all).\nSnow, twicicle', 'from where it was, and on at the beginning');
    await w.press('Ctrl+F');
    await w.type('water');
    assert.equal(await w.text('status'), 'There is no "water"');
    await app.kill();
});

test('nothing is lost without a question', async (t) => {
    const { answer, app, folder, read, w } = await open(t, 'kept');
    await w.type('not ');
    await answer(w, 'Ctrl+Q', '', 'Escape');
    assert.equal(await w.title(), '*a.txt - Text editor');
    await answer(w, 'Ctrl+N', '', 'Tab, Space'); // Discard
    assert.equal(await w.title(), 'Untitled - Text editor');
    assert.equal(read('a.txt'), 'kept');

    await w.type('new');
    await w.press('Ctrl+Q');
    await (await app.dialog()).press('Enter'); // Save, which asks where
    const where = await app.dialog();
    await where.press('Escape');
    await w.idle();
    assert.equal(await w.value('text'), 'new', 'no name, no end');
    fs.symlinkSync(path.join(folder, 'none', 'lost.txt'), path.join(folder, 'lost.txt')); // into a folder that is not there
    await w.press('Ctrl+Shift+S');
    const nowhere = await app.dialog();
    await nowhere.type(path.join(folder, 'lost.txt'));
    await nowhere.press('Enter');
    const told = await app.dialog();
    assert.match(await told.text(), /^lost\.txt can not be written: ENOENT/);
    await told.press('Enter');
    await w.idle();
    assert.equal(await w.title(), '*Untitled - Text editor');
    await w.press('Ctrl+O');
    await (await app.dialog()).press('Tab, Space'); // Discard
    await (await app.dialog()).type(path.join(folder, 'a.txt'));
    await (await app.dialog()).press('Enter');
    await w.idle();
    assert.equal(await w.value('text'), 'kept');
    assert.equal(await app.close(), 0);
    assert.equal(app.stderr, '');
});
