'use strict';
// The keyboard alone: the needle, the curve and a drawing.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const file = path.join(os.tmpdir(), `instruments-${process.pid}.png`);
after(() => fs.rmSync(file, { force: true }));

test('all three are used, and the program tells what became of them', async () => {
    const program = await launch(path.join(__dirname, 'app.js'));
    const w = await program.window('Instruments');
    const seenAfter = async (keys) => { await w.press(keys); return fs.readFileSync(await w.screenshot(file)).toString('base64'); };
    await w.press('PgUp, PgUp, Up, Left, Right, Right'); // the gauge is the first stop
    const still = await seenAfter('Tab'); // the chart
    assert.notEqual(await seenAfter('Right, Right'), still, 'the value under the line');
    await w.press('Tab, Return'); // Run
    const one = await seenAfter('Shift+Tab');
    for (const end = Date.now() + 3000; Date.now() < end && one === fs.readFileSync(await w.screenshot(file)).toString('base64'););
    assert.notEqual(one, fs.readFileSync(file).toString('base64'), 'it moves');
    await w.press('Tab, Tab, Return'); // Pause
    const empty = await seenAfter('Tab'); // the board
    const drawn = await seenAfter('Space, Right, Right, Down, Space, Right');
    assert.notEqual(drawn, empty);
    await seenAfter('Tab, Return'); // Wipe
    await w.press('Shift+Tab, 3, Space, Down, Down, Space, Right, Space, Up, Space');
    await w.press('Tab, Tab, Return'); // Done
    assert.deepEqual([await program.exit, program.stdout, program.stderr],
        [{ code: 0, signal: null }, 'The gauge is at 60, and 2 strokes are on the board.\n', '']);
});
