'use strict';
// The keyboard alone: every kind of thing that is in the gallery, in the order of the Tab key. The status line says what it tells.

const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');

/** A way through the gallery: [keys, what is typed, what the status line says then, null for what it said before]. */
const fields = [
    ['', 'Ada', 'who: Ada'], ['Tab, End', '3', 'code: AB-123'], ['Tab', 'tea', 'find: tea'], ['Tab', 'word', 'secret: word'],
    ['Tab', '/tmp/a', 'path: /tmp/a'], ['Tab, Up', '', 'count: 4'], ['Tab, Up', '', 'day: 2026-03-02'], ['Tab, Up', '', 'hour: 09:31'],
    ['Tab, Tab, Tab', 'New', 'notes: NewSeveral\nlines'], // past the colour and what can only be read
    ['Tab, Right', '', '3 stars'], ['Left, Left', '', '1 stars'],
];
const choices = [
    ['Tab, Space', '', 'milk: null'], ['Tab, Space', '', 'sugar: yes'], ['Tab, Left', '', 'size: small'], ['Tab, Down', '', 'drink: coffee'],
    ['Tab, Ctrl+A', 'Rome', 'town: Rome'], ['Tab, Down', '', 'shade: g'], ['Tab, Space, Down, Space', '', null], ['Tab, Right', '', 'level: 41'],
    ['Tab, Space', '', 'clicked 1 times'], ['Tab, Space', '', 'sent, and all is right'],
    ['Tab, Return', '', 'link: text'], ['Tab, Return', '', 'area: square'], ['Tab, Return', '', 'area: circle'], ['Tab, Return', '', 'link: picture'],
];
const lists = [
    ['Tab, Down', '', 'files: photo'], ['Return', '', 'opened photo'], ['Tab, Down', '', 'places: bern'], ['End, Right', '', 'places: asia'],
    ['Tab, Right', '', 'parts: 179,160'], ['Tab, Down, Space', '', 'tasks: dry'], ['Tab, Right', '', 'part: two'], ['Tab, Space', '', 'inTwo: yes'],
    ['Alt+O', '', 'part: one'], ['', '5', 'inOne: 5'], ['Tab, Space', '', 'more: true'],
];

async function go(w, way) {
    for (const [keys, text, words] of way) {
        if (keys !== '') await w.press(keys);
        if (text !== '') await w.type(text);
        if (words !== null) assert.equal(await w.text('status'), words, `${keys} ${text}`);
    }
}

test('fields, choices and lists', async () => {
    const program = await launch(app);
    const w = await program.window('Gallery');
    await go(w, fields);
    await go(w, choices);
    await go(w, lists);
    await w.press('Ctrl+P');
    const { stars, tasks, towns, done, clicks, more } = JSON.parse(program.stdout);
    assert.deepEqual({ stars, tasks, towns, done, clicks, more },
        { stars: 1, tasks: ['wash', 'dry', 'fold'], towns: ['Bern', 'Lyon'], done: 0.41, clicks: 1, more: true });
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('menus, the tool bar, labels, what is wrong, and a colour', async () => {
    const program = await launch(app);
    const w = await program.window('Gallery');
    await w.press('Ctrl+S');
    assert.equal(await w.text('status'), 'menu: save');
    await w.press('Alt+V, R');
    assert.equal(await w.text('status'), 'menu: ruler');
    await w.press('Alt+V, Z, L');
    assert.equal(await w.text('status'), 'menu: larger');
    await w.press('F1');
    await (await program.dialog()).press('Return');
    await w.press('Shift+F10, P'); // the page's, in a button; a field has its own
    await w.press('Escape');
    await w.press('Shift+Tab, Right, Right, Space'); // the tool bar is before the first field
    assert.equal(await w.text('status'), 'link: help');
    await w.press('Shift+F10, P');
    assert.equal(await w.text('status'), 'menu: paste');
    await w.press('Alt+M');
    assert.equal(await w.text('status'), 'milk: null');
    await w.press('Alt+C, Ctrl+A');
    await w.type('wrong');
    await w.press('Alt+E, Tab, Tab, Space'); // Send, behind the level and Click
    assert.equal(await w.text('status'), 'code: wrong', 'nothing was sent');
    await w.press('Tab, Tab, Tab, Tab, Tab, Tab, Tab, Tab, Space'); // from the name, which is missing, to the colour
    const dialog = await program.dialog();
    await dialog.press('Alt+H, Ctrl+A');
    await dialog.type('#00ff00');
    await dialog.press('Return');
    assert.equal(await w.text('status'), 'paint: #00FF00');
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});
