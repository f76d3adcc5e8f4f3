'use strict';
// Every recipe of docs/cookbook.md, run as its reader would run it: installed beside the package, used by the keyboard.

const assert = require('node:assert/strict');
const { execFileSync, spawnSync } = require('node:child_process');
const fs = require('node:fs');
const net = require('node:net');
const path = require('node:path');
const { test } = require('node:test');
const { click, closeByUser, findColour, keys, type } = require('../node/desktop.js');
const { packageFolder, scratch, sleep } = require('../node/helpers.js');
const { Driven, installRecipes } = require('./driven.js');

const folder = installRecipes();
const tried = new Set();

/** A test of one recipe: `use(program, start)`; most start it once, without arguments. */
function recipe(name, use) {
    tried.add(name);
    const start = (...args) => new Driven(path.join(folder, name), args, { cwd: folder });
    test(name, () => (use.length > 1 ? use(null, start) : use(start())));
}

recipe('hello.js', async (none, start) => {
    const program = start('<Ada>');
    await closeByUser(await program.at('Hello'));
    await program.ends('closed\n');
});

recipe('module.mjs', async (program) => {
    await program.at('What\\?');
    await program.press('coffee');
    await program.at('How much\\?');
    await program.press('pot');
    await program.ends('a pot of coffee\n');
});

recipe('checks.js', async (program) => {
    await program.at('Account');
    await program.focus('name');
    await keys('Return');
    await program.titleIs('A name is needed.');
    await type('Ada');
    await keys('Return');
    await program.titleIs('That is no mail address.');
    await type('ada@example.org');
    await program.enter('age', '17');
    await keys('Return');
    await program.titleIs('One has to be 18.');
    await program.enter('age', '36');
    await program.press('ok');
    await program.ends("{ name: 'Ada', mail: 'ada@example.org', age: 36 }\n");
});

recipe('unsaved.js', async (program) => {
    const window = await program.at('Note');
    await type('milk');
    await program.formHas('text', 'milk');
    await closeByUser(window);
    await program.at('Unsaved');
    await keys('Escape');
    await program.at('Note');
    await closeByUser(window);
    await program.at('Unsaved');
    await keys('Return');
    await program.ends('saved: milk\nclosed\n');
});

recipe('progress.js', async (program) => {
    await program.at('Job');
    await program.press('start');
    await program.titleIs('6 %');
    await program.press('cancel');
    await closeByUser(await program.at('[0-9]+ %'));
    await program.ended;
    assert.match(program.stdout, /^stopped at \d+ %\n$/);
});

recipe('worker.js', async (program) => {
    const window = await program.at('Primes');
    await program.press('count');
    await program.enter('limit', '7');
    await program.formHas('limit', '7'); // typed while the thread computes
    await program.titleIs('78498 primes');
    await closeByUser(window);
    await program.ends();
});

recipe('cursor.js', async (program) => {
    const window = await program.at('100 users');
    await program.press('more');
    await program.titleIs('200 users');
    await program.press('more');
    await program.titleIs('250 users');
    await program.becomes("tarn.session.currentWindow.control('more').isEnabled()", false);
    await closeByUser(window);
    await program.ends();
});

recipe('tree.js', async (none, start) => {
    fs.mkdirSync(path.join(scratch, 'tree', 'inner'), { recursive: true });
    fs.writeFileSync(path.join(scratch, 'tree', 'inner', 'leaf|1'), '');
    const program = start(path.join(scratch, 'tree'));
    const window = await program.at('tree: 1 inside');
    await program.focus('tree');
    await keys('Home', 'Down');
    await program.titleIs('inner: 1 inside');
    await keys('Down');
    await program.formHas('tree', path.join(scratch, 'tree', 'inner', 'leaf|1'));
    await closeByUser(window);
    await program.ends();
});

recipe('picture.js', async (program) => {
    const window = await program.at('Pictures');
    const area = await findColour(window, 240, 200, '#C0392B');
    assert.deepEqual([area.right - area.left, area.bottom - area.top], [199, 119]);
    await program.press('next');
    await program.titleIs('2 of 3');
    await sleep(200);
    assert.notEqual(await findColour(window, 240, 200, '#27AE60'), null);
    await closeByUser(window);
    await program.ends();
});

recipe('menu.js', async (program) => {
    await program.at('Editor');
    await keys('alt+v');
    await sleep(150);
    await keys('w');
    await program.says('wrap: false');
    await keys('alt+f');
    await sleep(150);
    await keys('c');
    await program.says('clear');
    await program.formHas('text', '');
    await keys('alt+f');
    await sleep(150);
    await keys('q');
    await program.ends('wrap: false\nclear\nquit\n');
});

