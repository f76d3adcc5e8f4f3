'use strict';
// The keyboard alone: messages are found as one types, read one after the other, up to the hundred thousandth.

const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');
const { makeMessage, summaries } = require('./messages');

const many = 100_000;

test('messages are found and read', async () => {
    const program = await launch(path.join(__dirname, 'app.js'));
    const w = await program.window('Mail');
    assert.equal(await w.text('status'), '100,000 of 100,000 messages');
    const { from, subject, lines } = makeMessage(0);
    await w.press('Return, Space'); // into the list, and its first row
    assert.equal(await w.title(), `${subject} - Mail`);
    const pane = await w.text('pane');
    assert.ok(pane.startsWith(subject) && pane.includes(from) && pane.includes(lines[0]), pane);
    await w.press('Down');
    assert.equal(await w.title(), `${makeMessage(1).subject} - Mail`);
    await w.press('End');
    assert.equal(await w.title(), `${makeMessage(many - 1).subject} - Mail`);

    const [sender] = from.toLowerCase().split(' ');
    const [word = ''] = subject.toLowerCase().match(/[a-z]{4,}/) ?? [];
    const found = summaries(many).filter((each) => each.includes(sender) && each.includes(word)).length;
    assert.ok(found > 0 && found < many);
    await w.press('Ctrl+F');
    await w.type(`${word} ${sender}`);
    assert.equal(await w.text('status'), `${found.toLocaleString('en')} of 100,000 messages`);
    await w.press('Return, Home, Space');
    const read = await w.title();
    assert.ok(read.toLowerCase().includes(word) || (await w.text('pane')).toLowerCase().includes(word), read);
    await w.press('Ctrl+F, Ctrl+A');
    await w.type('nothing like this');
    assert.equal(await w.text('status'), '0 of 100,000 messages');
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});
