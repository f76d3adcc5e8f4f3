'use strict';
// The keyboard alone: an address more, one changed in the list, one removed, another sheet; then on paper, read back by pdftotext.

const assert = require('node:assert/strict');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'labels-'));
after(() => fs.rmSync(folder, { recursive: true }));
const file = path.join(folder, 'addresses.json');
const saved = () => JSON.parse(fs.readFileSync(file, 'utf8'));
const start = () => launch(path.join(__dirname, 'app.js'), { args: [file], cwd: folder });

/** The lines of each sheet of a PDF file. */
const sheetsOf = (pdf) => execFileSync('pdftotext', ['-layout', pdf, '-'], { encoding: 'utf8' }).split('\f').slice(0, -1)
    .map((sheet) => sheet.split('\n').map((line) => line.trim()).filter(Boolean));

test('addresses are added, changed and removed', async () => {
    const program = await start();
    const w = await program.window('Labels');
    assert.equal(await w.text('status'), '8 addresses on 1 sheet');
    await w.type('Grace Hopper');
    await w.press('Tab');
    await w.type('1 Navy Yard');
    await w.press('Enter');
    assert.equal((await w.rows('list')).length, 8, 'the town is missing: it has the keyboard now');
    await w.type('Arlington');
    await w.press('Enter');
    assert.deepEqual((await w.rows('list')).at(-1)?.texts, ['Grace Hopper', '1 Navy Yard', 'Arlington']);
    assert.equal(await w.value('name'), '', 'the next one may be typed');

    await w.press('Shift+Tab, Home, F2, Ctrl+A'); // into the list, to the first name
    await w.type('Ada Lovelace');
    await w.press('Enter');
    assert.equal(saved()[0][0], 'Ada Lovelace');
    await w.press('F2, Ctrl+A, Delete, Enter');
    assert.equal((await w.rows('list'))[0].texts[0], 'Ada Lovelace', 'an empty name is not taken');
    await w.press('Down, Shift+Delete');
    assert.deepEqual(saved().map(([name]) => name).slice(0, 2), ['Ada Lovelace', 'Sofja Kowalewskaja']);
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('the sheets: as many labels as they have, the first ones left free', async () => {
    fs.writeFileSync(file, JSON.stringify(Array.from({ length: 12 }, (_, i) => [`Name ${i + 1}`, 'Street', 'Town'])));
    const program = await start();
    const w = await program.window('Labels');
    const pdf = path.join(folder, 'out.pdf');
    await w.press('Alt+H, Down, Down'); // ten labels on a sheet
    assert.equal(await w.value('sheet'), '2x5');
    await w.press('Alt+F');
    await w.type('4');
    assert.equal(await w.text('status'), '12 addresses on 2 sheets');
    await w.press('Ctrl+S');
    const dialog = await program.dialog();
    await dialog.press('Ctrl+A');
    await dialog.type(pdf);
    await dialog.press('Enter');
    await w.idle();
    assert.equal(await w.text('status'), 'Saved as out.pdf');
    assert.deepEqual(sheetsOf(pdf).map((lines) => lines.filter((line) => line.startsWith('Name')).map((line) => line.split(/ {2,}/))),
        [[['Name 1'], ['Name 2', 'Name 3'], ['Name 4', 'Name 5'], ['Name 6', 'Name 7']], [['Name 8', 'Name 9'], ['Name 10', 'Name 11'], ['Name 12']]]);
    assert.match(execFileSync('pdfinfo', [pdf], { encoding: 'utf8' }), /^Page size: *59[45]\.?\d* x 84[12]\.?\d* pts \(A4\)$/m);
    await w.press('Ctrl+S');
    await (await program.dialog()).press('Escape');
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});