recipe('documents.js', async (program) => {
    const first = await program.at('Document 1');
    await type('one');
    await program.formHas('text', 'one');
    await program.press('new');
    await program.at('Document 2');
    await type('two');
    await program.formHas('text', 'two');
    await closeByUser(await program.at('Document 2'));
    await program.says('Document 2: two; 1 left');
    await closeByUser(first);
    await program.ends('Document 2: two; 1 left\nDocument 1: one; 0 left\n');
});

const visit = (socket, words) => new Promise((resolve, reject) => {
    const client = net.connect(socket, () => client.write(words)).on('error', reject);
    client.on('data', (data) => resolve(String(data)));
});

recipe('daemon.js', async (none, start) => {
    const socket = path.join(scratch, 'door');
    const program = start(socket);
    await program.says('listening');
    for (const [key, wanted] of [['Return', 'Allow'], ['Escape', 'Deny']]) {
        const answer = visit(socket, 'Ada');
        await program.at('Door');
        await keys(key);
        assert.equal(await answer, wanted);
    }
    program.kill('SIGTERM');
    await program.ends('listening\n');
});

recipe('ask.js', async (program) => {
    await program.at('Name');
    await keys('End', 'exclam', 'Return');
    await program.at('Sure');
    await keys('Return');
    await program.at('Greeting');
    await keys('Return');
    await program.ends('Fine\n');
});

recipe('files.js', async (none, start) => {
    const texts = path.join(scratch, 'texts');
    fs.mkdirSync(texts);
    fs.writeFileSync(path.join(texts, 'one.txt'), 'uno');
    const program = start(texts);
    await program.at('Editor');
    await program.press('open');
    await program.at('Open');
    await type('one.txt');
    await keys('Return');
    await program.titleIs('one.txt');
    const window = await program.at('one.txt');
    await program.formHas('text', 'uno');
    await program.enter('text', 'due');
    await program.press('save');
    await program.at('Save');
    await keys('Return');
    await program.says('wrote notes.txt');
    assert.equal(fs.readFileSync(path.join(texts, 'notes.txt'), 'utf8'), 'due');
    await closeByUser(window);
    await program.ends('wrote notes.txt\n');
});

recipe('color.js', async (program) => {
    const window = await program.at('#2F6FB0');
    assert.notEqual(await findColour(window, 260, 140, '#2F6FB0'), null);
    await program.press('pick');
    await program.at('Colour');
    await keys('Return');
    await program.at('#2F6FB0');
    await closeByUser(window);
    await program.ends();
});

recipe('clipboard.js', async (program) => {
    const window = await program.at('Sort lines');
    await program.ask("tarn.clipboard.writeText('b\\nc\\na')");
    await program.press('paste');
    await program.formHas('text', 'b\nc\na');
    await program.press('sort');
    await program.formHas('text', 'a\nb\nc');
    await program.press('copy');
    await program.becomes('tarn.clipboard.readText()', 'a\nb\nc');
    await closeByUser(window);
    await program.ends('"a\\nb\\nc"\n');
});

recipe('steps.js', async (program) => {
    for (const [title, button] of [['Where to', 'North'], ['When', 'Back'], ['Where to', 'South'], ['When', 'Today']]) {
        await program.at(`${title}\\?`);
        await program.press(button);
    }
    await program.ends('South, Today\n');
});

recipe('depends.js', async (program) => {
    await program.at('Price');
    await type('x');
    await program.formHas('sum', '?');
    await program.enter('count', '4');
    await program.formHas('sum', '50.00');
    await program.press('member');
    await program.formHas('sum', '45.00');
    await program.press('order');
    await program.ends('4 for 45.00\n');
});

recipe('checklist.js', async (program) => {
    await program.at('Pizza');
    await program.press('all');
    await program.becomes('tarn.session.currentWindow.chosen().length', 4);
    await program.focus('list');
    await keys('Home', 'space');
    await program.becomes('tarn.session.currentWindow.chosen().length', 3);
    await program.press('ok');
    await program.ends('olives, mushrooms, peppers\n');
});

recipe('select.js', async (program) => {
    const window = await program.at('Rome, Italy');
    await program.focus('country');
    await keys('Down');
    await program.titleIs('Kyoto, Japan');
    await program.focus('city');
    await keys('End');
    await program.titleIs('Tokyo, Japan');
    await closeByUser(window);
    await program.ends();
});

