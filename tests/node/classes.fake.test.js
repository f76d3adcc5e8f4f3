'use strict';
// The component's classes as JavaScript classes, values and objects on their way through the component, files.

const assert = require('node:assert/strict');
const { test } = require('node:test');
const fs = require('node:fs');
const path = require('node:path');
const { inspect } = require('node:util');
const { packageFolder, runScript, scratch } = require('./helpers.js');

const tarn = require(packageFolder);
const { GuiWindow, GuiControl, GuiSizePolicy, GuiToolkit, GuiImage } = tarn;

test('the package has the five classes', () => {
    for (const name of ['GuiWindow', 'GuiControl', 'GuiSizePolicy', 'GuiToolkit', 'GuiImage']) {
        assert.equal(typeof tarn[name], 'function', name);
        assert.equal(tarn[name].name, name);
    }
});

test('the session has empty properties before the first window', async () => {
    const { stdout } = await runScript('console.log(JSON.stringify(tarn.session))');
    assert.equal(stdout, '{"currentWindow":null,"currentControl":null,"currentForm":null}\n');
});

test('a window with a path is loaded, one without is not', () => {
    assert.equal(new GuiWindow('page.html').isValid(), true);
    assert.equal(new GuiWindow().isValid(), false);
});

test('a class cannot be called without new', () => {
    assert.throws(() => GuiControl(), /Class constructor GuiControl cannot be invoked without 'new'/);
});

