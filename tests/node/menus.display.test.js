'use strict';
// Menus with the keyboard and the mouse: keys that choose items, mnemonics, check marks, radio groups, F10 and Alt, and items
// that come and go.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, press, waitGone, xdotool } = require('./desktop.js');
const { scratch, sleep } = require('./helpers.js');
const { Program } = require('./program.js');

const page = `<html><head><title>Menus</title></head><body width="500" height="300" valign="top">
<object classid="menu" name="menu">
<menu name="file" value="&amp;File">
  <param name="save" value="&amp;Save" key="Ctrl+S">
  <param name="twice" value="Twice" key="Ctrl+S">
  <param name="letter" value="Letter" key="X">
  <param name="all" value="All" key="Ctrl+A">
  <param name="off" value="Off" key="F7" disabled>
  <param name="bad" value="Bad" key="Crtl+B" type="radiobuton">
  <param name="own" value="&amp;Own" key="Ctrl+O" onclick="event://onOwn/3">
</menu>
<menu name="view" value="&amp;View">
  <param name="ruler" value="&amp;Ruler" toggle checked>
  <param name="plain" value="&amp;Plain" unchecked>
  <param value="-">
  <param name="list" value="&amp;List" type="radiobutton" checked>
  <param name="icons" value="&amp;Icons" type="radiobutton">
  <param value="-">
  <param name="left" value="L&amp;eft" type="radiobutton" group="side">
</menu>
<param name="right" value="Righ&amp;t" type="radiobutton" group="side" checked>
</object>
<table cellspacing="0"><tr><td><input type="text" name="who" width="200" height="30"></td></tr>
<tr><td><input type="button" name="slow" value="Slow" onclick="event://onSlow" width="100" height="30"></td></tr></table></body></html>`;

const source = `
let window, menu;
const seen = [];
class Menus extends tarn.GuiWindow {
    eMenu({ event }, name) { seen.push([name, event?.key ?? event?.button ?? null]); }
    onOwn({ event, currentControl }, text) { seen.push(['own', text, event.type, currentControl.name]); }
    onSlow() { for (const end = performance.now() + 700; performance.now() < end;) {} seen.push(['slow']); }
}
const states = (...names) => names.filter((name) => menu.isItemChecked(name));
`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'menus.html'), page);
    program = await Program.start(source);
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new Menus('menus.html'); menu = window.control('menu'); window.open()");
    window = await findActiveWindow('Menus');
});

beforeEach(() => program.ask("seen.length = 0, window.setFocus('slow')"));

after(async () => {
    await program.ask('window.close()');
    await waitGone('Menus');
    await program.end([
        `tarn: ignoring unknown type "radiobuton" of <param> (warning) in ${scratch}/menus.html:9; did you mean radiobutton?\n`,
        `tarn: ignoring unknown key "Crtl+B" of <param> (warning) in ${scratch}/menus.html:9\n`].join(''));
});

/** The handlers were called as wanted, and the window takes input again. */
const tells = async (...wanted) => {
    await program.becomes('seen', wanted);
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};

test('keys choose their item; of two items with the same keys the first', async () => {
    await keys('ctrl+s', 'ctrl+o');
    await tells(['save', 'S'], ['own', '3', 'menu', 'menu']);
});

test('the keys of a disabled item do nothing until it is enabled', async () => {
    await keys('F7', 'ctrl+s');
    await tells(['save', 'S']);
    await program.ask("menu.enableItem('off')");
    await keys('F7');
    await tells(['save', 'S'], ['off', 'F7']);
});

test('keys that a text field uses are the field\'s while it has the focus', async () => {
    await keys('x', 'ctrl+a');
    await tells(['letter', 'X'], ['all', 'A']);
    await program.ask("seen.length = 0, window.setFocus('who')");
    await keys('x', 'y', 'ctrl+a', 'z', 'ctrl+s');
    await tells(['save', 'S']);
    assert.equal(await program.ask("window.control('who').value"), 'z');
});

