'use strict';
// The test of a program: node --test. It needs no screen; on one, TARN_SLOW=300 shows what it does.
const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { drive, launch } = require('tarn-gui/test');
const { makeCounter } = require('./counter.js');

test('the counter counts from what the user types', async () => {
    const counter = await drive(makeCounter());
    await counter.type('count', '5');
    await counter.click('add');
    await counter.click('add');
    assert.equal(await counter.value('count'), '7');
    await counter.close();
});

test('the program prints the number', async () => {
    const program = await launch(path.join(__dirname, 'counter.js'));
    const counter = await program.window('Counter');
    await counter.click('+');
    await counter.click('done');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
    assert.equal(program.stdout, '1\n');
});
