'use strict';
// The keyboard alone: every tab and every kind of field, what is wrong, Apply, and leaving with changes.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const file = path.join(fs.mkdtempSync(path.join(os.tmpdir(), 'preferences-')), 'preferences.json');
after(() => fs.rmSync(path.dirname(file), { recursive: true }));
const start = () => launch(path.join(__dirname, 'app.js'), { args: [file] });
const saved = () => JSON.parse(fs.readFileSync(file, 'utf8'));

test('nothing was changed: Escape asks nothing', async () => {
    const program = await start();
    const w = await program.window('Preferences');
    assert.equal((await w.find('apply'))?.enabled, false);
    await w.press('Escape');
    assert.deepEqual([await program.exit, program.stderr, fs.existsSync(file)], [{ code: 0, signal: null }, '', false]);
});

test('all fields are filled in; what is missing keeps the window', async () => {
    const program = await start();
    const w = await program.window('Preferences');
    await w.press('Tab');
    await w.type('ada');
    assert.equal(await w.text('state'), 'Something is missing or wrong.');
    await w.press('Return');
    await w.type('Ad'); // the keyboard is in the field that is missing
    await w.press('Down, Return'); // the first one that is offered
    assert.equal(await w.value('name'), 'Ada Byron');
    await w.press('Alt+M, End');
    await w.type('@example.org');
    await w.press('Tab');
    await w.type('secret');
    await w.press('Tab, Up, Tab'); // the day has none yet
    await w.type('Yours');
    assert.equal(await w.text('state'), '');

    await w.press('Alt+L');
    assert.equal(await w.value('part'), 'look');
    await w.press('Alt+S, Ctrl+A');
    await w.type('14');
    await w.press('Tab, Right, Tab, Space'); // contrast, smooth
    assert.deepEqual([await w.value('size'), await w.value('contrast'), await w.value('smooth')], [14, 51, null]);
    await w.press('Ctrl+Tab');
    assert.equal(await w.value('part'), 'files');
    await w.press('Alt+F, Alt+F');
    await w.type('/tmp/a.log');
    await w.press('Tab, Up, Tab, Down'); // a minute later, texts
    assert.deepEqual([await w.value('backup'), await w.value('kinds')], ['03:01', 'text']);
    await w.press('Alt+E');
    assert.equal((await w.find('port'))?.enabled, false);
    await w.press('Down'); // the first field of the tab has the keyboard
    assert.equal((await w.find('port'))?.enabled, true);
    await w.press('Return'); // OK: by a proxy, but which?
    await w.type('proxy.example.org');
    await w.press('Return');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
    const { name, mail, secret, motto, size, log, network, proxy } = saved();
    assert.deepEqual([name, mail, secret, motto, size, log, network, proxy],
        ['Ada Byron', 'ada@example.org', 'secret', 'Yours', 14, '/tmp/a.log', 'proxy', 'proxy.example.org']);
});

test('Apply saves and stays; changes behind it are asked about', async () => {
    const program = await start();
    const w = await program.window('Preferences');
    await w.press('End');
    await w.type('!');
    await w.press('Shift+Tab, Shift+Tab, Space'); // before the tabs, round and round: Apply
    assert.equal(saved().name, 'Ada Byron!');
    assert.equal((await w.find('apply'))?.enabled, false);
    await w.press('Alt+N');
    await w.type('Emmy');
    await w.press('Escape'); // closes the list of what is offered
    await w.press('Escape');
    await (await program.dialog()).press('Escape');
    assert.equal((await w.find('apply'))?.enabled, true);
    await w.press('Escape');
    await (await program.dialog()).press('Return');
    assert.deepEqual([await program.exit, saved().name], [{ code: 0, signal: null }, 'Ada Byron!']);
});
