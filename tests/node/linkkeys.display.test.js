'use strict';
// Links by keyboard, with real keys: where Tab stops, what Return, Escape and the arrows do, and what a click makes of it.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, keys, picture, press, type, waitGone } = require('./desktop.js');
const { scratch, until } = require('./helpers.js');
const { Program } = require('./program.js');

const [red, blue] = ['#D01010', '#1010D0'];
const row = (height, content, colour = '#FFFFFF') => `<tr><td width="20" height="${height}" bgcolor="${colour}"></td><td height="${height}">${content}</td></tr>`;
const link = (name) => `<a href="event://onLink/${name}">${name}</a>`;

/** Links alone, the last one far below. */
const help = `<html><head><title>Help</title></head><body width="400" height="300" valign="top" bgcolor="#FFFFFF">
<table cellspacing="0" cellpadding="0" width="360">${row(40, `${link('one')} and ${link('two')}`, red)}${row(900, 'far')}${row(40, link('three'), blue)}
</table></body></html>`;

const form = `<html><head><title>Form</title></head><body width="400" height="200" bgcolor="#FFFFFF">
<p>${link('top')}</p><p><input type="text" name="who"></p><p>${link('bottom')}</p>
<p><input type="button" name="no" value="No" onclick="event://onNo"></p></body></html>`;

let program;
let window;

async function open(name, title) {
    await program.ask(`window = new tarn.GuiWindow('${name}'); window.setSizePolicy('SCROLL'); record(window, ['onLink', 'onNo']); window.open()`);
    return findActiveWindow(title);
}

async function close(title) {
    await program.ask('window.close()');
    await waitGone(title);
}

before(async () => {
    fs.writeFileSync(path.join(scratch, 'help.html'), help);
    fs.writeFileSync(path.join(scratch, 'linkform.html'), form);
    program = await Program.start('let window;');
});

beforeEach(() => program.ask('calls.length = 0'));
after(() => program.end());

const called = (...names) => program.called(names.map((name) => ['onLink', null, name]));
const looksFor = async (colour) => await findColour(window, 400, 300, colour) !== null;

test('a page of links alone is used with Tab and Return, and scrolls to the link', async () => {
    window = await open('help.html', 'Help');
    await keys('Return');
    const bare = await picture(window, 20, 0, 380, 40);
    await keys('Tab');
    await until(async () => await picture(window, 20, 0, 380, 40) !== bare);
    await keys('Return');
    await called('one');
    await keys('Tab', 'Return');
    await called('one', 'two');
    assert.equal(await looksFor(blue), false);
    await keys('Tab');
    await until(() => looksFor(blue));
    await keys('Return');
    await called('one', 'two', 'three');
    await keys('Home');
    await until(() => looksFor(red));
    await keys(...Array(3).fill('End'));
    await until(() => looksFor(blue));
    await keys('shift+Tab');
    await until(() => looksFor(red));
    await keys('Return');
    await called('one', 'two', 'three', 'two');
    await keys('Escape', 'Home');
    await until(async () => await picture(window, 20, 0, 380, 40) === bare);
    await keys('Return');
    await keys('Tab', 'Return');
    await called('one', 'two', 'three', 'two', 'one');
    await close('Help');
});

test('the first control has the keyboard at first, and links stand among the controls', async () => {
    window = await open('linkform.html', 'Form');
    await program.becomes('window.getFocus()', 'who');
    await keys('Tab', 'Return');
    await called('bottom');
    assert.equal(await program.ask('window.getFocus()'), '');
    await keys('shift+Tab');
    await program.becomes('window.getFocus()', 'who');
    await keys('shift+Tab', 'Return');
    await called('bottom', 'top');
    await keys('Tab');
    await type('abc');
    await program.becomes('window.form.who', 'abc');
    await close('Form');
});

test('Escape presses its control also at a link', async () => {
    window = await open('linkform.html', 'Form');
    await program.ask("window.setEscapeControl('no')");
    await keys('Tab', 'Escape');
    await program.called([['onNo', 'no']]);
    await keys('Return');
    await program.called([['onNo', 'no'], ['onLink', 'no', 'bottom']]);
    await program.ask("window.setEscapeControl('X')");
    await keys('Escape');
    await waitGone('Form');
});

test('a clicked link is the current one, until the pointer goes elsewhere', async () => {
    window = await open('help.html', 'Help');
    await press(window, 32, 20);
    await called('one');
    await keys('Return');
    await called('one', 'one');
    await press(window, 300, 200);
    await keys('Return');
    await press(window, 32, 20);
    await called('one', 'one', 'one');
    await close('Help');
});
