'use strict';
// The values of a window's controls as script reads and writes them outside of handlers, and what controls can take.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { open, shown } = require('./driven.js');
const { packageFolder, runScript, scratch, until } = require('./helpers.js');

const tarn = require(packageFolder);

const options = '<option value="r">Red<option value="g">Green';
const page = `<html><body><input type="text" name="text" value="one"><textarea name="area">two</textarea>
<input type="checkbox" name="box" value="yes"><input type="checkbox" name="plain">
<input type="radio" name="choice" value="a" checked><input type="radio" name="choice" value="b">
<select name="combo">${options}</select><select name="many" size="3" multiple>${options}</select>
<object classid="flexlist" name="flex"><option value="k1" text="First"><option value="k2" text="Second"></object>
<input type="hidden" name="hidden" value="h"><input type="button" name="press" value="Press" onclick="event://onPress">
<input type="text" name="told" onchange="event://onTold"><input type="checkbox" name="task" onclick="event://onTask"></body></html>`;

const untouched = {
    area: 'two', box: null, choice: 'a', combo: 'r', flex: null, hidden: 'h', many: null, plain: false, task: false, text: 'one', told: '',
};

let window;

before(() => {
    fs.writeFileSync(path.join(scratch, 'forms.html'), page);
    window = new tarn.GuiWindow(path.join(scratch, 'forms.html'));
});
after(() => window.close());

function both(check) {
    check();
    window.open();
    check();
    window.close();
}

test('the form has every value that the page shows, open or not', () => {
    assert.deepEqual({ ...window.form }, { ...untouched, combo: '' }); // which shows its first entry when it is made
    window.open();
    assert.deepEqual({ ...window.form }, untouched);
    window.close();
    assert.deepEqual({ ...window.form }, untouched);
    assert.equal(window.form, window.form);
    assert.equal('text' in window.form, true);
    assert.equal('nobody' in window.form, false);
    assert.equal(window.form.nobody, undefined);
});

test('what is assigned is shown at once, by the form and by the control', () => {
    const values = { text: 'other', area: 'a\nb', box: 'yes', plain: true, choice: 'b', combo: 'g', many: 'g', flex: 'k2', hidden: 'x' };
    both(() => {
        for (const [name, value] of Object.entries(values)) {
            window.form[name] = value;
            assert.equal(window.control(name).value, value, name);
            window.form[name] = untouched[name];
            assert.equal(window.form[name], untouched[name], name);
            window.control(name).value = value;
            assert.equal(window.form[name], value, name);
            window.control(name).value = untouched[name];
        }
    });
    window.control('text').setText('by method');
    assert.equal(window.form.text, 'by method');
    window.form.text = 'one';
});

test('booleans switch boxes, numbers become text', () => {
    both(() => {
        for (const [name, value, wanted] of [['box', true, 'yes'], ['box', false, null], ['box', true, 'yes'], ['box', null, null],
            ['plain', true, true], ['plain', null, false], ['plain', '', true], ['plain', false, false],
            ['text', 3, '3'], ['text', -0.5, '-0.5'], ['area', 1e21, '1e+21'], ['hidden', 7, '7'], ['text', 'one', 'one']]) {
            window.form[name] = value;
            assert.equal(window.form[name], wanted, `${name} = ${value}`);
            window.form[name] = untouched[name];
            window.control(name).value = value;
            assert.equal(window.control(name).value, wanted, `${name}.value = ${value}`);
            window.form[name] = untouched[name];
        }
    });
});

test('a value that a control cannot take throws and changes nothing', () => {
    both(() => {
        for (const [name, ...values] of [['text', true, false, null, undefined, {}, [], () => 1, 1n, Symbol('s')], ['area', true, null],
            ['hidden', true], ['box', {}, undefined], ['choice', true, {}], ['combo', true, null], ['many', false], ['flex', true],
            ['press', 'x', 1, true]]) {
            for (const value of values) {
                const isControls = value === null || ['string', 'number', 'boolean'].includes(typeof value);
                assert.throws(() => { window.control(name).value = value; }, { name: 'TypeError', message: new RegExp(`"${name}" cannot take`) });
                if (isControls) {
                    assert.throws(() => { window.form[name] = value; }, { name: 'TypeError', message: new RegExp(`"${name}" of the form cannot take`) });
                }
            }
        }
        assert.deepEqual({ ...window.form }, untouched);
    });
});

