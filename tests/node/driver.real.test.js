'use strict';
// What the test driver does in place of a user: each verb on a page where it works and on one where it must fail, and what it
// says then.

const assert = require('node:assert/strict');
const { afterEach, describe, test } = require('node:test');
const { drive } = require('./driven.js').driver;
const { end, fails, nothing, open, short, shown, tarn } = require('./driven.js');
const { sleep } = require('./helpers.js');

afterEach(end);

describe('click', () => {
    test('a button, by its name and by its text', async () => {
        const w = await open('<form><input type="button" name="save" value="Save it" onclick="event://onSave"></form>', { onSave: nothing });
        await w.click('save');
        await w.click('Save it');
        await w.click({ button: 'Save it' });
        assert.deepEqual(shown.calls, [['onSave', 'click'], ['onSave', 'click'], ['onSave', 'click']]);
    });

    test('a link, a picture, a cell with a handler', async () => {
        const w = await open('<p>Go to the <a href="event://onNext">next</a> one</p><img name="map" src="none.png" width="40" height="30" onclick="event://onMap">'
            + '<table onmousedown="event://onDown" name="cell"><tr><td>cell</td></tr></table>', { onNext: nothing, onMap: nothing, onDown: nothing });
        await w.click({ link: 'next' });
        await w.click('map');
        await w.click('cell');
        assert.deepEqual(shown.calls.map(([name]) => name), ['onNext', 'onMap', 'onDown']);
    });

    test('what is out of view is scrolled into view before', async () => {
        const rows = Array.from({ length: 60 }, (_, i) => `<p>line ${i}</p>`).join('');
        const w = await open(`${rows}<form><input type="button" name="far" value="Far" onclick="event://onFar"></form>${rows}`
            + '<p><a href="event://onEnd">end</a></p>', { onFar: nothing, onEnd: nothing }, 'scrolling="yes"');
        await w.click('far');
        await w.click({ link: 'end' });
        assert.deepEqual(shown.calls.map(([name]) => name), ['onFar', 'onEnd']);
    });

    test('waits for a handler\'s promise', async () => {
        const w = await open('<p><a href="event://onSlow">slow</a></p><table name="said"><tr><td>no</td></tr></table>', {
            async onSlow() { await sleep(80); this.control('said').setText('yes'); },
        });
        await w.click({ link: 'slow' });
        assert.equal(await w.text('said'), 'yes');
    });

    test('waits until what it is about is there and enabled', async () => {
        const w = await open('<table><tr><td name="place">-</td></tr></table>', { onLate: nothing });
        const clicked = w.click('late');
        await sleep(40);
        assert.deepEqual(shown.calls, []);
        shown.window.control('place').setText('<form><input type="button" name="late" value="Late" disabled onclick="event://onLate"></form>');
        await sleep(40);
        assert.deepEqual(shown.calls, []);
        shown.window.control('late').enable();
        await clicked;
        assert.equal(shown.calls.length, 1);
    });

    test('doubleClick and rightClick', async () => {
        const w = await open('<object classid="flexlist" name="list" size="4" onactivate="event://onOpen" oncontext="event://onAsk">'
            + '<column text="Name" width="100"><option value="a" text="Ann"><option value="b" text="Bob"></object>', { onOpen: nothing, onAsk: nothing, eSelect: nothing });
        await w.doubleClick({ row: 'b', in: 'list' });
        assert.deepEqual(shown.calls.map(([name]) => name), ['eSelect', 'onOpen']);
        await w.rightClick({ row: 'Ann', in: 'list' });
        assert.equal(shown.calls.at(-1)[0], 'onAsk');
    });

    test('two clicks one after the other are no double click', async () => {
        const w = await open('<object classid="flexlist" name="list" onactivate="event://onOpen"><column text="Name" width="100"><option value="a" text="Ann"></object>',
            { onOpen: nothing, eSelect: nothing });
        await w.click({ row: 'a', in: 'list' });
        await w.click({ row: 'a', in: 'list' });
        assert.deepEqual(shown.calls.filter(([name]) => name === 'onOpen'), []);
    });

    test('keys that are held', async () => {
        const w = await open('<object classid="flexlist" name="list" multiple><column text="Name" width="100"><option value="a" text="Ann"><option value="b" text="Bob"></object>');
        await w.click({ row: 'a', in: 'list' });
        await w.click({ row: 'b', in: 'list' }, { modifiers: 'Ctrl' });
        assert.deepEqual(shown.window.control('list').selection, ['a', 'b']);
    });

    test('says what is there instead, and what was probably meant', async () => {
        const w = await open('<form><input type="text" name="who"><input type="button" name="save" value="Save it"></form><a href="event://x">Next</a>');
        await fails(w.click('sav', short),
            'click("sav"): the window "Order" has no "sav"; did you mean "save"? it has the field "who"; the button "save"; the link "Next" (waited 60 ms)');
        await fails(w.click({ link: 'Back' }, short),
            'click({ link: "Back" }): the window "Order" has no { link: "Back" }; it has the field "who"; the button "save"; the link "Next" (waited 60 ms)');
        await fails(w.click({ link: 'next' }, short),
            'click({ link: "next" }): the window "Order" has no { link: "next" }; did you mean "Next"? it has the field "who"; the button "save"; the link "Next" (waited 60 ms)');
    });

    test('says why it cannot: disabled, hidden, of no size, covered, behind a window', async () => {
        const w = await open('<form><input type="button" name="off" value="Off" disabled></form>'
            + '<tabs name="tabs"><tab title="One">1</tab><tab title="Two"><form><input type="button" name="put" value="Put"></form></tab></tabs>'
            + '<details><summary>More</summary><form><input type="text" name="folded"></form></details><table name="none" width="0" height="0"></table>');
        await fails(w.click('off', short), 'click("off"): the button "off" is disabled (waited 60 ms)');
        await fails(w.click('put', short), 'click("put"): the button "put" is on the tab "Two", which is not shown (waited 60 ms)');
        await fails(w.click('folded', short), 'click("folded"): the field "folded" is folded below "More" (waited 60 ms)');
        await fails(w.click('none', short), 'click("none"): the element "none" is without any size (waited 60 ms)');
        const front = tarn.GuiWindow.from('<html><head><title>Front</title></head><body width="100" height="50">x</body></html>');
        const driven = await drive(front);
        await fails(w.click({ tab: 'Two' }, short),
            'click({ tab: "Two" }): the tab "Two" is behind the window "Front", which has to be closed first (waited 60 ms)');
        await driven.close();
        await w.click({ tab: 'Two' });
        await w.click('put');
    });

    test('says that a window has no room', async () => {
        const rows = Array.from({ length: 60 }, (_, i) => `<p>line ${i}</p>`).join('');
        const w = await open(`${rows}<form><input type="button" name="far" value="Far"></form>`, {}, 'maxheight="200" scrolling="fixed"');
        await fails(w.click('far', short), 'click("far"): the button "far" is not in view: the window has no room for it (waited 60 ms)');
    });

    test('says that several fit', async () => {
        const w = await open('<p><a href="event://a">Go</a> <a href="event://b">Go</a></p>', { a: nothing, b: nothing });
        await fails(w.click({ link: 'Go' }, short),
            'click({ link: "Go" }): the window "Order" has 2 of { link: "Go" }: say which one with "nth", counted from 0 (waited 60 ms)');
        await w.click({ link: 'Go', nth: 1 });
        assert.deepEqual(shown.calls.map(([name]) => name), ['b']);
        await fails(w.click({ link: 'Go', nth: 2 }, short),
            'click({ link: "Go", nth: 2 }): the window "Order" has 2 of { link: "Go", nth: 2 }, no number 2 (waited 60 ms)');
    });

    test('a handler that does not return or settle in time is told', async () => {
        const w = await open('<p><a href="event://never">never</a></p>', { never: () => new Promise(nothing) });
        await fails(w.click({ link: 'never' }, { timeout: 150 }), 'click({ link: "never" }): a handler\'s promise has not settled (waited 150 ms)');
    });

    test('throws at once for what is no target', async () => {
        const w = await open('x');
        assert.throws(() => w.click(7), { name: 'TypeError', message: 'click(7): the target must be a name or { link: "Next" }, not the number 7' });
        assert.throws(() => w.click({ lnk: 'x' }), { name: 'TypeError', message: 'click({ lnk: "x" }): a target has no "lnk"; did you mean "link"?' });
        assert.throws(() => w.click({ row: 'x' }), { name: 'TypeError', message: 'click({ row: "x" }): a row needs the name of its list: { row: "x", in: "list" }' });
        assert.throws(() => w.click('x', { time: 7 }), { name: 'TypeError', message: 'click("x"): there is no option "time"; there are timeout, modifiers' });
    });
});

