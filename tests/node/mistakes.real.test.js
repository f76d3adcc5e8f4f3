'use strict';
// Forty mistakes that beginners make: what each throws or prints. None is silent, and none is told with the name of a function
// that only the component knows. The first part of the table throws; the second prints one line.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { runScript, scratch } = require('./helpers.js');

const write = (name, text) => fs.writeFileSync(path.join(scratch, name), text);
write('order.html', `<html><head><title>Order</title></head><body>
<input type="text" name="who" value="Ada">
<input type="checkbox" name="milk">
<select name="size"><option value="s">small</select>
<input type="button" name="ok" value="OK" onclick="event://onOk">
<object classid="menu" name="bar"><param name="save" value="Save"></object>
</body></html>`);
for (const [name, body] of Object.entries({
    'tag.html': '<tabel><tr><td>x</td></tr></tabel>', 'attribute.html': '<table>\n<tr><td wdith="3">x', 'type.html': '<input type="buton" name="b">',
    'color.html': '<td bgcolor="gren">x', 'action.html': '<input type="button" name="ok" value="OK" onclick="onOk()">',
    'width.html': '<table width="wide"><tr><td>x', 'reference.html': 'a &nbps; b', 'class.html': '<object classid="Guage"></object>',
    'pattern.html': '<input type="text" pattern="[0-9">', 'wrap.html': '<textarea wrap="hard"></textarea>',
})) {
    write(name, `<html><body>${body}</body></html>`);
}

const open = 'const window = new tarn.GuiWindow("order.html");';

/** Source, and what its Error says: name and message, in which AT is the folder of the program. */
const thrown = [
    ['new tarn.GuiWindow("ordr.html")', 'Error', 'ENOENT: new GuiWindow(path): cannot read the page AT/ordr.html (no such file)'],
    ['new tarn.GuiWindow("vfs://Shop/order.html")', 'Error', 'ENOENT: new GuiWindow(path): cannot read the page vfs://Shop/order.html (no such file)'],
    ['new tarn.GuiWindow(__dirname)', 'Error', 'EISDIR: new GuiWindow(path): cannot read the page AT (not a file)'],
    ['new tarn.GuiWindow({ width: 300 })', 'TypeError', 'new GuiWindow(path): "path" must be a path, as a string or a file URL, not an object'],
    ['tarn.GuiWindow("order.html")', 'TypeError', "Class constructor GuiWindow cannot be invoked without 'new'"],
    [`${open} window.setTitle(7)`, 'TypeError', 'GuiWindow.setTitle(title): "title" must be a string, not the number 7'],
    [`${open} window.setTitle()`, 'TypeError', 'GuiWindow.setTitle(title): "title" is missing'],
    [`${open} window.setTitle(fetchTitle()); async function fetchTitle() {}`, 'TypeError',
        'GuiWindow.setTitle(title): "title" must be a string, not a promise (is "await" missing?)'],
    [`${open} window.setDefaultSize("400", "300")`, 'TypeError', 'GuiWindow.setDefaultSize(width, height): "width" must be a number, not the string "400"'],
    [`${open} window.setMinimumSize(400)`, 'TypeError', 'GuiWindow.setMinimumSize(width, height): "height" is missing'],
    [`${open} window.open("modal")`, 'TypeError', 'GuiWindow.open(modal): "modal" must be true or false, not the string "modal"'],
    [`${open} window.show("order.html")`, 'TypeError', 'GuiWindow.show(): takes no arguments, not 1'],
    [`${open} window.isOpen(true)`, 'TypeError', 'GuiWindow.isOpen(): takes no arguments, not 1'],
    [`${open} window.control()`, 'TypeError', 'GuiWindow.control(name): "name" is missing'],
    [`${open} window.setReturnValue()`, 'TypeError', 'GuiWindow.setReturnValue(value): "value" is missing'],
    [`${open} window.setResizable("no")`, 'TypeError', 'GuiWindow.setResizable(resizable): "resizable" must be true or false, or a number, not the string "no"'],
    [`${open} window.control("who").setText(3)`, 'TypeError', 'GuiControl.setText(text): "text" must be a string or html`...`, not the number 3'],
    [`${open} window.control("milk").check("on")`, 'TypeError', 'ButtonControl.check(on): "on" must be true or false, or a number, not the string "on"'],
    [`${open} window.control("size").addItem({ value: "m" })`, 'TypeError', 'ListControl.addItem(value, text): "value" must be a string, not an object'],
    [`${open} window.control("bar").setItemText("save")`, 'TypeError', 'MenuControl.setItemText(name, text): "text" is missing'],
    [`${open} window.control("who").width = 300`, 'TypeError', "Cannot assign to read only property 'width' of GuiControl"],
    ['tarn.GuiWindow.onLoad("*.html")(1)', 'TypeError', 'tarn.GuiWindow.onLoad(...) is not a function'],
    ['tarn.GuiWindow.onLoad((window, text) => text)', 'TypeError', 'GuiWindow.onLoad(pattern, filter): "pattern" must be a string, not a function'],
    ['tarn.GuiWindow.from({})', 'TypeError', 'GuiWindow.from(page): "page" must be a string or html`...`, not an object'],
    ['tarn.html`<p>${{ name: "Ada" }}</p>`', 'TypeError', 'html`...`: value 1 must be text, a number, html`...` or an array of these, not an object'],
    ['tarn.html("<p>Hello</p>")', 'TypeError', 'html is a tag: write html`<p>${text}</p>`, without parentheses'],
    ['tarn.register("Gauge", new (class Gauge {})())', 'TypeError', 'tarn.register(name, Class): "Class" must be a class, not an object of the class Gauge'],
    ['tarn.mount("a/b", ".")', 'TypeError', 'tarn.mount(name, folder): "name" must be a string without "/", not the string "a/b"'],
    ['tarn.alert()', 'TypeError', 'alert(text, options): "text" is missing'],
    ['tarn.openFile({ filter: [] })', 'TypeError', 'openFile(options): there is no option "filter"; did you mean "filters"?'],
    ['tarn.onError = "log"', 'TypeError', 'tarn.onError must be a function or null, not the string "log"'],
];

