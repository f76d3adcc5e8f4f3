'use strict';
// Form controls on a display: what the user types and clicks is what handlers and methods see, and what script sets is what
// the user goes on with. Every kind of control that a page can have is on the page.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, beforeEach, test } = require('node:test');
const { closeByUser, findActiveWindow, keys, press, type, waitGone } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (height, content) => `<tr><td height="${height}">${content}</td></tr>`;
const field = (attributes) => `<input ${attributes} width="200" height="30">`;
const options = '<option value="r">Red<option value="g">Green<option value="b">Blue';
const formPage = (more = '') => `<html><head><title>Form</title></head>
<body width="500" height="660" valign="top" bgcolor="#F0F0F0"><form name="f" action="event://onSend/all"><table width="480"
cellspacing="0" cellpadding="0">
${row(40, field('type="text" name="text" value="one"') + field('type="text" name="number" value="7" maxlength="2"'))}
${row(40, field('type="password" name="password"'))}
${row(40, field('type="file" name="file"'))}
${row(80, '<textarea name="area" width="200" height="70">two</textarea>')}
${row(40, `<input type="checkbox" name="box" value="yes" width="20" height="20"><input type="checkbox" name="other" value="no"
    width="20" height="20" checked>`)}
${row(40, ['a', 'b', 'c'].map((value) => `<input type="radio" name="choice" value="${value}" width="20" height="20"
    ${value === 'b' ? 'checked' : ''}>`).join(''))}
${row(40, `<select name="combo" width="200" height="30">${options}</select><select name="typed" edit width="200"
    height="30">${options}</select>`)}
${row(80, `<select name="list" size="3" width="200" height="70">${options}</select>`)}
${row(100, `<object classid="flexlist" name="flex" width="200" height="90"><option value="k1" text="First"><option value="k2"
    text="Second"></object><object classid="checklist" name="tasks" width="200" height="90"><option value="t1"
    text="Wash"><option value="t2" text="Dry"></object>`)}
${row(40, `<input type="hidden" name="hidden" value="h"><input type="submit" name="send" value="Send" width="100"
    height="30"><input type="reset" name="reset" value="Reset" width="100" height="30"><input type="button" name="plain"
    value="Plain" onclick="event://onPlain/1/two" width="100" height="30">`)}
</table></form>${more}</body></html>`;

/** Where the controls are, in pixels from the window's upper left corner: the rows' heights say so. */
const at = {
    text: [50, 20], number: [250, 20], password: [50, 60], file: [50, 100], area: [50, 160], box: [8, 220], other: [28, 220],
    choiceA: [8, 260], choiceB: [28, 260], choiceC: [48, 260], combo: [50, 300], typed: [330, 300], listGreen: [50, 347],
    listBlue: [50, 361], flexSecond: [50, 444], tasksDryBox: [209, 427], tasksWash: [250, 412], send: [50, 520],
    reset: [150, 520], plain: [250, 520],
};

const untouched = {
    text: 'one', number: '7', password: '', file: '', area: 'two', box: null, other: 'no', choice: 'b', combo: 'r', typed: 'Red',
    list: '', flex: null, tasks: null, hidden: 'h',
};

let program;
let window;

before(async () => { program = await Program.start('let window;'); });
/** A value for the next page is none of the page that is shown. */
after(() => program.end('tarn: the form has no control "wish"\n'));

beforeEach(async () => {
    fs.writeFileSync(path.join(scratch, 'form.html'), formPage());
    await program.ask(`calls.length = forms.length = 0; window = new tarn.GuiWindow('form.html');
        record(window, ['onSend', 'onPlain']); window.open()`);
    window = await findActiveWindow('Form');
});

afterEach(async () => {
    await program.ask('window.close()');
    await waitGone('Form');
});

const pressOn = (name) => press(window, ...at[name]);

/** Clicks into a field and types at its end; a part "\n" is the Return key. */
async function typeInto(name, ...parts) {
    await pressOn(name);
    await program.becomes('window.getFocus()', name);
    await keys(name === 'area' ? 'ctrl+End' : 'End');
    for (const part of parts) {
        await (part === '\n' ? keys('Return') : type(part));
    }
}

