'use strict';
// The keyboard alone: expenses are added, one is removed, the menu hides the headings, clears and quits.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const texts = async (w) => (await w.rows('list')).map((row) => row.texts.join(', '));

test('a list of expenses', async () => {
    const program = await launch(path.join(__dirname, 'app.js'));
    const w = await program.window('Expenses');
    await w.press('Return');
    assert.equal(await w.text('total'), 'What was it, and how much?');
    await w.type('Train');
    await w.press('Tab');
    await w.type('12,5');
    await w.press('Return');
    assert.deepEqual([await texts(w), await w.text('total')], [['Train (no receipt), travel, card, 12.50'], '1 entries, 12.50 in all']);
    await w.type('Soup'); // the next one, where the keyboard is
    await w.press('Tab');
    await w.type('7');
    await w.press('Tab');
    await w.type('m'); // Meals
    await w.press('Tab');
    await w.type('with bread');
    await w.press('Tab, Right, Tab, Space, Tab, Space'); // cash, a receipt, Add
    assert.deepEqual([await texts(w), await w.value('notes')], [['Train (no receipt), travel, card, 12.50', 'Soup, meals, cash, 7.00'], '']);
    assert.equal(await w.text('total'), '2 entries, 19.50 in all');

    await w.press('Shift+Tab, Shift+Tab'); // the last stops: the list, Remove
    await w.press('Space, Tab, Space'); // the current row, which Space selects; Remove
    assert.deepEqual(await texts(w), ['Soup, meals, cash, 7.00']);
    assert.equal(await w.text('total'), '1 entries, 7.00 in all');
    const file = path.join(os.tmpdir(), `expenses-${process.pid}.png`);
    const seen = async () => fs.readFileSync(await w.screenshot(file));
    const before = await seen();
    await w.press('F10, Right, Return'); // View, Headings
    assert.ok(!(await seen()).equals(before), 'the headings are gone');
    await w.press('F10, Right, Return');
    assert.ok((await seen()).equals(before));
    fs.rmSync(file);
    await w.press('F10, Return'); // File, Clear the list
    assert.deepEqual([await texts(w), await w.text('total')], [[], '0 entries, 0.00 in all']);
    await w.press('F10, Down, Return'); // Quit
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, '0.00 in all\n', '']);
});
