'use strict';
// The methods of windows on a display: what the window manager, the keyboard and the screen show of them, with right and
// wrong arguments.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { execFileSync } = require('node:child_process');
const { after, afterEach, before, test } = require('node:test');
const { closeByUser, findActiveWindow, findWindow, keys, waitForPixel, waitGone } = require('./desktop.js');
const { scratch, until } = require('./helpers.js');
const { Program } = require('./program.js');

const write = (name, title, content, attributes = '') => fs.writeFileSync(path.join(scratch, name),
    `<html><head><title>${title}</title></head><body valign="top" bgcolor="#208040" ${attributes}>${content}</body></html>`);
write('plain.html', 'Plain', '');
write('other.html', 'Other', '', 'text="red"');
write('controls.html', 'Controls', `<input type="text" name="First" onchange="event://onTyped"><br><input type="text" name="second"><br>
    <input type="button" name="ok" value="ok" onclick="event://onOk"><input type="button" name="no" value="no" onclick="event://onNo">`);
fs.writeFileSync(path.join(scratch, 'paper.bmp'), Buffer.concat([
    Buffer.from('424d3a0000000000000036000000280000000100000001000000010018', 'hex'), Buffer.alloc(25), Buffer.from([0xC0, 0x30, 0x20, 0])]));

let program;
const opened = new Set();

/** Calls that throw a TypeError. */
const inside = `let window, second, shown;
const refused = (...calls) => calls.forEach((call) => {
    try { call(); } catch (error) { if (error instanceof TypeError) return; throw error; }
    throw new Error('accepted: ' + call);
});`;

before(async () => { program = await Program.start(inside); });
after(() => program.end(['Enter', 'Escape'].map((name) => `GuiWindow::set${name}Control() - control x not found in window\n`).join('')));
afterEach(async () => {
    await program.ask('window?.close(); second?.close()');
    for (const title of opened) {
        await waitGone(title);
    }
    opened.clear();
});

/** Makes `window` with a page, runs `calls` on it, opens it with these arguments; the window's number. */
async function open(page, title, calls = '', openCall = 'window.open()') {
    opened.add(title);
    await program.ask(`calls.length = 0; window = new tarn.GuiWindow('${page}'); ${calls}; ${openCall}`);
    return findWindow(title);
}

/** What the window manager was told: least and greatest size, and the size that the window has. */
function sizes(window) {
    const text = execFileSync('xprop', ['-id', window, 'WM_NORMAL_HINTS'], { encoding: 'utf8' });
    const size = (name) => new RegExp(`program specified ${name} size: (\\d+) by (\\d+)`).exec(text)?.slice(1).map(Number);
    const { WIDTH, HEIGHT } = Object.fromEntries(execFileSync('xdotool', ['getwindowgeometry', '--shell', window], { encoding: 'utf8' })
        .split('\n').map((line) => line.split('=')));
    return { least: size('minimum'), greatest: size('maximum'), now: [Number(WIDTH), Number(HEIGHT)] };
}

const isModal = (window) => execFileSync('xprop', ['-id', window, '_NET_WM_STATE'], { encoding: 'utf8' }).includes('_MODAL');

test('sizes reach the window manager; 0, one number and what is no number change nothing', async () => {
    const window = await open('plain.html', 'Plain', `window.setDefaultSize(420.9, 310); window.setMinimumSize(300, 200);
        window.setMinimumSize(0, 250); window.setMinimumSize(310, 0); window.setMaximumSize(800, 600); window.setMaximumSize(0, 0);
        for (const name of ['setMinimumSize', 'setMaximumSize', 'setDefaultSize']) {
            for (const args of [[], [500], [500, 500, 500], ['500', '500'], [true, true], [null, 500]]) refused(() => window[name](...args));
        }`);
    assert.deepEqual(sizes(window), { least: [310, 250], greatest: [800, 600], now: [420, 310] });
    await program.ask('window.setDefaultSize(500, 0)');
    await until(() => sizes(window).now[0] === 500);
    assert.deepEqual(sizes(window).now, [500, 310]);
    await program.ask('window.setMinimumSize(0, 400)');
    await until(() => sizes(window).least[1] === 400);
});

test('a window that says nothing is 480 by 240 and may have any size', async () => {
    const { least, greatest, now } = sizes(await open('plain.html', 'Plain'));
    assert.deepEqual(now, [480, 240]);
    assert.ok(least === undefined || least[0] < 100);
    assert.ok(greatest === undefined || greatest[0] > 10000);
});

for (const [args, isFixed] of [['', false], ['true', false], ['2', false], ['false', true], ['0', true], ['undefined', false]]) {
    test(`setResizable(${args}) ${isFixed ? 'fixes the size' : 'leaves the size free'}`, async () => {
        const { least, greatest } = sizes(await open('plain.html', 'Plain', `window.setResizable(${args})`));
        const fixed = [480, 240];
        assert.deepEqual([least, greatest].every((size) => String(size) === String(fixed)), isFixed);
    });
}

test('open() takes one boolean for a modal window', async () => {
    await open('controls.html', 'Controls');
    await findActiveWindow('Controls');
    for (const [args, modal] of [['true', true], ['', false], ['false', false], ['undefined', false]]) {
        assert.equal(await program.ask(`second = new tarn.GuiWindow('plain.html'); second.open(${args})`), true);
        assert.equal(isModal(await findWindow('Plain')), modal, `open(${args})`);
        await program.ask('second.close()');
        await waitGone('Plain');
        await findActiveWindow('Controls');
    }
});

