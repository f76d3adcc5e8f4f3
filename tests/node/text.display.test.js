'use strict';
// The text of a page on a display: selecting it with the mouse and the keys, copying it, pasting it elsewhere, and
// finding something in it.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, beforeEach, test } = require('node:test');
const { findActiveWindow, keys, pixel, type, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (text, attributes = '') => `<tr><td width="400" height="40" ${attributes}>${text}</td></tr>`;
const page = `<html><head><title>Text</title></head><body width="500" height="300" valign="top">
<table cellspacing="0" cellpadding="0">${row('alpha beta gamma')}
${row('delta <a href="event://onLink/1">link</a> <b>epsilon</b>')}${row('not this', 'noselect')}
${row('<input type="text" name="field" value="typed" width="300" height="30">')}
${row('pressed', 'onmousedown="event://onDown"')}</table></body></html>`;
const at = { first: [1, 20], second: [1, 60], secondEnd: [398, 60], apart: [20, 100], field: [100, 140], handler: [20, 180], below: [450, 280] };

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'text.html'), page);
    program = await Program.start('let window, other;');
    await xdotool('mousemove', 1270, 1010);
    await program.ask("window = new tarn.GuiWindow('text.html'); record(window, ['onLink', 'onDown']); window.open()");
    window = await findActiveWindow('Text');
});

beforeEach(async () => {
    await xdotool('mousemove', '--window', window, ...at.below, 'click', 1);
    await program.becomes('window.selection', '');
    await program.ask('calls.length = 0');
    await sleep(450); // longer than between the two presses of a double click
});

after(async () => {
    await program.ask('window.close()');
    await waitGone('Text');
    await program.end();
});

const move = ([x, y]) => xdotool('mousemove', '--window', window, x, y);
async function drag(from, to) {
    await move(from);
    await xdotool('mousedown', 1);
    await move([(from[0] + to[0]) / 2, (from[1] + to[1]) / 2]);
    await move(to);
    await xdotool('mouseup', 1);
}
/** Waits until the point of the window has another colour. */
const becomesOther = (shown, place, old) => until(async () => await pixel(shown, ...place) !== old);
const selected = (text) => program.becomes('window.selection', text);

test('dragging selects across cells, and a click ends it', async () => {
    await drag(at.first, at.secondEnd);
    await selected('alpha beta gamma\ndelta link epsilon');
    await xdotool('mousemove', '--window', window, ...at.below, 'click', 1);
    await selected('');
});

test('a double click takes a word, a triple click the paragraph', async () => {
    await move([15, 20]);
    await xdotool('click', '--repeat', 2, '--delay', 30, 1);
    await selected('alpha');
    await sleep(450);
    await xdotool('click', '--repeat', 3, '--delay', 30, 1);
    await selected('alpha beta gamma');
});

test('Shift with a click and with the arrows moves the end', async () => {
    await xdotool('mousemove', '--window', window, ...at.first, 'click', 1);
    await xdotool('mousemove', '--window', window, ...at.second, 'keydown', 'shift', 'click', 1, 'keyup', 'shift');
    await selected('alpha beta gamma\n');
    await keys('shift+Up');
    await selected('');
    await keys('ctrl+shift+Right');
    await selected('');
});

test('Ctrl+C copies what is selected, also while a field without a selection has the keyboard', async () => {
    await drag(at.first, [398, 20]);
    await selected('alpha beta gamma');
    await program.ask("window.setFocus('field')");
    await keys('End', 'ctrl+c');
    await program.becomes('tarn.clipboard.readText()', 'alpha beta gamma');
    await keys('shift+Home', 'ctrl+c');
    await program.becomes('tarn.clipboard.readText()', 'typed');
});

test('what the mouse has selected is pasted with the middle button', async () => {
    await program.ask("window.form.field = ''");
    await drag(at.first, [398, 20]);
    await selected('alpha beta gamma');
    await xdotool('mousemove', '--window', window, ...at.field, 'click', 2);
    await program.becomes('window.form.field', 'alpha beta gamma');
    await program.ask("window.form.field = 'typed'");
});

