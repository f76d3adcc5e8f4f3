'use strict';
// A form of 18,000 controls on a display. Its widgets are made when they are needed, and the user and script notice nothing of it: Tab
// goes through all controls, the form has all values, and what was changed is as it was left.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, press, type, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const rows = 1800;
const height = 30;
const fields = 8;
const cell = (content) => `<td height="${height}">${content}</td>`;
const fieldsOf = (row) => Array.from({ length: fields }, (_, i) => cell(`<input type="text" name="t${row}x${i}" value="${row}" width="40" height="20">`)).join('');
const rowOf = (row) => `<tr>${cell(`<input type="checkbox" name="c${row}" value="yes" width="20" height="20">`)}${fieldsOf(row)}
    ${cell(`<select name="s${row}" width="60" height="20"><option value="a">A<option value="b" selected>B</select>`)}</tr>`;
const page = `<html><head><title>Large</title></head><body width="600" height="400" valign="top" bgcolor="#F0F0F0">
<table cellspacing="0" cellpadding="0">${Array.from({ length: rows }, (_, row) => rowOf(row)).join('')}</table></body></html>`;

let program;
let window;

before(async () => {
    program = await Program.start('let window;');
    fs.writeFileSync(path.join(scratch, 'large.html'), page);
});
after(() => program.end());

beforeEach(async () => {
    await program.ask("window = new tarn.GuiWindow('large.html'); window.setSizePolicy('SCROLL'); window.open()");
    window = await findActiveWindow('Large');
});
afterEach(async () => {
    await program.ask('window.close()');
    await waitGone('Large');
});

const checkedBoxes = "Array.from({ length: 1800 }, (_, row) => 'c' + row).filter((name) => window.form[name] === 'yes')";
const turnWheel = (button, times) => xdotool('mousemove', '--window', window, 300, 200, 'click', '--repeat', times, '--delay', 4, button);

test('the form has the values of all controls', async () => {
    for (let row = 0; row < rows; row += 50) {
        const last = Math.min(row + 50, rows);
        const names = Array.from({ length: last - row }, (_, i) => [`c${row + i}`, `s${row + i}`,
            ...Array.from({ length: fields }, (__, field) => `t${row + i}x${field}`)]).flat();
        const wanted = names.map((name) => ({ c: null, s: 'b', t: /\d+/.exec(name)[0] })[name[0]]);
        assert.deepEqual(await program.ask(`${JSON.stringify(names)}.map((name) => window.form[name])`), wanted);
    }
});

test('script gives values to all fields, and asks for one more', async () => {
    await program.ask("for (let i = 0; i < 1800; ++i) window.form['t' + i + 'x3'] = 'new' + i; 0");
    assert.deepEqual(await program.ask("[0, 900, 1799].map((i) => window.form['t' + i + 'x3'])"), ['new0', 'new900', 'new1799']);
});

test('Shift+Tab goes from the first control to the last, where the user types', async () => {
    await program.ask("window.setFocus('c0')");
    await program.becomes('window.getFocus()', 'c0');
    await keys('shift+Tab');
    await program.becomes('window.getFocus()', 's1799');
    await keys('shift+Tab');
    await program.becomes('window.getFocus()', 't1799x7');
    await keys('End');
    await type('typed');
    await program.becomes('window.form.t1799x7', '1799typed');
    await keys('Tab', 'Tab', 'Tab');
    await program.becomes('window.getFocus()', 't0x0');
    await keys('End');
    await type('!');
    await program.becomes('window.form.t0x0', '0!');
    assert.equal(await program.ask('window.form.t1799x7'), '1799typed');
});

test('a box that is clicked in the middle stays checked while the page is scrolled away and back', async () => {
    const steps = 560; // of 48 pixels, so that the rows stand where they stood
    await turnWheel(5, steps);
    await press(window, 8, 75);
    await program.becomes(`${checkedBoxes}.length`, 1);
    const [box] = await program.ask(checkedBoxes);
    assert.ok(Number(box.slice(1)) > 500 && Number(box.slice(1)) < 1300, box);
    await turnWheel(4, steps);
    await press(window, 8, 75);
    await program.becomes('window.form.c2', 'yes');
    assert.deepEqual(await program.ask(checkedBoxes), ['c2', box]);
    await turnWheel(5, steps);
    await press(window, 8, 75);
    await program.becomes(`window.form.${box}`, null);
    assert.deepEqual(await program.ask(checkedBoxes), ['c2']);
});
