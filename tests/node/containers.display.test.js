'use strict';
// Parts of a page that are shown in turn, moved or folded: tabs, splitters, details, panes that scroll.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, keys, press, type, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const [red, blue, green, gold] = ['#D01010', '#1010D0', '#10A010', '#C0A010'];
const patch = (colour) => `<table width="60" height="12" bgcolor="${colour}"><tr><td></td></tr></table>`;

const page = `<html><head><title>Parts</title></head><body width="500" height="420" valign="top">
<tabs name="where" onchange="event://onTurn">
<tab title="&amp;First" name="first">${patch(red)}<input type="text" name="who" value="Ada"></tab>
<tab title="&amp;Other" name="other">${patch(blue)}<input type="text" name="town" value="Ulm"><input type="checkbox" name="milk"></tab>
<tab title="&amp;Last">${patch(green)}<input type="text" name="must" required></tab>
</tabs>
<splitter name="split" height="80" onchange="event://onSplit">
<pane width="150"></pane><pane bgcolor="${gold}"></pane>
</splitter>
<details name="more" onchange="event://onMore"><summary>More</summary><input type="text" name="inside" value="deep"></details>
<input type="submit" name="send" value="Send" onclick="event://onSend"><input type="text" name="last">
</body></html>`;

const source = `
let window, other;
const seen = [];
class Parts extends tarn.GuiWindow {
    onTurn({ currentForm, currentControl }) { seen.push(['turn', currentForm.where, currentControl.name]); }
    onSplit({ currentForm, currentControl }) { seen.push(['split', currentForm.split, currentControl.name]); }
    onMore({ currentForm }) { seen.push(['more', currentForm.more]); }
    onSend({ currentForm }) { seen.push(['send', { ...currentForm }]); }
}
const open = () => (window = new Parts('parts.html')).open();
`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'parts.html'), page);
    program = await Program.start(source);
    await xdotool('mousemove', 1270, 1010);
    await program.ask('open()');
    window = await findActiveWindow('Parts');
});

const settled = async () => {
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};

beforeEach(async () => {
    await program.ask("window.form.where = 'first'; window.form.more = false; window.form.split = ''; window.setFocus('who'); seen.length = 0");
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Parts');
    await program.end();
});

const tells = async (...wanted) => {
    await program.becomes('seen', wanted);
    await settled();
};
const area = (colour) => findColour(window, 500, 420, colour);
const isSeen = async (colour) => {
    await settled();
    return await area(colour) !== null;
};

test('a click on a tab shows it, and the handler finds its name', async () => {
    assert.deepEqual([await isSeen(red), await isSeen(blue)], [true, false]);
    await press(window, 85, 14);
    await tells(['turn', 'other', 'where']);
    assert.deepEqual([await isSeen(red), await isSeen(blue)], [false, true]);
    assert.equal(await program.ask('window.getFocus()'), 'town');
});

test('the letter of a tab and Alt show it', async () => {
    await keys('alt+l');
    await tells(['turn', '2', 'where']);
    assert.ok(await isSeen(green));
    await keys('alt+f');
    await tells(['turn', '2', 'where'], ['turn', 'first', 'where']);
});

test('Ctrl+Tab and Ctrl+PageUp turn tabs, what is typed goes to the field that is seen', async () => {
    await keys('ctrl+Tab', 'End');
    await type('!');
    await program.becomes('window.form.town', 'Ulm!');
    await keys('ctrl+Prior');
    await tells(['turn', 'other', 'where'], ['turn', 'first', 'where']);
    assert.equal(await program.ask('window.getFocus()'), 'who');
});

test('Tab stops once at the bar, where the arrows turn', async () => {
    await program.ask("window.setFocus('where')");
    await keys('Right');
    await tells(['turn', 'other', 'where']);
    assert.equal(await program.ask('window.getFocus()'), 'where');
    await keys('Tab');
    await program.becomes('window.getFocus()', 'town');
});

test('the form has the values of all tabs, shown or not', async () => {
    await program.ask("other = new Parts('parts.html'), other.open()"); // of which only the first tab was ever shown
    await program.ask("other.form.town = 'Bern', other.form.milk = true");
    assert.deepEqual(await program.ask('[other.form.who, other.form.town, other.form.milk]'), ['Ada', 'Bern', true]);
    await program.ask("other.form.where = 'other'");
    assert.deepEqual(await program.ask("[other.form.town, other.form.milk, other.control('where').value]"), ['Bern', true, 'other']);
    const error = await program.ask("(() => { try { other.form.where = 'nowhere'; } catch (error) { return error.name; } })()");
    assert.equal(error, 'TypeError');
    await program.ask('other.close()');
    await xdotool('windowactivate', '--sync', window);
});

test('setFocus shows the tab of the control', async () => {
    await program.ask("window.setFocus('town')");
    assert.ok(await isSeen(blue));
    assert.equal(await program.ask('window.getFocus()'), 'town');
    assert.deepEqual(await program.ask('seen'), [], 'the program knows what it does');
});

test('a submit button shows the tab of what is wrong', async () => {
    const send = await program.ask("(window.setFocus('send'), null)");
    assert.equal(send, null);
    await keys('space');
    await program.becomes('window.getFocus()', 'must');
    assert.ok(await isSeen(green));
    await type('x');
    await program.ask("window.setFocus('send')");
    await keys('space');
    await program.becomes('seen.map(([what]) => what)', ['send']);
    await settled();
    await program.ask("window.form.must = ''");
});

test('a divider is dragged, and the page is found so when it is opened again', async () => {
    const { left, top } = await area(gold);
    await xdotool('mousemove', '--window', window, left - 4, top + 20, 'mousedown', 1);
    await xdotool('mousemove', '--window', window, left + 46, top + 20);
    await waitForPixel(window, left + 30, top + 20, await pixelBeside(left, top));
    await xdotool('mouseup', 1);
    await tells(['split', '200,293', 'split']);
    await program.ask('window.close()');
    await waitGone('Parts');
    await program.ask('open()');
    window = await findActiveWindow('Parts');
    assert.equal(await program.ask('window.form.split'), '200,293');
    assert.equal((await area(gold)).left, left + 50);
});

/** The colour of the pane before the divider. */
const pixelBeside = (left, top) => waitForPixel(window, left - 20, top + 20, '#EFEFEF', '#F0F0F0', '#FFFFFF', '#EFF0F1', '#F7F7F7');

test('keys move a divider, and it is told when they are let go', async () => {
    await program.ask("window.setFocus('must')");
    await program.ask("window.form.where = '2'; seen.length = 0");
    await keys('Tab');
    await keys('Right');
    await tells(['split', '160,333', 'split']);
    await keys('Home');
    await tells(['split', '160,333', 'split'], ['split', '16,477', 'split']);
});

test('details unfold by Return and by the pointer', async () => {
    await program.ask("window.setFocus('more')");
    await keys('Return');
    await tells(['more', true]);
    await keys('Tab');
    await program.becomes('window.getFocus()', 'inside');
    await program.ask("window.setFocus('more')");
    await keys('space');
    await tells(['more', true], ['more', false]);
    assert.equal(await program.ask('window.form.inside'), 'deep');
    await program.ask("window.setFocus('inside')");
    assert.equal(await program.ask('window.form.more'), true);
});
