'use strict';
// The inspector, used beside the program that it looks into.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { afterEach, test } = require('node:test');
const { packageFolder, runScript, scratch, until } = require('./helpers.js');
const { launch } = require(path.join(packageFolder, 'test.js'));
const { describe, place, title, whyHeight, whyWidth } = require(path.join(packageFolder, 'inspector', 'words.js'));
const { EventLog, brief } = require(path.join(packageFolder, 'inspector', 'eventlog.js'));

const file = path.join(scratch, 'inspected.js');
const pageFile = path.join(scratch, 'inspected.html');
const inspected = { env: { TARN_INSPECT: '1' } };
let app;

const content = `<form action="event://onSend">
<p>Some <b>bold</b> words</p>
<table width="100%"><tr>
<td name="narrow" width="50%"><input type="text" name="who" value="Ann"></td>
<td name="rest"><input type="button" name="go" value="Go" onclick="event://onGo/3"></td>
</tr></table></form>
<table><tr><td name="said">-</td></tr></table>`;

/** The program's window "Main"; `script` is what else it does. */
function program(script = '', body = content) {
    fs.writeFileSync(pageFile, `<html><head><title>Main</title></head>\n<body width="300" height="200">\n${body}\n</body></html>`);
    fs.writeFileSync(file, `'use strict';
const tarn = require(${JSON.stringify(packageFolder)});
class Main extends tarn.GuiWindow {
    onGo(session, number) { this.control('said').setText('went ' + number); }
}
const window = new Main(${JSON.stringify(pageFile)});
window.open();
${script}`);
    return file;
}

/** The program's window and the inspector of it. */
async function open(script, body) {
    app = await launch(program(script, body), inspected);
    const w = await app.window('Main');
    await w.press('Ctrl+Shift+I');
    return { w, inspector: await app.window('Inspector - Main') };
}

const texts = async (inspector) => (await inspector.rows('tree')).map((row) => row.texts.join(' '));
const rowOf = async (inspector, text) => (await inspector.rows('tree')).find((row) => row.texts[0] === text);
const selected = async (inspector) => (await inspector.rows('tree')).filter((row) => row.selected).map((row) => row.texts[0]);

/** Waits until a text of the inspector fits. */
async function reads(inspector, name, pattern) {
    let now;
    await until(async () => pattern.test(now = await inspector.text(name))).catch(() => assert.match(now, pattern));
}

/** Waits until a window is closed. */
const goes = (window) => until(() => window.text('status', { timeout: 20 }).then(() => false, () => true));

afterEach(() => app?.kill());

test('a program that is not to be inspected has no inspector, and loads nothing of it', async () => {
    app = await launch(program('process.on("exit", () => console.log(Object.keys(require.cache).some((name) => name.includes("inspector"))));'));
    const w = await app.window('Main');
    await w.press('Ctrl+Shift+I');
    await assert.rejects(app.window('Inspector - Main', { timeout: 300 }), /no window has the title "Inspector - Main"/);
    await app.close();
    assert.equal(app.stdout, 'false\n');
});

test('the tree has each element with its tag, its name and its line', async () => {
    const { inspector } = await open();
    assert.deepEqual(await texts(inspector), ['page ', 'form 3', '“Some bold words” 4', 'table 5', 'td narrow 6', 'input who 6', 'td rest 7',
        'input go 7', 'table 9', 'td said 9', '“-” 9']);
    const rows = await inspector.rows('tree');
    const parents = rows.map((row) => rows.find(({ value }) => value === row.parent)?.texts[0] ?? null);
    assert.deepEqual(parents, [null, 'page', 'form', 'form', 'table', 'td narrow', 'table', 'td rest', 'page', 'table', 'td said']);
});

test('what is selected in the tree is described', async () => {
    const { inspector } = await open();
    await inspector.click({ row: (await rowOf(inspector, 'td narrow')).value, in: 'tree' });
    await reads(inspector, 'about', /^td narrow/);
    const about = await inspector.text('about');
    assert.match(about, /In the window\t\d+ × \d+ at \d+, \d+/);
    assert.match(about, /In the text\tinspected\.html:6/);
    assert.match(about, /Asked for\t50 %; needs \d+ px\nGot\t\d+ px\nWhy\t50 % of the \d+ px in the element around/);
    assert.match(about, /name\tnarrow\nwidth\t50%/);
    await inspector.click({ row: (await rowOf(inspector, 'input go')).value, in: 'tree' });
    await reads(inspector, 'about', /Handlers\nonclick\tevent:\/\/onGo\/3/);
});

