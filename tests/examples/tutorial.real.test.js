'use strict';
// The programs of the tutorial, as they stand there, used as each chapter says.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { afterEach, test } = require('node:test');
const { packageFolder, scratch } = require('../node/helpers.js');
const { launch } = require(path.join(packageFolder, 'test.js'));

const folder = path.join(__dirname, '..', '..', 'docs', 'tutorial');
let app;

/** Writes the files of a chapter: each block that follows the file's name in a line, and is named nowhere else. */
function writeFiles(chapter) {
    const text = fs.readFileSync(path.join(folder, chapter), 'utf8');
    const blocks = [...text.matchAll(/`([\w.]+\.(?:html|mjs))`[^`]*\n\n```\w+\n([^]*?)\n```/g)];
    const home = path.join(scratch, path.basename(chapter, '.md'));
    fs.mkdirSync(path.join(home, 'node_modules'), { recursive: true });
    fs.symlinkSync(packageFolder, path.join(home, 'node_modules', 'tarn-gui'));
    blocks.forEach(([, name, content]) => fs.writeFileSync(path.join(home, name), `${content}\n`));
    return { home, names: blocks.map(([, name]) => name) };
}

async function start(chapter, program, names, args = []) {
    const files = writeFiles(chapter);
    assert.deepEqual(files.names, names);
    app = await launch(path.join(files.home, program), { args });
    return app.window();
}

const ends = async (stdout) => assert.deepEqual([await app.exit, app.stdout, app.stderr], [{ code: 0, signal: null }, stdout, '']);

afterEach(() => app?.kill());

test('there are seven chapters, each with a number, and links that lead somewhere', () => {
    const names = fs.readdirSync(folder).sort();
    assert.deepEqual(names.map((name) => name[0]), ['1', '2', '3', '4', '5', '6', '7']);
    for (const name of names) {
        const text = fs.readFileSync(path.join(folder, name), 'utf8');
        assert.match(text, new RegExp(`^# ${name[0]}\\. `));
        for (const [, link] of text.matchAll(/\]\((?!https?:)([^)#]+)/g)) {
            assert.ok(fs.existsSync(path.join(folder, link)), `${name}: ${link}`);
        }
    }
});

test('1: a window, and its answer', async () => {
    const w = await start('1-a-window.md', 'hello.mjs', ['hello.html', 'hello.mjs']);
    await w.click({ link: 'go on' });
    await ends('yes\n');
});

test('3: a form', async () => {
    const w = await start('3-a-form.md', 'add.mjs', ['add.html', 'add.mjs']);
    await w.type('Invisible Cities');
    await w.type('pages', '165');
    await w.press('Return');
    await ends('Invisible Cities, 165 pages\n');
});

test('4: a list', async () => {
    const w = await start('4-a-list.md', 'books.mjs', ['books.html', 'books.mjs']);
    const read = async () => (await w.rows('books')).map(({ texts }) => texts[2]);
    assert.deepEqual([await w.text('count'), await read()], ['3 books', ['yes', '', '']]);
    assert.equal((await w.find('remove')).enabled, false);
    await w.select('books', 'cities');
    await w.press('Return');
    assert.deepEqual(await read(), ['yes', 'yes', '']);
    await w.click('remove');
    assert.deepEqual([await w.text('count'), await read()], ['2 books', ['yes', '']]);
    await w.close();
    await ends('');
});

test('5: menus and dialogs', async () => {
    const file = path.join(scratch, 'a note.txt');
    const w = await start('5-menus-and-dialogs.md', 'note.mjs', ['note.html', 'note.mjs'], [file]);
    await w.type('text', 'milk');
    assert.equal(await w.text('status'), 'changed');
    await w.press('Ctrl+S');
    assert.deepEqual([fs.readFileSync(file, 'utf8'), await w.title()], ['milk', 'a note.txt - Note']);
    await w.type('text', 'milk and tea');
    await w.menu('File', 'Quit');
    await (await app.dialog()).click('Cancel');
    assert.equal(await w.value('text'), 'milk and tea');
    await w.press('Ctrl+S');
    await w.close();
    await ends('');
});

test('6: work that takes time', async () => {
    const w = await start('6-work-that-takes-time.md', 'count.mjs', ['count.html', 'count.mjs']);
    await w.press('Tab');
    await w.click('start', { timeout: 10000 });
    assert.deepEqual([await w.text('said'), (await w.find('stop')).enabled], ['100 of 100', false]);
    await w.close();
    await ends('');
});

test('7: the test of chapter 3 passes', async () => {
    const { home } = writeFiles('7-test-inspect-ship.md');
    const { home: form } = { home: path.join(scratch, '3-a-form') };
    fs.copyFileSync(path.join(form, 'add.html'), path.join(home, 'add.html'));
    fs.copyFileSync(path.join(form, 'add.mjs'), path.join(home, 'add.mjs'));
    app = undefined;
    const { spawnSync } = require('node:child_process');
    const env = { ...process.env, NODE_TEST_CONTEXT: '' };
    delete env.NODE_TEST_CONTEXT;
    const { status, stdout } = spawnSync(process.execPath, ['--test', path.join(home, 'add.test.mjs')], { env, encoding: 'utf8' });
    assert.equal(status, 0, stdout);
    assert.match(stdout, /pass 1\b/);
});
