'use strict';
// A page as a screen reader has it: read, and used without eyes or hands, through the desktop's accessibility bus alone.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const { once } = require('node:events');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { createInterface } = require('node:readline');
const { Program } = require('./program.js');

/** How many valid and how many invalid questions are asked from outside. */
const questions = Number(process.env.TARN_READER_QUESTIONS ?? 2000);

const page = `<html><head><title>Order</title></head><body width="400" height="400" valign="top">
<h1>Tea</h1>
<p>Read <a href="event://onHelp/7">how it is made</a> first.</p>
<p><label for="who">Your name</label></p><input type="text" name="who" width="200" height="24">
<p><label for="kind">Kind</label></p><select name="kind"><option value="g">Green<option value="b">Black</select>
<p><input type="checkbox" name="milk"> with milk</p>
<input type="button" name="ok" value="Order" onclick="event://onOk">
</body></html>`;

const source = `
let window;
const seen = [];
class Order extends tarn.GuiWindow {
    onHelp(session, number) { seen.push(['help', number]); }
    onOk() { seen.push(['ok', { ...this.form }]); }
}
`;

let bus;
let launcher;
let reader;
let lines;
let program;

/** What the reader answers to a question. */
async function asks(...question) {
    reader.stdin.write(`${JSON.stringify(question)}\n`);
    const { answer, error } = JSON.parse((await lines.next()).value);
    assert.equal(error, undefined);
    return answer;
}

before(async () => {
    bus = spawn('dbus-daemon', ['--session', '--nofork', '--print-address'], { stdio: ['ignore', 'pipe', 'ignore'] });
    process.env.DBUS_SESSION_BUS_ADDRESS = String((await once(bus.stdout, 'data'))[0]).trim();
    delete process.env.NO_AT_BRIDGE;
    launcher = spawn('/usr/libexec/at-spi-bus-launcher', ['--launch-immediately'], { stdio: 'ignore' });
    program = await Program.start(source, 300000, { QT_LINUX_ACCESSIBILITY_ALWAYS_ON: '1' });
    await program.ask(`window = Order.from(${JSON.stringify(page)}); window.open()`);
    reader = spawn('/usr/bin/python3', [path.join(__dirname, 'reader.py')], { stdio: ['pipe', 'pipe', 'inherit'] });
    lines = createInterface({ input: reader.stdout })[Symbol.asyncIterator]();
});
after(async () => {
    await program.ask('window.close()');
    await program.end();
    reader.kill();
    launcher.kill();
    bus.kill();
});

test('headings, texts, links and fields are read in their order, under their names', async () => {
    const read = await asks('read', 'Order');
    assert.deepEqual(read, [
        'dialog "Order"',
        'document web "Order"',
        'heading (level 1) [Tea]',
        'paragraph [Read how it is made first.]',
        'link "how it is made"',
        'paragraph [Your name]',
        'text "Your name"',
        'paragraph [Kind]',
        'combo box "Green" (Kind)',
        'list',
        'list item "Green"',
        'list item "Black"',
        'check box "with milk"',
        'paragraph [with milk]',
        'push button "Order"',
    ]);
});

test('a link is followed', async () => {
    assert.equal(await asks('press', 'Order', 'link', 'how it is made'), true);
    await program.becomes('seen', [['help', '7']]);
});

test('a form is filled and sent', async () => {
    await program.ask('seen.length = 0');
    assert.equal(await asks('type_into', 'Order', 'Your name', 'Ann'), true);
    assert.equal(await asks('press', 'Order', 'check box', 'with milk'), true);
    await program.becomes('window.form.who', 'Ann');
    assert.equal(await asks('press', 'Order', 'push button', 'Order'), true);
    await program.becomes('seen.length', 1);
    assert.deepEqual(await program.ask('seen[0][1]'), { who: 'Ann', kind: 'g', milk: true });
});

test('questions about what is there and what is not harm nothing while the form is used', async () => {
    await program.ask('seen.length = 0');
    const asked = asks('ask', 'Order', questions);
    for (let i = 0; i < 20; ++i) {
        await program.ask(`window.form.who = 'Ann ${i}'; window.control('kind').value = '${i % 2 ? 'g' : 'b'}'`);
    }
    assert.deepEqual(await asked, [questions, questions]);
    assert.equal(await program.ask('window.form.who'), 'Ann 19');
    await asks('press', 'Order', 'push button', 'Order');
    await program.becomes('seen.length', 1);
});
