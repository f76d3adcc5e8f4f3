'use strict';
// Lists with columns as data: rows, selection, check boxes and columns as a whole.

const assert = require('node:assert/strict');
const { after, before, beforeEach, test } = require('node:test');
const { open, shown } = require('./driven.js');
const { packageFolder, until } = require('./helpers.js');

const tarn = require(packageFolder);

class Lists extends tarn.GuiWindow {
    calls = [];

    eSelect() {
        this.calls.push('select');
    }

    eChange() {
        this.calls.push('change');
    }
}

let window;
let list;
let checks;

const page = `<html><body width="400" height="300"><object classid="treeview" name="list" width="300" height="120" multiple></object>
<object classid="checklist" name="checks" width="300" height="100"></object></body></html>`;

before(() => {
    window = Lists.from(page);
    list = window.control('list');
    checks = window.control('checks');
});
beforeEach(() => {
    window.close();
    list.setRows([]);
    checks.setRows([]);
    window.calls = [];
});
after(() => window.close());

/** Runs a check of a list that is hidden, and again of one that is shown. */
function both(check) {
    check();
    list.clear();
    checks.clear();
    window.open();
    check();
}

const usual = { parent: null, type: 'normal', checked: false, selected: false, enabled: true, expanded: true, icon: null, color: null, bgcolor: null, bold: false };

test('rows come back as they were set, with what was left out', () => {
    both(() => {
        assert.equal(list.setRows([
            { value: 'a', texts: ['Alpha', 1, null] },
            { value: 'b', parent: 'A', type: 'checkbox', checked: true, expanded: false, icon: 'b.png' },
            { texts: ['third', 'x|2|y'], selected: true },
            { value: 7, texts: [], enabled: false, type: 2 },
        ]), null);
        assert.deepEqual(list.rows(), [
            { ...usual, value: 'a', texts: ['Alpha', '1', ''] },
            { ...usual, value: 'b', texts: ['b', '', ''], parent: 'a', type: 'checkbox', checked: true, expanded: false, icon: 'b.png' },
            { ...usual, value: 'third', texts: ['third', 'x|2|y', ''], selected: true },
            { ...usual, value: '7', texts: ['7', '', ''], enabled: false, type: 'radiobutton' },
        ]);
    });
});

test('texts of any kind and length arrive as they are', () => {
    const texts = ['', '\u0000', 'ä€😀\ud800', 'x'.repeat(70000), '|1|'];
    list.setRows([{ value: 'v', texts }, { value: '\u0000a', texts: [] }]);
    assert.deepEqual(list.rows().map((row) => row.texts.slice(0, 5)), [texts, ['\u0000a', '', '', '', '']]);
});

test('rows of a check list have check boxes unless they say otherwise', () => {
    checks.setRows([{ value: 'a', checked: true }, { value: 'b', type: 'normal', checked: true }]);
    assert.deepEqual(checks.rows().map((row) => [row.type, row.checked]), [['checkbox', true], ['normal', false]]);
    assert.deepEqual(checks.checked, ['a']);
});

test('rows and texts say how they look, and say it again', () => {
    both(() => {
        list.setRows([
            { value: 'a', texts: ['plain', { text: 'late', color: 'red', bold: true }, { text: 7 }], bgcolor: '#FFC', bold: true },
            { value: 'b', texts: ['x'.repeat(70000), { color: '#00f', bold: false }] },
        ]);
        const rows = list.rows();
        assert.deepEqual(rows[0], {
            ...usual, value: 'a', bgcolor: '#FFC', bold: true,
            texts: ['plain', { text: 'late', color: 'red', bgcolor: null, bold: true }, '7'],
        });
        assert.deepEqual(rows[1].texts.slice(1), [{ text: '', color: '#00f', bgcolor: null, bold: false }, '']);
        list.setRows(rows);
        assert.deepEqual(list.rows(), rows);
    });
    assert.throws(() => list.setRows([{ color: 'a;b' }]), { name: 'TypeError', message: /"color" must be a colour, not the string "a;b"/ });
    assert.throws(() => list.setRows([{ texts: [{ txet: 'x' }] }]), { name: 'TypeError', message: /"texts" must be an array of strings/ });
});

test('single rows of many can be asked, changed, added and removed', () => {
    both(() => {
        list.setRows(Array.from({ length: 1000 }, (_, i) => ({ value: `v${i}`, texts: [`text ${i}`] })));
        list.setItemText('V500', 2, 'second');
        list.removeItem('v0');
        list.addItem('new', 'added', 'v999');
        list.disableItem('v3');
        const rows = list.rows();
        assert.equal(rows.length, 1000);
        assert.deepEqual(rows[499].texts, ['text 500', 'second']);
        assert.deepEqual([rows[0].value, rows[2].enabled, rows[999].parent], ['v1', false, 'v999']);
    });
});

