'use strict';
// Links on a display, clicked with the mouse: which handler is called with which arguments and before which other, what
// becomes of percent codes, where files go, bookmarks, and the events of the pointer.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, test } = require('node:test');
const { findActiveWindow, findColour, pixel, press, waitForPixel, waitGone, xdotool } = require('./desktop.js');
const { scratch, until } = require('./helpers.js');
const { Program } = require('./program.js');

const size = [600, 300];
const [red, green, blue, yellow, plain] = ['#A01010', '#10A010', '#3050D0', '#D0C010', '#F0F0F0'];
const linkColours = ['#2030C0', '#10C0C0']; // as it is, and under the pointer

const write = (name, colour, content) => fs.writeFileSync(path.join(scratch, name), `<html><head><title>Links</title></head>
    <body width="${size[0]}" height="${size[1]}" valign="top" bgcolor="${colour}" link="${linkColours[0]}"
    alink="${linkColours[1]}">${content}</body></html>`);
const link = (attributes) => `<font size="7"><b><a ${attributes}>MMM</a></b></font>`;
const href = (target) => link(`href="${target}"`);

for (const [name, colour] of [['red.html', red], ['green.html', green], ['blue.html', blue], ['100%.html', blue], ['a b.html', blue]]) {
    write(name, colour, '');
}
fs.writeFileSync(path.join(scratch, 'part.html'), `<html><body bgcolor="${blue}"></body></html>`);

let program;
let window;

before(async () => { program = await Program.start('let window;'); });
after(() => program.end(['onNobody', 'onpick', 'toString'].map((name) => `tarn: no handler ${name} for event://${name} in ${scratch}/links.html:3${
    name === 'onpick' ? '; did you mean onPick?' : ''}\n`).join('')));
afterEach(async () => {
    await program.ask('window.close()');
    await waitGone('Links');
});

/** Opens a page with this content; `window.log` lists handlers that were called. */
async function open(content, handlers = '') {
    write('links.html', plain, content);
    await xdotool('mousemove', 1270, 1010); // a pointer over the window would be an event of its own
    await program.ask(`calls.length = forms.length = 0; window = new tarn.GuiWindow('links.html'); ${handlers}; window.open()`);
    window = await findActiveWindow('Links');
}

const place = (colour) => findColour(window, ...size, colour);

/** Goes over the link until it answers with its other colour. */
async function hoverLink() {
    let area = null;
    await until(async () => { area = await place(linkColours[0]) ?? await place(linkColours[1]); return area; }, 20000);
    const [x, y] = [Math.round((area.left + area.right) / 2), Math.round((area.top + area.bottom) / 2)];
    let step = 0;
    await until(async () => {
        await xdotool('mousemove', '--window', window, x + (step ^= 1), y);
        return place(linkColours[1]);
    }, 20000);
    return [x, y];
}

/** Clicks the only link. */
async function clickLink() {
    await press(window, ...await hoverLink());
}

const shows = (x, y, colour) => waitForPixel(window, x, y, colour);

// --- links to handlers ---

const events = [
    ['event://onPick', ['onPick']],
    ['event://onPick/3/red', ['onPick', '3', 'red']],
    ['event://onPick\\3\\red', ['onPick', '3', 'red']],
    ['event://onPick/a\\b/', ['onPick', 'a', 'b']],
    ['event://onPick//b', ['onPick', '', 'b']],
    ['event://on%50ick/a%20b/%c3', ['onPick', 'a b', '\u00c3']],
    ['event://onPick/100%/%zz/%4', ['onPick', '100%', '%zz', '%4']],
    ['event://onPick/%2541', ['onPick', '%41']],
    ['event://on%20Pick', ['on Pick']],
    ['{left}event://onPick/1', ['onPick', '1']],
];

test('a link calls the handler that it names with its pieces, decoded, whatever separates them', async () => {
    await open('', "record(window, ['onPick', 'on Pick'])");
    for (const [target, [name, ...args]] of events) {
        write('links.html', plain, href(target));
        await program.ask("calls.length = 0; window.load('links.html')");
        await clickLink();
        await program.called([[name, null, ...args]]);
    }
});

test('links to handlers that nobody has do nothing', async () => {
    await open('', "record(window, ['onPick'])");
    for (const target of ['event://onNobody', 'event://', 'event://onpick', 'event:///onPick', 'event://toString']) {
        write('links.html', plain, `${href(target)}<input type="button" name="b" onclick="event://onPick" width="100" height="30">`);
        await program.ask("calls.length = 0; window.load('links.html')");
        await clickLink();
        await program.ask("window.setFocus('b')");
        await program.becomes('window.getFocus()', 'b');
        await xdotool('key', 'space');
        await program.called([['onPick', 'b']]); // the first call that there was
        assert.equal(await pixel(window, 590, 290), plain, target);
    }
});

