'use strict';
// The keyboard alone: each theme, a colour of one's own, the font, the size and the zoom; what is seen is compared with what was.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const file = path.join(os.tmpdir(), `looks-${process.pid}.png`);
const colors = (w) => Promise.all(['ground', 'text', 'link'].map((name) => w.value(name)));

test('themes, and colours that make a theme one\'s own', async () => {
    const program = await launch(app);
    const w = await program.window('Looks');
    assert.deepEqual([await w.value('theme'), await w.text('contrast'), (await w.find('ground'))?.enabled], ['desktop', 'the desktop\'s', false]);
    const seen = [];
    for (const [theme, ground] of [['light', '#FFFFFF'], ['dark', '#1B2129'], ['sepia', '#F6EDDC']]) {
        await w.press('Down');
        assert.deepEqual([await w.value('theme'), (await colors(w))[0].toUpperCase()], [theme, ground]);
        seen.push(fs.readFileSync(await w.screenshot(file)).toString('base64'));
    }
    fs.rmSync(file);
    assert.equal(new Set(seen).size, 3, 'each looks otherwise');
    assert.equal(await w.text('contrast'), '5.8 : 1\ngood');
    await w.press('Tab, Space'); // the colour of the ground, by the desktop's dialog
    const dialog = await program.dialog();
    await dialog.press('Alt+H, Ctrl+A');
    await dialog.type('#000000');
    await dialog.press('Enter');
    assert.deepEqual([await w.value('theme'), (await colors(w))[0], await w.text('contrast')], ['own', '#000000', '1.9 : 1\ntoo little']);
    await w.press('Alt+T, Home');
    assert.equal(await w.text('contrast'), 'the desktop\'s');
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('font and size; the zoom has its ends; the link in the text is followed', async () => {
    const program = await launch(app);
    const w = await program.window('Looks');
    await w.press('Alt+F, End, Alt+S, End');
    assert.deepEqual([await w.value('face'), await w.value('size')], ['DejaVu Sans Mono', '5']);
    await w.press('Ctrl+-');
    assert.equal(await w.text('status'), '75 %');
    await w.press('Ctrl+-, Ctrl+-');
    assert.equal(await w.text('status'), '50 %');
    await w.press('Ctrl+0');
    assert.equal(await w.text('status'), '100 %');
    await w.press('Ctrl++');
    assert.equal(await w.text('status'), '125 %');
    await w.press('Tab, Enter');
    assert.equal(await w.text('status'), 'Two short ones, then a long one');
    assert.equal(await program.close(), 0);
});
