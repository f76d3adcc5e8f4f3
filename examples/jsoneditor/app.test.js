'use strict';
// The JSON editor, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

async function open(t, content) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-jsoneditor-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'a.json');
    fs.writeFileSync(file, JSON.stringify(content));
    const app = await launch(path.join(__dirname, 'app.js'), { args: [file] });
    return { app, folder, w: await app.window('a.json - JSON editor'), saved: () => JSON.parse(fs.readFileSync(file, 'utf8')) };
}

test('names and values are changed in their places, and saved', async (t) => {
    const { app, saved, w } = await open(t, { title: 'Lakes', list: [1, { deep: true }], end: null });
    assert.deepEqual((await w.rows('tree')).map(({ texts }) => texts[0]), ['a.json', 'title', 'list', '0', '1', 'deep', 'end']);
    await w.press('Down, F2, Tab'); // the value of "title"
    await w.type('Ponds & "pools"');
    await w.press('Enter');
    assert.equal(await w.title(), '*a.json - JSON editor');
    await w.press('F2'); // its name
    await w.type('name');
    await w.press('Enter');
    await w.press('Down, Down, F2, Tab');
    await w.type('[2, 3]');
    await w.press('Enter, F2');
    await w.type('nine');
    await w.press('Enter'); // entries of an array have no names
    await w.press('End, F2');
    await w.type('list');
    await w.press('Enter'); // there is one of that name
    assert.equal(await w.text('status'), 'document / end');
    await w.press('Ctrl+S');
    assert.equal(await w.title(), 'a.json - JSON editor');
    assert.equal(JSON.stringify(saved()), JSON.stringify({ name: 'Ponds & "pools"', list: [[2, 3], { deep: true }], end: null }));
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});

test('entries are added and removed; changes are not lost without a question', async (t) => {
    const { app, folder, saved, w } = await open(t, { list: [1, 2, 3], far: {} });
    await w.press('Down, Insert'); // at the end of the list
    assert.equal(await w.text('status'), 'document / list / 3');
    await w.press('F2, Tab');
    await w.type('12.5');
    await w.press('Enter, Up, Up, Ctrl+Delete'); // the second of the list goes
    await w.press('End, Insert, Insert, Ctrl+S');
    assert.deepEqual(saved(), { list: [1, 3, 12.5], far: { name: null, "name'": null } });
    await w.press('Home, Ctrl+Delete'); // the document itself stays
    assert.equal((await w.rows('tree')).length, 8);

    await w.press('Down, Ctrl+Delete');
    assert.equal(await w.title(), '*a.json - JSON editor');
    await w.press('Ctrl+Q');
    await (await app.dialog()).press('Escape');
    await w.press('Ctrl+N');
    await (await app.dialog()).press('Enter');
    await w.idle();
    assert.equal(await w.title(), 'new - JSON editor');
    await w.press('Insert, Ctrl+S');
    const dialog = await app.dialog();
    await dialog.type(path.join(folder, 'b.json'));
    await dialog.press('Enter');
    await w.idle();
    assert.equal(await w.title(), 'b.json - JSON editor');
    assert.equal(fs.readFileSync(path.join(folder, 'b.json'), 'utf8'), '{\n  "name": null\n}\n');
    assert.deepEqual(Object.keys(saved()), ['list', 'far'], 'the other one was not saved');

    await w.press('Ctrl+O');
    await (await app.dialog()).type(path.join(folder, 'a.json'));
    await (await app.dialog()).press('Enter');
    await w.idle();
    assert.equal(await w.title(), 'a.json - JSON editor');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