test('the element under the pointer is marked and selected, until a click picks it', async () => {
    const { w, inspector } = await open();
    const before = await w.screenshot(path.join(scratch, 'unmarked.png'));
    const plain = fs.readFileSync(before);
    await w.hover('who');
    await until(async () => (await selected(inspector))[0] === 'input who');
    assert.ok(!plain.equals(fs.readFileSync(await w.screenshot(path.join(scratch, 'marked.png')))));
    await w.click('go');
    await until(async () => (await selected(inspector))[0] === 'input go');
    assert.equal(await w.text('said'), '-', 'a click that picks is not the program\'s');
    assert.match(await inspector.text('status'), /Ctrl\+Shift\+I picks/);
    await w.hover('who');
    await w.click('go');
    assert.equal(await w.text('said'), 'went 3', 'the next one is');
    assert.deepEqual(await selected(inspector), ['input go']);
    await w.press('Ctrl+Shift+I');
    await reads(inspector, 'status', /^Click an element/);
    await w.hover('who');
    await until(async () => (await selected(inspector))[0] === 'input who');
    await w.press('Escape');
    await reads(inspector, 'status', /picks/);
    assert.equal(await w.title(), 'Main', 'Escape has only ended the picking');
});

test('a click that picks does not move the keyboard', async () => {
    const { w, inspector } = await open('window.setFocus("first");', '<input type="text" name="first"><input type="text" name="second">');
    await w.click('second');
    await until(async () => (await selected(inspector))[0] === 'input second');
    await w.type('x');
    assert.deepEqual([await w.value('first'), await w.value('second')], ['x', '']);
});

test('handlers are logged, the last one first, with what they got and how long they took', async () => {
    const { w, inspector } = await open('Main.prototype.onSlow = function () { for (const end = Date.now() + 30; Date.now() < end;); throw new Error("oh"); }; tarn.onError = () => {};',
        `${content}<input type="button" name="slow" value="Slow" onclick="event://onSlow">`);
    await w.press('Escape');
    await w.click('go');
    await w.click('slow');
    await inspector.click({ tab: 'Events' });
    await until(async () => (await inspector.rows('log')).length > 1);
    const [slow, go] = (await inspector.rows('log')).map((row) => row.texts);
    assert.deepEqual([slow[1], slow[3], go[1], go[2]], ['Main.onSlow', 'threw Error: oh', 'Main.onGo', '\'3\'']);
    assert.match(go[0], /^\d\d:\d\d:\d\d\.\d\d\d$/);
    assert.match(go[3], /^\d+\.\d ms$/);
});

test('the values of the form are shown as they are typed', async () => {
    const { w, inspector } = await open();
    await w.press('Escape');
    await inspector.click({ tab: 'Form' });
    const value = async () => (await inspector.rows('values')).find((row) => row.texts[0] === 'who')?.texts;
    await until(async () => (await value())?.[1] === '"Ann"');
    await w.type('who', 'Bob');
    await until(async () => (await value())?.[1] === '"Bob"');
    assert.equal((await value())[2], 'field');
});

test('the tree follows what the program does to its page', async () => {
    const { w, inspector } = await open();
    await w.press('Escape');
    await w.click('go');
    await until(async () => (await texts(inspector)).some((text) => text.includes('went 3')));
    assert.equal((await rowOf(inspector, '“went 3”')).texts[1], '1', 'the line in the text that the program gave');
});

test('a modal window can be inspected while it waits', async () => {
    app = await launch(program(`setImmediate(() => {
        const front = tarn.GuiWindow.from('<html><head><title>Front</title></head><body width="200" height="80"><input type="button" name="ok" value="OK"></body></html>');
        front.show();
    });`), inspected);
    const front = await app.window('Front');
    await front.press('Ctrl+Shift+I');
    const inspector = await app.window('Inspector - Front');
    await inspector.click({ row: (await rowOf(inspector, 'input ok')).value, in: 'tree' });
    await reads(inspector, 'about', /^input ok/);
});

test('another window is inspected instead, and the inspector goes with its window', async () => {
    const { w, inspector } = await open('const other = tarn.GuiWindow.from(\'<html><head><title>Other</title></head><body width="200" height="80">text</body></html>\'); other.open();');
    const other = await app.window('Other');
    await other.press('Ctrl+Shift+I');
    const second = await app.window('Inspector - Other');
    await goes(inspector);
    await other.close();
    await goes(second);
    assert.equal(await w.text('said'), '-');
    assert.equal(await app.close(), 0);
});

test('the program ends though its inspector is open', async () => {
    const { w } = await open();
    await w.close();
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});

test('without a display the program hears of it when it makes a window, as ever', async () => {
    const env = { TARN_INSPECT: '1', QT_QPA_PLATFORM: 'xcb', DISPLAY: '', WAYLAND_DISPLAY: '' };
    const { stdout, stderr, code } = await runScript('console.log("here"); new tarn.GuiWindow("none.html");', { env });
    assert.equal(stdout, 'here\n');
    assert.notEqual(code, 0);
    assert.match(stderr, /display/);
});

// ---- The words ----

const width = { asked: 0, askedUnit: 'none', least: 40, wanted: 90, wantedUnit: 'none', got: 90, isSpringy: false, room: 300 };
const height = { ...width, content: 90, isShared: false };