test('setting rows keeps the selection and what is collapsed, by value', () => {
    both(() => {
        list.setRows([{ value: 'a' }, { value: 'b', parent: 'a' }, { value: 'c' }, { value: 'd' }]);
        list.selection = ['C', 'd', 'nobody'];
        list.collapseItem('a');
        list.setRows([{ value: 'new' }, { value: 'd' }, { value: 'a' }, { value: 'b', parent: 'a' }, { value: 'c', enabled: false }]);
        assert.deepEqual(list.selection, ['d']);
        assert.equal(list.isItemExpanded('a'), false);
        list.setRows([{ value: 'a', expanded: true }, { value: 'd' }, { value: 'e', selected: true }]);
        assert.deepEqual(list.selection, ['e']);
        assert.equal(list.isItemExpanded('a'), true);
        list.clear();
        assert.deepEqual([list.rows(), list.selection], [[], []]);
    });
});

test('handlers hear of a selection and of boxes that have changed, once', async () => {
    window.open();
    list.setRows([{ value: 'a' }, { value: 'b' }]);
    checks.setRows([{ value: 'a' }, { value: 'b' }]);
    assert.deepEqual(window.calls, []);
    list.selection = ['a', 'b'];
    list.selection = ['b', 'a'];
    checks.checked = ['a', 'b'];
    checks.checked = ['b', 'a'];
    assert.deepEqual(window.calls, ['select', 'change']);
    list.setRows([{ value: 'b' }, { value: 'a' }]);
    assert.deepEqual(window.calls, ['select', 'change']);
    list.clear();
    assert.deepEqual(window.calls, ['select', 'change', 'select']);
});

test('only one row of a list without "multiple" is selected', () => {
    both(() => {
        checks.setRows([{ value: 'a' }, { value: 'b', selected: true }, { value: 'c', selected: true }]);
        assert.deepEqual(checks.selection, ['b']);
        checks.selection = ['c', 'a'];
        assert.deepEqual(checks.selection, ['a']);
        assert.equal(window.form.checks, 'a');
    });
});

test('columns are set and read as a whole', () => {
    both(() => {
        list.columns = [{ text: 'Name' }, { text: 'Size', width: 90, align: 'right', sort: 'number' }, { text: 'x|2|y' }];
        const [name, size, odd] = list.columns;
        assert.deepEqual({ ...name, width: 0 }, { text: 'Name', width: 0, align: 'left', sort: null, order: 0, editable: false });
        assert.deepEqual(size, { text: 'Size', width: 90, align: 'right', sort: 'number', order: 1, editable: false });
        assert.equal(odd.text, 'x|2|y');
        list.columns = [{ text: 'a', order: 2 }, { text: 'b', editable: true, order: 0 }, { text: 'c', order: 1 }];
        assert.deepEqual(list.columns.map(({ order, editable }) => [order, editable]), [[2, false], [0, true], [1, false]]);
        list.setRows([{ value: 'a', texts: ['1', '2', '3'] }]);
        assert.deepEqual(list.columns.map(({ order }) => order), [2, 0, 1]);
        list.clear();
        list.columns = [{ text: 'One' }];
        assert.deepEqual(list.columns.map((each) => each.text), ['One']);
    });
});

test('a mistake names the method, the argument and the row', () => {
    const rows = (value, message) => assert.throws(() => list.setRows(value), { name: 'TypeError', message });
    rows(5, 'FlexListControl.setRows(rows): "rows" must be an array, not the number 5');
    rows([{}, 'x'], 'FlexListControl.setRows(rows): "rows", row 1: must be an object, not the string "x"');
    rows([{ value: {} }], 'FlexListControl.setRows(rows): "rows", row 0: "value" must be a string, a number or null, not an object');
    rows([{ texts: ['a', []] }],
        'FlexListControl.setRows(rows): "rows", row 0: "texts" must be an array of strings, numbers, nulls or objects { text, color, '
            + 'bgcolor, bold }, not an array');
    rows([{ type: 'radio' }],
        'FlexListControl.setRows(rows): "rows", row 0: "type" must be "normal", "checkbox" or "radiobutton", not the string "radio"');
    rows([{ txets: [] }], 'FlexListControl.setRows(rows): "rows", row 0: there is no "txets"; did you mean "texts"?');
    assert.throws(() => list.setRows(), { name: 'TypeError', message: 'FlexListControl.setRows(rows): "rows" is missing' });
    assert.throws(() => { list.selection = 'a'; },
        { name: 'TypeError', message: 'FlexListControl.selection must be an array of values, not the string "a"' });
    assert.throws(() => { list.columns = [{ align: 'top' }]; }, {
        name: 'TypeError',
        message: 'FlexListControl.columns, column 0: "align" must be "left" or "right" or "center", not the string "top"',
    });
    assert.deepEqual(list.rows(), []);
});

