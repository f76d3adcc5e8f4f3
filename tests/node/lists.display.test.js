'use strict';
// Lists as people use them: with mouse and keys.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, type, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const page = `<html><head><title>Lists</title></head><body width="500" height="400" valign="top"><table width="500"
cellspacing="0" cellpadding="0"><tr><td><object classid="listview" name="list" width="500" height="200" multiple onselect="event://onSelect" onchange="event://onCheck"
onactivate="event://onOpen" oncontext="event://onMenu" onheader="event://onHeader" onrename="event://onName">
<column text="Name" width="150" sort="text" editable><column text="Size" width="100" align="right" sort="number">
<column text="Kind" width="120"></object></td></tr>
<tr><td><object classid="treeview" name="tree" width="500" height="140" onselect="event://onSelect" onactivate="event://onOpen"
onexpand="event://onExpand" editable onrename="event://onName"></object></td></tr></table></body></html>`;

const source = `
let window, list, tree, refuses = false;
const seen = [];
const note = (name, { event }) => { seen.push([name, ...['row', 'column', 'key', 'button', 'text'].map((each) => event?.[each] ?? null)]); };
class Lists extends tarn.GuiWindow {
    onSelect() { seen.push('select'); }
    onCheck() { seen.push('check'); }
    onOpen(session) { note('open', session); }
    onMenu(session) { note('menu', session); }
    onHeader(session) { note('header', session); }
    onExpand(session) { note('expand', session); }
    onName(session) { note('name', session); return refuses ? false : undefined; }
}
const rows = [['pear', 30, 'fruit'], ['apple', 4, 'fruit'], ['leek', 200, 'plant'], ['nut', 1, 'seed']];
function fill() {
    list.columns = [{ text: 'Name', width: 150, sort: 'text', editable: true }, { text: 'Size', width: 100, align: 'right', sort: 'number' },
        { text: 'Kind', width: 120 }];
    list.setRows(rows.map(([name, size, kind]) => ({ value: name, texts: [name, size, kind], type: name === 'nut' ? 'checkbox' : 'normal' })));
    tree.setRows([{ value: 'top' }, { value: 'under', parent: 'top' }, { value: 'last' }]);
    list.selection = tree.selection = [];
    refuses = false;
    seen.length = 0;
}
`;

/** Pixels: how high headings and rows are, and where the rows of the tree begin. */
const header = 19;
const rowHeight = 20;
const treeTop = 201;
/** The middle of a row, counted from 0; `x` from the left. */
const inRow = (place, x = 60) => [x, header + place * rowHeight + 10];
const inTree = (place, x = 60) => [x, treeTop + place * rowHeight + 10];
const inHeader = (x) => [x, 9];

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'lists.html'), page);
    program = await Program.start(source);
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new Lists('lists.html'); list = window.control('list'); tree = window.control('tree'); fill(); window.open()");
    window = await findActiveWindow('Lists');
});

beforeEach(async () => {
    await program.ask("fill(), window.setFocus('list')");
    await program.becomes('seen.length = 0', 0);
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Lists');
    await program.end();
});

const move = ([x, y]) => xdotool('mousemove', '--window', window, x, y);
const click = async (place, button = 1) => {
    await xdotool('mousemove', '--window', window, ...place, 'click', button);
    await settled();
};
const doubleClick = async (place) => {
    await xdotool('mousemove', '--window', window, ...place, 'click', '--repeat', 2, '--delay', 20, 1);
    await settled();
};
const drag = async (from, to) => {
    await xdotool('mousemove', '--window', window, ...from, 'mousedown', 1);
    for (let step = 1; step <= 4; ++step) {
        await move(from.map((value, i) => Math.round(value + (to[i] - value) * step / 4)));
    }
    await xdotool('mouseup', 1);
    await settled();
};
const press = async (...names) => {
    await keys(...names);
    await settled();
};
/** The window takes input again. */
const settled = async () => {
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};
const selection = (...wanted) => program.becomes('list.selection', wanted);
const shownOrder = (...wanted) => program.becomes('list.rows().map((row) => row.value)', wanted);

test('a double click and Return open the row', async () => {
    await doubleClick(inRow(1, 200));
    await program.becomes("seen.filter(([name]) => name === 'open')", [['open', 'apple', 2, null, 'left', null]]);
    await press('Down', 'Return');
    await program.becomes("seen.filter(([name]) => name === 'open').at(-1)", ['open', 'leek', 2, 'Return', null, null]);
});

test('the right button and the menu key ask about the row and the column', async () => {
    await click(inRow(2, 300), 3);
    await program.becomes("seen.filter(([name]) => name === 'menu')", [['menu', 'leek', 3, null, 'right', null]]);
    await click(inRow(6), 3);
    await program.becomes("seen.filter(([name]) => name === 'menu').at(-1)", ['menu', null, null, null, 'right', null]);
    await click(inRow(0));
    await press('Menu');
    await program.becomes("seen.filter(([name]) => name === 'menu').at(-1)", ['menu', 'pear', 1, 'Menu', null, null]);
});

test('a click on a heading sorts, once more the other way round, and is told', async () => {
    await click(inHeader(60));
    await program.becomes("seen.filter(([name]) => name === 'header')", [['header', null, 1, null, 'left', null]]);
    const names = () => program.ask("list.rows().map((row) => row.value).join(' ')");
    await program.becomes("list.rows().map((row) => row.value).join(' ')", 'apple leek nut pear');
    await click(inHeader(200));
    await program.becomes("list.rows().map((row) => row.value).join(' ')", 'nut apple pear leek');
    await click(inHeader(200));
    await program.becomes("list.rows().map((row) => row.value).join(' ')", 'leek pear apple nut');
    assert.equal(await names(), 'leek pear apple nut');
});

test('Space and a click switch a box', async () => {
    await click(inRow(3, 13));
    await program.becomes('list.checked', ['nut']);
    await program.ask("window.setFocus('list')");
    await press('space');
    await program.becomes('list.checked', []);
    assert.deepEqual(await program.ask("seen.filter((each) => each === 'check')"), ['check', 'check']);
});

test('clicks select one row more; with Shift all up to there', async () => {
    await click(inRow(0));
    await selection('pear');
    await click(inRow(2));
    await selection('pear', 'leek');
    await click(inRow(0)); // not the same row twice, which would be a double click
    await selection('leek');
    await program.ask('list.selection = []');
    await click(inRow(1));
    await xdotool('keydown', 'shift');
    await click(inRow(3));
    await xdotool('keyup', 'shift');
    await selection('apple', 'leek', 'nut');
    await xdotool('keydown', 'ctrl');
    await click(inRow(2));
    await xdotool('keyup', 'ctrl');
    await selection('apple', 'nut');
});

test('Shift and the arrows select rows one after the other', async () => {
    await click(inRow(0));
    await press('shift+Down', 'shift+Down');
    await selection('pear', 'apple', 'leek');
});

test('the edge of a heading can be dragged, and a double click on it fits the column', async () => {
    await drag(inHeader(150), inHeader(190));
    await program.becomes('list.columns[0].width', 190);
    await doubleClick(inHeader(190));
    await program.becomes('list.columns[0].width < 100', true);
    assert.ok(await program.ask('list.columns[0].width > 20'));
});

test('a heading can be dragged to another place, where it stays', async () => {
    await drag(inHeader(60), inHeader(240));
    await program.becomes('list.columns.map(({ order }) => order)', [1, 0, 2]);
    await program.ask("list.setRows([{ value: 'x', texts: ['1', '2', '3'] }])");
    assert.deepEqual(await program.ask('list.columns.map(({ order }) => order)'), [1, 0, 2]);
    await doubleClick(inRow(0, 40)); // the second column stands first
    await program.becomes("seen.filter(([name]) => name === 'open')", [['open', 'x', 2, null, 'left', null]]);
});

test('typing goes to the row that begins so', async () => {
    await program.ask("window.setFocus('tree')");
    await click(inTree(0));
    await type('la');
    await program.becomes('tree.selection', ['last']);
});

test('rows of a tree are collapsed and expanded by mouse and keys, of which the page hears', async () => {
    await click(inTree(0, 7));
    await program.becomes("tree.isItemExpanded('top')", false);
    await program.becomes('seen.length', 1);
    assert.deepEqual(await program.ask('seen[0].slice(0, 2)'), ['expand', 'top']);
    await click(inTree(0));
    await press('Right');
    await program.becomes("tree.isItemExpanded('top')", true);
    await press('Left', 'plus');
    await program.becomes("seen.filter(([name]) => name === 'expand').map((each) => each[3])", [null, 'Right', 'Left', '+']);
});

test('F2 lets a text be changed; Return ends it, Escape leaves the old one', async () => {
    await click(inRow(0, 200));
    await press('F2');
    await press('ctrl+a');
    await type('plum');
    await press('Return');
    await program.becomes("seen.filter(([name]) => name === 'name')", [['name', 'pear', 1, null, null, 'plum']]);
    await program.becomes('list.rows()[0].texts[0]', 'plum');
    await press('F2');
    await type('x');
    await press('Escape');
    assert.equal(await program.ask('list.rows()[0].texts[0]'), 'plum');
    assert.equal(await program.ask("seen.filter(([name]) => name === 'name').length"), 1);
    await program.becomes("seen.filter(([name]) => name === 'open').length", 0);
});

test('a slow second click on a selected row lets its text be changed', async () => {
    await click(inTree(2));
    await program.becomes('tree.selection', ['last']);
    await xdotool('sleep', 1); // else it is a double click
    await click(inTree(2));
    await xdotool('sleep', 1); // in which a double click may still come
    await keys('ctrl+a');
    await type('end');
    await press('Return');
    await program.becomes("seen.filter(([name]) => name === 'name')", [['name', 'last', 1, null, null, 'end']]);
    await program.becomes('tree.rows()[2].texts[0]', 'end');
});

test('a handler that returns false keeps the old text', async () => {
    await program.ask('refuses = true');
    await click(inRow(1));
    await press('F2');
    await press('ctrl+a');
    await type('x');
    await press('Return');
    await program.becomes("seen.filter(([name]) => name === 'name')", [['name', 'apple', 1, null, null, 'x']]);
    await program.becomes('list.rows()[1].texts[0]', 'apple');
});

test('sorted rows keep their order when they are set anew', async () => {
    await click(inHeader(60));
    await shownOrder('apple', 'leek', 'nut', 'pear');
    await program.ask("list.setRows([{ value: 'z', texts: ['z'] }, { value: 'b', texts: ['b'] }])");
    await shownOrder('b', 'z');
});
