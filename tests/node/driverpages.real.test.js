'use strict';
// The test driver in pages of other kinds: frames, maps, tool bars, elements of the program's own, zoom.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { afterEach, test } = require('node:test');
const { drive } = require('./driven.js').driver;
const { end, fails, nothing, open, short, shown, tarn } = require('./driven.js');
const { scratch } = require('./helpers.js');

afterEach(end);

const names = () => shown.calls.map(([name]) => name);

test('a page in a frame', async () => {
    const write = (name, text) => fs.writeFileSync(path.join(scratch, name), text);
    write('frames.html', '<html><head><title>Frames</title></head><frameset cols="120,*" width="400" height="200">'
        + '<frame name="left" src="left.html"><frame name="right" src="right.html"></frameset></html>');
    write('left.html', '<html><body><a href="right2.html" target="right">Go on</a></body></html>');
    write('right.html', '<html><body><form><input type="text" name="who"></form></body></html>');
    write('right2.html', '<html><body>second page</body></html>');
    shown.window = new tarn.GuiWindow(path.join(scratch, 'frames.html'));
    const w = await drive(shown.window);
    await w.type('who', 'Ann');
    assert.equal(await w.value('who'), 'Ann');
    await w.click({ link: 'Go on' });
    assert.match(await w.text(), /second page/);
    assert.equal(await w.find('who'), null);
});

test('Shift+F10 opens the context menu of what has the keyboard', async () => {
    const w = await open('<object classid="contextmenu" name="here"><param name="one" value="One"></object><object classid="contextmenu" name="page"><param name="two" value="Two"></object>'
        + '<table contextmenu="page"><tr><td><input type="button" name="a" value="A" contextmenu="here"><input type="button" name="b" value="B"></td></tr></table>');
    shown.window.eMenu = (session, item) => { shown.calls.push([item]); };
    shown.window.setFocus('a');
    await w.press('Shift+F10');
    await w.menu('One');
    await w.press('Tab, Shift+F10');
    await w.menu('Two');
    assert.deepEqual(names(), ['one', 'two']);
});

test('an area of a map, a button of a tool bar, a line that unfolds', async () => {
    const plan = await (await open('plan')).screenshot(path.join(scratch, 'plan.png')); // 420 by 300 pixels
    const w = await open('<object classid="menu" name="menu"><menu name="file" value="File"><param name="save" value="Save"></menu></object>'
        + '<toolbar><param item="save"><param name="own" value="Own" onclick="event://onOwn"></toolbar>'
        + `<img name="plan" src="${plan}" width="84" height="60" usemap="#m"><map name="m"><area shape="rect" coords="0,0,210,300" href="event://onLeft" alt="left">`
        + '<area shape="rect" coords="210,0,420,300" href="event://onRight" alt="right"></map>'
        + '<details><summary>More</summary><table name="below"><tr><td>unfolded</td></tr></table></details>', { onOwn: nothing, onLeft: nothing, onRight: nothing, eMenu: nothing });
    await w.click('Own');
    await w.click({ button: 'Save' });
    await w.click({ link: 'right' });
    await w.click({ link: 'left' });
    assert.deepEqual(names(), ['onOwn', 'eMenu', 'onRight', 'onLeft']);
    await fails(w.click('below', short), 'click("below"): the element "below" is folded below "More" (waited 60 ms)');
    await w.click('More');
    await w.click('below');
    assert.match(await w.text(), /unfolded/);
});

test('an element of the program\'s own hears the mouse', async () => {
    const heard = [];
    tarn.register('Dial', class {
        eMouseDown(mouse) { heard.push(typeof mouse); }
    });
    const w = await open('<object classid="Dial" name="dial" width="60" height="40"></object>');
    await w.click('dial');
    assert.deepEqual(heard, ['object']);
});

test('hover tells the page that the pointer is there', async () => {
    const w = await open('<table name="a" onmouseover="event://onOver" onmouseout="event://onOut"><tr><td>first</td></tr></table><table name="b"><tr><td>second</td></tr></table>',
        { onOver: nothing, onOut: nothing });
    await w.hover('a');
    await w.hover('b');
    assert.deepEqual(names(), ['onOver', 'onOut']);
    await fails(w.hover('c', short), 'hover("c"): the window "Order" has no "c"; it has nothing to work with (waited 60 ms)');
});

test('a page that is zoomed, and one that is scrolled', async () => {
    const rows = Array.from({ length: 40 }, (_, i) => `<p>line ${i}</p>`).join('');
    const w = await open(`<form><input type="button" name="top" value="Top" onclick="event://onTop"></form>${rows}<p><a href="event://onEnd">end</a></p>`,
        { onTop: nothing, onEnd: nothing }, 'scrolling="yes"');
    shown.window.zoom = 2;
    await w.click({ link: 'end' });
    await w.click('top');
    assert.deepEqual(names(), ['onEnd', 'onTop']);
});

test('a link that goes over two lines', async () => {
    const w = await open(`<p>${'word '.repeat(14)}<a href="event://onLink">a link of several words that needs more than the rest of its line</a></p>`, { onLink: nothing });
    await w.click({ link: 'a link of several words that needs more than the rest of its line' });
    assert.deepEqual(names(), ['onLink']);
});

test('a form with a thousand controls', async () => {
    const fields = Array.from({ length: 1000 }, (_, i) => `<p><input type="text" name="f${i}"></p>`).join('');
    const w = await open(`<form>${fields}</form>`, {}, 'scrolling="yes"');
    await w.type('f999', 'last');
    await w.type('f500', 'middle');
    assert.deepEqual([await w.value('f999'), await w.value('f500'), await w.value('f0')], ['last', 'middle', '']);
});
