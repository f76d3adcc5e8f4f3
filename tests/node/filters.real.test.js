'use strict';
// Content filters and includes through the interpreter: functions, promises, messages and handlers, with the real component
// off the screen. What came of a page is seen in its title.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, runScript, scratch } = require('./helpers.js');

const { GuiWindow } = require(packageFolder);

/** A page of this title in a file of this name; its full path. */
function page(name, title) {
    const file = path.join(scratch, name);
    fs.writeFileSync(file, `<html><head><title>${title}</title></head><body>${title}</body></html>`);
    return file;
}

/** The title of a page, loaded by a new window while these filters are registered. */
function titleOf(file, filters, Window = GuiWindow) {
    for (const [pattern, filter] of filters) GuiWindow.onLoad(pattern, filter);
    try {
        return new Window(file).getTitle();
    } finally {
        for (const [pattern] of filters) GuiWindow.onLoad(pattern);
    }
}

test('functions get the window and the text, one after the other', () => {
    const seen = [];
    const filter = (mark) => (window, text) => {
        seen.push(window instanceof GuiWindow);
        return text.replaceAll('mark', `${mark} mark`);
    };
    assert.equal(titleOf(page('mark.html', 'mark'), [['*', filter('one')], ['^mark', filter('two')]]), 'one two mark');
    assert.deepEqual(seen, [true, true]);
});

test('a filter may be asynchronous', () => {
    const file = page('async.html', 'slow');
    const filter = async (window, text) => {
        await new Promise((resolve) => { setTimeout(resolve, 20); });
        return text.replaceAll('slow', 'done');
    };
    assert.equal(titleOf(file, [['async', filter]]), 'done');
});

test('nothing, an empty text and other values leave the page as it is', () => {
    const file = page('same.html', 'same');
    for (const nothing of [undefined, null, '', 7, true, {}]) {
        assert.equal(titleOf(file, [['*', () => nothing]]), 'same');
    }
});

test('messages are looked up by their numbers', () => {
    const file = page('messages.html', '@1, @22 and @3');
    const texts = { AUTO1: 'one', AUTO22: 'twenty-two' };
    assert.equal(titleOf(file, [['*.html', { getString: (key) => texts[key] }]]), 'one, twenty-two and @3');
});

test('includes call the handlers of their window', () => {
    class Page extends GuiWindow {
        who(session, first, second) {
            return `${this instanceof Page} ${session !== null} ${first} ${second}`;
        }
    }
    const file = page('include.html', "<!--#exec cgi='event://who/a/b'-->");
    assert.equal(titleOf(file, [], Page), 'true true a b');
});

test('a filter may load another page meanwhile', () => {
    const inner = page('inner.html', 'inner');
    const file = page('outer.html', 'outer');
    const filter = (window, text) => text.replaceAll('outer', `outer, ${new GuiWindow(inner).getTitle()}`);
    assert.equal(titleOf(file, [['outer', filter]]), 'outer, inner');
});

test('a filter that throws is an uncaught error, and the page stays', async () => {
    page('thrown.html', 'stays');
    const { stdout, stderr } = await runScript(`
        process.on('uncaughtException', (error) => console.error('caught', error.message));
        tarn.GuiWindow.onLoad('*', () => { throw new Error('from the filter'); });
        console.log(new tarn.GuiWindow('thrown.html').getTitle());`);
    assert.equal(stdout, 'stays\n');
    assert.match(stderr, /caught from the filter/);
});
