'use strict';
// A page that is zoomed by window.zoom, by the keys and by the wheel.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, press, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const [white, red, blue] = ['#FFFFFF', '#D01010', '#1010D0'];

/** A red square of 40 pixels in the upper left corner, a blue one right of it from 100 on; controls below. */
const page = `<html><head><title>Zoom</title></head><body width="600" height="400" valign="top" bgcolor="${white}">
<table cellspacing="0" cellpadding="0"><tr><td width="40" height="40" bgcolor="${red}"></td><td width="60" height="40"></td>
<td width="40" height="40" bgcolor="${blue}"></td></tr>
<tr><td width="40" height="40" align="center"><input type="checkbox" name="box"></td></tr></table>
<input type="text" name="who" value="Ada" width="80" height="24">
<object classid="menu" name="bar"><menu name="view" text="View"><param name="small" text="Small" key="Ctrl+-"></menu></object>
</body></html>`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'zoom.html'), page.replace(/<object.*object>/s, ''));
    fs.writeFileSync(path.join(scratch, 'zoomkeys.html'), page);
    program = await Program.start('let window;');
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new tarn.GuiWindow('zoom.html'); window.open()");
    window = await findActiveWindow('Zoom');
});

beforeEach(async () => {
    await program.ask('window.zoom = 1');
    await waitForPixel(window, 105, 5, blue);
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Zoom');
    await program.end();
});

test('window.zoom scales the page in a window that keeps its size', async () => {
    await waitForPixel(window, 45, 5, white);
    await program.ask('window.zoom = 2');
    assert.equal(await program.ask('window.zoom'), 2);
    await waitForPixel(window, 75, 75, red);
    await waitForPixel(window, 205, 5, blue);
    const geometry = await xdotool('getwindowgeometry', '--shell', window);
    assert.match(geometry, /WIDTH=600\nHEIGHT=400/);
    await program.ask('window.zoom = 0.5');
    await waitForPixel(window, 25, 5, white);
});

test('Hundredths of a factor count', async () => {
    await program.ask('window.zoom = 1.333');
    assert.equal(await program.ask('window.zoom'), 1.33);
});

test('What is no number from 0.5 to 3 throws and changes nothing', async () => {
    for (const wrong of ['0.4', '3.1', '0', '-1', 'NaN', 'Infinity', '"2"', 'null', 'undefined', '{}', '2n']) {
        const message = await program.ask(`(() => { try { window.zoom = ${wrong}; return 'nothing thrown'; } catch (error) { return error.name + ': ' + error.message; } })()`);
        assert.match(message, /^TypeError: GuiWindow\.zoom: expected a number from 0\.5 to 3, not /, wrong);
        assert.equal(await program.ask('window.zoom'), 1);
    }
});

test('Ctrl with plus, minus and 0 zooms, also from a field that has the keyboard', async () => {
    await program.ask("window.setFocus('who')");
    await keys('ctrl+plus');
    await program.becomes('window.zoom', 1.1);
    await keys('ctrl+equal', 'ctrl+KP_Add');
    await program.becomes('window.zoom', 1.5);
    await waitForPixel(window, 155, 5, blue);
    await keys('ctrl+minus');
    await program.becomes('window.zoom', 1.25);
    await keys('ctrl+0');
    await program.becomes('window.zoom', 1);
    assert.equal(await program.ask('window.form.who'), 'Ada');
});

test('Ctrl with the wheel zooms, over the page and over a control', async () => {
    await xdotool('mousemove', '--window', window, 300, 200, 'keydown', 'ctrl', 'click', 4, 'click', 4, 'keyup', 'ctrl');
    await program.becomes('window.zoom', 1.25);
    await xdotool('mousemove', '--window', window, 20, 115, 'keydown', 'ctrl', 'click', 5, 'keyup', 'ctrl');
    await program.becomes('window.zoom', 1.1);
});

test('It ends at its bounds', async () => {
    await keys(...Array(10).fill('ctrl+minus'));
    await program.becomes('window.zoom', 0.5);
    await keys(...Array(20).fill('ctrl+plus'));
    await program.becomes('window.zoom', 3);
});

test('It holds for the next page, and what was typed stays', async () => {
    await program.ask("window.zoom = 2; window.form.who = 'Grace'");
    assert.equal(await program.ask('window.form.who'), 'Grace');
    await program.ask("window.load('zoom.html')");
    await waitForPixel(window, 205, 5, blue);
    assert.equal(await program.ask('window.zoom'), 2);
});

test('A control is pressed where it is seen', async () => {
    await program.ask('window.zoom = 2');
    await waitForPixel(window, 205, 5, blue);
    await press(window, 40, 120); // the middle of its cell
    await program.becomes('window.form.box', true);
    await press(window, 40, 120);
    await program.becomes('window.form.box', false);
});

test('A key that the menu has stays the menu\'s', async () => {
    await program.ask("window.load('zoomkeys.html'); record(window, ['eMenu'])");
    await keys('ctrl+minus');
    await program.becomes('calls.length', 1);
    assert.equal(await program.ask('window.zoom'), 1);
    await keys('ctrl+plus');
    await program.becomes('window.zoom', 1.1);
    await program.ask("window.load('zoom.html'), calls.length = 0");
});
