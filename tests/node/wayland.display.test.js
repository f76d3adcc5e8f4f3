'use strict';
// A program on a Wayland compositor: windows, mouse and keys, lists and menus that drop down, a window over another, what is
// dragged, the clipboard. A program there does not know where its windows are, so they are found by their colours.
// TARN_SCALE: screen pixels to each pixel of a page.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { execFileSync } = require('node:child_process');
const { after, before, beforeEach, test } = require('node:test');
const { findColour, keys, type, xdotool } = require('./desktop.js');
const { packageFolder, runScript, scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

const scale = Number(process.env.TARN_SCALE ?? 1);
const ground = { main: '#336699', child: '#993366', left: '#CCCC66' };

fs.writeFileSync(path.join(scratch, 'main.html'), `<html><head><title>Main</title></head>
<body width="320" height="300" valign="top" bgcolor="${ground.main}">
<object classid="menu" name="menu"><menu name="file" value="&amp;File"><param name="open" value="&amp;Open" onclick="event://onOpen"></menu></object>
<table cellspacing="0">
<tr><td><input type="text" name="who" width="200" height="30"></td></tr>
<tr><td><select name="pick" width="200" height="30"><option value="a">Alpha</option><option value="b">Beta</option></select></td></tr>
<tr><td><input type="button" name="go" value="Go" onclick="event://onGo" width="100" height="30"></td></tr>
<tr><td><splitter name="split" width="300" height="60"><pane width="100" bgcolor="${ground.left}">Left</pane><pane>Right</pane></splitter></td></tr>
</table></body></html>`);
fs.writeFileSync(path.join(scratch, 'child.html'), `<html><head><title>Child</title></head>
<body width="120" height="80" valign="top" bgcolor="${ground.child}">
<table cellspacing="0"><tr><td><input type="button" name="ok" value="OK" onclick="event://onOk" width="100" height="30"></td></tr></table></body></html>`);

const source = `
let window, seen = [];
class Child extends tarn.GuiWindow { onOk() { seen.push('ok'); this.close(); } }
class Main extends tarn.GuiWindow {
    onGo() { seen.push(['go', this.form.who, this.form.pick]); }
    onOpen() { seen.push('menu'); new Child('child.html').show(); seen.push('back'); }
}
`;

/** The middles of the controls of the main page, from the upper left corner of what is below its menu bar; pixels of the page. */
const at = { who: [100, 15], pick: [100, 45], go: [50, 75] };

let program;
let screen;

/** The area of the screen with this colour, once it has stopped moving. */
async function areaOf(colour) {
    let last = null;
    for (const end = Date.now() + 15000; Date.now() < end; await sleep(100)) {
        const area = await findColour(screen, 1000, 800, colour);
        if (area !== null && JSON.stringify(area) === last) {
            return area;
        }
        last = JSON.stringify(area);
    }
    throw new Error(`nothing on the screen is ${colour}`);
}

/** A place of the main page on the screen. */
async function placeOf([x, y]) {
    const { left, top } = await areaOf(ground.main);
    return [left + x * scale, top + y * scale];
}

async function clickAt([x, y]) {
    await xdotool('mousemove', '--window', screen, x, y);
    await sleep(50);
    await xdotool('click', 1);
}

/** Saves the screen, for whoever wants to look: TARN_PICTURES names a folder. */
function picture(name) {
    if (process.env.TARN_PICTURES) {
        execFileSync('import', ['-window', screen, path.join(process.env.TARN_PICTURES, `wayland-${name}-${scale}.png`)]);
    }
}

before(async () => {
    await until(async () => { screen = await xdotool('search', '--onlyvisible', '--class', 'weston').catch(() => ''); return screen !== ''; });
    program = await Program.start(source);
    await program.ask("window = new Main('main.html'); window.open()");
    await areaOf(ground.main);
});
after(() => program.end());
beforeEach(() => program.ask('seen = []'));

test('the window has the size of its page', async () => {
    const { left, right, top } = await areaOf(ground.main);
    assert.equal(right - left + 1, 320 * scale);
    assert.ok(top > 0);
    picture('open');
});

test('a field is clicked and typed into, and a button hears what stands there', async () => {
    await clickAt(await placeOf(at.who));
    await program.becomes('window.getFocus()', 'who');
    await type('Grace');
    await program.becomes("window.control('who').value", 'Grace');
    await clickAt(await placeOf(at.go));
    await program.becomes('seen', [['go', 'Grace', 'a']]);
});

test('a list drops down below its field, and a row of it is chosen by a click', async () => {
    const [x, y] = await placeOf(at.pick);
    await clickAt([x, y]);
    await sleep(500);
    picture('list');
    await clickAt([x, y + 18 * scale]);
    await program.becomes('window.form.pick', 'b');
});

test('a menu opens by a click, and the window that an item opens blocks its own', async () => {
    const main = await areaOf(ground.main);
    await clickAt([main.left + 15 * scale, main.top - 12 * scale]);
    await sleep(500);
    picture('menu');
    await keys('o');
    const child = await areaOf(ground.child);
    picture('child');
    await clickAt([main.left + 50 * scale, main.top + 75 * scale]);
    await sleep(300);
    assert.deepEqual(await areaOf(ground.child), child, 'it is covered');
    await clickAt([child.left + 50 * scale, child.top + 15 * scale]);
    await program.becomes('seen', ['menu', 'ok', 'back']);
});

test('a modal window says whose it is, so that the compositor can place it over that one', async () => {
    const { stderr } = await runScript(`
        const { GuiWindow } = require(${JSON.stringify(packageFolder)});
        const main = new GuiWindow('main.html');
        main.open();
        setTimeout(() => {
            const child = new GuiWindow('child.html');
            setTimeout(() => child.close(), 1000);
            child.show();
            main.close();
        }, 1500);`, { env: { WAYLAND_DEBUG: '1' } });
    const [, own] = /get_toplevel\(new id (xdg_toplevel@\d+)\)/.exec(stderr) ?? [];
    assert.ok(stderr.includes(`set_parent(${own})`), stderr.slice(-2000));
});

test('a divider is dragged', async () => {
    const start = await areaOf(ground.left);
    const y = Math.round((start.top + start.bottom) / 2);
    await xdotool('mousemove', '--window', screen, start.right + 3 * scale, y);
    await xdotool('mousedown', 1);
    for (const moved of [10, 30, 50, 60]) {
        await xdotool('mousemove', '--window', screen, start.right + (3 + moved) * scale, y);
        await sleep(50);
    }
    await xdotool('mouseup', 1);
    await until(async () => (await areaOf(ground.left)).right >= start.right + 50 * scale);
});

test('texts go through the clipboard both ways', async () => {
    await clickAt(await placeOf(at.who));
    await program.becomes('window.getFocus()', 'who');
    await program.ask("tarn.clipboard.writeText('from script ✓')");
    await keys('ctrl+a', 'ctrl+v');
    await program.becomes("window.control('who').value", 'from script ✓');
    await type('x');
    await keys('ctrl+a', 'ctrl+x');
    await program.becomes('tarn.clipboard.readText()', 'from script ✓x');
    await program.becomes("window.control('who').value", '');
});

test('closing the window by its frame closes it', async () => {
    const { right, top } = await areaOf(ground.main);
    await program.ask("window.eClose = () => { seen.push('close'); }");
    await clickAt([right - 13 * scale, top - 37 * scale]);
    await program.becomes('seen', ['close']);
});
