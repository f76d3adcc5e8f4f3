'use strict';
// Tool bars, whose buttons stand for items of the menu or for handlers of their own, and the status line.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, keys, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const [red, blue] = ['#D01010', '#1010D0'];
const picture = (colour) => `<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20"><rect width="20" height="20" fill="${colour}"/></svg>`;

const page = `<html><head><title>Tools</title></head><body width="500" height="300" valign="top" bgcolor="#FFFFFF">
<object classid="menu" name="menu">
<menu name="file" value="&amp;File">
  <param name="save" value="&amp;Save" icon="red.svg" key="Ctrl+S">
  <param name="bold" value="&amp;Bold" toggle>
</menu>
</object>
<toolbar>
<param name="first" item="save">
<param name="second" item="bold">
<param value="-">
<param name="third" value="Help" icon="blue.svg" onclick="event://onHelp/7">
</toolbar>
<table cellspacing="0" cellpadding="0"><tr><td height="40"><input type="text" name="who" width="200" height="30"></td></tr>
<tr><td height="900" bgcolor="#E0FFE0"></td></tr></table>
<statusbar name="status">Ready</statusbar>
</body></html>`;

const source = `
let window;
const seen = [];
class Tools extends tarn.GuiWindow {
    eMenu({ event }, name) { seen.push([name, event?.type ?? null, event?.key ?? event?.button ?? null]); }
    onHelp({ event }, text) { seen.push(['help' + text, event.type, event.key ?? event.button]); }
}
`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'tools.html'), page);
    fs.writeFileSync(path.join(scratch, 'red.svg'), picture(red));
    fs.writeFileSync(path.join(scratch, 'blue.svg'), picture(blue));
    program = await Program.start(source);
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new Tools('tools.html'); window.setSizePolicy('SCROLL'); window.open()");
    window = await findActiveWindow('Tools');
});

beforeEach(() => program.ask("seen.length = 0, window.setFocus('first')"));

after(async () => {
    await program.ask('window.close()');
    await waitGone('Tools');
    await program.end();
});

/** The handlers were called as wanted, and the window takes input again. */
const tells = async (...wanted) => {
    await program.becomes('seen', wanted);
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};
const middleOf = async (colour) => {
    const area = await findColour(window, 500, 300, colour);
    return area && [Math.round((area.left + area.right) / 2), Math.round((area.top + area.bottom) / 2)];
};
const click = ([x, y]) => xdotool('mousemove', '--window', window, x, y, 'click', 1);

test('a button does what its item does, and its icon is that of the item', async () => {
    await click(await middleOf(red));
    await tells(['save', 'menu', 'left']);
});

test('a button of its own calls its handler', async () => {
    await click(await middleOf(blue));
    await tells(['help7', 'click', 'left']);
});

test('Tab stops at the buttons, arrows go between them, Space and Return press', async () => {
    await keys('Return', 'Right', 'space', 'Right', 'space', 'Right', 'Left', 'Left', 'Left', 'space');
    await tells(['save', 'menu', 'Return'], ['bold', 'menu', 'Space'], ['help7', 'click', 'Space'], ['save', 'menu', 'Space']);
    await keys('Tab', 'Tab', 'Tab');
    await program.becomes('window.getFocus()', 'who');
    assert.equal(await program.ask("window.control('menu').isItemChecked('bold')"), true);
});

test('a button follows its item: enabled, checked, and its icon', async () => {
    const [x, y] = await middleOf(red);
    await program.ask("window.control('menu').disableItem('save')");
    await click([x, y]);
    await keys('ctrl+s');
    await program.ask("window.control('menu').setItemIcon('save', 'blue.svg'), window.control('menu').enableItem('save')");
    await waitForPixel(window, x, y, blue);
    await click([x, y]);
    await tells(['save', 'menu', 'left']);
    await program.ask("window.control('menu').removeItem('save')");
    await click([x, y]);
    await keys('ctrl+s');
    assert.equal((await program.ask('seen')).length, 1);
});

test('the status line stays at the lower edge and shows what script sets', async () => {
    const line = async () => (await findColour(window, 500, 300, '#000000')).bottom;
    await program.ask("window.control('status').setText('')");
    await program.ask("window.control('status').setText('\\u2588\\u2588\\u2588\\u2588')");
    await program.ask('new tarn.GuiWindow().isOpen()');
    const bottom = await line();
    assert.ok(bottom > 280, `${bottom}`);
    await xdotool('mousemove', '--window', window, 250, 200, ...Array(20).fill(['click', 5]).flat());
    await waitForPixel(window, 100, 30, '#E0FFE0'); // the page is scrolled, up to the menu bar
    assert.equal(await line(), bottom);
});
