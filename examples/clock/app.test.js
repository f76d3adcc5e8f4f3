'use strict';
// The keyboard alone; and that the program sleeps when nothing changes.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { setTimeout: sleep } = require('node:timers/promises');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'clock-'));
after(() => fs.rmSync(folder, { recursive: true }));

/** Loaded in front of the program: prints how long its timers wait. Those of the driver are shorter, or intervals. */
const spy = path.join(folder, 'spy.js');
fs.writeFileSync(spy, `const plain = setTimeout;
    global.setTimeout = (work, ms, ...rest) => { if (ms > 100) console.log(ms > 1001 ? 'long' : 'short'); return plain(work, ms, ...rest); };`);

const start = (time) => launch(path.join(__dirname, 'app.js'), { args: [time], env: { TZ: 'UTC' }, execArgv: ['--require', spy] });
const count = (program, word) => program.stdout.split('\n').filter((line) => line === word).length;

test('it runs, stands still at Space, and goes on', async () => {
    const program = await start('2026-03-15T22:09:40Z');
    const w = await program.window('22:09 - Clock');
    assert.match(await w.text('date'), /^22:09:4\d, Sunday, March 15$/);
    assert.deepEqual([await w.text('westName'), await w.text('eastName')], ['Lima, 17:09', 'Tokyo, 7:09']);
    const first = await w.text('date');
    await sleep(1100);
    const second = await w.text('date');
    assert.notEqual(second, first);
    await w.press('Space');
    const stopped = await w.text('date');
    await sleep(1100);
    assert.equal(await w.text('date'), stopped);
    await w.press('Space');
    assert.notEqual(await w.text('date'), stopped);
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('without seconds there is one timer until the next minute, which comes', async () => {
    const program = await start('2026-03-15T10:09:57Z');
    const w = await program.window('10:09 - Clock');
    await w.press('S');
    assert.equal(await w.text('date'), '10:09, Sunday, March 15');
    const [short, long] = [count(program, 'short'), count(program, 'long')];
    for (const end = Date.now() + 5000; Date.now() < end && await w.title() !== '10:10 - Clock';) await sleep(50);
    assert.equal(await w.title(), '10:10 - Clock');
    assert.equal(await w.text('date'), '10:10, Sunday, March 15');
    assert.deepEqual([count(program, 'short') - short, count(program, 'long') - long], [0, 1]);
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});
