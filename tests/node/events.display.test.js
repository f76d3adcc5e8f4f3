'use strict';
// What the user does, as handlers are told in session.event: with the mouse, with the keyboard, and not at all when it is
// script that makes a handler run.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (content) => `<tr><td height="40">${content}</td></tr>`;
const page = `<html><head><title>Events</title></head><body width="500" height="400" valign="top"><table width="480" cellspacing="0"
cellpadding="0">
${row('<input type="button" name="ok" value="OK" onclick="event://onOk" width="100" height="30">')}
${row('<input type="text" name="who" onchange="event://onWho" width="200" height="30">')}
${row('<input type="checkbox" name="milk" value="on" onclick="event://onMilk" width="20" height="20">')}
<tr><td height="60" width="240" bgcolor="#80C080" onmousedown="event://onCell"></td>
<td height="60" width="240" bgcolor="#8080C0" onmouseup="event://onUp"></td></tr>
${row('<font size="7"><a href="event://onLink">MMMM</a></font>')}
</table><object classid="menu" name="menu"><menu name="file" value="&amp;File"><param name="save" value="&amp;Save"></menu></object>
</body></html>`;

const source = `
let window, presses = 0;
const seen = [];
const note = (name, event) => { seen.push([name, event === undefined ? null : { ...event }]); };
class Events extends tarn.GuiWindow {
    onOk(session) {
        note('ok', session.event);
        this.control('milk').check(true);
        session.currentForm.who = "pressed " + ++presses;
    }
    onWho({ event }) { note('who', event); }
    onMilk({ event }) { note('milk', event); }
    onCell({ event }) { note('cell', event); }
    onUp({ event }) { note('up', event); }
    async onLink(session) {
        note('link', session.event);
        await null;
        note('after', session.event);
    }
    eMenu({ event }, name) { note(name, event); }
}
`;

const bar = 22; // about the height of the menu bar
const at = { ok: [50, bar + 20], who: [150, bar + 60], milk: [8, bar + 100], cell: [120, bar + 150], up: [360, bar + 150], link: [50, bar + 200] };

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'events.html'), page);
    program = await Program.start(source);
    await program.ask("window = new Events('events.html'); window.open()");
    window = await findActiveWindow('Events');
    await xdotool('mousemove', 1270, 1010);
});

beforeEach(() => program.ask('seen.length = 0'));

after(async () => {
    await program.ask('window.close()');
    await waitGone('Events');
    await program.end();
});

const click = ([x, y], ...args) => xdotool('mousemove', '--window', window, x, y, 'click', ...args);
/** The handlers were called as wanted, and the window takes input again. */
const tells = async (...wanted) => {
    await program.becomes('seen', wanted);
    for (let i = 0; i < 2; ++i) {
        await program.ask('new tarn.GuiWindow().isOpen()');
    }
};

test('a click on a button is told with its place; what script changes meanwhile is no event', async () => {
    await click(at.ok, 1);
    await tells(['ok', { type: 'click', button: 'left', modifiers: '', x: at.ok[0], y: at.ok[1] }], ['who', null]);
});

test('modifier keys that are down are named', async () => {
    await xdotool('keydown', 'ctrl', 'keydown', 'shift');
    await click(at.milk, 1);
    await xdotool('keyup', 'shift', 'keyup', 'ctrl');
    await tells(['milk', { type: 'click', button: 'left', modifiers: 'ctrl+shift', x: at.milk[0], y: at.milk[1] }]);
});

test('a button pressed with the space bar is a click by a key', async () => {
    await program.ask("window.setFocus('ok')");
    await keys('space');
    await tells(['ok', { type: 'click', key: 'Space', modifiers: '' }], ['who', null]);
});

test('typing into a field is a change by a key', async () => {
    await program.ask("window.setFocus('who')");
    await keys('x');
    await tells(['who', { type: 'change', key: 'X', modifiers: '' }]);
});

test('the default button tells of Return', async () => {
    await program.ask("window.setEnterControl('ok'), window.setFocus('who')");
    await keys('Return');
    await tells(['ok', { type: 'click', key: 'Return', modifiers: '' }], ['who', null]);
});

test('each button of the mouse is told to an element that asks', async () => {
    for (const [number, button] of [[1, 'left'], [2, 'middle'], [3, 'right']]) {
        for (const [name, type] of [['cell', 'mousedown'], ['up', 'mouseup']]) {
            await program.ask('seen.length = 0');
            await click(at[name], number);
            await tells([name, { type, button, modifiers: '', x: at[name][0], y: at[name][1] }]);
        }
    }
});

test('a link tells of the click, and behind an await there is no event', async () => {
    await click(at.link, 1);
    await tells(['link', { type: 'click', button: 'left', modifiers: '', x: at.link[0], y: at.link[1] }], ['after', null]);
});

test('an item chosen with the keyboard is told with the key; one that script chooses with nothing', async () => {
    await keys('alt+f', 's');
    await tells(['save', { type: 'menu', key: 'S', modifiers: '' }]);
    await program.ask("seen.length = 0, window.control('menu').activateItem('save')");
    await tells(['save', null]);
});

test('there is no event outside of handlers', async () => {
    assert.deepEqual(await program.ask("[tarn.session.event === undefined, 'event' in tarn.session]"), [true, false]);
});
