'use strict';
// The four programs of a hundred lines: settings, log viewer, table browser, installer.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { closeByUser, keys, type, waitGone } = require('../node/desktop.js');
const { scratch } = require('../node/helpers.js');
const { Driven, examples } = require('./driven.js');

const start = (name, ...args) => new Driven(path.join(examples, name, 'app.js'), args);

const linesOf = (file) => fs.readFileSync(file, 'utf8').split('\n').length - 1;

test('each is under 100 lines, pages included', () => {
    for (const name of ['settings', 'logviewer', 'browser', 'installer']) {
        const files = fs.readdirSync(path.join(examples, name)).filter((each) => /\.(js|html)$/.test(each) && !each.endsWith('.test.js'));
        const lines = files.reduce((sum, file) => sum + linesOf(path.join(examples, name, file)), 0);
        assert.ok(files.length >= 2 && lines < 100, `${name}: ${lines} lines`);
    }
});

test('settings are checked, saved, and asked about when they are not', async () => {
    const file = path.join(scratch, 'settings.json');
    const first = start('settings', file);
    await first.at('Settings');
    await first.enter('name', 'Ada');
    await first.enter('size', '120');
    await keys('Return');
    await first.becomes("tarn.session.currentWindow.getFocus()", 'size');
    await first.enter('size', '14');
    await first.press('backup');
    await first.formHas('backup', null);
    await first.enter('folder', scratch);
    await first.press('ok');
    await first.ends(`saved Ada, en, light, 14, ${scratch}, false\n`);
    assert.deepEqual(JSON.parse(fs.readFileSync(file, 'utf8')),
        { name: 'Ada', language: 'en', theme: 'light', size: 14, folder: scratch, backup: false });

    const second = start('settings', file);
    await second.at('Settings');
    await second.formHas('name', 'Ada');
    await second.enter('name', 'Bob');
    await keys('Escape');
    await second.at('Unsaved changes');
    await second.becomes('tarn.session.currentWindow.isOpen()', true);
    await keys('Return');
    await second.ends('nothing was changed\n');
    assert.equal(JSON.parse(fs.readFileSync(file, 'utf8')).name, 'Ada');
});

test('the log viewer filters as one types, and follows the file', async () => {
    const file = path.join(scratch, 'a.log');
    fs.copyFileSync(path.join(examples, 'logviewer', 'example.log'), file);
    const program = start('logviewer', file);
    const window = await program.at('a.log');
    const found = 'tarn.session.currentWindow.found().length';
    await program.becomes(found, 60);
    await type('order');
    await program.becomes(`${found} < 60 && ${found} > 10`, true);
    await program.press('info');
    const without = await program.ask(found);
    fs.appendFileSync(file, '2026-03-01 10:00:00 ERROR orders: a new <one>\n');
    await program.becomes(found, without + 1);
    await program.press('copy');
    await program.becomes("tarn.clipboard.readText().endsWith('a new <one>\\n')", true);
    await closeByUser(window);
    await program.ends('61 lines read\n');
});

test('the table browser turns pages, searches and sorts', async () => {
    const program = start('browser');
    const window = await program.at('numbers - Tables');
    const rowsBeginWith = (...names) => program.becomes(
        `tarn.session.currentWindow.found.slice(0, ${names.length}).map(([name]) => name)`, names);
    await program.press('next');
    await program.becomes('tarn.session.currentWindow.page', 1);
    await program.becomes("tarn.session.currentWindow.control('back').isEnabled()", true);
    await program.enter('find', '27');
    await rowsBeginWith('3', '14', '27', '30');
    await program.focus('table');
    await keys('Down');
    await program.titleIs('peaks - Tables');
    await program.focus('sort');
    await keys('End');
    await rowsBeginWith('Snowdon', 'Triglav');
    await program.becomes("tarn.session.currentWindow.control('list').isItemSelected('Snowdon')", false);
    await closeByUser(window);
    await program.ends();
});

/** A folder with that many files, to be installed. */
function makeSource(name, count) {
    const folder = path.join(scratch, name);
    fs.mkdirSync(path.join(folder, 'inside'), { recursive: true });
    for (let i = 0; i < count; ++i) {
        fs.writeFileSync(path.join(folder, 'inside', `${i}.txt`), String(i));
    }
    return folder;
}

test('the installer copies', async () => {
    const target = path.join(scratch, 'installed');
    const program = start('installer', target, makeSource('small', 12));
    await program.at('Installation');
    await program.formHas('folder', target);
    await program.press('go');
    await program.becomes('tarn.session.currentWindow.running === null', true);
    assert.equal(fs.readFileSync(path.join(target, 'inside', '11.txt'), 'utf8'), '11');
    await program.press('cancel');
    await program.ends('12 files installed\n');
});

test('the installer is cancelled in the middle and leaves nothing', async () => {
    const target = path.join(scratch, 'cancelled');
    const program = start('installer', target, makeSource('large', 400));
    await program.at('Installation');
    await program.press('go');
    await program.becomes('tarn.session.currentWindow.control("bar")?.part > 0.02', true);
    await keys('Escape');
    await program.at('Cancel');
    await keys('Return');
    await program.becomes('tarn.session.currentWindow.running === null', true);
    assert.equal(fs.existsSync(target), false);
    await program.press('cancel');
    await waitGone('Installation');
    await program.ends('nothing installed\n');
});
