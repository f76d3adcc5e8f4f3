'use strict';
// The keyboard alone: chapters are found, opened, followed and left; a page is written and seen.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { afterEach, test } = require('node:test');
const { launch } = require('../../host/node/test');
const { chapters, contents, exampleNames, read, search } = require('./book');

const app = path.join(__dirname, 'app.js');
let program;

async function open() {
    program = await launch(app);
    return program.window('The tarn handbook');
}

/** The text of the page on the right, behind that of the list. */
const page = (w) => w.text('page');

afterEach(() => program?.kill());

test('every chapter is a page without mistakes, with a title and a way on', async () => {
    const w = await open();
    assert.match(await page(w), /^Windows from a script/);
    await w.press('Ctrl+PgDown');
    const titles = [];
    for (let i = 0; i < chapters.length; ++i) {
        titles.push((await w.title()).replace(' - The tarn handbook', ''));
        assert.match(await page(w), new RegExp(i + 1 < chapters.length ? 'Next: ' : 'Before: '));
        await w.press('Ctrl+PgDown');
    }
    assert.deepEqual(titles, chapters.map((file) => read(file).title));
    assert.equal(await program.close(), 0);
    assert.equal(program.stderr, '', 'no page has a mistake');
});

test('a section is found by its words, and read', async () => {
    const w = await open();
    await w.press('Ctrl+K');
    await w.type('zebra row');
    const found = (await w.rows('contents')).map(({ texts }) => texts[0]);
    assert.ok(found.includes('Lists with columns (The page language)'), found.join('\n'));
    await w.press('Return');
    assert.equal(await w.title(), '4. A list - The tarn handbook');
    await w.press('Ctrl+K');
    await w.type('nothing like this is there');
    assert.deepEqual((await w.rows('contents')).map(({ texts }) => texts[0]), ['Nothing found']);
    await w.press('Ctrl+A, Backspace');
    assert.deepEqual((await w.rows('contents')).slice(0, 3).map(({ texts }) => texts[0]), ['Start', 'Try a page', 'Tutorial']);
});

test('chapters are chosen in the list, and gone back to', async () => {
    const w = await open();
    await w.press('Tab, Down, Down, Down, Down');
    assert.equal(await w.title(), '2. A page - The tarn handbook');
    await w.press('Alt+Left');
    assert.equal(await w.title(), '1. A window - The tarn handbook');
    await w.press('Alt+Right');
    assert.equal(await w.title(), '2. A page - The tarn handbook');
    await w.press('Alt+Home');
    assert.match(await page(w), /^Windows from a script/);
});

test('a page is tried out as it is written', async () => {
    const w = await open();
    await w.press('Ctrl+T');
    assert.match(await w.text('preview'), /Hello\nChange anything above/);
    await w.press('Ctrl+A');
    await w.type('<h1>Mine</h1><input type="button" name="mine" value="Press me">');
    assert.equal(await w.text('preview'), 'Mine');
    assert.equal((await w.find('mine'))?.text, 'Press me');
    await w.press('Ctrl+Q');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
});

test('a page of a chapter is tried out by its link', async () => {
    const w = await open();
    await w.press('Ctrl+PgDown, Ctrl+PgDown'); // the second chapter begins with a page
    await w.press('Tab, Tab, Tab, Return'); // from the search over the list and the chapter, which the keys scroll, to its first link
    assert.match(String(await w.value('markup')), /^<body valign="top" margin="12">\n<h2>Books<\/h2>/);
    assert.match(await w.text('preview'), /Three that are worth reading twice/);
});

test('the start page leads to every example there is', async () => {
    const w = await open();
    const text = await page(w);
    const folders = fs.readdirSync(path.join(__dirname, '..'), { withFileTypes: true }).filter((each) => each.isDirectory() && each.name !== 'recipes');
    for (const { name } of folders) {
        assert.match(text, new RegExp(`^.*\\b${name}: `, 'm'), `${name} stands in examples/README.md`);
    }
    assert.deepEqual(exampleNames().sort(), folders.map(({ name }) => name).sort());
});

test('all documents of the repository are chapters', () => {
    const docs = path.join(__dirname, '..', '..', 'docs');
    const names = fs.readdirSync(docs).filter((name) => name.endsWith('.md') && name !== 'README.md');
    assert.deepEqual(names.filter((name) => !chapters.includes(path.join(docs, name))), []);
    assert.equal(contents[0].chapters.length, 7);
    assert.ok(search('all tags and attributes')[0].heading.title === 'All tags and attributes');
});
