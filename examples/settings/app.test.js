'use strict';
// The keyboard alone: settings are changed, found wrong, put right and saved; and given up.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'settings-'));
after(() => fs.rmSync(folder, { recursive: true }));
const file = path.join(folder, 'settings.json');
const start = () => launch(path.join(__dirname, 'app.js'), { args: [file] });

test('every setting is changed, and Return saves', async () => {
    const program = await start();
    const w = await program.window('Settings');
    await w.press('Ctrl+A');
    await w.type('Ann');
    await w.press('Tab, Down, Tab, Right, Tab, Ctrl+A'); // language, theme, size
    await w.type('200');
    await w.press('Tab, Ctrl+A');
    await w.type(path.join(folder, 'none'));
    await w.press('Tab, Tab, Space, Return'); // past Browse, the copy
    assert.equal(await w.text('problem'), 'A text size is a number from 6 to 72.');
    await w.press('Ctrl+A'); // the keyboard is in the field that is wrong
    await w.type('14');
    await w.press('Return');
    assert.equal(await w.text('problem'), 'There is no such folder.');
    await w.press('Ctrl+A');
    await w.type(folder);
    await w.press('Return');
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, `saved Ann, de, dark, 14, ${folder}, false\n`, '']);
    assert.deepEqual(JSON.parse(fs.readFileSync(file, 'utf8')), { name: 'Ann', language: 'de', theme: 'dark', size: 14, folder, backup: false });
});

test('the folder is chosen by the dialog; Escape asks before the changes are lost', async () => {
    fs.mkdirSync(path.join(folder, 'other'));
    const program = await start();
    const w = await program.window('Settings');
    await w.press('Tab, Tab, Tab, Tab, Tab, Space');
    const dialog = await program.dialog();
    await dialog.press('Ctrl+A');
    await dialog.type(path.join(folder, 'other'));
    await dialog.press('Enter');
    assert.equal(await w.value('folder'), path.join(folder, 'other'));
    await w.press('Escape');
    await (await program.dialog()).press('Escape');
    assert.equal(await w.value('folder'), path.join(folder, 'other'), 'it stays');
    await w.press('Tab, Tab, Tab, Space'); // Cancel
    await (await program.dialog()).press('Return');
    assert.deepEqual([await program.exit, program.stdout], [{ code: 0, signal: null }, 'nothing was changed\n']);
});
