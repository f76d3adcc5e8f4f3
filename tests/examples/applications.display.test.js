'use strict';
// The file manager, the mail program and the preferences, used as people use them.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { findActiveWindow, keys, press, type, xdotool } = require('../node/desktop.js');
const { scratch } = require('../node/helpers.js');
const { Driven, examples } = require('./driven.js');

const current = 'tarn.session.currentWindow';

function start(t, name, ...args) {
    const program = new Driven(path.join(examples, name, 'app.js'), args, { limitMs: 120000 });
    t.after(() => program.kill());
    return program;
}

const linesOf = (file) => fs.readFileSync(file, 'utf8').split('\n').length - 1;

test('each is well under 200 lines, pages included', () => {
    for (const name of ['filemanager', 'mail', 'preferences']) {
        const files = fs.readdirSync(path.join(examples, name)).filter((each) => /\.(js|html)$/.test(each) && !each.endsWith('.test.js'));
        const lines = files.reduce((sum, file) => sum + linesOf(path.join(examples, name, file)), 0);
        assert.ok(files.length >= 2 && lines < 190, `${name}: ${lines} lines`);
    }
});

/** A folder with files of other sizes, days and names than their order. */
function makeTree(name) {
    const top = path.join(scratch, name);
    fs.mkdirSync(path.join(top, 'letters', 'old'), { recursive: true });
    for (const [file, bytes, day] of [['b 10.txt', 5000, 3], ['b 9.txt', 90000, 2], ['a.txt', 100, 4]]) {
        fs.writeFileSync(path.join(top, file), 'x'.repeat(bytes));
        fs.utimesSync(path.join(top, file), new Date(2026, 0, day), new Date(2026, 0, day));
    }
    fs.writeFileSync(path.join(top, 'letters', 'dear.txt'), 'dear');
    return top;
}

/** What the list on the right shows, in its order. */
const namesBecome = (program, ...names) => program.becomes(`${current}.control('files').rows().map((row) => row.texts[0])`, names);

test('the file manager sorts by its columns, whose edges are dragged', async (t) => {
    const program = start(t, 'filemanager', makeTree('sorted'));
    const window = await program.at('sorted - File manager');
    await namesBecome(program, 'letters', 'a.txt', 'b 9.txt', 'b 10.txt');
    await press(window, 260, 65); // Name
    await namesBecome(program, 'letters', 'a.txt', 'b 9.txt', 'b 10.txt');
    await press(window, 560, 65); // Size
    await namesBecome(program, 'letters', 'a.txt', 'b 10.txt', 'b 9.txt');
    await press(window, 660, 65); // Changed
    await namesBecome(program, 'letters', 'b 9.txt', 'b 10.txt', 'a.txt');
    await program.becomes(`${current}.control('files').columns[0].width`, 280);
    await xdotool('mousemove', '--window', window, 507, 65, 'mousedown', 1);
    await xdotool('mousemove', '--window', window, 540, 65);
    await xdotool('mousemove', '--window', window, 567, 65, 'mouseup', 1);
    await program.becomes(`${current}.control('files').columns[0].width`, 340);
    await keys('ctrl+q');
    await program.ends();
});

test('the file manager opens folders in both lists, and makes, renames and removes files', async (t) => {
    const top = makeTree('used');
    const program = start(t, 'filemanager', top);
    const window = await program.at('used - File manager');
    await keys('Home', 'Return');
    await program.at('letters - File manager');
    await program.becomes(`${current}.control('folders').selection`, [path.join(top, 'letters')]);
    await namesBecome(program, 'old', 'dear.txt');

    await program.focus('files');
    await keys('End');
    await program.becomes(`${current}.control('files').selection`, [path.join(top, 'letters', 'dear.txt')]);
    await program.rest();
    await keys('F2', 'ctrl+a');
    await type('sir.txt');
    await keys('Return');
    await namesBecome(program, 'old', 'sir.txt');
    assert.ok(fs.existsSync(path.join(top, 'letters', 'sir.txt')));

    await program.rest();
    await xdotool('mousemove', '--window', window, 300, 104, 'click', 3); // the second row
    await program.becomes(`${current}.control('files').selection`, [path.join(top, 'letters', 'sir.txt')]);
    await keys('m'); // Remove
    await findActiveWindow('Remove');
    await keys('Return');
    await namesBecome(program, 'old');

    await program.at('letters - File manager');
    await keys('alt+Up');
    await program.at('used - File manager');
    await keys('ctrl+shift+n');
    await findActiveWindow('New folder');
    await type('more');
    await keys('Return');
    await namesBecome(program, 'letters', 'more', 'a.txt', 'b 9.txt', 'b 10.txt');
    await program.at('used - File manager');
    await program.rest();
    await press(window, 50, 86); // "letters" in the tree
    await program.at('letters - File manager');
    await keys('ctrl+q');
    await program.ends();
});

