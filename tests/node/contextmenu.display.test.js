'use strict';
// Context menus, and the events of the focus and of the Enter key, as the user makes them.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const cell = (attributes) => `<tr><td height="40" width="300" ${attributes}></td></tr>`;
const page = `<html><head><title>Context</title></head><body width="500" height="400" valign="top" contextmenu="whole">
<object classid="contextmenu" name="whole"><param name="about" value="&amp;About"></object>
<object classid="contextmenu" name="rows">
  <param name="open" value="&amp;Open" key="Ctrl+E">
  <menu name="more" value="&amp;More"><param name="deep" value="&amp;Deep"></menu>
  <param name="own" value="O&amp;wn" onclick="event://onOwn">
</object>
<table cellspacing="0" cellpadding="0">
${cell('bgcolor="#80C080" contextmenu="rows"')}
${cell('bgcolor="#8080C0" oncontext="event://onAsk" contextmenu="rows"')}
${cell('bgcolor="#C0C080" contextmenu="nobody"')}
<tr><td height="40"><input type="button" name="ok" value="OK" width="100" height="30" onclick="event://onOk" contextmenu="rows"
onfocus="event://onIn/ok" onblur="event://onOut/ok"></td></tr>
<tr><td height="40"><input type="text" name="who" width="200" height="30" contextmenu="rows" onenter="event://onEnter"
onfocus="event://onIn/who" onblur="event://onOut/who"></td></tr>
<tr><td height="40"><select name="combo" edit width="200" height="30" onfocus="event://onIn/combo"><option>a</select></td></tr>
</table></body></html>`;

const source = `
let window;
const seen = [];
const note = (name, event) => { seen.push([name, event === undefined ? null : { ...event }]); };
class Context extends tarn.GuiWindow {
    eMenu({ event }, name) { note(name, event); }
    onOwn({ event }) { note('own', event); }
    onAsk({ event }) { note('ask', event); }
    onOk({ event }) { note('ok', event); }
    onEnter({ event }) { note('enter', event); }
    onIn({ event }, name) { seen.push(['in', name, event?.key ?? event?.button ?? null]); }
    onOut({ event }, name) { seen.push(['out', name, event?.key ?? event?.button ?? null]); }
}
`;

const at = { plain: [150, 20], beside: [100, 25], asking: [150, 60], wrong: [150, 100], ok: [49, 139], who: [100, 175], below: [400, 350] };

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'context.html'), page);
    program = await Program.start(source);
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new Context('context.html'); window.open()");
    window = await findActiveWindow('Context');
});

beforeEach(async () => {
    await program.ask("window.setFocus('combo')");
    await program.ask('seen.length = 0');
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Context');
    await program.end('tarn: no context menu is called nobody\nGuiWindow::popup() - control nowhere not found in window\n');
});

const click = ([x, y], button) => xdotool('mousemove', '--window', window, x, y, 'click', button);
const isFocus = ([name]) => name === 'in' || name === 'out';
/**
 * The handlers were called as wanted, and the window takes input again. Where nothing of the focus is wanted, its events do
 * not count: the window manager may take the focus and give it back while a menu closes.
 */
const tells = async (...wanted) => {
    await program.becomes(wanted.some(isFocus) ? 'seen' : `seen.filter((each) => !(${isFocus})(each))`, wanted);
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};
const chosen = (key, [x, y]) => ({ type: 'menu', key, modifiers: '', x, y });

test('the right button shows the menu of the element, whose items are told the place', async () => {
    await click(at.plain, 3);
    await keys('o');
    await tells(['open', chosen('O', at.plain)]);
    await click(at.beside, 3); // at another place: two clicks at one may be a double click
    await keys('m', 'd');
    await tells(['open', chosen('O', at.plain)], ['deep', chosen('D', at.beside)]);
});

test('an item may name a handler of its own', async () => {
    await click(at.plain, 3);
    await keys('w');
    await tells(['own', chosen('W', at.plain)]);
});

test('Escape closes the menu, and then nothing is chosen', async () => {
    await click(at.plain, 3);
    await keys('Escape', 'o');
    await click(at.plain, 3);
    await keys('w');
    await tells(['own', chosen('W', at.plain)]);
});

test('an element that asks to be told hears of it before the menu is there', async () => {
    await click(at.asking, 3);
    await tells(['ask', { type: 'context', button: 'right', modifiers: '', x: at.asking[0], y: at.asking[1] }]);
    await keys('o');
    await tells(['ask', { type: 'context', button: 'right', modifiers: '', x: at.asking[0], y: at.asking[1] }],
        ['open', chosen('O', at.asking)]);
});

test('the nearest element around the pointer counts, the body last', async () => {
    await click(at.below, 3);
    await keys('a');
    await tells(['about', chosen('A', at.below)]);
});

test('the keys in a context menu are shown there and choose nothing outside of it', async () => {
    await keys('ctrl+e');
    await click(at.plain, 3);
    await keys('ctrl+e', 'Escape');
    assert.deepEqual(await program.ask('seen'), []);
});

test('the menu key shows the menu of the control that has the focus', async () => {
    await program.ask("window.setFocus('ok')");
    await program.ask('seen.length = 0');
    await keys('Menu', 'o');
    await tells(['open', chosen('O', [at.ok[0], at.ok[1]])]);
});

test('a text field that asks for it shows the menu of the page in place of its own', async () => {
    await click(at.who, 3);
    await keys('o');
    await program.becomes("seen.filter(([name]) => name === 'open')", [['open', chosen('O', at.who)]]);
});

test('a menu that is not there is told, and script learns it', async () => {
    await click(at.wrong, 3);
    assert.deepEqual(await program.ask("[window.popup('nowhere'), window.popup('ok')]"), [false, false]);
});

test('script shows a menu at a place, and at the pointer', async () => {
    assert.equal(await program.ask("window.popup('rows', 200, 250)"), true);
    await keys('o');
    await tells(['open', chosen('O', [200, 250])]);
    await xdotool('mousemove', '--window', window, 300, 300);
    assert.equal(await program.ask("window.popup('rows')"), true);
    await keys('w');
    await tells(['open', chosen('O', [200, 250])], ['own', chosen('W', [300, 300])]);
});

test('controls are told when they get the focus and lose it, by key, mouse and script', async () => {
    await program.ask("window.setFocus('ok')");
    await tells(['in', 'ok', null]);
    await keys('Tab');
    await tells(['in', 'ok', null], ['out', 'ok', 'Tab'], ['in', 'who', 'Tab']);
    await program.ask('seen.length = 0');
    await click([100, 215], 1);
    await tells(['out', 'who', 'left'], ['in', 'combo', 'left']);
});

test('Return in a field calls its handler and presses no default button', async () => {
    await program.ask("window.setEnterControl('ok'), window.setFocus('who')");
    await program.ask('seen.length = 0');
    await keys('Return');
    await tells(['enter', { type: 'enter', key: 'Return', modifiers: '' }]);
    await program.ask("window.setFocus('combo')");
    await program.ask('seen.length = 0');
    await keys('Return');
    await tells(['ok', { type: 'click', key: 'Return', modifiers: '' }]);
});
