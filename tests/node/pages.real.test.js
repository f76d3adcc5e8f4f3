'use strict';
// Pages from text, what a page may call and read, and who hears what handlers throw.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, runScript, scratch } = require('./helpers.js');

const tarn = require(packageFolder);
const { GuiWindow, html } = tarn;

test('html makes data of values, and takes what it has made itself as it is', () => {
    assert.equal(String(html`<p title="${'a "b" \'c\''}">${'<i>x & y</i>'}</p>`), '<p title="a &quot;b&quot; &#39;c&#39;">&lt;i&gt;x &amp; y&lt;/i&gt;</p>');
    assert.equal(String(html`<ul>${['a', '<b>'].map((each) => html`<li>${each}`)}</ul>`), '<ul><li>a<li>&lt;b&gt;</ul>');
    assert.equal(String(html`${null}${undefined}${false}|${true}|${0}|${12n}|${['<', [html`<br>`, null]]}`), '|true|0|12|&lt;<br>');
    for (const wrong of [{}, { name: 'x' }, () => 1, Symbol('s'), Promise.resolve('x'), [{}]]) {
        assert.throws(() => html`<p>${1}${wrong}`, { name: 'TypeError', message: /^html`\.\.\.`: value 2 must be text/ });
    }
    assert.throws(() => html('<p>'), TypeError);
});

test('what html was given is shown letter by letter', () => {
    const text = '<b>&amp; "quoted" \'it\' [[b]]x[[/b]] &lt;';
    assert.equal(GuiWindow.from(html`<title>${text}</title>x`).getTitle(), text);
    assert.equal(String(html`<p title="${'[[b]]'}">`), '<p title="[[b]]">', 'an attribute is exact');
    assert.equal(String(html`<textarea name="t">${'[[b]]'}`), '<textarea name="t">[[b]]', 'and so is what a field holds');
    const joined = (parts) => parts.join('\u2060');
    assert.equal(String(html`<p>${'[[a event://onDelete]]x[[/a]]'}`), `<p>${joined(['[', '[a event://onDelete]]x[', '[/a]]'])}`);
    assert.equal(String(html`[${'[b]]'}|${'['}[b]]|${'[1]'}`), `${joined(['[', '[b]]|[', '[b]]|[1]'])}`);
});

test('a window from text has the title and the sizes of its body, in from() and in the first setText()', () => {
    const page = html`<html><head><title>Sized</title></head><body width="345" height="210"><table name="all" width="100%" height="100%"><tr><td>x`;
    class Order extends GuiWindow {
        marks = ['made'];
    }
    const filled = new GuiWindow();
    assert.equal(filled.setText(page), true);
    for (const window of [GuiWindow.from(page), Order.from(page), Order.from(String(page)), filled]) {
        assert.deepEqual([window.isValid(), window.getTitle()], [true, 'Sized']);
        window.open();
        const root = window.control('');
        assert.deepEqual([root.width, root.height], [345, 210]);
        window.close();
    }
    assert.ok(Order.from(page) instanceof Order);
    assert.deepEqual(Order.from(page).marks, ['made']);
    assert.equal(GuiWindow.from('just words').isValid(), true);
    assert.equal(GuiWindow.from('').isValid(), true);
});

test('relative names in a page from text start at the folder of the script, and its mistakes are told with it', async () => {
    fs.writeFileSync(path.join(scratch, 'part.html'), '<table name="inner"><tr><td>x</td></tr></table>');
    const { stdout, stderr } = await runScript(`
        const window = tarn.GuiWindow.from('<table src="part.html"><tr><td></td></tr></table>\\n<tabel>');
        console.log(window.control('inner') !== null, __filename);`);
    const [there, script] = stdout.trim().split(' ');
    assert.deepEqual([there, stderr], ['true', `guiHtmlParser::pullContent() - ignoring unrecognized tag <tabel> (warning) in ${script} (text):2; did you mean <table>?\n`]);
});

