'use strict';
// The keyboard alone: several windows, one list of them, and the end with the last.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'documents-'));
after(() => fs.rmSync(folder, { recursive: true }));
const at = (name) => path.join(folder, name);
const read = (name) => fs.readFileSync(at(name), 'utf8');

/** The windows in the menu: what there is instead of an item that there is not. */
async function listed(w) {
    await w.press('Alt+W');
    const { message } = await w.menu('nothing', { timeout: 50 }).then(() => assert.fail(), (error) => error);
    return message.match(/"Next window", (.*) \(waited/)[1];
}

test('windows are opened, listed, saved and closed; the last one ends the program', async () => {
    const program = await launch(app, { cwd: folder });
    const first = await program.window('Untitled 1 - Notes');
    await first.type('one & two');
    assert.deepEqual([await first.title(), await first.text('status')], ['*Untitled 1 - Notes', '3 words']);
    await first.press('Ctrl+N');
    const second = await program.window('Untitled 2 - Notes');
    await second.type('other');
    await second.press('Ctrl+S');
    const dialog = await program.dialog();
    await dialog.press('Ctrl+A');
    await dialog.type(at('a & b.txt'));
    await dialog.press('Enter');
    await second.idle();
    assert.deepEqual([await second.title(), read('a & b.txt')], ['a & b.txt - Notes', 'other']);

    assert.equal(await listed(first), '"1 Untitled 1", "2 a & b.txt"');
    assert.equal(await listed(second), '"1 Untitled 1", "2 a & b.txt"');
    await second.press('Ctrl+O');
    const opening = await program.dialog();
    await opening.type(at('a & b.txt'));
    await opening.press('Enter');
    await second.idle();
    await assert.rejects(program.window('none', { timeout: 50 }), /open are "[^"]*", "[^"]*" \(/, 'it was open already');

    await second.press('Alt+W, 2'); // of the menu that is open
    await second.press('Ctrl+W');
    await assert.rejects(second.text('status'), /the window is closed/);
    assert.equal(await listed(first), '"1 Untitled 1"');
    await first.press('Ctrl+W');
    const question = await program.dialog();
    await question.press('Escape');
    assert.equal(await first.title(), '*Untitled 1 - Notes', 'Escape keeps it');
    await first.press('Ctrl+W');
    await (await program.dialog()).press('Tab, Space');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('Quit asks for each that was changed, and Save writes the file that it has', async () => {
    fs.writeFileSync(at('one.txt'), '1');
    fs.writeFileSync(at('two.txt'), '2');
    const program = await launch(app, { args: ['one.txt', 'two.txt'], cwd: folder });
    const one = await program.window('one.txt - Notes');
    await one.press('Ctrl+End');
    await one.type('!');
    const two = await program.window('two.txt - Notes');
    await two.press('Ctrl+F6, Ctrl+Q');
    const question = await program.dialog();
    assert.match(await question.text(), /Save one\.txt\?/);
    await question.press('Enter');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
    assert.deepEqual([read('one.txt'), read('two.txt')], ['1!', '2']);
});
