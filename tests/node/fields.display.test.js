'use strict';
// Text fields, boxes and labels on a display: what the user can type into them, what is shown as wrong, and when a form is sent.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, beforeEach, test } = require('node:test');
const { findActiveWindow, findColour, findWindow, keys, picture, press, type, waitGone, xdotool } = require('./desktop.js');
const { scratch, until } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (label, content, height = 40) => `<tr><td width="100" height="${height}">${label}</td><td height="${height}">${content}</td></tr>`;
const field = (attributes) => `<input ${attributes} width="200" height="30">`;
const page = `<html><head><title>Fields</title></head><body width="500" height="620" valign="top" bgcolor="#F0F0F0">
<datalist id="towns"><option value="Berlin"><option value="Bern"><option>Hamburg</datalist>
<form name="f" action="event://onSend"><table width="480" cellspacing="0" cellpadding="0">
${row('<label for="who">&Name</label>', field('type="text" name="who" required maxlength="4"'))}
${row('<label for="zip">Zip</label>', field('type="text" name="zip" pattern="[0-9][0-9]*" title="Digits only"'))}
${row('<label for="town">Town</label>', field('type="text" name="town" list="towns" onchange="event://onTown"'))}
${row('Search', field('type="search" name="search" value="term"'))}
${row('Password', field('type="password" name="password" value="secret" reveal'))}
${row('File', field('type="file" name="file"'))}
${row('Fixed', field('type="text" name="fixed" value="fixed" readonly'))}
${row('Notes', '<textarea name="notes" width="200" height="70" maxlength="4"></textarea>', 80)}
${row('', '<label><input type="checkbox" name="agree" value="yes" required width="20" height="20"> I &agree</label>')}
${row('', `<label><input type="radio" name="size" value="s" required width="20" height="20"> Small</label>
    <label><input type="radio" name="size" value="l" width="20" height="20"> Large</label>`)}
${row('', `<input type="submit" name="send" value="Send" width="100" height="30"><input type="submit" name="draft" value="Draft"
    novalidate onclick="event://onDraft" width="100" height="30">`)}
</table></form></body></html>`;

/** Where things are, in pixels from the window's upper left corner. */
const at = {
    whoLabel: [12, 20], who: [150, 20], zipLabel: [12, 60], zip: [150, 60], town: [150, 100], search: [150, 140], clear: [287, 140],
    password: [150, 180], eye: [287, 180], file: [150, 220], folder: [287, 220], fixed: [150, 260], notes: [150, 320],
    send: [150, 460], draft: [250, 460],
};
const warning = '#C62828';

let program;
let window;

before(async () => {
    program = await Program.start('let window;');
    fs.writeFileSync(path.join(scratch, 'fields.html'), page);
});
after(() => program.end());

beforeEach(async () => {
    await program.ask(`calls.length = forms.length = 0; window = new tarn.GuiWindow('fields.html');
        record(window, ['onSend', 'onDraft', 'onTown']); window.open()`);
    window = await findActiveWindow('Fields');
});
afterEach(async () => {
    await program.ask('window.close()');
    await waitGone('Fields');
});

const pressOn = (name) => press(window, ...at[name]);
const focusIs = (name) => program.becomes('window.getFocus()', name);
const valueIs = (name, value) => program.becomes(`window.form.${name}`, value);

async function enter(name) {
    await pressOn(name);
    await focusIs(name);
}

/** Where something is shown as wrong, null where nothing is. */
const marks = () => findColour(window, 500, 620, warning);
const leaveFirst = () => program.ask("window.form.who = 'Ann'"); // which the user leaves with the first click
const marked = (isRight) => until(async () => isRight(await marks()), 10000);
const isIn = (area, top) => area !== null && area.top >= top && area.bottom < top + 40;

