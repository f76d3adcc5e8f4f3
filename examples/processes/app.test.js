'use strict';
// The processes, found and sorted by the keyboard alone.
const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { setTimeout: sleep } = require('node:timers/promises');
const { launch } = require('../../host/node/test');

/** Waits, for 4 seconds at most, until the rows are so. */
async function rowsBecome(w, check) {
    for (let turn = 0; turn < 80; ++turn) {
        const rows = await w.rows('list');
        if (check(rows)) return rows;
        await sleep(50);
    }
    return assert.fail(`the rows are ${JSON.stringify((await w.rows('list')).slice(0, 5))}`);
}

test('a process comes, works, is found and goes', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-processes-'));
    const name = path.join(folder, 'odd) (name'); // brackets in names are what /proc is read wrongly for
    fs.copyFileSync(fs.realpathSync('/bin/sh'), name);
    fs.chmodSync(name, 0o755);
    const busy = spawn(name, ['-c', 'while :; do :; done'], { stdio: 'ignore' });
    t.after(() => {
        busy.kill('SIGKILL');
        fs.rmSync(folder, { recursive: true });
    });

    const app = await launch(path.join(__dirname, 'app.js'), { args: ['200'] });
    const w = await app.window('Processes');
    await w.type('odd) (n');
    const [row] = await rowsBecome(w, (rows) => rows.length === 1 && rows[0].texts[3] !== '');
    assert.deepEqual(row.texts.slice(0, 3), ['odd) (name', String(busy.pid), os.userInfo().username]);
    assert.ok(parseFloat(row.texts[3]) > 0.5, `it works all the time: ${row.texts[3]}`);
    assert.match(await w.text('status'), /^1 of \d+ processes$/);

    await w.press('Enter, Down'); // into the list
    busy.kill('SIGKILL');
    await rowsBecome(w, (rows) => rows.length === 0);

    await w.press('Ctrl+F');
    await w.press('Ctrl+A, Delete, Ctrl+2');
    const numbers = (rows) => rows.map(({ value }) => Number(value));
    const isSorted = (list, sign) => list.length > 1 && list.every((each, i) => i === 0 || sign * (each - list[i - 1]) > 0);
    assert.ok(isSorted(numbers(await w.rows('list')), 1));
    await w.press('Ctrl+2');
    assert.ok(isSorted(numbers(await w.rows('list')), -1), 'chosen again, the other way round');
    const own = (await w.rows('list')).find(({ value }) => Number(value) === app.pid);
    const memory = Number(/^VmRSS:\s+(\d+)/m.exec(fs.readFileSync(`/proc/${app.pid}/status`, 'utf8'))?.[1]) / 1024;
    assert.ok(Math.abs(Number(own?.texts[4]) - memory) < 40, `${own?.texts[4]} MB, and it has ${memory}`);

    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