test('close() closes, again and again, and the window opens once more', async () => {
    await open('plain.html', 'Plain');
    assert.equal(await program.ask('window.close()'), null);
    await waitGone('Plain');
    assert.deepEqual(await program.ask('[window.close(), window.isOpen(), window.isValid(), window.open()]'), [null, false, true, true]);
    await findWindow('Plain');
    assert.deepEqual(await program.ask('[window.isOpen(), refused(() => window.isOpen(1))]'), [true, null]);
});

test('the title of an open window follows setTitle, and other arguments leave it', async () => {
    await open('plain.html', 'Plain', 'refused(() => window.setTitle(3), () => window.setTitle(), () => window.setTitle("a", "b"))');
    await program.ask('window.setTitle("New title")');
    opened.add('New title');
    await findWindow('New title');
    assert.deepEqual(await program.ask('[window.getTitle(), refused(() => window.getTitle(1))]'), ['New title', null]);
});

test('a page that is loaded later comes in place, with its title; text without one leaves it', async () => {
    const window = await open('plain.html', 'Plain');
    fs.writeFileSync(path.join(scratch, 'yellow.html'), '<html><head><title>Yellow</title></head><body bgcolor="#D0C010"></body></html>');
    for (const method of ['load', 'loadFile']) {
        await program.ask("window.setTitle('Mine')");
        assert.equal(await program.ask(`window.setText('<body bgcolor="#3050D0"></body>')`), true);
        await waitForPixel(window, 200, 100, '#3050D0');
        assert.equal(await program.ask('window.getTitle()'), 'Mine');
        assert.equal(await program.ask(`window.${method}('yellow.html')`), true);
        await waitForPixel(window, 200, 100, '#D0C010');
        assert.equal(await program.ask('window.getTitle()'), 'Yellow');
    }
    opened.add('Yellow');
});

test('load and loadFile give an empty window its page', async () => {
    for (const method of ['load', 'loadFile']) {
        await program.ask(`window = new tarn.GuiWindow(); window.${method}('plain.html') && window.open()`);
        opened.add('Plain');
        await findWindow('Plain');
        await program.ask('window.close()');
        await waitGone('Plain');
    }
});

test('loadBackground puts the picture behind the page', async () => {
    const window = await open('plain.html', 'Plain');
    await waitForPixel(window, 200, 100, '#208040');
    assert.equal(await program.ask("window.loadBackground('paper.bmp')"), true);
    await waitForPixel(window, 200, 100, '#2030C0');
});

test('the focus goes to the control of a name, in letters of either case, and is told', async () => {
    await open('controls.html', 'Controls', "window.setFocus('second')");
    await findActiveWindow('Controls');
    await program.becomes('window.getFocus()', 'second');
    await program.ask("window.setFocus('FIRST')");
    await program.becomes('window.getFocus()', 'First');
    for (const args of ['', '3', 'null', "'second', 'second'"]) {
        await program.ask(`refused(() => window.setFocus(${args}))`);
    }
    assert.deepEqual(await program.ask('[window.getFocus(), refused(() => window.getFocus(1))]'), ['First', null]);
    await keys('Tab');
    await program.becomes('window.getFocus()', 'second');
});

for (const [key, name] of [['Return', 'Enter'], ['Escape', 'Escape']]) {
    test(`the ${name} key: a control of a name is used, "X" closes, and other arguments change nothing`, async () => {
        await open('controls.html', 'Controls', "record(window, ['onOk', 'onNo', 'onTyped']); window.setFocus('First')");
        await findActiveWindow('Controls');
        await program.becomes('window.getFocus()', 'First');
        await program.ask(`window.set${name}Control('OK')`);
        for (const args of ['', '3', "'no', 'no'"]) {
            await program.ask(`refused(() => window.set${name}Control(${args}))`);
        }
        assert.deepEqual(await program.ask(`[window.get${name}Control(), refused(() => window.get${name}Control(1))]`), ['OK', null]);
        await keys(key);
        await program.called([['onOk', 'ok']]);
        await program.ask(`window.set${name}Control('x')`); // a name that nobody has: only the capital letter closes
        await keys(key, 'a');
        await program.called([['onTyped', 'First']], 1); // the key came before, and led to nothing
        await program.ask(`window.set${name}Control('no')`);
        await keys(key);
        await program.called([['onNo', 'no']], 2);
        await program.ask(`window.set${name}Control('X')`);
        await keys(key);
        await program.becomes('window.isOpen()', false);
    });
}

test('show() gives back the value that was set last, however the window is closed', async () => {
    for (const [calls, wanted] of [['', null], ['window.setReturnValue(7)', 7], ['window.setReturnValue("a"); window.setReturnValue("b")', 'b'],
        ['window.setReturnValue(7); refused(() => window.setReturnValue(), () => window.setReturnValue(8, 9))', 7], ['window.setReturnValue(7); window.setReturnValue(null)', null]]) {
        opened.add('Plain');
        await program.ask(`window = new tarn.GuiWindow('plain.html'); ${calls}; shown = undefined;
            void setTimeout(() => { shown = [window.show()]; })`);
        await closeByUser(await findWindow('Plain'));
        await program.becomes('shown', [wanted]);
    }
});

test('ePostOpen comes once for show(), when the window stands, and never for open()', async () => {
    await open('plain.html', 'Plain', "record(window, ['ePostOpen'], { label: () => window.isOpen() })");
    await program.ask('window.close()');
    await waitGone('Plain');
    await program.ask('void setTimeout(() => { shown = [window.show()]; })');
    await findWindow('Plain');
    await program.becomes('calls', [[true, null]]);
});
