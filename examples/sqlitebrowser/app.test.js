'use strict';
// The SQLite browser, used by the keyboard alone; with a Node.js that has no SQLite, the line in which it says so.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const [major, minor] = process.versions.node.split('.').map(Number);
const hasSqlite = major > 23 || (major === 23 && minor >= 11) || (major === 22 && minor >= 16);
const program = path.join(__dirname, 'app.js');

async function findsRows(t) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-sqlite-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const { DatabaseSync } = require(/** @type {any} */ ('node:sqlite'));
    const file = path.join(folder, 'a.db');
    const database = new DatabaseSync(file);
    database.exec(`create table birds (name text, grams real, photo blob); create view large as select name from birds where grams > 100;
        insert into birds values ('wren', 9.5, x'0102'), ('crow', 510, null), ('it''s "x"; <b>', 120, null)`);
    database.close();
    fs.writeFileSync(path.join(folder, 'b.db'), 'no database at all, however long this text may be');

    const app = await launch(program, { args: [file] });
    const w = await app.window('a.db - SQLite');
    /** The rows, gone through one by one, as the line below shows each. */
    const seen = async (count) => {
        const rows = [];
        assert.equal(await w.text('status'), `${count} rows`);
        await w.press('Ctrl+R');
        for (let row = 0; row < count; ++row) {
            await w.press(row === 0 ? 'Home, Space' : 'Down');
            rows.push(await w.text('status'));
        }
        return rows;
    };
    assert.deepEqual((await w.rows('tables')).map((row) => row.texts[0]), ['birds', 'large (view)']);
    assert.deepEqual(await seen(3), ['wren  |  9.5  |  2 bytes', 'crow  |  510  |  NULL', 'it\'s "x"; <b>  |  120  |  NULL']);
    await w.press('Ctrl+T, Down');
    assert.deepEqual(await seen(2), ['crow', 'it\'s "x"; <b>']);

    await w.press('Ctrl+L, Ctrl+A');
    await w.type('select count(*) as many, sum(grams) from birds;');
    await w.press('Enter');
    assert.deepEqual(await seen(1), ['3  |  639.5']);
    await w.press('Ctrl+L, Ctrl+A');
    await w.type('drop table birds');
    await w.press('Tab, Space'); // the button
    assert.match(await w.text('status'), /syntax error/);

    await w.press('Ctrl+O');
    const dialog = await app.dialog();
    await dialog.type(path.join(folder, 'b.db'));
    await dialog.press('Enter');
    await w.idle();
    assert.match(await w.text('status'), /^b\.db: .*not a database/);
    await w.press('Ctrl+R, Ctrl+T, Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');

    const sample = await launch(program);
    const many = await sample.window('Sample - SQLite');
    assert.equal(await many.text('status'), '50,000 rows');
    await many.press('Ctrl+R, End');
    assert.equal(await many.text('status'), '2026-12-24  |  Port Ely  |  41');
    assert.equal(await sample.close(), 0);
}

async function saysThatThereIsNone() {
    const app = await launch(program);
    const dialog = await app.dialog();
    assert.equal(await dialog.text(), `This is Node.js ${process.versions.node}; the SQLite browser needs 22.16 or newer, which bring node:sqlite.`);
    await dialog.press('Enter');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
}

test(hasSqlite ? 'tables, statements and files are looked into' : 'a Node.js without SQLite is told of in one line', (t) => (hasSqlite ? findsRows(t) : saysThatThereIsNone()));
