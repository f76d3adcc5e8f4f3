'use strict';
// The keyboard alone: a folder is installed; an installation is stopped, which leaves nothing behind.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'installer-'));
after(() => fs.rmSync(folder, { recursive: true }));
const source = path.join(folder, 'source');
fs.mkdirSync(path.join(source, 'deep'), { recursive: true });
for (let i = 0; i < 40; ++i) fs.writeFileSync(path.join(source, i % 2 ? 'deep' : '', `${i}.txt`), String(i));
const start = (target) => launch(path.join(__dirname, 'app.js'), { args: [path.join(folder, target), source] });

test('files are copied where one says, once', async () => {
    const program = await start('there');
    const w = await program.window('Installation');
    await w.press('Ctrl+A');
    await w.type(source);
    await w.press('Tab, Tab, Space');
    await (await program.dialog()).press('Return'); // there is such a folder already
    await w.press('Shift+Tab, Shift+Tab, Ctrl+A');
    await w.type(path.join(folder, 'a', 'b'));
    await w.press('Tab, Tab, Space');
    assert.match(await w.text('step'), /Done\.\n40 files are in /);
    assert.equal((await w.find('cancel'))?.text, 'Close');
    assert.equal(fs.readFileSync(path.join(folder, 'a', 'b', 'deep', '7.txt'), 'utf8'), '7');
    await w.press('Escape');
    assert.deepEqual([await program.exit, program.stdout, program.stderr], [{ code: 0, signal: null }, '40 files installed\n', '']);
});

test('Escape stops the copying, when one is sure', async () => {
    const program = await start('not-there');
    const w = await program.window('Installation');
    w.press('Tab, Tab, Space', { timeout: 300 }).catch(() => {}); // waits until all is copied, unless it is stopped
    await w.press('Escape');
    const question = await program.dialog();
    await question.press('Return');
    for (const end = Date.now() + 5000; Date.now() < end && !/Nothing/.test(await w.text('step'));) await w.idle();
    assert.equal(await w.text('step'), 'Nothing was installed.');
    assert.equal(fs.existsSync(path.join(folder, 'not-there')), false);
    await w.press('Escape');
    assert.deepEqual([await program.exit, program.stdout], [{ code: 0, signal: null }, 'nothing installed\n']);
});