test('a page reaches what the application has added, close(), and nothing else', async () => {
    const names = ['onOwn', 'onClass', 'onBase', 'close', 'onGetter', 'setTitle', 'showAsync', 'load', 'show', 'toString', 'constructor', 'hasOwnProperty',
        '__defineGetter__', '__proto__', 'valueOf', 'emit', 'notThere', 'window', 'value'];
    const { stdout, stderr, code } = await runScript(`
        const { findMethod, scanMethods } = require(${JSON.stringify(path.join(packageFolder, 'js', 'methods.js'))});
        class Base extends tarn.GuiWindow { onBase() {} get onGetter() { console.log('getter ran'); return () => {}; } value = 3; }
        class Page extends Base { onClass() {} }
        const window = new Page();
        window.onOwn = () => {};
        const names = ${JSON.stringify(names)};
        console.log(names.filter((name) => findMethod(window, name) !== undefined).join());
        console.log(scanMethods(window).sort().join());
        const Emitter = require('node:events');
        class Gauge extends Emitter { eKey() {} }
        console.log(scanMethods(new Gauge()).join());
        window.setText('<input type="button" name="go" value="Go">');
        console.log(scanMethods(window.control('go')).join(), findMethod(window.control('go'), 'setText'), findMethod(window.control('go'), 'check'));
        findMethod(window, 'close').call(window, tarn.session, 'text', 'of the page');
        window.control('go').onPick = () => {};
        console.log(scanMethods(window.control('go')).join());`);
    assert.deepEqual([stdout, stderr, code], [
        'onOwn,onClass,onBase,close\nclose,onBase,onClass,onOwn\neKey\n undefined undefined\nonPick\n', '', 0]);
});

test('a page that is confined reads only what lies in the folders, in mounted ones, and what script names itself', async () => {
    for (const name of ['in', 'out', 'mounted']) {
        fs.mkdirSync(path.join(scratch, name), { recursive: true });
        fs.writeFileSync(path.join(scratch, name, 'part.html'), `<body><table name="${name}"><tr><td>x</td></tr></table>`);
    }
    fs.symlinkSync(path.join(scratch, 'out'), path.join(scratch, 'in', 'link'));
    const { stdout, stderr, code } = await runScript(`
        tarn.mount('Shop', 'mounted');
        tarn.confine('in');
        const has = (source, name) => tarn.GuiWindow.from('<table src="' + source + '"><tr><td></td></tr></table>').control(name) !== null;
        const out = __dirname + '/out/part.html';
        console.log(has('in/part.html', 'in'), has('vfs://Shop/part.html', 'mounted'));
        console.log(has('out/part.html', 'zzzzz'), has(out, 'zzzzz'), has('in/../out/part.html', 'zzzzz'), has('in/link/part.html', 'zzzzz'));
        console.log(new tarn.GuiWindow('out/part.html').control('out') !== null);`);
    const refused = stderr.split('\n').filter((line) => line.startsWith('tarn: '));
    const of = (file) => `tarn: ${scratch}/${file} is refused: it lies outside of the folders that pages are confined to`;
    assert.deepEqual([stdout, code], ['true true\nfalse false false false\ntrue\n', 0]);
    assert.deepEqual(refused, ['out/part.html', 'out/part.html', 'in/../out/part.html', 'in/link/part.html'].map(of));
    for (const args of [[], [3], [''], ['in', null]]) {
        assert.throws(() => tarn.confine(...args), { name: 'TypeError', message: /^tarn\.confine\(folder, \.\.\.\): / });
    }
});

test('tarn.onError hears what handlers throw, with the window and the handler, and the program goes on', async () => {
    const { stdout, stderr, code } = await runScript(`
        const window = tarn.GuiWindow.from('<title>Owner</title><object classid="menu" name="bar"><param name="x" value="X"></object>');
        tarn.onError = (error, { window: which, handler }) => console.log(error.message, which === window, handler);
        window.eMenu = () => { throw new Error('sync'); };
        window.control('bar').activateItem('x');
        window.eMenu = async () => { await null; throw new Error('later'); };
        window.control('bar').activateItem('x');
        tarn.onError = null;
        console.log(tarn.onError);
        process.once('uncaughtException', (error) => console.log('uncaught', error.message));
        window.control('bar').activateItem('x');
        setTimeout(() => {
            tarn.onError = () => { throw new Error('in onError'); };
            process.once('uncaughtException', (error) => console.log('uncaught', error.message));
            window.control('bar').activateItem('x');
        }, 50);`);
    assert.deepEqual([stdout, stderr, code], [
        'sync true eMenu\nlater true eMenu\nnull\nuncaught later\nuncaught in onError\n', '', 0]);
    assert.equal(tarn.onError, null);
});
