'use strict';
// The keyboard on a page that is larger than its window: where Tab goes, what scrolls, what Enter and Escape press.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, keys, press, type, waitGone, xdotool } = require('./desktop.js');
const { scratch, until } = require('./helpers.js');
const { Program } = require('./program.js');

const [red, green, blue] = ['#D01010', '#10A010', '#1010D0'];
const row = (height, content, colour = '#FFFFFF') => `<tr><td width="20" height="${height}" bgcolor="${colour}"></td><td height="${height}">${content}</td></tr>`;
const field = (name, more = '') => `<input type="text" name="${name}" width="200" height="26" ${more}>`;
const radio = (value) => `<input type="radio" name="choice" value="${value}" width="20" height="20" ${value === 'b' ? 'checked' : ''}>`;
const fields = Array.from({ length: 20 }, (_, index) => `f${index}`);

/** 900 pixels of page in a window of 300: the first row is red, the last one blue, a row in the pane that scrolls green. */
const page = `<html><head><title>Keys</title></head><body width="400" height="300" valign="top" bgcolor="#FFFFFF">
<table cellspacing="0" cellpadding="0" width="360">
${row(40, field('first'), red)}
${row(40, `<input type="checkbox" name="box" value="on" width="20" height="20">${['a', 'b', 'c'].map(radio).join('')}`)}
${row(40, `${field('off', 'disabled')}<input type="button" name="plain" value="Plain" onclick="event://onPlain" width="80" height="26">`)}
<tr><td width="20" height="60"></td><td height="60" scrolling="yes"><table cellspacing="0" cellpadding="0">${row(120, '')}${row(40, field('inside'), green)}</table></td></tr>
${fields.map((name) => row(40, field(name))).join('')}
${row(40, `<input type="button" name="ok" value="OK" onclick="event://onOk" width="80" height="26"><input type="button" name="no" value="No"
    onclick="event://onNo" width="80" height="26">`, blue)}
</table></body></html>`;

/** In the order of the page, one stop for the radio buttons, none for what is disabled and for scroll bars. */
const stops = ['first', 'box', 'choice', 'plain', 'inside', ...fields, 'ok', 'no'];

const reading = `<html><head><title>Reading</title></head><body width="400" height="300" valign="top" bgcolor="#FFFFFF">
<table cellspacing="0" cellpadding="0">${row(40, '', red)}${row(1000, '')}${row(40, '', blue)}</table></body></html>`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'keys.html'), page);
    fs.writeFileSync(path.join(scratch, 'reading.html'), reading);
    program = await Program.start('let window;');
    await xdotool('mousemove', 1270, 1010);
    await program.ask(`window = new tarn.GuiWindow('keys.html'); window.setSizePolicy('SCROLL');
        record(window, ['onPlain', 'onOk', 'onNo']); window.setEnterControl('ok'); window.setEscapeControl('no'); window.open()`);
    window = await findActiveWindow('Keys');
});

beforeEach(async () => {
    await program.ask("calls.length = 0, window.control('ok').enable(), window.control('no').enable(), window.setFocus('first')");
    await isSeen(red);
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Keys');
    await program.end();
});

const looksFor = async (colour, where = window) => await findColour(where, 400, 300, colour) !== null;
const isSeen = (colour, where) => until(() => looksFor(colour, where));
const isGone = (colour, where) => until(async () => !await looksFor(colour, where));

/** Presses a key as often as there are controls, and notes which one has the keyboard each time. */
async function walk(key, count) {
    const visited = [await program.ask('window.getFocus()')];
    while (visited.length < count) {
        await keys(key);
        await until(async () => await program.ask('window.getFocus()') !== visited.at(-1));
        visited.push(await program.ask('window.getFocus()'));
    }
    return visited;
}

test('Tab scrolls the pane around a control, too', async () => {
    await isGone(green);
    await program.ask("window.setFocus('plain')");
    await keys('Tab');
    await program.becomes('window.getFocus()', 'inside');
    await isSeen(green);
});

test('Tab goes to every control, also out of view, and scrolls there; Shift+Tab is the way back', async () => {
    assert.deepEqual(await walk('Tab', stops.length), stops);
    await isSeen(blue);
    await isGone(red);
    await keys('Tab');
    await program.becomes('window.getFocus()', 'first');
    await isSeen(red);
    await keys('shift+Tab');
    await program.becomes('window.getFocus()', 'no');
    assert.deepEqual(await walk('shift+Tab', stops.length), [...stops].reverse());
    await isSeen(red);
    await isGone(blue);
});

test('radio buttons are one stop, at the one that is on, and arrows choose among them', async () => {
    await program.ask("window.setFocus('box')");
    await keys('Tab', 'Right');
    await program.becomes('[window.getFocus(), window.form.choice]', ['choice', 'c']);
    await keys('Tab', 'shift+Tab', 'Left');
    await program.becomes('[window.getFocus(), window.form.choice]', ['choice', 'b']);
});

test('keys that the control has no use for scroll the page', async () => {
    await program.ask("window.setFocus('box')");
    await keys('End');
    await isSeen(blue);
    await isGone(red);
    await keys('Home');
    await isSeen(red);
    await keys(...Array(12).fill('Next'));
    await isSeen(blue);
    await keys(...Array(12).fill('Prior'));
    await isSeen(red);
    await keys('space');
    await program.becomes('[window.getFocus(), window.form.box]', ['box', 'on']);
    await program.ask("window.setFocus('first')");
    await keys(...Array(12).fill('Down'));
    await isGone(red);
    await keys(...Array(12).fill('Up'));
    await isSeen(red);
    await program.becomes('window.getFocus()', 'first');
});

test('a page without controls is scrolled by all of them, the space bar included', async () => {
    await program.ask("window.other = new tarn.GuiWindow('reading.html'); window.other.setSizePolicy('SCROLL'); window.other.open()");
    const other = await findActiveWindow('Reading');
    for (const [there, back] of [['End', 'Home'], ['Next', 'Prior'], ['space', 'shift+space']]) {
        await isSeen(red, other);
        await keys(...Array(8).fill(there));
        await isSeen(blue, other);
        await keys(...Array(8).fill(back));
    }
    await isSeen(red, other);
    await program.ask('window.other.close()');
    await waitGone('Reading');
    await findActiveWindow('Keys');
});

test('a click beside a field leaves the keyboard in it', async () => {
    await press(window, 330, 20);
    await type('abc');
    await program.becomes('[window.getFocus(), window.form.first]', ['first', 'abc']);
});

test('Enter and Escape press their controls, and nothing while these are disabled', async () => {
    await keys('Return');
    await program.called([['onOk', 'ok']]);
    await keys('Escape');
    await program.called([['onOk', 'ok'], ['onNo', 'no']]);
    await program.ask("calls.length = 0, window.control('ok').disable(), window.control('no').disable()");
    await keys('Return', 'Escape');
    await program.ask("window.setFocus('plain')");
    await keys('space');
    await program.called([['onPlain', 'plain']]);
    assert.equal(await program.ask('window.isOpen()'), true);
});
