'use strict';
// Links on a display, clicked with the mouse: which handler is called with which arguments, what becomes of percent codes,
// links that lead nowhere, and bookmarks.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { click, findWindow, pixel } = require('./desktop.js');
const { runScript, scratch, sleep, until } = require('./helpers.js');

const colours = { plain: '#208040', blue: '#2030C0' };
const write = (name, text) => fs.writeFileSync(path.join(scratch, name), text);
const body = (colour, content, size = '') => `<html><head><title>Links</title></head><body ${size} bgcolor="${colours[colour]}">${content}</body></html>`;
const link = (href) => `<font size="7"><b><a href="${href}">MMMMMMMM</a></b></font>`;
const main = (content) => body('plain', content, 'width="400" height="200"');

/** Opens `links.html` in a program that has `window` and runs `source`; acts on its window and ends it. */
async function withWindow(source, act) {
    const program = { text: () => '', child: null };
    program.ended = runScript(`
        const window = new tarn.GuiWindow('links.html');
        const print = (name) => (source, ...args) => { console.log(name, JSON.stringify(args)); };
        ${source}
        window.open();
        process.on('SIGUSR2', () => window.close());
        console.log('ready');`, { onOutput: (text, child) => { program.text = () => text; program.child = child; } });
    program.prints = (text) => until(() => program.text().includes(text), 15000);
    const id = await findWindow('Links');
    await act(id, program);
    program.child.kill('SIGUSR2');
    const { stdout, stderr, code } = await program.ended;
    return { lines: stdout.split('\n').filter((line) => line !== '' && line !== 'ready'), stderr, code };
}

/** Waits until the point of the window has the colour. */
async function shows(window, x, y, colour) {
    let seen;
    for (const end = Date.now() + 10000; Date.now() < end; await sleep(50)) {
        seen = await pixel(window, x, y);
        if (seen === colours[colour]) {
            return;
        }
    }
    assert.equal(seen, colours[colour], `at ${x}, ${y}`);
}

const events = [
    ['event://onPick', 'onPick []'],
    ['event://onPick/3/red', 'onPick ["3","red"]'],
    ['event://onPick\\3\\red', 'onPick ["3","red"]'],
    ['event://onPick/a\\b/', 'onPick ["a","b"]'],
    ['event://on%50ick/a%20b/%c3', 'onPick ["a b","\u00c3"]'],
    ['event://onPick/100%/%zz/%4', 'onPick ["100%","%zz","%4"]'],
    ['event://on%20Pick', 'on Pick []'],
];

for (const [href, line] of events) {
    test(`${href} calls ${line}`, async () => {
        write('links.html', main(link(href)));
        const { lines, stderr } = await withWindow("for (const name of ['onPick', 'on Pick']) window[name] = print(name);",
            async (window, program) => {
                await click(window, 60, 100);
                await program.prints(line);
            });
        assert.deepEqual([lines, stderr], [[line], '']);
    });
}

test('links to handlers that nobody has do nothing', async () => {
    write('links.html', main(link('event://onNobody') + '<br>' + link('event://')));
    const { lines, stderr } = await withWindow('', async (window) => {
        for (const y of [60, 130]) {
            await click(window, 60, y);
        }
        await sleep(300);
        await shows(window, 390, 190, 'plain');
    });
    assert.deepEqual([lines, stderr], [[], '']);
});

test('a bookmark scrolls its place to the top', async () => {
    const far = Array.from({ length: 60 }, (_, i) => `<br>line ${i}`).join('');
    write('links.html', main(`${link('#far')}${far}<table name="far" width="380" height="300" bgcolor="#2030C0"><tr><td>
        <a name="far">x</a></td></tr></table>${far}`));
    await withWindow("window.setSizePolicy('SCROLL');", async (window) => {
        await click(window, 60, 20);
        await shows(window, 350, 150, 'blue');
    });
});