/** Presses Send; the values of the form that the handler sees, which is called once. */
async function send() {
    const known = await program.ask('calls.length');
    await pressOn('send');
    await program.called([['onSend', 'send', 'all']], known);
    return program.ask('forms.at(-1)');
}

test('a handler sees the values of every control as the page gives them', async () => {
    assert.deepEqual(await send(), untouched);
});

test('a handler sees what was typed and clicked in every kind of control', async () => {
    await typeInto('text', ' two');
    await typeInto('number', '89');
    await typeInto('password', 'se cret');
    await typeInto('file', '/tmp/a b.txt');
    await typeInto('area', ' more', '\n', 'lines');
    await pressOn('box');
    await pressOn('other');
    await pressOn('choiceC');
    await pressOn('listBlue');
    await pressOn('flexSecond');
    await pressOn('tasksDryBox');
    await pressOn('tasksWash');
    await program.ask("window.setFocus('combo')");
    await keys('Down', 'Down');
    await typeInto('typed', 'dish');
    assert.deepEqual(await send(), {
        text: 'one two', number: '78', password: 'se cret', file: '/tmp/a b.txt', area: 'two more\nlines', box: 'yes', other: null,
        choice: 'c', combo: 'b', typed: 'Reddish', list: 'b', flex: 'k2', tasks: 't1', hidden: 'h',
    });
    const states = ["control('box').isChecked()", "control('other').isChecked()", "control('flex').isItemSelected('k2')",
        "control('flex').isItemSelected('K1')", "control('tasks').isItemChecked('t2')", "control('tasks').isItemChecked('t1')"];
    assert.deepEqual(await program.ask(`[${states.map((state) => `window.${state}`)}]`), [true, false, true, false, true, false]);
});

test('an entry of a drop-down list is chosen in the list that drops down', async () => {
    await pressOn('combo');
    await keys('Down', 'Return');
    assert.equal((await send()).combo, 'g');
});

test('a submit button follows the link of its form, a button its own, a reset button none', async () => {
    await typeInto('text', '!');
    await pressOn('box');
    await pressOn('reset');
    await pressOn('plain');
    await program.called([['onPlain', 'plain', '1', 'two']]);
    assert.deepEqual(await program.ask('forms[0]'), { ...untouched, text: 'one!', box: 'yes' }, 'nothing was reset');
    await program.ask("window.setEnterControl('send')");
    await typeInto('text', '?', '\n');
    await program.called([['onSend', 'send', 'all']], 1);
    assert.equal(await program.ask('forms[1].text'), 'one!?');
});

const set = {
    text: 'set \u00e4\u{1f600}', number: '1234', password: 'p', file: 'f', area: 'a\nb', box: 'YES', other: null, choice: 'a',
    combo: 'G', typed: 'b', list: 'g', flex: 'K1', tasks: 't2', hidden: 'new',
};
const shown = { ...set, box: 'yes', combo: 'g', typed: 'Blue', flex: 'k1' };

test('what a handler writes into the form is in the controls, and the user goes on from there', async () => {
    await program.ask(`record(window, ['onSend'], { act: () => Object.assign(tarn.session.currentForm, ${JSON.stringify(set)}) })`);
    assert.deepEqual(await send(), untouched);
    await program.ask("record(window, ['onSend'])");
    assert.deepEqual(await send(), shown);
    await typeInto('text', '+');
    await typeInto('area', '+');
    await pressOn('box');
    await pressOn('other');
    await pressOn('choiceB');
    assert.deepEqual(await send(), { ...shown, text: `${set.text}+`, area: 'a\nb+', box: null, other: 'no', choice: 'b' });
});

const methods = {
    text: "setText('by method')", password: "setText('p')", file: "setText('f')", area: "setText('x\\ny')", box: 'check()',
    other: 'uncheck()', combo: "selectItem('b')", typed: "selectItem('g')", list: "addItem('v', 'Violet')",
    flex: "selectItem('k2')", tasks: "checkItem('t1')", hidden: "setText('hm')",
};
const byMethods = {
    ...untouched, text: 'by method', password: 'p', file: 'f', area: 'x\ny', box: 'yes', other: null, combo: 'b', typed: 'Green',
    list: 'v', flex: 'k2', hidden: 'hm',
};
const callMethods = Object.entries(methods).map(([name, call]) => `window.control('${name}').${call};`).join(' ');

