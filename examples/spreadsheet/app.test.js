'use strict';
// The spreadsheet, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');
const { Cells } = require('./cells');

test('cells come to what they should', () => {
    const cells = new Cells();
    const typed = { A1: '2', A2: '3.5', A3: 'tea', B1: '=A1 + a2', B2: '=SUM(A1:A5) * 2', B3: '=AVERAGE(A1:A2, 9.5)', B4: '=B1^2', CV100: '=B4', C1: '=A3 + 1', C2: '=CW1', C3: '=A1:A2',
        C4: '=D4', D4: '=E4', E4: '=C4 + 1', C5: '=C1', C6: '=A101', C7: '=count(a1:b2)', C8: '=A9', C9: '=SUM(A1:A2' };
    for (const [name, text] of Object.entries(typed)) cells.set(name, text);
    const values = { B1: 5.5, B2: 11, B3: 5, B4: 30.25, CV100: 30.25, A3: 'tea', C7: 4, C8: 0 };
    for (const [name, value] of Object.entries(values)) assert.equal(cells.value(name), value, name);
    const wrong = { C1: 'A3 is no number', C2: 'what is "cw1"?', C3: 'a range is no number',
        C4: 'C4 depends on itself', E4: 'C4 depends on itself', C5: 'A3 is no number', C6: 'what is "a101"?', C9: 'a ) is missing' };
    for (const [name, message] of Object.entries(wrong)) assert.equal(cells.value(name).message, message, name);
    cells.set('E4', '7');
    assert.deepEqual([cells.value('C4'), cells.value('D4')], [7, 7], 'all is worked out anew');
});

test('numbers and formulas are typed, taken, left, removed and found again', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-spreadsheet-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'sheet.json');
    const saved = () => JSON.parse(fs.readFileSync(file, 'utf8'));
    const open = async () => {
        const app = await launch(path.join(__dirname, 'app.js'), { args: [file] });
        return { app, w: await app.window('Spreadsheet') };
    };
    const { app, w } = await open();
    for (const line of ['12', '30', '=A1 + A2']) {
        await w.type(line); // into the grid, which hands it on to the field
        await w.press('Enter');
    }
    assert.deepEqual(saved(), { A1: '12', A2: '30', A3: '=A1 + A2' });
    await w.press('Up');
    assert.equal(await w.text('name'), 'A3');
    assert.equal(await w.value('formula'), '=A1 + A2');
    await w.press('F2');
    await w.type(' / A4');
    await w.press('Enter, Up');
    assert.equal(saved().A3, '=A1 + A2 / A4');
    await w.press('F2');
    await w.type(' nonsense');
    await w.press('Escape');
    assert.equal(await w.value('formula'), '=A1 + A2 / A4', 'left as it was');

    await w.press('Right');
    await w.type('=B4');
    await w.press('Enter');
    await w.type('=B3');
    await w.press('Enter, Up');
    assert.equal(await w.text('status'), 'B3 depends on itself', 'which is where it was noticed');
    await w.press('Ctrl+Delete');
    assert.deepEqual(saved(), { A1: '12', A2: '30', A3: '=A1 + A2 / A4', B3: '=B4' });
    assert.equal(await w.text('status'), '');

    await w.press('End, PgDown, PgDown, PgDown, PgDown, PgDown, PgDown, PgDown');
    assert.equal(await w.text('name'), 'CV100');
    await w.type('9');
    await w.press('Enter, Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');

    fs.writeFileSync(file, JSON.stringify({ ...saved(), C1: '=C1' }));
    const again = await open();
    await again.w.press('Right, Right');
    assert.equal(await again.w.text('status'), 'C1 depends on itself', 'what was read is worked out');
    await again.w.press('Home');
    assert.equal(await again.w.value('formula'), '12');
    await again.w.type('13'); // is taken when the window closes
    assert.equal(await again.app.close(), 0);
    assert.equal(saved().A1, '13');
    assert.equal(saved().CV100, '9');
});