test('maxlength counts what the user sees and cuts off what is pasted', async () => {
    await enter('who');
    await type('abcdef');
    await valueIs('who', 'abcd');
    await keys('Home', 'x', 'End', 'BackSpace', 'z');
    await valueIs('who', 'abcz');
    await keys('ctrl+z', 'ctrl+z');
    await valueIs('who', 'abcd');
    await program.ask("window.form.who = '1234567'"); // script may
    await keys('End', 'x');
    await valueIs('who', '1234567');
    await keys('BackSpace');
    await valueIs('who', '123456');
    await program.ask("tarn.clipboard.writeText('e\\u0301\\u{1f1e9}\\u{1f1ea}cdef')");
    await keys('ctrl+a', 'Delete', 'ctrl+v');
    await valueIs('who', 'e\u0301\u{1f1e9}\u{1f1ea}cd');
    await enter('notes');
    await type('ab');
    await keys('Return');
    await type('cd');
    await valueIs('notes', 'ab\nc');
    await keys('ctrl+a', 'ctrl+v');
    await valueIs('notes', 'e\u0301\u{1f1e9}\u{1f1ea}cd');
});

test('what can only be read takes no input', async () => {
    await enter('fixed');
    await type('x');
    await enter('who');
    await type('y');
    await valueIs('who', 'y');
    assert.equal(await program.ask('window.form.fixed'), 'fixed');
});

test('a search field is cleared by its button, a password is shown by its', async () => {
    await enter('search');
    await pressOn('clear');
    await valueIs('search', '');
    const letters = () => picture(window, 103, 168, 22, 24); // not those at the cursor
    const dots = await letters();
    await pressOn('eye');
    await until(async () => await letters() !== dots);
    await pressOn('eye');
    await until(async () => await letters() === dots);
    assert.equal(await program.ask('window.form.password'), 'secret');
});

test('a file is chosen with the dialog of the desktop', async () => {
    const file = path.join(scratch, 'chosen.txt');
    fs.writeFileSync(file, '');
    await program.ask(`window.form.file = ${JSON.stringify(file.replace('chosen', 'other'))}`);
    await pressOn('folder');
    const dialog = await findWindow('Open.*');
    await xdotool('windowfocus', '--sync', dialog);
    await type('chosen.txt');
    await keys('Return');
    await valueIs('file', file);
});

test('a field offers what completes it, and Enter takes that', async () => {
    await enter('town');
    await type('er');
    await program.called([['onTown', 'town'], ['onTown', 'town']]);
    await keys('Down', 'Down', 'Return');
    await valueIs('town', 'Bern');
    await focusIs('town');
});

test('a label gives its control the focus, checks a box and chooses a radio button', async () => {
    await press(window, ...at.zipLabel);
    await focusIs('zip');
    await keys('alt+n');
    await focusIs('who');
    await press(window, 140, 380); // I agree
    await valueIs('agree', 'yes');
    await keys('alt+a');
    await valueIs('agree', null);
    await press(window, 140, 420);
    await program.becomes("window.control('size').isChecked()", true);
});

test('a field is marked when the user has left it and not before, and no more when it is right', async () => {
    await leaveFirst();
    assert.equal(await marks(), null);
    await enter('zip');
    await type('12x');
    await valueIs('zip', '12x');
    assert.equal(await marks(), null);
    await enter('town');
    await marked((area) => isIn(area, 40));
    await enter('zip');
    await keys('End', 'BackSpace');
    await marked((area) => area === null);
    await keys('x');
    await marked((area) => isIn(area, 40));
    await program.ask("window.form.zip = '7'");
    await marked((area) => area === null);
});

test('a form is sent only when it is right, and the first wrong field has the focus then', async () => {
    assert.equal(await program.ask('window.form.valid'), false);
    await pressOn('send');
    await focusIs('who');
    await marked((area) => area !== null && area.top < 40 && area.bottom > 400);
    assert.deepEqual(await program.ask('calls'), []);
    await pressOn('draft');
    await program.called([['onDraft', 'draft']]);
    await program.ask("Object.assign(window.form, { who: 'Ann', agree: true }); window.control('size').check()");
    await marked((area) => area === null);
    assert.equal(await program.ask('window.form.valid'), true);
    await program.ask("window.control('who').value = ''; window.control('who').disable()");
    assert.equal(await program.ask('window.form.valid'), true); // nobody could fill it in
    await pressOn('send');
    await program.called([['onSend', 'send']], 1);
});

test('in a handler the form says whether it is right now', async () => {
    await program.ask(`window.onDraft = ({ currentForm: form }) => { calls.push(form.valid);
        for (const [name, value] of [['who', 'A'], ['agree', 'yes']]) window.control(name).value = value;
        window.control('size').check();
        calls.push(form.valid); }`);
    await pressOn('draft');
    await program.becomes('calls', [false, true]);
});
