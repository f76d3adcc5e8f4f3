'use strict';
// The calendar, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

test('days by the arrows, appointments written, changed and removed', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-calendar-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'calendar.json');
    const saved = () => JSON.parse(fs.readFileSync(file, 'utf8'));

    const app = await launch(path.join(__dirname, 'app.js'), { args: [file, '2024-01-31'] });
    const w = await app.window('January 2024');
    assert.equal(await w.text('day'), 'Wednesday, January 31');
    await w.press('PgDown');
    assert.equal(await w.text('day'), 'Thursday, February 29', 'there is no 31st');
    await w.press('Right, Up');
    assert.equal(await w.text('day'), 'Friday, February 23');
    await w.press('PgUp, PgUp');
    assert.equal(await w.title(), 'December 2023');
    await w.press('Down, Down');
    assert.equal(await w.text('day'), 'Saturday, January 6');

    await w.press('Ctrl+N');
    await w.type('Skating');
    await w.press('Enter'); // the button Add; the keyboard goes back to the month
    await w.press('Ctrl+N, Shift+Tab');
    await w.press('Delete, Tab');
    await w.type('Bread & butter');
    await w.press('Enter'); // no time: the keyboard goes there
    await w.type('07:30');
    await w.press('Enter');
    assert.deepEqual(saved(), { '2024-01-06': [{ time: '07:30', text: 'Bread & butter' }, { time: '09:00', text: 'Skating' }] });

    await w.press('Right');
    assert.deepEqual(await w.rows('list'), []);
    await w.press('Left, Tab, Home, F2'); // the time of the first one, in its place
    await w.type('10:15');
    await w.press('Enter');
    assert.deepEqual(saved()['2024-01-06'].map(({ time }) => time), ['09:00', '10:15']);
    await w.press('Home, F2');
    await w.type('25:00');
    await w.press('Enter');
    assert.deepEqual((await w.rows('list')).map(({ texts }) => texts), [['09:00', 'Skating'], ['10:15', 'Bread & butter']], 'no such time');
    await w.press('F2, Tab'); // and the text behind it
    await w.type('Cheese');
    await w.press('Enter');
    assert.equal(saved()['2024-01-06'][0].text, 'Cheese');
    await w.press('Space, Ctrl+Delete, Space, Ctrl+Delete');
    assert.deepEqual(saved(), {});

    await w.press('Ctrl+T');
    assert.equal(await w.text('day'), 'Wednesday, January 31');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
