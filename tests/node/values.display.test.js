'use strict';
// Numbers, sliders, days, times, colours and bars on a display: what the user does with keys and pointer is what script sees.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, findWindow, keys, press, type, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (content, height = 40) => `<tr><td height="${height}">${content}</td></tr>`;
const input = (type_, name, more = '') => `<input type="${type_}" name="${name}" onchange="event://onChange/${name}" width="200" height="30" ${more}>`;
const page = `<html><head><title>Values</title></head><body width="500" height="420" valign="top" bgcolor="#F0F0F0">
<table width="480" cellspacing="0" cellpadding="0">
${row(input('number', 'number', 'min="0" max="10" step="0.5" value="3"') + input('text', 'text'))}
${row(input('range', 'range', 'min="10" max="20" value="15"'))}
${row(input('date', 'date', 'value="2026-11-22" min="2026-01-01"'))}
${row(input('time', 'time', 'value="09:30"'))}
${row(input('color', 'color', 'value="red"'))}
${row('<progress name="progress" value="25" max="100" width="200" height="20"></progress>')}
${row('<meter name="meter" value="0.2" low="0.3" high="0.7" optimum="0.9" width="200" height="20"></meter>')}
</table></body></html>`;

const at = { number: [50, 20], text: [250, 20], range: [100, 60], date: [50, 100], calendar: [187, 100], time: [50, 140], color: [100, 180] };

const first = { number: 3, text: '', range: 15, date: '2026-11-22', time: '09:30', color: '#FF0000', progress: 25, meter: 0.2 };

let program;
let window;

before(async () => {
    program = await Program.start('let window;');
    fs.writeFileSync(path.join(scratch, 'values.html'), page);
});
after(() => program.end());

beforeEach(async () => {
    await program.ask(`calls.length = forms.length = 0; window = new tarn.GuiWindow('values.html');
        record(window, ['onChange']); window.open()`);
    window = await findActiveWindow('Values');
});
afterEach(async () => {
    await program.ask('window.close()');
    await waitGone('Values');
});

const pressOn = (name) => press(window, ...at[name]);
const valueIs = (name, value) => program.becomes(`window.form.${name}`, value);
const values = () => program.ask('forms.map((form, i) => form[calls[i][1]])');

async function enter(name) {
    await pressOn(name);
    await program.becomes('window.getFocus()', name);
}

/** Presses keys one after the other; what is pressed while a handler runs would be dropped. */
async function slowly(...names) {
    for (const name of names) {
        const known = await program.ask('calls.length');
        await keys(name);
        await program.becomes(`calls.length > ${known}`, true);
        await program.called(await program.ask('calls'));
    }
}

test('the form has numbers for numbers and texts for the rest', async () => {
    assert.deepEqual(await program.ask('({ ...window.form })'), first);
});

test('a number is typed, turned by arrows within its limits, and can be empty', async () => {
    await enter('number');
    await slowly('Up');
    assert.deepEqual(await values(), [3.5]);
    await keys('ctrl+a', 'Delete');
    await valueIs('number', null);
    await keys('minus', 'x', '4');
    await valueIs('number', -4);
    assert.equal(await program.ask('window.form.valid'), false);
    await keys('ctrl+a');
    await type('9.75');
    await valueIs('number', 9.75);
    await keys('Up');
    await valueIs('number', 10);
    assert.equal(await program.ask('window.form.valid'), true);
});

test('what is typed is told only when it is another value', async () => {
    await enter('number');
    await keys('End', 'period', '0');
    await valueIs('number', 3);
    await sleep(100);
    assert.deepEqual(await values(), []);
    await slowly('5');
    assert.deepEqual(await values(), [3.05]);
});

test('a slider is moved by keys and by dragging, which is told when it is let go', async () => {
    await enter('range');
    await valueIs('range', 15);
    await slowly('Right', 'Right', 'Home');
    assert.deepEqual(await values(), [16, 17, 10]);
    await xdotool('mousemove', '--window', window, 6, 60, 'mousedown', 1);
    await xdotool('mousemove', '--window', window, 60, 60);
    await xdotool('mousemove', '--window', window, 195, 60);
    await valueIs('range', 20);
    assert.equal((await values()).length, 3);
    await xdotool('mouseup', 1);
    await program.becomes('forms.length', 4);
    assert.equal((await values()).at(-1), 20);
});