test("a control's own handler comes before the page's", async () => {
    await open('<input type="button" name="b" value="b" onclick="event://onPick/1" width="100" height="40">', `
        record(window, ['onPick'], { label: () => 'page' }); record(window.control('b'), ['onPick'], { label: () => 'own' })`);
    await press(window, 50, 20);
    await program.called([['own', 'b', '1']]);
    await program.ask("delete window.control('b').onPick");
    await press(window, 50, 20);
    await program.called([['page', 'b', '1']], 1);
});

test('handlers of classes are found, those of every object are not', async () => {
    await open(href('event://onPick/1'), `
        window = new (class extends tarn.GuiWindow { onPick(session, arg) { calls.push(['class', arg, this === window]); } })('links.html')`);
    await clickLink();
    await program.called([['class', '1', true]]);
});

// --- links to files ---

/** Three frames, "left" with the link, "middle" and "right"; what they show. */
async function openFrames(content, handlers) {
    write('left.html', yellow, content);
    await open('<frameset cols="200,200,200"><frame name="left" src="left.html"><frame name="middle" src="green.html">'
        + '<frame name="right" src="green.html"></frameset>', handlers);
}

async function framesShow(...colours) {
    for (const [i, colour] of colours.entries()) {
        await shows(200 * i + 190, 290, colour);
    }
}

const targets = [
    ['a name, as an attribute', link('href="red.html" target="middle"'), [yellow, red, green]],
    ['a name in braces', href('{right}red.html'), [yellow, green, red]],
    ['a name in other letters', href('{MIDDLE}red.html'), [yellow, red, green]],
    ['none', href('red.html'), [red, green, green]],
    ['empty braces', href('{}red.html'), [red, green, green]],
    ['_self', href('{_self}red.html'), [red, green, green]],
    ['a name that nobody has', href('{nobody}red.html'), [red, green, green]],
    ['_parent, in a frame with a name', href('{_parent}red.html'), [red, green, green]],
    ['_top', link('href="red.html" target="_top"'), [red, red, red]],
    ['percent codes', href('%7Bm%69ddle%7dr%65d.html'), [yellow, red, green]],
    ['a broken percent code', href('{middle}100%.html'), [yellow, blue, green]],
    ['a blank as a percent code', href('{middle}a%20b.html'), [yellow, blue, green]],
    ['the reply of a handler', href('{middle}event://onReply/red.html'), [yellow, red, green]],
    ['the reply of a handler without a target', href('event://onReply/red.html'), [red, green, green]],
    ['the later reply of a handler', href('{right}event://onLater/red.html'), [yellow, green, red]],
];

for (const [name, content, colours] of targets) {
    test(`where a file goes: ${name}`, async () => {
        await openFrames(content, `
            window.onReply = (session, file) => file;
            window.onLater = async (session, file) => { await new Promise((go) => setTimeout(go, 20)); return file; }`);
        await framesShow(yellow, green, green);
        await clickLink();
        await framesShow(...colours);
    });
}

test('_parent is the nearest element around the link that has a name', async () => {
    await openFrames(`<table name="box" width="150" height="100" cellspacing="0" cellpadding="0"><tr><td width="150" height="100"
        bgcolor="${green}">${href('{_parent}part.html')}</td></tr></table>`);
    await clickLink();
    await shows(100, 5, blue);
    await framesShow(yellow, green, green);
});

test('what a handler returns besides the name of a file is followed nowhere', async () => {
    const replies = "let replies = ['', 7, null, true, {}, ['red.html']]";
    const act = '{ act: () => replies.shift() }';
    await openFrames(href('{middle}event://onReply'),
        `${replies}; record(window, ['onReply'], ${act}); window.left = () => replies.length`);
    for (let i = 0; i < 6; ++i) {
        await clickLink();
        await program.called([['onReply', null]], i);
    }
    await framesShow(yellow, green, green);
});

test('a file that does not exist is named, and the page stays', async () => {
    const other = await Program.start(`const window = new tarn.GuiWindow('links.html');`);
    await open(href('gone.html'));
    await program.ask('window.close()');
    await waitGone('Links');
    await other.ask("window.load('links.html'); window.open()");
    window = await findActiveWindow('Links');
    await clickLink();
    await shows(590, 290, plain);
    await other.ask('window.close()');
    await other.end(`guiHtml::loadFile() - failed to load file ${path.join(scratch, 'gone.html')}\n`);
});

// --- bookmarks ---

const far = `<table cellspacing="0" cellpadding="0"><tr><td width="400" height="900"></td></tr><tr><td width="400"
    height="200" valign="top" bgcolor="${blue}"><a name="far">x</a></td></tr><tr><td width="400" height="900"></td></tr></table>`;

