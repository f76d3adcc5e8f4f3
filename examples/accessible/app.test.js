'use strict';
// The keyboard alone; and that every control has a name for those who do not see it.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const problems = async (w) => (await Promise.all(['name', 'mail', 'voice', 'agree'].map((field) => w.text(`${field}Problem`)))).filter(Boolean);

test('every control of the page has a name that is told', async () => {
    const program = await launch(app);
    const w = await program.window('A place in the choir');
    const page = fs.readFileSync(path.join(__dirname, 'accessible.html'), 'utf8');
    const controls = [...page.matchAll(/<(?:input type="(?!button)[^>]*|select[^>]*) name="(\w+)"(?: value="(\w+)")?/g)].map(([, name, value]) => ({ name, value }));
    const named = controls.map(async ({ name, value }) => (await w.find(name === 'reach' ? { name, value } : { name }))?.label);
    assert.deepEqual(await Promise.all(named), ['Name *', 'Mail *', 'Voice *', 'Years of singing', 'by mail', 'by letter', 'I come to the rehearsals *']);
    assert.equal(await program.close(), 0);
});

test('mistakes are told behind their fields, the keyboard goes to the first; a letter leads to each field', async () => {
    const program = await launch(app);
    const w = await program.window('A place in the choir');
    await w.press('Alt+Y, Enter'); // from a field that is right
    assert.equal(await w.title(), '4 mistakes - A place in the choir');
    assert.deepEqual((await problems(w)).map((text) => text.split(':')[0]), ['Name', 'Mail', 'Voice', 'Rehearsals']);
    await w.type('Ada'); // the keyboard is there
    await w.press('Tab');
    assert.deepEqual((await problems(w)).map((text) => text.split(':')[0]), ['Mail', 'Voice', 'Rehearsals']);
    await w.type('ada');
    await w.press('Tab');
    assert.equal((await problems(w))[0], 'Mail: an address has an @ in it, for example ada@example.org.');
    await w.press('Alt+M, End');
    await w.type('@example.org');
    await w.press('Alt+O');
    await w.press('Down, Down, Alt+Y, Ctrl+A');
    await w.type('12');
    await w.press('Alt+L, Alt+C');
    assert.deepEqual(await problems(w), []);
    assert.deepEqual([await w.value('name'), await w.value('mail'), await w.value('voice'), await w.value('years'), await w.value('reach'), await w.value('agree')],
        ['Ada', 'ada@example.org', 'a', 12, 'letter', true]);
    await w.press('Enter');
    const dialog = await program.dialog();
    assert.match(await dialog.text(), /Thank you, Ada\./);
    await dialog.press('Enter');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('larger and smaller type; the help unfolds', async () => {
    const program = await launch(app);
    const w = await program.window();
    const file = path.join(os.tmpdir(), `type-${process.pid}.png`);
    const after = async (keys) => { await w.press(keys); return fs.readFileSync(await w.screenshot(file)); };
    const usual = await after('F5');
    const large = await after('F7');
    assert.ok(!large.equals(usual));
    assert.ok((await after('F6')).equals(usual), 'back again');
    await after('F7, F7, F7, F7, F7, F7, F7');
    assert.ok((await after('F5')).equals(usual));
    fs.rmSync(file);
    await w.press('Shift+Tab, Space'); // from the first field to the last stop of the page
    assert.match(await w.text(), /Every field by its label/);
    await w.press('Ctrl+Q');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
});