recipe('report.js', async (none, start) => {
    const file = path.join(scratch, 'report.pdf');
    await start(file).ends(`${file} is written\n`);
    const sheets = execFileSync('pdftotext', ['-layout', file, '-'], { encoding: 'utf8' }).split('\f').slice(0, -1);
    assert.ok(sheets.length > 1);
    assert.ok(sheets.every((text, i) => new RegExp(` ${i + 1} ?/ ?${sheets.length}\n`).test(text)));
    assert.ok(sheets.every((text) => /Number +What +Price/.test(text) === /^ *1\d{3} /m.test(text)));
    assert.equal(sheets.join('').match(/^ *1\d{3} /gm).length, 120);
});

recipe('chart.js', async (program) => {
    const window = await program.at('Chart');
    assert.notEqual(await findColour(window, 320, 200, '#2F6FB0'), null);
    await click(window, 100, 120);
    await program.titleIs('bar 2: 7');
    await sleep(200);
    assert.notEqual(await findColour(window, 320, 200, '#C0392B'), null);
    await closeByUser(window);
    await program.ends();
});

recipe('clock.js', async (program) => {
    const window = await program.at('[0-9:]{8}');
    const title = await program.ask('tarn.session.currentWindow.getTitle()');
    await program.becomes(`tarn.session.currentWindow.getTitle() !== '${title}'`, true);
    await closeByUser(window);
    await program.ends();
});

recipe('errors.js', async (program) => {
    const window = await program.at('Parser');
    await program.press('parse');
    await program.at('Something went wrong');
    await keys('Return');
    await program.at('Parser');
    await program.enter('text', '{"name":"Ada"}');
    await program.press('parse');
    await program.titleIs('Ada');
    await closeByUser(window);
    await program.ended;
    assert.match(program.stdout, /^onParse: .*JSON.*\n$/);
    assert.equal(program.stderr, '');
});

recipe('messages.js', async (none, start) => {
    const program = start('de');
    await program.at('Guten Morgen');
    await program.press('close');
    await program.ends();
});

recipe('frames.js', async (program) => {
    const window = await program.at('Chapter one');
    await click(window, 20, 45);
    await program.titleIs('Chapter two');
    await closeByUser(window);
    await program.ends();
});

recipe('links.js', async (program) => {
    const window = await program.at('About');
    await click(window, 30, 18);
    await program.says('open https://example.org/manual');
    await click(window, 30, 53);
    await program.says('not opened: https://example.com/');
    await closeByUser(window);
    await program.ends('open https://example.org/manual\nnot opened: https://example.com/\n');
});

recipe('process.js', async (none, start) => {
    const whole = start('echo', 'a <b>');
    const window = await whole.at('echo ended: 0');
    await whole.formHas('text', 'a <b>\n');
    await closeByUser(window);
    await whole.ends();
    const long = start('sleep', '30');
    await closeByUser(await long.at('sleep'));
    await long.ends();
});

tried.add('typescript');
test('typescript', async () => {
    const project = path.join(folder, 'typescript');
    execFileSync(process.execPath, [path.join(packageFolder, 'node_modules', 'typescript', 'bin', 'tsc'), '-p', project]);
    const program = new Driven(path.join(project, 'dist', 'order.js'));
    await program.at('Order');
    await type('ada');
    await program.press('milk');
    await program.press('order');
    await program.ends('coffee with milk for ADA\n');
});

tried.add('testing');
test('testing', async () => {
    const env = { ...process.env };
    delete env.NODE_TEST_CONTEXT; // a run of its own, which says what it found
    const { stdout, status } = spawnSync(process.execPath, ['--test', path.join(folder, 'testing', 'counter.test.js')], { env, encoding: 'utf8' });
    assert.equal(status, 0, stdout);
    assert.match(stdout, /pass 2/);
    const program = new Driven(path.join(folder, 'testing', 'counter.js'));
    await program.at('Counter');
    await program.press('add');
    await program.formHas('count', '1');
    await program.press('done');
    await program.ends('1\n');
});

tried.add('shipping');
test('shipping', async () => {
    const project = path.join(folder, 'shipping');
    const packed = JSON.parse(execFileSync('npm', ['pack', '--dry-run', '--json', '--ignore-scripts'], { cwd: project, encoding: 'utf8' }));
    assert.deepEqual(packed[0].files.map((file) => file.path).sort(), ['app.js', 'package.json', 'pages/timer.html']);
    const program = new Driven(path.join(project, 'app.js'), [], { cwd: '/' });
    await program.at('Tea timer');
    await program.enter('minutes', '0');
    await program.press('start');
    await program.at('Ready');
    await keys('Return');
    await program.ends();
});

test('no recipe is without a test', () => {
    const recipes = fs.readdirSync(folder).filter((name) => name !== 'node_modules' && name !== 'messages.html');
    assert.deepEqual(recipes.sort(), [...tried].sort());
    assert.equal(tried.size, 31);
});
