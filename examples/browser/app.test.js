'use strict';
// The keyboard alone: pages are turned, rows found and sorted, and another table shown.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tables-'));
after(() => fs.rmSync(folder, { recursive: true }));
fs.writeFileSync(path.join(folder, 'cities.csv'), 'City,Country\nRome,Italy\nBern,Switzerland\nOslo,Norway\n');
fs.writeFileSync(path.join(folder, 'numbers.csv'), `Number,Square\n${Array.from({ length: 250 }, (_, i) => `${i},${i * i}`).join('\n')}\n`);
const first = async (w) => (await w.rows('list')).slice(0, 2).map(({ texts }) => texts[0]);

test('tables are sorted, searched, and turned over', async () => {
    const program = await launch(path.join(__dirname, 'app.js'), { args: [folder] });
    const w = await program.window('cities - Tables');
    assert.deepEqual(await first(w), ['Bern', 'Oslo']);
    await w.press('Tab, Tab, Down'); // sort by the second column
    assert.deepEqual(await first(w), ['Rome', 'Oslo']);
    await w.press('Shift+Tab');
    await w.type('erl');
    assert.deepEqual([await first(w), await w.text('status')], [['Bern'], '1 of 3 rows']);

    await w.press('Shift+Tab, Down');
    assert.equal(await w.title(), 'numbers - Tables');
    assert.deepEqual([await first(w), await w.text('status'), await w.value('find')], [['0', '1'], '250 of 250 rows, 1 to 100 are shown', '']);
    assert.deepEqual([(await w.find('back'))?.enabled, (await w.find('next'))?.enabled], [false, true]);
    await w.press('Shift+Tab, Space'); // Next is the last stop
    assert.deepEqual(await first(w), ['100', '101']);
    await w.press('Space');
    assert.equal(await w.text('status'), '250 of 250 rows, 201 to 250 are shown');
    assert.equal((await w.find('next'))?.enabled, false);
    await w.press('Shift+Tab, Space'); // Previous
    assert.deepEqual(await first(w), ['100', '101']);
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});
