'use strict';
// The colours, chosen by the keyboard alone.
const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');
const { fromHex, toHex, toHsv, toRgb } = require('./colors');

const partsOf = (hex) => fromHex(hex) ?? assert.fail(`${hex} is no colour`);

test('colours come back from either way of writing them', () => {
    for (const hex of ['#000000', '#FFFFFF', '#FF0000', '#00FF00', '#0000FF', '#808080', '#FFFF00', '#00FFFF', '#FF00FF']) {
        assert.equal(toHex(toRgb(toHsv(partsOf(hex)))), hex);
    }
    assert.deepEqual(toHsv(partsOf('#F08C00')), { Hue: 35, Saturation: 100, Value: 94 });
    assert.equal(toHex(partsOf('369')), '#336699');
    assert.equal(fromHex('#12'), null);
});

test('a colour by its hex digits, its parts and its swatches', async () => {
    const app = await launch(path.join(__dirname, 'app.js'));
    const w = await app.window('Colour');
    const parts = () => Promise.all(['Red', 'Green', 'Blue', 'Hue', 'Saturation', 'Value'].map((name) => w.value(name)));
    assert.deepEqual(await parts(), [47, 111, 176, 210, 73, 69]);

    await w.press('Alt+X');
    await w.type('#369'); // in place of what was selected with the field
    assert.deepEqual(await parts(), [51, 102, 153, 210, 67, 60]);
    assert.equal(await w.value('hex'), '#369');
    assert.equal(await w.text('sample'), '#336699');

    await w.press('Alt+S'); // all of it is selected
    await w.type('0');
    assert.deepEqual(await parts(), [153, 153, 153, 210, 0, 60], 'a gray keeps its hue');
    await w.press('Shift+Tab, Right, Right'); // the slider of the saturation
    assert.deepEqual(await parts(), [150, 151, 153, 210, 2, 60]);
    assert.equal(await w.value('hex'), '#969799');

    await w.press('Ctrl+D, Ctrl+Shift+C, Alt+X, Ctrl+V'); // kept, copied, and pasted over what the field has
    assert.equal(await w.value('hex'), '#969799');
    await w.press('Alt+V, Tab, Right, Right, Return'); // the swatches behind the last field
    assert.equal(await w.value('hex'), '#2F9E44');
    await w.press('Left, Delete, Return'); // the second one goes, the next one takes its place
    assert.equal(await w.value('hex'), '#2F9E44');

    await w.press('Ctrl+P');
    const dialog = await app.dialog();
    assert.match(await dialog.title(), /./);
    await dialog.press('Escape');
    assert.equal(await w.value('hex'), '#2F9E44');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
