'use strict';
// The pictures, gone through by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const svg = (width, height) => `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}"><rect width="100%" height="100%" fill="#2F9E44"/></svg>`;

test('next, previous, larger, smaller, another folder', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-imageviewer-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const sizes = { 'photo 2.svg': [1200, 400], 'photo 10.svg': [100, 50], 'photo 1.svg': [64, 64] };
    for (const [name, [width, height]] of Object.entries(sizes)) fs.writeFileSync(path.join(folder, name), svg(width, height));
    fs.writeFileSync(path.join(folder, 'notes.txt'), 'no picture');
    fs.writeFileSync(path.join(folder, 'torn.png'), 'no picture either');

    const app = await launch(path.join(__dirname, 'app.js'), { args: [folder] });
    const w = await app.window('photo 1.svg - Pictures');
    assert.deepEqual((await w.rows('files')).map(({ value }) => value), ['photo 1.svg', 'photo 2.svg', 'photo 10.svg', 'torn.png']);
    assert.equal(await w.text('status'), '1 of 4    64 x 64 pixels    100 %');

    await w.press('Down');
    assert.equal(await w.title(), 'photo 2.svg - Pictures');
    assert.match(await w.text('status'), /^2 of 4 {4}1200 x 400 pixels {4}[45]\d %$/, 'all of a large picture is seen');
    await w.press('Ctrl+1');
    assert.match(await w.text('status'), /100 %$/);
    await w.press('Ctrl++, Ctrl++');
    assert.match(await w.text('status'), /200 %$/);
    await w.press('Alt+Right');
    assert.equal(await w.text('status'), '3 of 4    100 x 50 pixels    200 %', 'the next one is as large');
    await w.press('Ctrl+-, Ctrl+-, Ctrl+-');
    assert.match(await w.text('status'), /75 %$/);
    await w.press('Ctrl+0, Alt+Left, Alt+Left, Alt+Left');
    assert.equal(await w.text('status'), '1 of 4    64 x 64 pixels    100 %');
    assert.equal((await w.rows('files'))[0].selected, true);

    await w.press('End');
    assert.equal(await w.text('status'), '4 of 4    no picture');
    assert.match(app.stderr, /torn\.png/);

    fs.mkdirSync(path.join(folder, 'empty'));
    await w.press('Ctrl+O');
    const dialog = await app.dialog();
    await dialog.type(path.join(folder, 'empty'));
    await dialog.press('Enter');
    assert.match(await w.text('pane'), /^There are no pictures in .*empty\.$/);
    await w.press('Ctrl++, Alt+Right, Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
});
