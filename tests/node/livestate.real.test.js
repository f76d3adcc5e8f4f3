'use strict';
// Live reload: what is kept of a page in use, and what its author changes, with the real component off the screen.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { runScript, scratch, sleep, until } = require('./helpers.js');
const { page, tarn, withPage } = require('./live.js');

const list = (name, rows = '') => `<object classid="treeview" name="${name}" size="4" width="200">${rows}</object>`;

const form = `<h2>Order</h2><form>
<input type="text" name="who" value="Ada"> <input type="text" value="no name">
<input type="checkbox" name="express"> <input type="radio" name="size" value="s" checked>s <input type="radio" name="size" value="l">l
<select name="tea"><option>green<option>black<option>white</select> <select name="more" size="3" multiple><option>a<option>b<option>c<option>d</select>
<textarea name="note" rows="4">as given</textarea> <input type="number" name="count" value="3" min="0" max="99">
</form>`;


/** The values of the form, as text, for messages that can be read. */
const values = (window) => ({ ...window.form });

test('what was typed, checked and chosen stays; what was not is the page\'s', withPage(page(form), async (live) => {
    const { driven, window } = live;
    await driven.type('who', 'Grace');
    await driven.check('express');
    window.form.size = 'l';
    await driven.select('tea', 'white');
    window.control('more').selectItem('c');
    const kept = values(window);
    assert.deepEqual([kept.who, kept.express, kept.size, kept.tea, kept.more], ['Grace', true, 'l', 'white', 'c']);
    await live.save('page.html', page(form.replace('Order', 'Orders').replace('Ada', 'Emmy').replace('as given', 'other')
        .replace('value="3"', 'value="4"').replace('<option>green', '<option>red<option>green')));
    assert.deepEqual(values(window), { ...kept, note: 'other', count: 4 });
    assert.match(await driven.text(), /Orders/);
    await live.save('page.html', page(form));
    assert.deepEqual(values(window), { ...kept, note: 'as given', count: 3 });
}));

test('a page in use looks the same when it was saved as it was', withPage(page(`${form}<p>${'Words to scroll over. '.repeat(200)}`), async (live) => {
    const { driven, window } = live;
    await driven.type('note', 'several\nlines\nof\na\nnote\nthat\nscrolls');
    await driven.press('Up');
    await driven.press('Shift+Home');
    await driven.press('Ctrl+Shift+Up');
    window.form.tea = 'black';
    await driven.check('express');
    await driven.type('who', 'a name that is longer than its field is wide, so that it scrolls');
    await driven.press('Home');
    await driven.press('Shift+Right');
    await driven.press('Shift+Right');
    window.zoom = 1.1;
    const before = await live.picture();
    for (let i = 0; i < 3; ++i) {
        await live.save('page.html', page(`${form}<p>${'Words to scroll over. '.repeat(200)}<!-- ${i} -->`));
        assert.equal(await live.picture(), before);
    }
    await driven.press('Delete'); // what was selected
    assert.equal(window.form.who, 'name that is longer than its field is wide, so that it scrolls');
}));

const lines = Array.from({ length: 100 }, (_, i) => `<p>Line ${i}.`).join('');

test('the page stays where it is scrolled to, and keys go on there', withPage(page(lines), async (live) => {
    const { driven, window } = live;
    window.setSizePolicy(tarn.GuiSizePolicy.SCROLL);
    const top = await live.picture();
    await driven.press('PgDown');
    await driven.press('PgDown');
    const before = await live.picture();
    assert.notEqual(before, top);
    await live.save('page.html', page(`${lines}<!-- -->`));
    assert.equal(await live.picture(), before);
    await live.save('page.html', page('<p>Line.'));
    assert.equal(await driven.text(), 'Line.');
}));

test('text that is selected, and a link that has the keyboard', withPage(page('<p>one two <a href="event://nothing">first</a> <a href="event://nothing">second</a>'), async (live) => {
    const { driven, window } = live;
    await driven.press('Tab');
    await driven.press('Tab');
    const before = await live.picture();
    await live.save('page.html', page('<p>one two <a href="event://nothing">first</a> <a href="event://nothing">second</a><!-- -->'));
    assert.equal(await live.picture(), before);
    await driven.press('Ctrl+A');
    const { selection } = window;
    assert.match(selection, /one two first second/);
    await live.save('page.html', page('<p>one two <a href="event://nothing">first</a> <a href="event://nothing">second</a>'));
    assert.equal(window.selection, selection);
}));

const tabs = (more) => `<tabs name="parts"><tab title="One" name="a">first<tab title="Two" name="b">second ${more} <input type="text" name="inside"></tabs>
<tabs><tab title="Three">third<tab title="Four">fourth ${more}</tabs>
<details name="fold"><summary>Folded</summary>unfolded ${more}</details>`;