test('the wheel over a slider or a number that has no focus changes nothing', async () => {
    await enter('text');
    for (const [x, y] of [at.number, at.range, at.date]) {
        await xdotool('mousemove', '--window', window, x, y, 'click', 4);
    }
    await program.ask("window.control('text').setText('x')");
    assert.deepEqual(await program.ask('({ ...window.form })'), { ...first, text: 'x' });
});

test('a day is typed, turned, and chosen in a calendar', async () => {
    await enter('date');
    await keys('End');
    await slowly('Up');
    assert.deepEqual(await values(), ['2026-11-23']);
    await keys('Home');
    await slowly('Down');
    assert.deepEqual((await values()).at(-1), '2025-11-23');
    assert.equal(await program.ask('window.form.valid'), false);
    await keys('ctrl+a');
    await type('2026-3-9');
    await valueIs('date', '2026-03-09');
    await pressOn('calendar');
    await until(async () => await xdotool('search', '--onlyvisible', '--class', '.').then((found) => found.split('\n').length) > 1);
    await sleep(200);
    await keys('Right', 'Return');
    await valueIs('date', '2026-03-10');
    await keys('ctrl+a', 'Delete');
    await valueIs('date', '');
    await keys('F4');
    await sleep(200);
    await keys('Escape');
    await program.becomes('window.isOpen()', true);
});

test('a time is typed loosely and turned by hours and minutes', async () => {
    await enter('time');
    await keys('End');
    await slowly('Up');
    await keys('Home');
    await slowly('Down');
    assert.deepEqual(await values(), ['09:31', '08:31']);
    await keys('ctrl+a');
    await type('7:05');
    await valueIs('time', '07:05');
});

test('a colour is chosen with the dialog of the desktop', async () => {
    await waitForPixel(window, ...at.color, '#FF0000');
    await pressOn('color');
    const dialog = await findWindow('Select Color');
    await xdotool('windowfocus', '--sync', dialog);
    await keys('alt+h');
    await keys('ctrl+a');
    await type('#00aa7f');
    await keys('Return');
    await valueIs('color', '#00AA7F');
    await waitForPixel(window, ...at.color, '#00AA7F');
    assert.deepEqual(await values(), ['#00AA7F']);
});

test('bars follow what script says', async () => {
    const poor = await findColour(window, 500, 420, '#C62828');
    assert.ok(poor.right - poor.left > 30 && poor.right - poor.left < 45);
    await program.ask('Object.assign(window.form, { meter: 0.8, progress: 100 })');
    await until(async () => (await findColour(window, 500, 420, '#2E9E4F'))?.right > 150);
    assert.equal(await findColour(window, 500, 420, '#C62828'), null);
    await program.ask("window.form.progress = null; window.control('meter').value = '0.5'");
    assert.deepEqual(await program.ask('[window.form.progress, window.form.meter]'), [null, 0.5]);
});

test('script gives values and is told what a control cannot take', async () => {
    const set = { number: 7.25, range: 12, date: '2027-02-28', time: '23:59', color: '#010203', progress: 50, meter: 1 };
    await program.ask(`Object.assign(window.form, ${JSON.stringify(set)})`);
    assert.deepEqual(await program.ask('({ ...window.form })'), { ...first, ...set });
    const wrong = [['number', 'x'], ['number', true], ['range', null], ['range', 'much'], ['date', 'tomorrow'], ['date', 5], ['time', '24:00'],
        ['color', 'no colour'], ['color', null], ['meter', 'x']];
    for (const [name, value] of wrong) {
        const code = `(() => { try { window.form.${name} = ${JSON.stringify(value)}; } catch (error) { return error.name; } })()`;
        assert.equal(await program.ask(code), 'TypeError', `${name} = ${value}`);
    }
    assert.deepEqual(await program.ask('({ ...window.form })'), { ...first, ...set });
    for (const [name, value, wanted] of [['number', '2.50', 2.5], ['number', null, null], ['number', '', null], ['range', 99, 20], ['date', null, '']]) {
        await program.ask(`window.control('${name}').value = ${JSON.stringify(value)}`);
        assert.equal(await program.ask(`window.form.${name}`), wanted, `${name} = ${value}`);
    }
});