describe('type and press', () => {
    const fields = '<form><input type="text" name="who" value="Bob" onchange="event://onWho"><textarea name="note"></textarea><input type="number" name="count" min="0" max="99">'
        + '<input type="password" name="secret"><input type="button" name="ok" value="OK"><input type="text" name="fixed" value="x" readonly></form>';

    test('types in place of what is there, by real keys', async () => {
        const w = await open(fields, { onWho: nothing });
        await w.type('who', 'Ännä €');
        await w.type('note', 'two\nlines');
        await w.type('count', '42');
        await w.type('secret', 'x-Y');
        assert.deepEqual(await Promise.all(['who', 'note', 'count', 'secret'].map((name) => w.value(name))), ['Ännä €', 'two\nlines', 42, 'x-Y']);
        assert.deepEqual(shown.calls.length, 'Ännä €'.length); // one change for each key
        assert.equal(shown.window.getFocus(), 'secret');
    });

    test('empties a field, adds to one, and goes on where the keyboard is', async () => {
        const w = await open(fields, { onWho: nothing });
        await w.type('who', '');
        assert.equal(await w.value('who'), '');
        await w.type('who', 'Ann');
        await w.type('who', ' B.', { append: true });
        await w.type('!');
        assert.equal(await w.value('who'), 'Ann B.!');
    });

    test('does not type where nothing takes text', async () => {
        const w = await open(fields);
        await fails(w.type('ok', 'x'), 'type("ok", "x"): the button "ok" takes no text');
        await fails(w.type('whom',
            'x', short), 'type("whom", "x"): the window "Order" has no "whom"; did you mean "who"? it has the fields "who", "note", "count", "secret", "fixed"; the button "ok" (waited 60 ms)');
        await fails(w.type('fixed', 'y', short), 'type("fixed", "y"): the field "fixed" is read-only (waited 60 ms)');
        assert.throws(() => w.type(7), { name: 'TypeError', message: 'type(7): the text must be a string, not the number 7' });
    });

    test('keys go through shortcuts, the focus and the page\'s Enter', async () => {
        const w = await open('<object classid="menu" name="menu"><menu name="file" value="File"><param name="save" value="Save" key="Ctrl+S"></menu></object>'
            + '<form><input type="text" name="a"><input type="text" name="b" onenter="event://onEnter"></form>', { eMenu: nothing, onEnter: nothing });
        await w.press('Ctrl+S');
        await w.click('a');
        await w.press('Tab');
        await w.type('x');
        await w.press('Enter');
        await w.press('Shift+Left, Delete');
        assert.deepEqual([shown.calls.map(([name, ...args]) => [name, args[0]]), await w.value('b')], [[['eMenu', 'save'], ['onEnter', 'enter']], '']);
    });

    test('a button has the caption that script gives it', async () => {
        const w = await open('<form><input type="button" name="play" value="Play" onclick="event://onPlay"></form>', {
            onPlay() { this.control('play').setCaption('Pause'); },
        });
        await w.press('Space');
        assert.equal(await w.text('play'), 'Pause');
        await w.click('Pause');
    });

    test('waits for a custom element that hears of one key after the other', async () => {
        tarn.register('Keys', class {
            typed = '';
            eKey() {
                for (const until = Date.now() + 30; Date.now() < until;);
                this.typed += this.keyboard.text;
            }
        });
        const w = await open('<object classid="Keys" name="keys" width="80" height="40"></object>');
        await w.press('Tab');
        await w.type('abcdefgh');
        assert.equal(shown.window.control('keys').typed, 'abcdefgh');
    });

    test('says that there are no such keys', async () => {
        const w = await open(fields);
        await fails(w.press('Ctrl+Foo'), 'press("Ctrl+Foo"): there are no such keys; "Ctrl+S", "Alt+F4", "Return", "Escape", "Tab", "F1" are some');
        assert.throws(() => w.press(7), { name: 'TypeError', message: 'press(7): the keys must be a string such as "Ctrl+S", not the number 7' });
    });
});