test('open tabs and what is unfolded, with and without a name', withPage(page(tabs('')), async (live) => {
    const { driven } = live;
    await driven.click('Two');
    await driven.type('inside', 'typed');
    await driven.click('Four');
    await driven.click('Folded');
    const focus = live.window.getFocus();
    await live.save('page.html', page(tabs('now')));
    const text = await driven.text();
    assert.match(text, /second now/);
    assert.match(text, /fourth now/);
    assert.match(text, /unfolded now/);
    assert.equal(live.window.form.inside, 'typed');
    assert.equal(live.window.getFocus(), focus);
}));

const panes = (more) => `<splitter name="split"><pane width="100">left<pane>right ${more}</splitter>`;

test('panes that were moved, and the page\'s sizes otherwise', withPage(page(panes('')), async (live) => {
    const { window } = live;
    const given = window.form.split;
    await live.save('page.html', page(panes('').replace('100', '120')));
    assert.notEqual(window.form.split, given);
    const width = given.split(',').reduce((sum, each) => sum + Number(each), 0);
    window.form.split = `200,${width - 200}`;
    await live.save('page.html', page(panes('now')));
    assert.equal(window.form.split, `200,${width - 200}`);
}));

/** A class whose handlers must not be called by a reload. */
class Quiet extends tarn.GuiWindow {
    calls = [];

    onAny(session, name) { this.calls.push(name); }
    eSelect() { this.calls.push('eSelect'); }
    eChange() { this.calls.push('eChange'); }
    eClose() { this.calls.push('eClose'); }
    ePostOpen() { this.calls.push('ePostOpen'); }
}

const heard = `<form><input type="text" name="who" onchange="event://onAny/who"><input type="checkbox" name="box" onclick="event://onAny/box">
<select name="tea" onchange="event://onAny/tea"><option>green<option>black</select>
<select name="more" size="3" multiple onchange="event://onAny/more"><option>a<option>b</select></form>
<tabs name="parts" onchange="event://onAny/parts"><tab title="One">1<tab title="Two">2</tabs>
<object classid="treeview" name="rows" size="4"></object><p onmouseover="event://onAny/over" onmouseout="event://onAny/out">here`;

test('no handler hears of it', withPage(page(heard), async (live) => {
    const { driven, window } = live;
    window.control('rows').setRows([{ value: 'x', texts: ['X'] }, { value: 'y', texts: ['Y'] }]);
    await driven.type('who', 'Ada');
    await driven.check('box');
    await driven.select('tea', 'black');
    await driven.select('more', 'b');
    await driven.select('rows', 'Y');
    await driven.click('Two');
    await driven.hover('who');
    await sleep(30);
    window.calls = [];
    await live.save('page.html', page(`${heard}<!-- -->`));
    await live.save('page.html', page(`anew ${heard}`));
    await driven.idle();
    assert.deepEqual(window.calls, []);
    assert.deepEqual(window.form.more, 'b');
    assert.deepEqual(window.control('rows').selection, ['y']);
    await driven.check('box').then(() => driven.uncheck('box'));
    assert.deepEqual(window.calls, ['box']);
}, Quiet));

/** Lists of which script fills the first, and the first of the selects. */
const lists = (last, option) => `${list('given')}${list('own', `<param name="a" value="A"><param name="${last}" value="Last">`)}
<select name="few"><option>x</select><select name="page"><option>${option}</select>`;

test('rows that script has given, the page\'s rows otherwise', withPage(page(lists('b', 'x')), async (live) => {
    const { window } = live;
    window.control('given').columns = [{ text: 'Name', width: 90 }, { text: 'Size' }];
    window.control('given').setRows([{ value: 'one', texts: ['One', '1'], expanded: false }, { value: 'sub', texts: ['Sub', '2'], parent: 'one' }, { value: 'two', texts: ['Two', '3'] }]);
    window.control('given').selection = ['two'];
    window.control('few').addItem('y', 'Why');
    const kept = { rows: window.control('given').rows(), columns: window.control('given').columns, few: window.control('few').items() };
    await live.save('page.html', page(`anew ${lists('c', 'z')}`));
    assert.deepEqual(window.control('given').rows(), kept.rows);
    assert.deepEqual(window.control('given').columns, kept.columns);
    assert.deepEqual(window.control('given').selection, ['two']);
    assert.deepEqual(window.control('few').items(), kept.few);
    assert.equal(window.form.few, 'y');
    assert.deepEqual(window.control('page').items().map(({ value }) => value), ['z']);
    assert.deepEqual(window.control('own').rows().map(({ value }) => value), ['a', 'c']);
}));

test('rows that come on demand', withPage(page(list('many')), async (live) => {
    const { driven, window } = live;
    window.control('many').setSource(1000, (first, count) => Array.from({ length: count }, (_, i) => ({ value: `v${first + i}`, texts: [`Row ${first + i}`] })));
    await driven.select('many', 'Row 2');
    await live.save('page.html', page(`anew ${list('many')}`));
    assert.deepEqual(window.control('many').selection, ['v2']);
    await driven.select('many', 'Row 3');
    assert.deepEqual(window.control('many').selection, ['v3']);
}));

