'use strict';
// window.print(): the desktop's dialog, used by the keyboard; without a printer it prints into a file.

const assert = require('node:assert/strict');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { findActiveWindow, keys, type, waitGone } = require('./desktop.js');
const { scratch, sleep } = require('./helpers.js');
const { Program } = require('./program.js');

fs.writeFileSync(path.join(scratch, 'sheet.html'), `<html><head><title>Sheet</title></head><body width="420" height="160" valign="top" scrolling="yes">
<input type="range" name="scrolled" min="0" max="9"><select size="3" name="list"><option value="a" selected>First<option value="b">Second</select>
<textarea name="area" width="200" height="60">Some text</textarea>
${Array.from({ length: 120 }, (_, i) => `<p>Line ${i + 1} <input type="checkbox" checked></p>`).join('')}</body></html>`);

let program;
let shown; // its number on the display

before(async () => {
    // No printers: what is configured on the machine does not matter.
    program = await Program.start('let window, got;', undefined, { CUPS_SERVER: '/nowhere' });
    await program.ask("window = new tarn.GuiWindow('sheet.html'); window.open()");
    shown = await findActiveWindow('Sheet');
});
after(async () => {
    await program.ask('window.close()');
    await program.end();
});

const start = () => program.ask('got = undefined; void window.print().then((value) => { got = [value]; }, (error) => { got = String(error); })');

test('the user does not notice that a page is saved', async () => {
    await program.ask('window.control("scrolled").value = 5; window.zoom = 1.25');
    const look = () => execFileSync('import', ['-silent', '-window', shown, '-format', '%#', 'info:-'], { encoding: 'utf8' });
    let seen = look();
    for (let last = ''; last !== seen;) {
        last = seen;
        await sleep(300);
        seen = look();
    }
    await program.ask(`void window.savePdf(${JSON.stringify(path.join(scratch, 'open.pdf'))}).then(() => { got = 'saved'; })`);
    await program.becomes('got', 'saved');
    await sleep(300);
    assert.equal(look(), seen);
    await program.ask('window.zoom = 1');
});

test('Escape cancels: false', async () => {
    await start();
    const dialog = await findActiveWindow('Print');
    if (process.env.TARN_PICTURES) {
        execFileSync('import', ['-window', dialog, path.join(process.env.TARN_PICTURES, 'print.png')]);
    }
    await keys('Escape');
    await program.becomes('got', [false]);
    await waitGone('Print');
});

test('printed into a file: true, and the file has the whole page', async () => {
    const file = path.join(scratch, 'printed.pdf');
    await start();
    await findActiveWindow('Print');
    await keys('alt+f', 'ctrl+a'); // "Output file:"
    await type(file);
    await keys('Return');
    await program.becomes('got', [true]);
    const text = execFileSync('pdftotext', ['-layout', file, '-'], { encoding: 'utf8' });
    assert.deepEqual(text.match(/Line \d+/g), Array.from({ length: 120 }, (_, i) => `Line ${i + 1}`));
});

test('a window that is closed under its dialog answers false', async () => {
    await start();
    await findActiveWindow('Print');
    await program.ask('window.close()');
    await program.becomes('got', [false]);
    await waitGone('Print');
    await program.ask('window.open()');
    await findActiveWindow('Sheet');
});

test('without the library it is told in one line', async () => {
    const other = await Program.start('let window, got;', undefined, { TARN_PRINT: '/nowhere/libtarn-print.so' });
    await other.ask("window = new tarn.GuiWindow('sheet.html'); void window.print().catch((error) => { got = String(error); })");
    await other.becomes("got?.startsWith('Error: GuiWindow.print(): /nowhere/libtarn-print.so: ') && !got.includes('\\n')", true);
    await other.end();
});

test('a window without a page has nothing to print', async () => {
    await program.ask('void new tarn.GuiWindow().print().catch((error) => { got = String(error); })');
    await program.becomes('got', 'Error: GuiWindow.print(): the window has no page');
});