test('the mail program finds messages among 100,000 as one types', async (t) => {
    const program = start(t, 'mail');
    const window = await program.at('Mail');
    await program.becomes(`${current}.found().length`, 100000);
    const started = Date.now();
    await type('grace bern');
    await program.formHas('find', 'grace bern'); // "grace ber" finds as many
    await program.becomes(`${current}.found().length`, 1515);
    assert.ok(Date.now() - started < 8000, 'not as one types');
    await program.rest();
    await keys('Return');
    await program.becomes(`${current}.getFocus()`, 'list');
    await keys('Down');
    await program.becomes(`${current}.getTitle()`, 'About a journey to Bern - Mail');
    await program.rest();
    await press(window, 300, 134); // the third message that was found
    await program.becomes(`${current}.getTitle()`, 'Again: a journey to Bern - Mail');
    await program.rest();
    await keys('ctrl+f');
    await program.rest();
    await keys('ctrl+a', 'Delete');
    await program.becomes(`${current}.found().length`, 100000);
    await program.focus('list');
    await keys('End');
    await program.becomes(`${current}.control('list').selection`, ['99999']);
    await program.rest();
    const pane = `${current}.control('pane').height`;
    const before = await program.ask(pane);
    await xdotool('mousemove', '--window', window, 400, 355, 'mousedown', 1); // the divider above the message
    await xdotool('mousemove', '--window', window, 400, 330);
    await xdotool('mousemove', '--window', window, 400, 305, 'mouseup', 1);
    await program.becomes(pane, before + 50);
    await keys('ctrl+q');
    await program.ends();
});

const values = (file) => JSON.parse(fs.readFileSync(file, 'utf8'));

test('preferences are applied when all is right, and the tab with a mistake is shown when it is not', async (t) => {
    const file = path.join(scratch, 'preferences.json');
    const program = start(t, 'preferences', file);
    await program.at('Preferences');
    await program.becomes(`${current}.control('apply').isEnabled()`, false);
    await keys('Return'); // the name is required
    await program.becomes(`${current}.getFocus()`, 'name');
    await type('Ada');
    await program.rest();
    await keys('Tab');
    await type('ada');
    await program.becomes(`[${current}.form.mail, ${current}.form.valid]`, ['ada', false]);
    await program.rest();
    await keys('ctrl+Next'); // the tab "Look"
    await program.becomes(`${current}.form.part`, 'look');
    await program.press('smooth');
    await program.formHas('smooth', null);
    await program.focus('size');
    await keys('Up');
    await program.formHas('size', 12);
    await program.rest();
    await keys('Return'); // the mail address is wrong, on the tab before
    await program.becomes(`[${current}.form.part, ${current}.getFocus()]`, ['you', 'mail']);
    assert.equal(fs.existsSync(file), false);
    await keys('End');
    await type('@example.org');
    await program.becomes(`[${current}.form.mail, ${current}.form.valid]`, ['ada@example.org', true]);
    await program.press('apply');
    await program.becomes(`${current}.control('apply').isEnabled()`, false);
    const { name, mail, smooth, size, theme, accent } = values(file);
    assert.deepEqual([name, mail, smooth, size, theme, accent], ['Ada', 'ada@example.org', null, 12, 'light', '#1F6FEB']);
    await program.rest();
    await keys('Escape');
    await program.ends();
});

test('preferences that were changed are not forgotten without a question', async (t) => {
    const file = path.join(scratch, 'kept.json');
    fs.writeFileSync(file, JSON.stringify({ name: 'Emmy', network: 'proxy', proxy: 'proxy.example.org', port: 3128 }));
    const program = start(t, 'preferences', file);
    await program.at('Preferences');
    await program.becomes(`[${current}.form.name, ${current}.form.port, ${current}.form.proxy]`, ['Emmy', 3128, 'proxy.example.org']);
    await program.enter('name', 'Lise');
    await program.rest();
    await keys('Escape');
    await findActiveWindow('Unsaved changes');
    await keys('Escape'); // no
    await program.at('Preferences');
    await program.becomes(`${current}.form.name`, 'Lise');
    await program.rest();
    await keys('alt+F4');
    await findActiveWindow('Unsaved changes');
    await keys('Return');
    await program.ends();
    assert.equal(values(file).name, 'Emmy');
});