test('a list stays where it is scrolled to', withPage(page(list('rows')), async (live) => {
    const { driven, window } = live;
    window.control('rows').setRows(Array.from({ length: 200 }, (_, i) => ({ value: `v${i}`, texts: [`Row ${i}`] })));
    await driven.select('rows', 'Row 120');
    await driven.press('Up');
    await driven.press('Up'); // to a row in the middle of those in view
    const before = await live.picture();
    await live.save('page.html', page(`${list('rows')}<!-- -->`));
    assert.equal(await live.picture(), before);
}));

test('what script has said to elements', withPage(page('<p><table><tr><td name="status">ready</table><input type="button" name="go" value="Go">'), async (live) => {
    const { driven, window } = live;
    window.control('status').setText('<b>3 files</b>');
    window.control('go').disable();
    window.setTitle('By script');
    window.setDefaultSize(500, 280);
    await live.save('page.html', page('<p>new <table><tr><td name="status">ready</table><input type="button" name="go" value="Gone"><input type="button" name="other" value="Other">'));
    assert.match(await driven.text(), /new\s+3 files/);
    assert.equal(window.control('go').isEnabled(), false);
    assert.equal(window.control('other').isEnabled(), true);
    assert.equal(window.getTitle(), 'By script');
}));

test('of a text and a file that script gave an element the later one', withPage(page('<table><tr><td name="pane">-</table>'), async (live) => {
    const pane = live.window.control('pane');
    const sub = live.file('sub.html');
    fs.writeFileSync(sub, '<html><body>from the file</body></html>');
    pane.setText('loading');
    pane.loadFile(sub);
    await live.save('page.html', page('<table><tr><td name="pane">-</table><p>more</p>'));
    assert.match(await live.driven.text(), /from the file/);
    pane.setText('by script');
    await live.save('page.html', page('<table><tr><td name="pane">-</table><p>less</p>'));
    assert.match(await live.driven.text(), /by script/);
}));

test('a list whose rows the page gave before anybody watched', async () => {
    const file = path.join(scratch, 'unwatched.html');
    const text = (head) => page(`<h2>${head}</h2>${list('rows', '<param value="a" text1="A"><param value="b" text1="B" parent="a">')}`);
    fs.writeFileSync(file, text('old'));
    const { stdout, stderr, code } = await runScript(`const window = new tarn.GuiWindow(${JSON.stringify(file)});
        window.open();
        tarn.watch({ onReload: () => { console.log(window.control('rows').rows().length, window.find('new')); process.exit(); } });
        setTimeout(() => require('node:fs').writeFileSync(${JSON.stringify(file)}, ${JSON.stringify(text('new'))}), 200);`);
    assert.deepEqual([stdout, stderr, code], ['2 1\n', '', 0]);
});

test('the title is the page\'s while script has given none', withPage(page('x', { head: '<title>One</title>' }), async (live) => {
    await live.save('page.html', page('x', { head: '<title>Two</title>' }));
    assert.equal(live.window.getTitle(), 'Two');
    assert.equal(await live.driven.title(), 'Two');
}));

test('a page waits while its menu is open', withPage(page(form), async (live) => {
    const { driven } = live;
    await driven.click('tea'); // drops its list down
    fs.writeFileSync(live.file('page.html'), page(`anew ${form}`));
    await sleep(150);
    assert.equal(live.reloads.length, 0);
    await driven.press('Escape'); // closes the list
    await live.next(0);
    assert.match(await driven.text(), /anew/);
}));

test('an async handler goes on when its page was shown anew', async () => {
    let proceed;
    class Slow extends tarn.GuiWindow {
        async onWork() {
            await new Promise((resolve) => { proceed = resolve; });
            this.form.who = 'done';
        }
    }
    const content = '<input type="text" name="who"><input type="button" name="go" value="Go" onclick="event://onWork">';
    await withPage(page(content), async (live) => {
        live.driven.click('go').catch(() => {}); // which waits for the handler
        await until(() => proceed !== undefined);
        await live.save('page.html', page(`anew ${content}`));
        proceed();
        await sleep(50);
        assert.equal(live.window.form.who, 'done');
    }, Slow)();
});

test('controls that have gone lose what they held, the others nothing', withPage(page(form), async (live) => {
    await live.driven.type('who', 'Grace');
    await live.driven.type('note', 'typed');
    await live.save('page.html', page(form.replace(/<textarea.*<\/textarea>/, '')));
    assert.equal('note' in live.window.form, false);
    await live.save('page.html', page(form));
    assert.equal(live.window.form.note, 'as given');
    assert.equal(live.window.form.who, 'Grace');
}));
