'use strict';
// Typing while handlers work: what the user types into a field is there in the end, in order, however long handlers take.
// TARN_TYPED says how many letters are typed each time, TARN_TYPED_RUNS how often.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { findActiveWindow, keys, press, waitGone, xdotool } = require('./desktop.js');
const { scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

const letters = Number(process.env.TARN_TYPED ?? 120);
const runs = Number(process.env.TARN_TYPED_RUNS ?? 1);

const row = (height, content) => `<tr><td height="${height}">${content}</td></tr>`;
const field = (attributes) => `<input type="text" ${attributes} width="400" height="30">`;
const page = `<html><head><title>Typing</title></head><body width="500" height="400" valign="top"><table width="480" cellspacing="0"
cellpadding="0">
${row(40, field('name="line" onchange="event://onLine"'))}
${row(80, '<textarea name="area" onchange="event://onLine" width="400" height="70"></textarea>')}
${row(40, '<select name="combo" edit width="400" height="30"><option value="a">a</select>')}
${row(40, field('name="one"'))}
${row(40, field('name="two"'))}
${row(40, '<input type="checkbox" name="three" value="on" width="20" height="20">')}
${row(40, '<input type="button" name="press" value="Press" onclick="event://onPress" width="100" height="30">')}
${row(60, '<object classid="checklist" name="tasks" onchange="event://onTask" width="200" height="50"><option value="t"></object>')}
</table></body></html>`;

const at = { line: [350, 20], area: [350, 80], combo: [300, 140], one: [350, 180], press: [50, 300] };

const source = `
let window, presses = 0, changes = 0, timer;
const work = (ms) => { for (const end = performance.now() + ms; performance.now() < end;) {} };
class Typing extends tarn.GuiWindow {
    onLine() {
        const { form } = this;
        work(50);
        ++changes;
        form.one = String(changes);
        form.two = form.line.length + ' letters';
        form.three = changes % 2 ? 'on' : null;
    }
    onTask() { work(50); }
    onPress() { ++presses; work(presses === 2 ? 2000 : 0); }
}
`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'typing.html'), page);
    program = await Program.start(source, 120000 + 2000 * letters * runs);
});
after(() => program.end());

async function withWindow(work) {
    await program.ask("window = new Typing('typing.html'); presses = changes = 0; window.open()");
    window = await findActiveWindow('Typing');
    try {
        await work();
    } finally {
        await program.ask('clearInterval(timer), window.close()');
        await waitGone('Typing');
    }
}

/** Random letters, so that one that is lost, doubled or out of its place shows. */
const randomLetters = (count) => Array.from({ length: count }, () => String.fromCharCode(97 + Math.floor(Math.random() * 26))).join('');

/** The values of the form, as a handler would see them. */
const valueOf = (name) => program.ask(`window.control('${name}').value`);

async function focusOn(name) {
    await press(window, ...at[name]);
    await program.becomes('window.getFocus()', name);
}

/** Waits while a number grows towards its end; on a busy machine what was typed arrives late. */
async function settles(number, end) {
    for (let seen = -1, now = await number(); now < end && now !== seen; now = await number()) {
        seen = now;
        await until(async () => await number() !== now, 20000).catch(() => {});
    }
}

for (const name of ['line', 'area', 'combo']) {
    for (const delay of [20, 60, 120]) {
        test(`letters typed into "${name}" every ${delay} ms while handlers work are all there, in order`, async () => {
            for (let run = 0; run < runs; ++run) {
                await withWindow(async () => {
                    const text = randomLetters(letters);
                    await focusOn(name);
                    if (name === 'combo') { // typing calls no handler of its own there
                        await keys('ctrl+a');
                        await program.ask(`let on = false; timer = setInterval(() => window.control('tasks').checkItem('t', on = !on), 70), 0`);
                    }
                    await xdotool('type', '--delay', delay, text);
                    await settles(async () => (await valueOf(name)).length, text.length);
                    assert.equal(await valueOf(name), text);
                });
            }
        });
    }
}

test('clicks and other keys while a handler works are not repeated behind it', async () => {
    await withWindow(async () => {
        await press(window, ...at.press);
        await until(async () => await program.ask('presses') === 1);
        await press(window, ...at.line);
        await program.becomes('window.getFocus()', 'line');
        await press(window, ...at.press);
        await sleep(100); // the handler works for two seconds
        for (let i = 0; i < 3; ++i) {
            await press(window, ...at.press);
        }
        await keys('Return', 'space');
        await program.becomes('presses', 2);
        await sleep(500);
        assert.equal(await program.ask('presses'), 2);
    });
});

test('what is typed behind Tab while a handler works goes to the next field', async () => {
    await withWindow(async () => {
        await press(window, ...at.area);
        await program.becomes('window.getFocus()', 'area');
        await press(window, ...at.one);
        await program.becomes('window.getFocus()', 'one');
        await program.ask("setTimeout(() => { window.control('tasks').checkItem('t'); }, 100), 0");
        await keys('x', 'Tab', 'y');
        await until(async () => await valueOf('two') === 'y');
        assert.deepEqual([await valueOf('one'), await valueOf('two')], ['x', 'y']);
    });
});