test('while a handler works keys choose nothing, and what is typed into a field is kept', async () => {
    await program.ask("window.control('who').value = '', window.setFocus('who')");
    await press(window, 50, 22 + 45);
    await sleep(200); // the handler works
    await keys('ctrl+s', 'ctrl+o');
    await tells(['slow']);
    await keys('ctrl+s');
    await tells(['slow'], ['save', 'S']);
    await program.ask("seen.length = 0, window.setFocus('who'), setTimeout(() => { for (const end = performance.now() + 700; performance.now() < end;) {} }, 0), 0");
    await program.ask("window.setFocus('who')");
    await program.ask("window.setEnterControl('slow')");
    await keys('Return');
    await sleep(200);
    await keys('x', 'ctrl+a', 'x');
    await tells(['slow']);
    await program.becomes("window.control('who').value", 'x');
    assert.deepEqual(await program.ask('seen'), [['slow']]);
});

test('mnemonics open menus and choose items', async () => {
    await keys('alt+f', 's');
    await tells(['save', 'S']);
    await keys('alt+v', 'p');
    await tells(['save', 'S'], ['plain', 'P']);
});

test('a check mark toggles by itself where the page says so, and nowhere else', async () => {
    assert.deepEqual(await program.ask("states('ruler', 'plain')"), ['ruler']);
    await keys('alt+v', 'r');
    await tells(['ruler', 'R']);
    assert.deepEqual(await program.ask("states('ruler', 'plain')"), []);
    await keys('alt+v', 'p');
    await tells(['ruler', 'R'], ['plain', 'P']);
    assert.deepEqual(await program.ask("states('ruler', 'plain')"), []);
});

test('of a radio group one item is on, chosen by the user or by script, open or closed', async () => {
    const group = "states('list', 'icons', 'left', 'right')";
    assert.deepEqual(await program.ask(group), ['list', 'right']);
    await keys('alt+v', 'i');
    await tells(['icons', 'I']);
    assert.deepEqual(await program.ask(group), ['icons', 'right']);
    await keys('alt+v', 'e');
    await tells(['icons', 'I'], ['left', 'E']);
    assert.deepEqual(await program.ask(group), ['icons', 'left']);
    await program.ask("menu.checkItem('list'), menu.checkItem('right')");
    assert.deepEqual(await program.ask(group), ['list', 'right']);
    await program.ask('window.close()');
    await waitGone('Menus');
    await program.ask("menu.checkItem('icons')");
    assert.deepEqual(await program.ask(group), ['icons', 'right']);
    await program.ask('window.open()');
    window = await findActiveWindow('Menus');
    assert.deepEqual(await program.ask(group), ['icons', 'right']);
});

test('F10 opens the first menu, Alt alone reaches the bar', async () => {
    await keys('F10', 'Return');
    await tells(['save', 'Return']);
    await keys('Alt_L', 'Right', 'Return', 'Return');
    await tells(['save', 'Return'], ['ruler', 'Return']);
});

test('items come and go, also while their menu calls the handler', async () => {
    await program.ask("menu.addItem('new', '&New', 'file'), menu.setItemKey('new', 'Ctrl+N')");
    await keys('ctrl+n', 'alt+f', 'n');
    await tells(['new', 'N'], ['new', 'N']);
    await program.ask("menu.addItem('deep', '&Deep', 'new')"); // which becomes a menu
    await keys('alt+f', 'n', 'd');
    await tells(['new', 'N'], ['new', 'N'], ['deep', 'D']);
    await program.ask("window.eMenu = (session, name) => { menu.removeItem('new'); seen.push(['removed by', name]); }, seen.length = 0");
    await keys('alt+f', 'n', 'd');
    await tells(['removed by', 'deep']);
    await program.ask('delete window.eMenu');
    await keys('ctrl+n', 'ctrl+s');
    await tells(['removed by', 'deep'], ['save', 'S']);
    await program.ask("menu.addItem('top', '&Upper'), seen.length = 0");
    await keys('alt+u');
    await tells(['top', 'U']);
});