const numbered = (first, count) => Array.from({ length: count }, (_, i) => ({ value: `r${first + i}`, texts: [`row ${first + i}`] }));

test('rows of a source are asked for when they are in view', async () => {
    const asked = [];
    list.setSource(10000000, (first, count) => {
        asked.push([first, count]);
        return numbered(first, count);
    });
    assert.deepEqual(asked, []); // nobody sees them
    window.open();
    await until(() => asked.length > 0);
    await until(() => {
        list.selectItem('r3');
        return list.isItemSelected('r3');
    });
    assert.deepEqual(asked, [[0, 200]]);
    assert.deepEqual([list.selection, window.form.list], [['r3'], 'r3']);
    list.addItem('x', 'does nothing');
    list.removeItem('r3');
    assert.deepEqual([list.rows(), list.selection], [[], ['r3']]);
    list.setRows([{ value: 'a' }]);
    assert.deepEqual(list.rows().map((row) => row.value), ['a']);
});

test('the window does not wait for the promise of a source, and an older source is not heard any more', async () => {
    let answer;
    window.open();
    list.setSource(1000, () => new Promise((resolve) => { answer = resolve; }));
    await until(() => answer !== undefined);
    assert.equal(list.isItemSelected('old'), false); // the window answers
    list.setSource(3, () => [{ texts: ['new'] }]);
    answer([{ value: 'old', texts: ['old'] }]);
    await until(() => {
        list.selection = ['new'];
        return list.selection.length === 1;
    });
    list.selectItem('old');
    assert.deepEqual(list.selection, ['new']);
});

test('what a source throws is reported, and its rows stay empty', async () => {
    const errors = [];
    tarn.onError = (error, { handler }) => errors.push(`${handler}: ${error.message}`);
    window.open();
    list.setSource(1000, () => { throw new Error('no rows today'); });
    await until(() => errors.length > 0);
    list.setSource(1000, () => [{ txets: [] }]);
    await until(() => errors.length > 1);
    tarn.onError = null;
    assert.deepEqual(errors, ['setSource: no rows today', 'setSource: FlexListControl.setSource(count, source): the rows that "source" '
        + 'returns, row 0: there is no "txets"; did you mean "texts"?']);
    for (const count of [-1, 1.5, 1e9]) {
        assert.throws(() => list.setSource(count, () => []), { name: 'TypeError', message: /whole number from 0 to 100000000/ });
    }
});

test('a list that is gone has no rows and takes none', () => {
    const gone = tarn.GuiWindow.from(page);
    const old = gone.control('list');
    old.setRows([{ value: 'a' }]);
    gone.setText('<html><body>nothing</body></html>');
    assert.equal(old.setRows([{ value: 'b' }]), null);
    assert.deepEqual([old.rows(), old.selection, old.checked, old.columns], [[], [], [], []]);
});

test('Tab in a text that is changed goes on to the next one of its row', async () => {
    const told = [];
    const w = await open('<object classid="listview" name="names" onrename="event://onName"><column text="A" width="80" editable>'
        + '<column text="B" width="80"><column text="C" width="80" editable><param value="a" text1="1" text2="2" text3="3"><param value="b" text1="4" text2="5" text3="6"></object>', {
        onName({ event }) { told.push([event.row, event.column, event.text]); },
    });
    await w.press('F2');
    await w.type('one');
    await w.press('Tab');
    await w.type('three');
    await w.press('Shift+Tab');
    await w.type('first');
    await w.press('Tab, Tab'); // there is none behind the last
    assert.equal(shown.window.getFocus(), 'names');
    assert.deepEqual(told, [['a', 1, 'one'], ['a', 3, 'three'], ['a', 1, 'first']]);
    assert.deepEqual((await w.rows('names'))[0].texts, ['first', '2', 'three']);
    await w.close();
});

test('keys go on from the row that script has selected', async () => {
    for (const [multiple, keys, selected] of [['', 'Down', ['c']], ['multiple', 'Down, Space', ['b', 'c']]]) {
        const w = await open(`<object classid="listview" name="names" ${multiple}><param value="a" text1="1"><param value="b" text1="2"><param value="c" text1="3"></object>`, { eSelect() {} });
        await w.press('Home');
        shown.window.control('names').selection = ['b'];
        await w.press(keys);
        assert.deepEqual(shown.window.control('names').selection, selected, multiple);
    }
});
