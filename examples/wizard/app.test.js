'use strict';
// The keyboard alone: a journey is planned, one is given up with Escape, one goes back a step.

const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const start = () => launch(path.join(__dirname, 'app.js'));

test('three steps, one of them taken back', async () => {
    const program = await start();
    const travels = await program.window('Travels');
    await travels.press('Tab, Return'); // Plan a journey
    const first = await program.window('Step 1 of 3');
    assert.match(await first.text(), /Where do you want to go\?/);
    await first.press('Tab, Tab, Tab, Return'); // Kyoto
    const second = await program.window('Step 2 of 3');
    assert.match(await second.text(), /Kyoto: in which season\?/);
    await second.press('Shift+Tab, Shift+Tab, Return'); // Back, which stands before Cancel
    await (await program.window('Step 1 of 3')).press('Tab, Return');
    await (await program.window('Step 2 of 3')).press('Tab, Tab, Tab, Return');
    const third = await program.window('Step 3 of 3');
    assert.match(await third.text(), /Lisbon in autumn\. Shall we\?/);
    await third.press('Tab, Return');
    assert.equal(await travels.text('journeys'), '1.\tLisbon in autumn\nAnywhere else?');
    await travels.press('Shift+Tab, Return'); // Quit
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, 'Planned: Lisbon in autumn.\n', '']);
});

test('Escape and Cancel give a journey up', async () => {
    const program = await start();
    const travels = await program.window('Travels');
    await travels.press('Tab, Return');
    await (await program.window('Step 1 of 3')).press('Escape');
    assert.equal(await travels.text('journeys'), 'Another time, then.');
    await travels.press('Return');
    await (await program.window('Step 1 of 3')).press('Shift+Tab, Return');
    assert.equal(await travels.text('journeys'), 'Another time, then.');
    await travels.press('Tab, Return');
    assert.deepEqual([await program.exit, program.stdout], [{ code: 0, signal: null }, 'Planned: nothing.\n']);
});