test('a link is followed as ever, and elements that hear of the pointer are pressed', async () => {
    const link = [50, 60];
    await drag(link, [398, 60]);
    await program.called([['onLink', null, '1']]);
    assert.equal(await program.ask('window.selection'), '');
    await xdotool('mousemove', '--window', window, ...at.handler, 'click', 1);
    await program.called([['onLink', null, '1'], ['onDown', null]]);
});

test('what asks for it is not selected', async () => {
    await drag(at.apart, at.first);
    await selected('alpha beta gamma\ndelta link epsilon');
    await keys('ctrl+a');
    await sleep(50);
    assert.ok(!(await program.ask('window.selection')).includes('not this'));
});

// ---- Finding ----

const closeBar = async () => {
    await keys('Escape');
    await program.becomes("window.find('')", 0);
};

test('Ctrl+F finds what is typed, Return and F3 go on, and the place stays selected', async () => {
    await keys('ctrl+f');
    await type('L');
    await selected('l');
    await keys('BackSpace');
    await type('ta');
    await selected('ta');
    await keys('Return');
    await selected('ta');
    await keys('BackSpace', 'BackSpace');
    await type('ep');
    await selected('ep');
    await keys('Escape');
    await selected('ep');
    assert.equal(await program.ask('window.isOpen()'), true);
    await keys('ctrl+c');
    await program.becomes('tarn.clipboard.readText()', 'ep');
    await closeBar();
});

test('the page makes room for the bar and gets it back', async () => {
    await program.ask("window.setFocus('field')");
    const bar = [20, 292];
    const old = await pixel(window, ...bar);
    await keys('ctrl+f');
    await becomesOther(window, bar, old);
    await keys('Escape');
    await waitForPixel(window, ...bar, old);
    assert.equal(await program.ask('window.getFocus()'), 'field');
});

test('script finds text, tells how often it is there, and goes from place to place', async () => {
    assert.equal(await program.ask("window.find('l')"), 4);
    await selected('l');
    assert.equal(await program.ask("window.find('GAMMA')"), 1);
    await selected('gamma');
    assert.equal(await program.ask("window.find('GAMMA', { case: true })"), 0);
    assert.equal(await program.ask("window.find('link eps', { previous: true })"), 1);
    await selected('link eps');
    assert.equal(await program.ask("window.find('nowhere')"), 0);
    assert.equal(await program.ask("window.find('')"), 0);
    assert.match(await program.ask("(() => { try { window.find('x', { nxt: true }); } catch (error) { return error.message; } })()"),
        /there is no option "nxt"; did you mean "next"\?/);
});

test('a page may have no find bar, and the item of a menu may have its keys', async () => {
    fs.writeFileSync(path.join(scratch, 'none.html'), '<html><head><title>None</title></head><body width="300" height="200" nofind>text</body></html>');
    fs.writeFileSync(path.join(scratch, 'own.html'), `<html><head><title>Own</title></head><body width="300" height="200">
        <object classid="menu" name="menu"><menu name="edit" value="&amp;Edit"><param name="search" value="Search" key="Ctrl+F"
        onclick="event://onSearch"></menu></object><p>text</p></body></html>`);
    for (const [title, wanted] of [['None', []], ['Own', [['onSearch', 'menu', 'search']]]]) {
        await program.ask(`other = new tarn.GuiWindow('${title.toLowerCase()}.html'); record(other, ['onSearch']); other.open()`);
        await findActiveWindow(title);
        await keys('ctrl+f');
        await type('t');
        await program.ask('other.isOpen()');
        assert.equal(await program.ask('other.selection'), '');
        await program.becomes('calls.map(([name]) => name)', wanted.map(([name]) => name));
        await program.ask('other.close()');
        await waitGone(title);
    }
});

test('in another language the answers of dialogs are those of the program', async () => {
    const german = await Program.start('let got;', 120000, { LC_ALL: 'de_DE.UTF-8', LANGUAGE: '' });
    for (const [call, key, wanted] of [["alert('Fertig.', { title: 'German' })", 'Return', 'OK'], ["confirm('Gut?', { title: 'German' })", 'Escape', false]]) {
        await german.ask(`got = undefined; void tarn.${call.replace('(', 'Async(')}.then((answer) => { got = [answer]; })`);
        await findActiveWindow('German');
        await keys(key);
        await german.becomes('got', [wanted]);
        await waitGone('German');
    }
    await german.end();
});