test('a subclass has private fields, accessors and methods', () => {
    class Order extends GuiWindow {
        #count = 2;
        get count() { return this.#count; }
        add(n) { this.#count += n; return this; }
    }
    const order = new Order('order.html');
    assert.equal(order.add(3).count, 5);
    assert.ok(order instanceof GuiWindow);
    assert.equal(order.isOpen(), false);
});

test('a method refuses a foreign receiver', () => {
    assert.throws(() => GuiWindow.prototype.isOpen.call({}), TypeError);
    assert.throws(() => GuiWindow.prototype.isOpen.call(new GuiWindow('p').control('c')), TypeError);
    assert.throws(() => (0, GuiWindow.prototype.isOpen)(), TypeError);
});

test('values come through the component unchanged', () => {
    const window = new GuiWindow();
    for (const value of ['', 'plain', 'h\u00e9 \u20ac \ud83d\ude00', 'zero\0inside', 0, -0.5, 1e21, 2 ** 31, NaN, Infinity, true, false, null]) {
        assert.deepEqual(window.testEcho(value), value);
    }
    assert.equal(window.testEcho(undefined), null);
    assert.equal(window.testEcho(12n), 12);
    assert.equal(window.testEcho(Symbol('s')), null);
});

test('objects and functions come back as themselves', () => {
    const window = new GuiWindow();
    const list = [{ a: 1 }, [1, 2], () => 1, class {}, new Date(), Object.freeze({}), new Proxy({}, {}), window, GuiWindow];
    for (const value of list) {
        assert.equal(window.testEcho(value), value);
        assert.equal(window.testSame(value, value), true);
    }
    assert.equal(window.testSame({}, {}), false);
});

test('the component reads and writes properties of script objects from its own thread', () => {
    const window = new GuiWindow();
    const object = { left: 7, get twice() { return this.left * 2; } };
    assert.equal(window.testRead(object, 'left'), 7);
    assert.equal(window.testRead(object, 'twice'), 14);
    assert.equal(window.testRead(object, 'missing'), null);
    assert.equal(window.testWrite(object, 'left', 'new'), 'new');
    assert.equal(object.left, 'new');
});

test('a control keeps its object, its name and its window', () => {
    const window = new GuiWindow('page.html');
    const control = window.control('amount');
    assert.ok(control instanceof GuiControl);
    assert.equal(control, window.control('amount'));
    assert.equal(control.name, 'amount');
    assert.equal(control.window, window);
    assert.equal(control.setText('x'), true);
    assert.deepEqual(Object.keys(control), ['name', 'window']);
});

test('width and height of a control are read from the component and refuse to be set', () => {
    const control = new GuiWindow('page.html').control('amount');
    assert.equal(control.width, 120);
    assert.equal(control.height, 24);
    assert.throws(() => { control.width = 1; }, /Cannot assign to read only property 'width' of GuiControl/);
    assert.equal(GuiControl.width, undefined);
});

test('the size policies are constants of their class', () => {
    assert.deepEqual([GuiSizePolicy.SCROLL, GuiSizePolicy.RESIZE, GuiSizePolicy.FIXED], ['SCROLL', 'RESIZE', 'FIXED']);
    assert.deepEqual(Object.keys(GuiSizePolicy), ['SCROLL', 'RESIZE', 'FIXED']);
    assert.throws(() => { GuiSizePolicy.FIXED = 1; }, TypeError);
    assert.equal(new GuiSizePolicy().FIXED, undefined);
});

test('a class method is called without an instance', () => {
    assert.equal(GuiWindow.onLoad('*.html', (text) => text), '2 1');
    assert.equal(GuiWindow.onLoad('*.html', {}), '2 0');
    const { onLoad } = GuiWindow;
    assert.equal(onLoad('x'), '1 0');
});

test('a form is an object whose properties lie in the component', () => {
    const window = new GuiWindow('page.html');
    const form = window.testForm();
    form.name = 'Ada';
    form['a b'] = 3;
    assert.equal(window.testRead(form, 'name'), 'Ada');
    assert.equal(window.testWrite(form, 'age', 36), 36);
    assert.deepEqual({ ...form }, { name: 'Ada', 'a b': 3, age: 36 });
    assert.ok('age' in form);
    delete form.age;
    assert.ok(!('age' in form));
    assert.equal(form.age, undefined);
    assert.equal(form, window.testForm());
    assert.equal(inspect(form), "{ 'a b': 3, name: 'Ada' }");
    assert.equal(typeof form.hasOwnProperty, 'function');
    assert.equal(Object.hasOwn(form, 'name'), true);
});

test('a form property may be named like a property of every object', () => {
    const form = new GuiWindow('page.html').testForm();
    form.toString = 'text';
    form.__proto__ = 'safe';
    assert.equal(form.toString, 'text');
    assert.equal(Object.getPrototypeOf(form), Object.prototype);
});

test('a custom element is made by the name it was registered under', () => {
    class Gauge {}
    tarn.register('Gauge', Gauge);
    const window = new GuiWindow();
    assert.ok(window.testCreate('Gauge') instanceof Gauge);
    assert.ok(window.testCreate('gauge') instanceof Gauge);
    assert.equal(window.testCreate('Other'), null);
    assert.ok(window.testCreate('GuiToolkit') instanceof GuiToolkit);
    assert.ok(window.testCreate('guiimage') instanceof GuiImage);
    assert.throws(() => tarn.register('', Gauge), TypeError);
    assert.throws(() => tarn.register('Gauge', 3), TypeError);
});

test('the component adds methods to one object', () => {
    class Gauge { setSize() { return 'class'; } }
    const window = new GuiWindow();
    const [one, other] = [new Gauge(), new Gauge()];
    window.testAddMethod(one, 'setSize');
    assert.equal(one.setSize(10), 'own');
    assert.throws(() => one.setSize(), /^TypeError: CustomElement\.setSize\(width, height\): "width" is missing$/);
    assert.equal(other.setSize(), 'class');
    assert.deepEqual(Object.keys(one), []);
});

test('a page is found relative to the script that made the window', async () => {
    const window = new GuiWindow();
    assert.equal(window.testResolve('a/../page.html'), path.join(__dirname, 'page.html'));
    assert.equal(window.testResolve('/full/page.html'), '/full/page.html');
    fs.mkdirSync(path.join(scratch, 'inner'));
    fs.writeFileSync(path.join(scratch, 'inner', 'module.js'),
        'module.exports = (C) => new C().testResolve("page.html");');
    fs.writeFileSync(path.join(scratch, 'inner', 'module.mjs'),
        'export default (C) => new C().testResolve("page.html");');
    assert.equal(require(path.join(scratch, 'inner', 'module.js'))(GuiWindow), path.join(scratch, 'inner', 'page.html'));
    const module = await import(path.join(scratch, 'inner', 'module.mjs'));
    assert.equal(module.default(GuiWindow), path.join(scratch, 'inner', 'page.html'));
});

test('where the stack cannot be read, a page is found relative to the main program', async () => {
    const { stdout, stderr, code } = await runScript('console.log(new tarn.GuiWindow().testResolve("page.html"));',
        { args: ['--frozen-intrinsics'] });
    assert.deepEqual([stdout, code], [`${path.join(scratch, 'page.html')}\n`, 0]);
    assert.doesNotMatch(stderr, /Error/);
});

test('making a window leaves the stack traces of the program as they were', () => {
    const { prepareStackTrace, stackTraceLimit } = Error;
    new GuiWindow('page.html');
    assert.deepEqual([Error.prepareStackTrace, Error.stackTraceLimit], [prepareStackTrace, stackTraceLimit]);
});

test('files are read whole, and missing ones, folders and pipes are refused', () => {
    const window = new GuiWindow();
    fs.writeFileSync(path.join(scratch, 'page.bin'), Buffer.alloc(70000));
    assert.equal(window.testReadFile(path.join(scratch, 'page.bin')), 70000);
    assert.equal(window.testReadFile(path.join(scratch, 'missing')), -1);
    assert.equal(window.testReadFile(scratch), -1);
    require('node:child_process').execFileSync('mkfifo', [path.join(scratch, 'pipe')]);
    assert.equal(window.testReadFile(path.join(scratch, 'pipe')), -1);
});

test('a mounted folder is read under its name and cannot be climbed out of', () => {
    const window = new GuiWindow();
    const folder = path.join(scratch, 'mounted');
    fs.mkdirSync(path.join(folder, 'sub'), { recursive: true });
    fs.writeFileSync(path.join(folder, 'sub', 'page.html'), 'page');
    fs.writeFileSync(path.join(scratch, 'secret'), 'secret');
    fs.symlinkSync(path.join(scratch, 'secret'), path.join(folder, 'link'));
    tarn.mount('Shop', folder);
    assert.equal(window.testReadFile('vfs://Shop/sub/page.html'), 4);
    assert.equal(window.testReadFile('vfs://Shop/sub/../sub/page.html'), 4);
    for (const bad of ['../secret', 'sub/../../secret', 'link', '/etc/passwd', '', '.', '..', 'sub/../..']) {
        assert.equal(window.testReadFile(`vfs://Shop/${bad}`), -1, bad);
    }
    assert.equal(window.testReadFile('vfs://Other/sub/page.html'), -1);
    assert.equal(window.testReadFile('vfs://Shop'), -1);
    assert.throws(() => tarn.mount('a/b', folder), TypeError);
});

test('windows that nobody holds are collected, with their controls', async () => {
    const { stdout, stderr, code } = await runScript(`
        const probe = new tarn.GuiWindow();
        for (let i = 0; i < 200; ++i) {
            const window = new tarn.GuiWindow('page.html');
            window.control('a').onPick = () => window;
        }
        (async () => {
            for (let i = 0; i < 20 && probe.testLiveWindows() > 3; ++i) {
                gc();
                await new Promise((resolve) => setTimeout(resolve, 5));
            }
            console.log(probe.testLiveWindows() <= 3 ? 'collected' : probe.testLiveWindows());
        })();`, { args: ['--expose-gc'] });
    assert.deepEqual([stdout, stderr, code], ['collected\n', '', 0]);
});

test('a control that outlives everything else keeps its window', async () => {
    const { stdout, stderr, code } = await runScript(`
        const kept = new tarn.GuiWindow('page.html').control('a');
        (async () => {
            for (let i = 0; i < 5; ++i) { gc(); await new Promise((resolve) => setTimeout(resolve, 5)); }
            console.log(kept.window.isValid(), kept.window.control('a') === kept, kept.setText('x'));
        })();`, { args: ['--expose-gc'] });
    assert.deepEqual([stdout, stderr, code], ['true true true\n', '', 0]);
});