/** Source and the one line that it prints. */
const printed = [
    ['new tarn.GuiWindow("tag.html")', 'guiHtmlParser::pullContent() - ignoring unrecognized tag <tabel> (warning) in AT/tag.html:1; did you mean <table>?'],
    ['new tarn.GuiWindow("attribute.html")', 'tarn: ignoring unknown attribute wdith of <td> (warning) in AT/attribute.html:2; did you mean width?'],
    ['new tarn.GuiWindow("type.html")', 'tarn: ignoring <input> of unknown type "buton" (warning) in AT/type.html:1; did you mean button?'],
    ['new tarn.GuiWindow("color.html")', 'tarn: bgcolor="gren" of <td> is not a color (warning) in AT/color.html:1'],
    ['new tarn.GuiWindow("pattern.html")', 'tarn: pattern="[0-9" of <input> is no pattern (warning) in AT/pattern.html:1'],
    ['new tarn.GuiWindow("wrap.html")', 'tarn: wrap="hard" of <textarea> is neither off nor soft (warning) in AT/wrap.html:1'],
    ['new tarn.GuiWindow("width.html")', 'tarn: width="wide" of <table> is not a number (warning) in AT/width.html:1'],
    ['new tarn.GuiWindow("reference.html")', 'tarn: unknown character reference &nbps; stays as it is (warning) in AT/reference.html:1; did you mean &nbsp;?'],
    ['new tarn.GuiWindow("action.html")', 'tarn: onclick="onOk()" of <input> calls no handler (warning) in AT/action.html:1; did you mean event://onOk?'],
    [`${open} window.control("woh")`, 'GuiWindow::GetControl() - control woh not found in window; did you mean who in AT/order.html?'],
    [`${open} window.setFocus("whoo")`, 'GuiWindow::setFocus() - control whoo not found in window; did you mean who in AT/order.html?'],
    [`${open} window.setEnterControl("okay")`, 'GuiWindow::setEnterControl() - control okay not found in window'],
    [`${open} window.setSizePolicy("fixed")`, 'tarn: GuiWindow.setSizePolicy(policy): "fixed" is none of "SCROLL", "RESIZE" and "FIXED"; did you mean "FIXED"?'],
    [`${open} window.load("ordr.html")`, 'guiHtml::loadFile() - failed to load file AT/ordr.html'],
    [`${open} window.emenu = () => {}; window.control("bar").activateItem("save")`, 'tarn: no handler eMenu for event://eMenu/save; did you mean emenu?'],
    [`${open} window.eMenu = (session) => { session.currentForm.whoo = "Bob"; session.currentForm.whoo = "Eve"; }; window.control("bar").activateItem("save")`,
        'tarn: the form has no control "whoo"; did you mean "who"?'],
    [`${open} window.eMenu = ({ currentForm }) => { String(currentForm.mlik); }; window.control("bar").activateItem("save")`,
        'tarn: the form has no control "mlik"; did you mean "milk"?'],
    [`${open} window.control("who").setSizePolicy("Scroll")`, 'tarn: GuiControl.setSizePolicy(policy): "Scroll" is none of "SCROLL", "RESIZE" and "FIXED"; did you mean "SCROLL"?'],
];

/** What only the component knows. The classes and methods of script may be named, and messages whose text is fixed stay. */
const internal = /\b(?!GuiWindow|GuiControl|GuiImage|GuiToolkit)gui[A-Z]\w*|::(?!setFocus|setEnterControl|GetControl|load)\w+\(|_qt|_script|pull[A-Z]/;
const fixed = [/^guiHtmlParser::pullContent\(\) - ignoring unrecognized tag /, /^guiHtml::loadFile\(\) - failed to load file /,
    /^GuiWindow::GetControl\(\) - control /];
const namesNothingInternal = (line) => !internal.test(line) || fixed.some((each) => each.test(line));

const inFolder = (text) => text.replaceAll('AT/', `${scratch}/`).replaceAll('AT ', `${scratch} `);

test('the table has at least forty mistakes, none of which names what only the component knows', () => {
    assert.ok(thrown.length + printed.length >= 40);
    assert.deepEqual([...thrown.map(([, , message]) => message), ...printed.map(([, line]) => line)].filter((line) => !namesNothingInternal(line)), []);
});

test('mistakes of a program throw', async () => {
    const { stdout, code } = await runScript(`const sources = ${JSON.stringify(thrown.map(([source]) => source))};
        for (const source of sources) {
            try { eval('"use strict"; ' + source); console.log('silent'); } catch (error) { console.log(JSON.stringify([error.name, error.message])); }
        }`);
    const seen = stdout.trimEnd().split('\n');
    thrown.forEach(([source, name, message], i) => assert.equal(seen[i], JSON.stringify([name, inFolder(message)]), source));
    assert.equal(code, 0);
});

for (const [source, line] of printed) {
    test(`${source.replace(open, '').trim()} prints one line`, async () => {
        const { stdout, stderr, code } = await runScript(source);
        assert.deepEqual([stdout, stderr, code], ['', `${inFolder(line)}\n`, 0]);
    });
}