test('a bookmark scrolls its place to the top', async () => {
    await open(href('#far') + far, "window.setSizePolicy('SCROLL')");
    await shows(300, 100, plain);
    await clickLink();
    await shows(300, 30, blue);
    await shows(300, 180, blue);
});

test('a file with a bookmark is loaded and scrolled', async () => {
    write('far.html', green, far);
    await open(href('far.html#far'), "window.setSizePolicy('SCROLL')");
    await clickLink();
    await shows(300, 30, blue);
});

test('a bookmark that the page does not have leaves it where it is', async () => {
    await open(href('far.html#nowhere'), "window.setSizePolicy('SCROLL')");
    write('far.html', green, far);
    await clickLink();
    await shows(300, 2, green);
});

// --- low-level events ---

/** In capitals, which makes no difference to the window; the pointer itself calls handlers in the letters of the table. */
const lowLevel = ['ECREATE', 'EDESTROY', 'EPAINT', 'EMOUSEMOVE', 'EMOUSEOVER', 'EMOUSEOUT', 'EMOUSEDOWN', 'EMOUSEUP'];

/** Handlers that note the values of the form when they begin, and end when they are told to. */
const waiting = (names) => `globalThis.begun = []; globalThis.ends = [];
    for (const name of ${JSON.stringify(names)}) {
        window[name] = async () => {
            begun.push({ ...tarn.session.currentForm });
            await new Promise((end) => ends.push(end));
            calls.push(['done']);
        };
    }`;
const pageOf = (name) => `${href(`event://${name}`)}<input type="text" name="field" value="v" width="100" height="30"><br>
    <table name="wide" width="100%"><tr><td>x</td></tr></table>`;

test('the eight low-level events leave the window to its user, and see the form as it is', async () => {
    await open('', waiting(lowLevel));
    for (const name of lowLevel) {
        write('links.html', plain, pageOf(name));
        await program.ask("begun.length = ends.length = 0; window.load('links.html')");
        await clickLink();
        await program.becomes('begun.length', 1);
        await clickLink();
        await program.becomes(`['${name}', ...begun]`, [name, { field: 'v' }, { field: 'v' }]); // the first one still runs
        await program.ask('ends.forEach((end) => end())');
    }
});

test('any other event takes the input away until its handler is done, and has the values', async () => {
    await open(pageOf('eMouseMoved'), waiting(['eMouseMoved']));
    const at = await hoverLink();
    await press(window, ...at);
    await program.becomes('begun', [{ field: 'v' }]);
    await press(window, ...at);
    await press(window, ...at);
    await xdotool('windowsize', window, 700, 300);
    await program.becomes("window.control('wide').width > 650", true); // so the two clicks before it have come, too
    assert.equal(await program.ask('begun.length'), 1);
    await program.ask('ends.forEach((end) => end())');
    await program.called([['done']]);
    await clickLink();
    await program.becomes('begun.length', 2); // the first click since, and no other
    await program.ask('ends.forEach((end) => end())');
});

const cells = `<table cellspacing="0" cellpadding="0"><tr><td width="200" height="200" bgcolor="${green}" onmouseover="event://onOn/1"
    onmouseout="event://onOff/1" onmousedown="event://onDown/1" onmouseup="event://onUp/1"></td><td width="200" height="200"
    bgcolor="${blue}" onmouseover="event://eMouseOver"></td></tr></table>`;

test('the pointer over an element: its own links, or the events by their names', async () => {
    await open(cells, "record(window, ['onOn', 'onOff', 'onDown', 'onUp', 'eMouseMove', 'eMouseOver', 'eMouseOut', 'eMouseDown', 'eMouseUp'])");
    const moved = 'calls.filter(([name]) => name !== "eMouseMove").map(([name, , ...args]) => [name, ...args].join(" "))';
    await shows(100, 100, green);
    const steps = [
        [['mousemove', '--window', window, 100, 100], ['onOn 1']],
        [['mousedown', 1], ['onDown 1']],
        [['mouseup', 1], ['onUp 1']],
        [['mousemove', '--window', window, 300, 100], ['onOff 1', 'eMouseOver']],
        [['mousedown', 1], ['eMouseDown']],
        [['mouseup', 1], ['eMouseUp']],
        [['mousemove', '--window', window, 300, 280], ['eMouseOut']],
    ];
    const wanted = [];
    for (const [action, names] of steps) {
        await xdotool(...action);
        wanted.push(...names);
        await program.becomes(moved, wanted);
        await program.called((await program.ask('calls')), 0);
    }
    assert.ok(await program.ask('calls.some(([name]) => name === "eMouseMove")'));
});
