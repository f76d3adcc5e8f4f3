'use strict';
// The keyboard alone: Tab goes from link to link, Return follows one.

const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

test('links greet, and leave', async () => {
    const program = await launch(path.join(__dirname, 'app.js'));
    const w = await program.window('Hello');
    await w.press('Tab, Return');
    assert.equal(await w.title(), 'Hello, world');
    await w.press('Tab, Return');
    assert.equal(await w.title(), 'Hello, you');
    await w.press('Shift+Tab, Return');
    assert.equal(await w.title(), 'Hello, world');
    await w.press('Tab, Tab, Return');
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, 'goodbye\n', '']);
});