test('what a handler does by the methods of controls is in the controls, and the form follows', async () => {
    await program.ask(`record(window, ['onSend'], { act: () => { ${callMethods} } })`);
    assert.deepEqual(await send(), untouched);
    await program.ask("record(window, ['onSend'])");
    assert.deepEqual(await send(), byMethods);
    assert.equal(await program.ask("window.control('tasks').isItemChecked('t1')"), true);
    await typeInto('area', 'z');
    assert.deepEqual(await send(), { ...byMethods, area: 'x\nyz' });
});

test('methods work outside of handlers as well, on a window that is open', async () => {
    await program.ask(callMethods);
    assert.deepEqual(await send(), byMethods);
});

test('a control that is disabled takes no input and keeps its value', async () => {
    await program.ask("for (const name of ['text', 'box', 'send']) window.control(name).disable(); window.setFocus('reset')");
    await program.becomes('window.getFocus()', 'reset');
    await pressOn('text');
    await keys('x');
    await pressOn('box');
    await pressOn('send');
    await pressOn('plain');
    await program.called([['onPlain', 'plain', '1', 'two']]);
    assert.deepEqual(await program.ask('forms[0]'), untouched);
    await program.ask("window.control('text').enable(); window.control('send').enable()");
    await typeInto('text', '!');
    assert.equal((await send()).text, 'one!');
});

test('between handlers the form shows each change at once', async () => {
    await typeInto('text', '1');
    assert.equal((await send()).text, 'one1');
    await typeInto('text', '2');
    assert.equal(await program.ask('tarn.session.currentForm.text'), 'one12');
    assert.equal((await send()).text, 'one12');
});

test('when the user closes the window, the form has the last values', async () => {
    await typeInto('text', ' last');
    await pressOn('box');
    await closeByUser(window);
    await program.becomes('window.isOpen()', false);
    assert.deepEqual(await program.ask('({ ...tarn.session.currentForm })'), { ...untouched, text: 'one last', box: 'yes' });
});

test('another page takes its first values from the form and leaves none of the old ones', async () => {
    fs.writeFileSync(path.join(scratch, 'next.html'), `<html><body valign="top">
        <input type="text" name="text" value="page"><input type="text" name="wish" value="page">
        <input type="button" name="next" onclick="event://onNext"></body></html>`);
    await program.ask("tarn.session.currentForm.wish = 'kept'; record(window, ['onNext']); window.load('next.html')");
    assert.deepEqual(await program.ask('({ ...tarn.session.currentForm })'), { text: 'page', wish: 'kept' });
    await program.ask("window.setFocus('next')");
    await program.becomes('window.getFocus()', 'next');
    await keys('space');
    await program.called([['onNext', 'next']]);
    assert.deepEqual(await program.ask('forms[0]'), { text: 'page', wish: 'kept' });
});

test('each change calls the link of its control, with the value in the form', async () => {
    fs.writeFileSync(path.join(scratch, 'changes.html'), formPage().replace(/name="(text|area|combo|list)"/g,
        'name="$1" onchange="event://onChanged/$1"'));
    await program.ask(`record(window, ['onChanged', 'eSelect', 'eChange'],
        { label: (name) => name + ' ' + tarn.session.currentForm[calls.target ?? 'text'] }); window.load('changes.html')`);
    await typeInto('text', 'x');
    await program.called([['onChanged onex', 'text', 'text']]);
    await type('y');
    await program.called([['onChanged onexy', 'text', 'text']], 1);
    await program.ask("calls.length = 0; calls.target = 'list'");
    await pressOn('listGreen');
    await program.called([['onChanged g', 'list', 'list']]);
    await program.ask("calls.length = 0; calls.target = 'combo'; window.setFocus('combo')");
    await keys('Down');
    await program.called([['onChanged g', 'combo', 'combo']]);
    await program.ask("calls.length = 0; calls.target = 'flex'");
    await pressOn('flexSecond');
    await program.called([['eSelect k2', 'flex']]);
    await program.ask("calls.length = 0; calls.target = 'tasks'");
    await pressOn('tasksDryBox');
    await program.becomes("window.control('tasks').isItemChecked('t2')", true);
    await program.becomes("calls.filter(([label]) => label.startsWith('eChange'))", [['eChange null', 'tasks']]);
});