test('why an element is as wide as it is', () => {
    const why = (changes) => whyWidth({ ...width, ...changes });
    assert.equal(why({ room: undefined }), 'the window is as wide');
    assert.equal(why({}), 'as wide as its content');
    assert.equal(why({ got: 60 }), 'its content would like 90 px, but the row is too narrow for all; it needs 40 px');
    assert.equal(why({ got: 110 }), 'its content needs 40 px');
    assert.equal(why({ isSpringy: true }), 'springy: an equal part of what the row of 300 px has left; never less than 40 px, which its content needs');
    assert.equal(why({ wanted: 50, wantedUnit: 'percent', got: 150 }), '50 % of the 300 px in the element around');
    assert.equal(why({ wanted: 10, wantedUnit: 'percent', got: 40 }), '10 % of the 300 px in the element around would be 30 px, but its content needs 40 px');
    assert.equal(why({ asked: 90, askedUnit: 'pixels' }), 'asked for 90 px, and got them');
    assert.equal(why({ asked: 20, askedUnit: 'pixels', got: 40 }), 'asked for 20 px, but its content needs 40 px');
    assert.equal(why({ asked: 200, askedUnit: 'pixels', got: 150 }),
        'asked for 200 px, but the row is too narrow for all: this is its share, in proportion to what each lacks');
});

test('why an element is as high as it is', () => {
    const why = (changes) => whyHeight({ ...height, ...changes });
    assert.equal(why({ room: undefined }), 'the window is as high');
    assert.equal(why({}), 'as high as its content');
    assert.equal(why({ got: 60 }), 'cut off: its content needs 90 px');
    assert.equal(why({ got: 200 }), 'its content needs 90 px; it is as high as the row that it stands in');
    assert.equal(why({ got: 200, isSpringy: true, isShared: true }), 'springy: its content needs 90 px, the rest is its part of what the element around has left');
    assert.equal(why({ wanted: 50, wantedUnit: 'percent', got: 150 }), '50 % of the 300 px in the element around');
    assert.equal(why({ asked: 90, askedUnit: 'pixels' }), 'asked for 90 px, and got them');
    assert.equal(why({ asked: 30, askedUnit: 'pixels', got: 90 }), 'asked for 30 px; it needs 40 px, the row is higher');
    assert.equal(why({ asked: 30, askedUnit: 'pixels', got: 90, isSpringy: true }), 'asked for 30 px; springy: the rest is its part of what is left');
});

test('what elements are called, and where they stand', () => {
    assert.equal(title({ tag: 'td', kind: 'box', name: 'total' }), 'td total');
    assert.equal(title({ tag: 'p', kind: 'text', text: 'Some words' }), '“Some words”');
    assert.equal(title({ kind: 'control', name: 'part', isHidden: true }), 'control part (hidden)');
    assert.equal(place({ file: '/a/order.html', line: 7 }, '/a/order.html'), '7');
    assert.equal(place({ file: '/a/order.html', line: 7 }, '/a/other.html'), 'order.html:7');
    assert.equal(place({ line: 7 }), '7');
    assert.equal(place({}), '');
});

test('values in the log take one line, and the log has an end', () => {
    assert.equal(brief({ a: { b: 1 }, text: 'x' }), '{ a: [Object], text: \'x\' }');
    assert.equal(brief('x'.repeat(1000)).length, 85);
    assert.ok(brief(Array.from({ length: 5 }, () => 'y'.repeat(100))).length <= 120);
    const log = new EventLog();
    for (let i = 0; i < 600; ++i) {
        log.add({ self: null, name: `on${i}`, args: [null], ms: 1 });
    }
    assert.equal(log.entries.length, 500);
    assert.equal(log.entries[0].texts[1], '?.on599');
});

test('a description has its groups in order', () => {
    const node = { kind: 'box', tag: 'td', name: '', file: '', line: 0, attributes: [['onclick', 'event://x'], ['width', '5'], ['href', 'event://y']], place: [1, 2, 3, 4],
        width, height, border: 1, space: 2, divide: 3, alignX: 'left', alignY: 'top', scroll: { policy: 'yes', x: 5, y: 0, rangeX: 10, rangeY: 0 },
        colors: { text: { color: '#000000', isGiven: false }, link: { color: '#0000FF', isGiven: true }, background: { color: '#FFFFFF', isGiven: true } },
        font: { family: 'Sans', points: 10, isBold: true, isItalic: false }, isEnabled: false, isHidden: false };
    const groups = describe(node);
    assert.deepEqual(Object.keys(groups), ['Place', 'Handlers', 'Width', 'Height', 'Box', 'Look', 'Attributes']);
    assert.deepEqual(groups.Place, [['In the window', '3 × 4 at 1, 2'], ['In the text', 'made by the program']]);
    assert.deepEqual(groups.Handlers, [['onclick', 'event://x'], ['href', 'event://y']]);
    assert.deepEqual(groups.Attributes, [['width', '5']]);
    assert.deepEqual(groups.Box[3], ['Too much', 'gets scroll bars; scrolled 5 of 10 to the right']);
    assert.deepEqual(groups.Look, [['Colors', 'text the desktop\'s, links #0000FF, ground #FFFFFF'], ['Font', 'Sans, 10 pt, bold'], ['State', 'disabled, shown']]);
});
