'use strict';
// What index.d.ts declares is what the component has: a method that comes or goes without its declaration fails here.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { packageFolder, scratch } = require('./helpers.js');
const ts = require(path.join(packageFolder, 'node_modules', 'typescript'));

const tarn = require(packageFolder);

const file = path.join(packageFolder, 'index.d.ts');
const program = ts.createProgram([file], { noLib: true, types: [] });
const checker = program.getTypeChecker();
const exported = checker.getExportsOfModule(checker.getSymbolAtLocation(program.getSourceFile(file)));
const symbol = (name) => exported.find((each) => each.name === name);

const isMethod = (member) => (member.flags & ts.SymbolFlags.Method) !== 0 && (member.flags & ts.SymbolFlags.Optional) === 0;

/** The names of the methods that a class or interface declares or inherits; optional ones are handlers, for scripts to write. */
function declared(name) {
    const type = checker.getDeclaredTypeOfSymbol(symbol(name));
    return checker.getPropertiesOfType(type).filter(isMethod).map((member) => member.name).sort();
}

function declaredOfClass(name) {
    const members = checker.getPropertiesOfType(checker.getTypeOfSymbolAtLocation(symbol(name), program.getSourceFile(file)));
    return members.filter(isMethod).map((member) => member.name).sort();
}

const isFunction = (object, name) => typeof Object.getOwnPropertyDescriptor(object, name).value === 'function';

/** The names of the methods that an object has, its own and those of its classes. */
function offered(object) {
    const names = new Set();
    for (let at = object; at !== Object.prototype; at = Object.getPrototypeOf(at)) {
        Object.getOwnPropertyNames(at).filter((name) => name !== 'constructor' && isFunction(at, name)).forEach((name) => names.add(name));
    }
    return [...names].sort();
}

const elements = {
    GuiControl: ['<table name="it"><tr><td>x</td></tr></table>', '<img name="it" src="none.png" width="9" height="9">',
        '<form name="it">x</form>', '<input type="hidden" name="it">', '<input type="image" name="it">'],
    TextControl: [...['text', 'search', 'password', 'file'].map((type) => `<input type="${type}" name="it">`), '<textarea name="it">x</textarea>'],
    ButtonControl: ['button', 'submit', 'reset', 'checkbox', 'radio'].map((type) => `<input type="${type}" name="it">`),
    ListControl: ['<select name="it"><option>x</select>', '<select name="it" size="3"><option>x</select>'],
    FlexListControl: ['flexlist', 'checklist', 'listview', 'treeview'].map((kind) => `<object classid="${kind}" name="it"></object>`),
    MenuControl: ['<object classid="menu" name="it"><param name="a" value="A"></object>'],
};

let window;
before(() => {
    fs.writeFileSync(path.join(scratch, 'page.html'), '<html><body></body></html>');
    window = new tarn.GuiWindow(path.join(scratch, 'page.html'));
});
after(() => window.close());

for (const [name, pages] of Object.entries(elements)) {
    test(`${name} is declared with the methods that such elements have`, () => {
        const wanted = declared(name);
        assert.ok(wanted.length >= 10, 'at least what all elements have');
        for (const page of pages) {
            window.setText(page);
            assert.deepEqual(offered(window.control('it')), wanted, page);
        }
    });
}

test('every kind of control has methods of its own beside those of all', () => {
    for (const name of Object.keys(elements).filter((each) => each !== 'GuiControl')) {
        assert.ok(declared(name).length > declared('GuiControl').length, name);
    }
    assert.deepEqual(declared('GuiControl'), declared('Element'));
});

test('classes are declared with the methods that they have', () => {
    assert.deepEqual(offered(window), declared('GuiWindow'));
    assert.deepEqual(offered(new tarn.GuiImage()), declared('GuiImage'));
    const own = (scriptClass) => [...new Set([scriptClass, Object.getPrototypeOf(scriptClass)].flatMap((each) => (
        each === Function.prototype ? [] : Object.getOwnPropertyNames(each).filter((name) => isFunction(each, name)))))].sort();
    assert.deepEqual(own(tarn.GuiWindow), declaredOfClass('GuiWindow'));
});

test('no method of the drawing tool is without a declaration', () => {
    const known = declared('GuiToolkit');
    assert.deepEqual(offered(new tarn.GuiToolkit()).filter((name) => !known.includes(name)), []);
});

test('every value that the package exports is described with an example', () => {
    const values = exported.filter((each) => (each.flags & ts.SymbolFlags.Value) !== 0 && !each.name.endsWith('Async'));
    assert.ok(values.length >= 18);
    const described = (each) => ts.displayPartsToString(each.getDocumentationComment(checker));
    assert.deepEqual(values.filter((each) => !/`|\n {4}/.test(described(each))).map((each) => each.name), []);
});

test('the arguments of every method are checked', () => {
    const { signaturesOfClass } = require(path.join(packageFolder, 'js', 'signatures.js'));
    for (const name of ['GuiWindow', 'GuiControl', 'GuiImage', 'GuiToolkit']) {
        assert.deepEqual(declared(name).filter((method) => signaturesOfClass(name, method) === undefined), []);
    }
    const { signaturesOfObject } = require(path.join(packageFolder, 'js', 'signatures.js'));
    for (const [name, pages] of Object.entries(elements)) {
        window.setText(pages[0]);
        const control = window.control('it');
        const own = Object.getOwnPropertyNames(control).filter((method) => typeof control[method] === 'function');
        assert.deepEqual(own.filter((method) => signaturesOfObject(control, method) === undefined), [], name);
    }
});
