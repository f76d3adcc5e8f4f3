'use strict';
// The keyboard alone: lines are found, levels left out, the rest copied; a line that is added comes, unless nobody follows.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const file = path.join(fs.mkdtempSync(path.join(os.tmpdir(), 'log-')), 'a.log');
after(() => fs.rmSync(path.dirname(file), { recursive: true }));

/** Waits for this many lines: the file is watched, and what is written is told some time later. */
async function becomes(w, words) {
    for (const end = Date.now() + 5000; Date.now() < end && await w.text('status') !== words;) await w.idle();
    assert.equal(await w.text('status'), words);
}

test('a log is filtered, copied and followed', async () => {
    fs.copyFileSync(path.join(__dirname, 'example.log'), file);
    const program = await launch(path.join(__dirname, 'app.js'), { args: [file] });
    const w = await program.window('a.log');
    assert.equal(await w.text('status'), '60 of 60 lines');
    const written = fs.readFileSync(file, 'utf8').trimEnd().split('\n');
    const orders = written.filter((line) => /order/i.test(line));
    await w.type('Order');
    assert.equal(await w.text('status'), `${orders.length} of 60 lines`);
    await w.press('Tab, Tab, Tab, Space'); // Info is off
    const without = orders.filter((line) => !line.includes(' INFO '));
    assert.ok(without.length < orders.length && without.length > 0);
    assert.equal(await w.text('status'), `${without.length} of 60 lines`);
    assert.equal((await w.text('lines')).split('\n').filter(Boolean).length, without.length);

    fs.appendFileSync(file, '2026-03-01 10:00:00 ERROR orders: a new <one>\n');
    await becomes(w, `${without.length + 1} of 61 lines`);
    assert.match(await w.text('lines'), /^2026-03-01 10:00:00\terror\torders: a new <one>/, 'the newest is the first');
    await w.press('Tab, Tab, Space'); // past Follow: Copy
    await w.press('Shift+Tab, Space'); // Follow is off
    fs.appendFileSync(file, '2026-03-01 10:00:01 ERROR orders: nobody looks\n');
    await new Promise((resolve) => { setTimeout(resolve, 300); });
    assert.equal(await w.text('status'), `${without.length + 1} of 61 lines`);
    await w.press('Tab, Tab, Ctrl+A, Ctrl+V'); // back in the field: what was copied
    assert.match(String(await w.value('find')), /orders: a new <one>/);
    assert.deepEqual([await program.close(), program.stdout, program.stderr], [0, '61 lines read\n', '']);
});