test('in a handler the form is what it was when that began, and what is assigned is shown when it returns', async () => {
    window.open();
    const seen = [];
    window.onTask = (session) => {
        seen.push(session.currentForm === window.form, window.form.text);
        window.form.text = 5;
        window.form.box = true;
        assert.throws(() => { window.form.area = true; }, TypeError);
        seen.push(window.form.text, window.form.box, window.control('box').isChecked());
        window.control('area').value = 'at once';
        seen.push(window.form.area, window.control('text').value);
    };
    assert.equal(window.control('press').value, null); // has none
    window.onPress = () => window.onTask(tarn.session);
    window.onTold = () => window.onTask(tarn.session);
    window.form.told = 'tell';
    await until(() => seen.length === 7);
    assert.deepEqual(seen, [true, 'one', '5', 'yes', false, 'at once', '5']);
    assert.deepEqual([window.form.text, window.form.box, window.form.area], ['5', 'yes', 'at once']);
    window.form.told = '';
    Object.assign(window.form, untouched);
    window.close();
});

test('a group of radio buttons without a checked one has the value null', async () => {
    const { stdout, stderr } = await runScript(`
        const window = tarn.GuiWindow.from('<input type="radio" name="r" value="1" onclick="event://onPick"><input type="radio" name="r" value="2">');
        window.onPick = (session) => { console.log(session.currentForm.r); session.currentForm.r = '2'; };
        console.log(window.form.r, { ...window.form }, 'r' in window.form);
        window.form.r = '1';
        console.log(window.form.r, { ...window.form });
        window.setText('<p>without</p>');
        console.log({ ...window.form });`);
    assert.equal(stdout, "null { r: null } true\n1 { r: '1' }\n{}\n");
    assert.equal(stderr, '');
});

test('while a handler runs the session is about its window, and a nested handler gives that back', async () => {
    const other = new tarn.GuiWindow(path.join(scratch, 'forms.html'));
    const seen = [];
    const note = ({ currentWindow, currentForm, currentControl }, of) => seen.push([
        currentWindow === of && currentForm === of.form, currentControl.name, currentControl.window === of]);
    other.onTold = (session) => {
        note(session, other);
        other.close();
    };
    window.onTold = (session) => {
        note(session, window);
        until(() => other.isOpen()).then(() => { other.form.told = 'inner'; });
        other.show();
        note(session, window);
        const third = new tarn.GuiWindow(path.join(scratch, 'forms.html'));
        note(tarn.session, window);
        third.close();
    };
    window.open();
    window.form.told = 'outer';
    await until(() => seen.length === 4);
    assert.deepEqual(seen, Array(4).fill([true, 'told', true]));
    window.onTold = () => {};
    window.form.told = '';
    window.close();
});

test('a form outlives its page, and a control that is gone has no value', () => {
    const gone = window.control('text');
    window.setText('<input type="text" name="other" value="new">');
    assert.equal(window.form.other, 'new');
    assert.equal(window.form.text, undefined);
    window.control('other').value = 'newer';
    assert.equal(window.form.other, 'newer');
    assert.equal(gone.value, null);
    gone.value = 'nobody';
    const empty = new tarn.GuiWindow();
    empty.form.text = 'first';
    empty.load(path.join(scratch, 'forms.html'));
    assert.equal(empty.form.text, 'first');
});

test('the cursor stays behind a text that script makes longer while one types, and where it was otherwise', async () => {
    const w = await open('<input type="text" name="line" onchange="event://onLine"><input type="button" name="paren" value="(" onclick="event://onParen">', {
        onLine() { this.form.line = this.form.line.replace('x', '×'); },
        onParen() {
            this.setFocus('line');
            this.form.line += '(';
        },
    });
    await w.press('Tab, Space');
    await w.type('2x3');
    assert.equal(await w.value('line'), '(2×3');
    await w.press('Home');
    await w.type('x');
    await w.type('1');
    assert.equal(await w.value('line'), '×1(2×3');
    await w.close();
});

test('a part of a text is selected, and typed over', async () => {
    const lines = Array.from({ length: 60 }, (_, number) => `line ${number}`).join('\n');
    const w = await open(`<input type="text" name="line" value="one two three"><textarea name="area" rows="4">${lines}</textarea>`);
    const { window: shownWindow } = shown;
    const [line, area] = ['line', 'area'].map((name) => shownWindow.control(name));
    assert.equal(line.select(4, 7), null);
    shownWindow.setFocus('line');
    await w.type('2');
    assert.equal(line.value, 'one 2 three');
    line.select(0);
    await w.type('>');
    line.select(-5, 1e9);
    await w.type('all');
    assert.equal(line.value, 'all');

    const at = lines.indexOf('line 40');
    area.select(at, at + 7);
    shownWindow.setFocus('area');
    await w.type('forty');
    assert.equal(area.value, lines.replace('line 40', 'forty'));
    area.select(1e9);
    await w.type('!');
    assert.ok(area.value.endsWith('line 59!'));
    assert.throws(() => area.select('a'), TypeError);
    assert.throws(() => area.select(), TypeError);
    await w.close();
    assert.equal(line.select(0), null, 'without a window');
});
