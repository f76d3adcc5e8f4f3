'use strict';
// `<select>` as data, with the real component off the screen: its items, and what is selected.

const assert = require('node:assert/strict');
const { after, before, test } = require('node:test');
const { packageFolder, until } = require('./helpers.js');

const { GuiWindow } = require(packageFolder);

let window;
let told = 0;
before(() => {
    window = GuiWindow.from(`<select name="one"><option value="x">X</select><select name="box" size="3"></select>
        <select name="many" size="4" multiple onchange="event://onMany"></select><select name="edit" edit></select>`);
    window.onMany = () => { told += 1; };
});
after(() => window.close());

/** The same before and while the window is open. */
function both(name, check) {
    test(`${name}, closed`, () => { window.close(); return check(); });
    test(`${name}, open`, () => { window.open(); return check(); });
}

const shown = (control) => control.items().map(({ value, text }) => `${value}=${text}`).join(' ');

both('items are replaced; a text alone is value and text', () => {
    const one = window.control('one');
    assert.equal(one.setItems(['Oslo', { value: 'rom', text: 'Rome' }, 5, { text: 'Bern' }, { value: 'pa' }]), null);
    assert.equal(shown(one), 'Oslo=Oslo rom=Rome 5=5 Bern=Bern pa=pa');
    one.setItems([]);
    assert.deepEqual(one.items(), []);
    assert.deepEqual(one.selection, []);
});

both('one is selected, by value and without regard to case', () => {
    const one = window.control('one');
    one.setItems(['a', 'b', 'c']);
    one.selection = ['B', 'c'];
    assert.deepEqual([one.selection, one.value, window.form.one], [['b'], 'b', 'b']);
    const box = window.control('box');
    box.setItems(['a', 'b', 'c']);
    box.selection = ['c', 'a'];
    assert.deepEqual(box.selection, ['a']);
    box.selection = [];
    assert.deepEqual([box.selection, box.value], [[], '']);
});

both('what is selected stays with its values, unless the items say what is', () => {
    const many = window.control('many');
    many.setItems(['a', 'b', 'c']);
    many.selection = ['c', 'a'];
    assert.deepEqual(many.selection, ['a', 'c']);
    many.setItems(['c', 'd', 'a']);
    assert.deepEqual(many.selection, ['c', 'a']);
    many.setItems([{ value: 'd', selected: true }, 'a']);
    assert.deepEqual([many.selection, window.form.many], [['d'], 'd']);
    many.clear();
    assert.deepEqual([many.items(), many.selection, window.form.many], [[], [], null]);
});

both('what stands in an editable one stays when its items change', () => {
    const edit = window.control('edit');
    edit.setItems(['a', 'b']);
    edit.value = 'typed';
    assert.equal(edit.value, 'typed');
    edit.setItems(['c']);
    assert.equal(window.form.edit, 'typed');
    edit.value = 'c';
    assert.deepEqual([edit.value, edit.selection], ['c', ['c']]);
});

test('the handler of a shown list hears of a new selection once, and of none when it stays', async () => {
    window.open();
    const many = window.control('many');
    many.setItems(['a', 'b', { value: 'c', selected: true }]);
    await until(() => told > 0);
    told = 0;
    many.selection = ['a', 'b'];
    await until(() => told > 0);
    many.setItems(['b', 'a', 'z'].sort());
    many.setItems(['a', 'b']);
    await new Promise((resolve) => { setTimeout(resolve, 100); });
    assert.equal(told, 1);
});

test('a hundred thousand items are shown', () => {
    window.open();
    const many = window.control('many');
    many.setItems(Array.from({ length: 100000 }, (_, i) => `item ${i}`));
    many.selection = ['item 99999'];
    assert.deepEqual([many.items().length, many.selection], [100000, ['item 99999']]);
});

test('mistakes throw', () => {
    const one = window.control('one');
    const throws = (work, message) => assert.throws(work, { name: 'TypeError', message });
    throws(() => one.setItems(), /^ListControl\.setItems\(items\): "items" is missing$/);
    throws(() => one.setItems(5), /must be an array, not the number 5$/);
    throws(() => one.setItems([{ valu: 1 }]), /, item 0: there is no "valu"; did you mean "value"\?$/);
    throws(() => one.setItems(['a', { text: true }]), /, item 1: "text" must be a string, a number or null, not true$/);
    throws(() => { one.selection = 'a'; }, /^ListControl\.selection must be an array of values, not the string "a"$/);
    throws(() => one.clear(1), /^ListControl\.clear\(\): takes no arguments, not 1$/);
});