test('a list of completions is no obstacle', async () => {
    const w = await open('<form><input type="text" name="who" list="names"><datalist id="names"><option value="Anna"><option value="Annette"></datalist>'
        + '<input type="button" name="ok" value="OK" onclick="event://onOk"></form>', { onOk: nothing });
    await w.type('who', 'Ann');
    await w.click('ok');
    assert.deepEqual([shown.calls.length, await w.value('who')], [1, 'Ann']);
});

describe('select, check and menu', () => {
    const choices = '<form><select name="size" onchange="event://onSize"><option value="s">Small<option value="m">Medium<option value="l">Large</select>'
        + '<select name="box" size="3"><option value="a">Anna<option value="b">Bert</select>'
        + '<input type="radio" name="color" value="red" checked><input type="radio" name="color" value="blue">'
        + '<input type="checkbox" name="agree" onclick="event://onAgree"><input type="text" name="who"></form>'
        + '<tabs name="tabs"><tab title="One" name="one">1</tab><tab title="Two" name="two">2</tab></tabs>'
        + '<object classid="flexlist" name="list" size="3"><column text="Name" width="100"><column text="Town" width="100">'
        + '<option value="a" text1="Ann" text2="Ulm"><option value="b" text1="Bob" text2="Bonn" type="checkbox"></object>'
        + '<object classid="treeview" name="tree" size="3"><option value="p" text="Parent" collapsed><option value="c" text="Child" parent="p"></object>';
    const handlers = { onSize: nothing, onAgree: nothing, eSelect: nothing, eChange: nothing };

    test('an entry, a row, a tab, a radio button, by value or text', async () => {
        const w = await open(choices, handlers);
        await w.select('size', 'l');
        await w.select('size', 'Medium');
        await w.select('box', 'Bert');
        await w.select('color', 'blue');
        await w.select('tabs', 'two');
        await w.select('list', 'Bonn');
        assert.deepEqual({ ...shown.window.form }, { size: 'm', box: 'b', color: 'blue', agree: false, who: '', tabs: 'two', list: 'b', tree: null });
        assert.deepEqual(shown.calls.map(([name]) => name), ['onSize', 'onSize', 'eSelect']);
    });

    test('says what can be chosen instead', async () => {
        const w = await open(choices, handlers);
        await fails(w.select('size', 'x', short), 'select("size", "x"): the list "size" has no "x"; it has "s", "m", "l" (waited 60 ms)');
        await fails(w.select('color',
            'blu', short), 'select("color", "blu"): the group "color" has no "blu"; did you mean "blue"? it has "red", "blue" (waited 60 ms)');
        await fails(w.select('tabs',
            'Tow', short), 'select("tabs", "Tow"): the tabs "tabs" has no "Tow"; did you mean "Two"? it has "One", "Two" (waited 60 ms)');
        await fails(w.select('list', 'c', short), 'select("list", "c"): the list "list" has no "c"; it has "a", "b" (waited 60 ms)');
        await fails(w.select('tree', 'c', short), 'select("tree", "c"): the row "c" is not in view: the row above it is collapsed (waited 60 ms)');
        await fails(w.select('who', 'c'), 'select("who", "c"): the field "who" has nothing to choose from');
    });

    test('checks and unchecks, and does nothing when it is so already', async () => {
        const w = await open(choices, handlers);
        await w.check('agree');
        await w.check('agree');
        assert.deepEqual([await w.value('agree'), shown.calls.length], [true, 1]);
        await w.uncheck('agree');
        await w.check({ name: 'color', value: 'blue' });
        await w.check({ row: 'b', in: 'list' });
        assert.deepEqual([shown.window.form.agree, shown.window.form.color, shown.window.control('list').checked], [false, 'blue', ['b']]);
        await w.uncheck({ row: 'b', in: 'list' });
        assert.deepEqual(shown.window.control('list').checked, []);
    });

    test('says what has no check mark, or cannot go off', async () => {
        const w = await open(choices, handlers);
        await fails(w.check('who'), 'check("who"): the field "who" has no check mark');
        await fails(w.check({ row: 'a', in: 'list' }), 'check({ row: "a", in: "list" }): the row "a" has no check mark');
        await fails(w.uncheck({ name: 'color', value: 'red' }),
            'uncheck({ name: "color", value: "red" }): the radio button "color" goes off only when another one of its group is switched on');
        await fails(w.check('color', short),
            'check("color"): the window "Order" has 2 of "color": say which one with "value", which is one of "red", "blue" (waited 60 ms)');
    });

    const menus = '<object classid="menu" name="menu"><menu name="file" value="&amp;File"><param name="open" value="&amp;Open"><param name="off" value="Off" disabled>'
        + '<menu name="more" value="More"><param name="deep" value="Deep"></menu></menu></object><object classid="contextmenu" name="context"><param name="del" value="Delete"></object>'
        + '<table contextmenu="context" name="here"><tr><td>right here</td></tr></table>';

    test('items of the menu bar, of menus in menus, of a context menu', async () => {
        const w = await open(menus, { eMenu: nothing });
        await w.menu('File', 'Open');
        await w.menu('File', 'More', 'Deep');
        await w.rightClick('here');
        await w.menu('Delete');
        assert.deepEqual(shown.calls.map(([name, item]) => [name, item]), [['eMenu', 'open'], ['eMenu', 'deep'], ['eMenu', 'del']]);
    });

    test('says what the menu has instead, and closes it', async () => {
        const w = await open(menus, { eMenu: nothing });
        await fails(w.menu('File',
            'Opn', short), 'menu("File", "Opn"): the menu "File" has no "Opn"; did you mean "Open"? it has "Open", "Off", "More" (waited 60 ms)');
        await fails(w.menu('Edit',
            'Copy', short), 'menu("Edit", "Copy"): the window "Order" has no { menu: "Edit" }; it has the menu "File" (waited 60 ms)');
        await fails(w.menu('File', 'Off', short), 'menu("File", "Off"): the item "Off" is disabled (waited 60 ms)');
        assert.throws(() => w.menu(), { name: 'TypeError', message: 'menu(): takes the texts of a menu and its items, such as menu("File", "Open")' });
        await w.menu('File', 'Open');
    });

    test('an open menu is in the way of a click', async () => {
        const w = await open(menus);
        await w.rightClick('here');
        await fails(w.click('here', short), 'click("here"): the element "here" is behind a menu that is open (waited 60 ms)');
        await w.press('Escape');
        await w.click('here');
    });
});
