'use strict';
// The 26 methods of GuiWindow and those of GuiControl through the interpreter, with the real component off the screen:
// each in every state of a window, with right and wrong arguments, and after the component's end.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { pathToFileURL } = require('node:url');
const { test } = require('node:test');
const { packageFolder, runScript, scratch } = require('./helpers.js');

const page = (title, body) => `<html><head><title>${title}</title></head><body>${body}</body></html>`;
const file = (name) => path.join(scratch, name);
fs.writeFileSync(file('page.html'), page('A title', '<table name=Box width=150 height=40 border=3><tr><td>x</td></tr></table>'));
fs.writeFileSync(file('part.html'), page('Part', '<table name=Part><tr><td>y</td></tr></table>'));
fs.writeFileSync(file('paper.bmp'), Buffer.concat([
    Buffer.from('424d3a0000000000000036000000280000000100000001000000010018', 'hex'), Buffer.alloc(25), Buffer.from([1, 2, 3, 0])]));

const tarn = require(packageFolder);
const { GuiWindow, GuiControl, GuiSizePolicy } = tarn;

const states = {
    'without a page': () => new GuiWindow(),
    'with a page': () => new GuiWindow(file('page.html')),
    shown: () => { const window = new GuiWindow(file('page.html')); window.open(); return window; },
    closed: () => { const window = new GuiWindow(file('page.html')); window.open(); window.close(); return window; },
};

/** Method, good arguments, and the result in the four states: one for all, or a list. */
const rows = [
    ['open', [], [false, true, true, true]], ['open', [true], [false, true, true, true]],
    ['open', [undefined], [false, true, true, true]], ['close', [], null],
    ['isOpen', [], [false, false, true, false]], ['isValid', [], [false, true, true, true]],
    ['load', [file('page.html')], true], ['loadFile', [file('page.html')], true],
    ['setText', ['text'], true], ['loadBackground', [file('paper.bmp')], [false, true, true, true]],
    ['setReturnValue', [1], null], ['setReturnValue', [undefined], null],
    ['setMinimumSize', [100, 200], null], ['setMaximumSize', [100, 200], null], ['setDefaultSize', [100, 200], null],
    ['setResizable', [], null], ['setResizable', [false], null], ['useSystemFont', [], null], ['useSystemFont', [1], null],
    ['setTitle', ['t'], null], ['getTitle', [], ['', 'A title', 'A title', 'A title']],
    ['setFocus', ['box'], null], ['getFocus', [], ''], ['setEnterControl', ['box'], null], ['getEnterControl', [], ''],
    ['setEscapeControl', ['X'], null], ['getEscapeControl', [], ''],
    ['setSizePolicy', ['FIXED'], null], ['getSizePolicy', [], 'RESIZE'],
    ['setIcon', [file('paper.bmp')], null], ['setIcon', [''], null],
    ['popup', ['box'], false], ['popup', ['box', 1, 2], false], // no menu, so none is shown
];

/** Methods and argument lists that they refuse. */
const refused = [
    [['isOpen', 'isValid'], [[1], [null], ['x'], [true, false]]],
    [['load', 'loadFile', 'setText', 'loadBackground', 'setTitle', 'setFocus', 'setEnterControl', 'setEscapeControl', 'setSizePolicy', 'control'],
        [[], [1], [true], [null], [undefined], [{}], [() => 1], [Symbol('s')], [['a']], [new String('a')], ['a', 'b']]],
    [['getTitle', 'getFocus', 'getEnterControl', 'getEscapeControl', 'getSizePolicy', 'show', 'showAsync'], [[1], [null], [1, 2]]],
    [['setReturnValue'], [[], [1, 2]]],
    [['setMinimumSize', 'setMaximumSize', 'setDefaultSize'],
        [[], [100], [100, 200, 300], ['100', '200'], [100, '200'], [true, true], [null, 1], [{ valueOf: () => 1 }, 1]]],
    [['setResizable', 'useSystemFont'], [['x'], [null], [{}], [0, 0]]],
    [['open'], [['x'], [1], [null], [true, true]]],
    [['close'], [['x'], [1]]],
    [['popup'], [[], [1], ['a', 1], ['a', 1, '2'], ['a', 1, 2, 3]]],
    [['setIcon'], [[], [1], [null], ['a', 'b']]],
];

test('all 28 methods and onLoad exist, and no other', () => {
    const names = Object.getOwnPropertyNames(Object.getPrototypeOf(GuiWindow.prototype)).filter((name) => name !== 'constructor');
    assert.deepEqual(names, ['open', 'show', 'close', 'isOpen', 'load', 'setReturnValue', 'isValid', 'setMinimumSize',
        'setMaximumSize', 'setDefaultSize', 'setResizable', 'setText', 'loadFile', 'loadBackground', 'useSystemFont', 'setTitle',
        'getTitle', 'setFocus', 'getFocus', 'setEnterControl', 'getEnterControl', 'setEscapeControl', 'getEscapeControl',
        'setSizePolicy', 'getSizePolicy', 'control', 'popup', 'setIcon']);
    assert.deepEqual(new Set([...rows.map(([name]) => name), 'show', 'control']), new Set(names), 'each is tested');
    assert.equal(typeof GuiWindow.onLoad, 'function');
    assert.equal(GuiWindow.prototype.onLoad, undefined);
});

test('each method gives its result in every state of a window', () => {
    for (const [method, args, results] of rows) {
        Object.entries(states).forEach(([state, make], i) => {
            const window = make();
            const wanted = Array.isArray(results) ? results[i] : results;
            assert.equal(window[method](...args), wanted, `${method}(${args}), ${state}`);
            window.close();
        });
    }
});

test('each method refuses other arguments with a TypeError that names it, and without an effect', () => {
    for (const [state, make] of Object.entries(states)) {
        const window = make();
        const before = [window.getTitle(), window.getEnterControl(), window.getSizePolicy(), window.isValid()];
        for (const [methods, lists] of refused) {
            for (const method of methods) {
                for (const args of lists) {
                    assert.throws(() => window[method](...args), { name: 'TypeError', message: new RegExp(`^GuiWindow\\.${method}\\(`) },
                        `${method}, ${args.length} arguments, ${state}`);
                }
            }
        }
        assert.deepEqual([window.getTitle(), window.getEnterControl(), window.getSizePolicy(), window.isValid()], before);
        window.close();
    }
});

test('sizes out of any range open a window', () => {
    for (const size of [-1, -1e300, 1e300, 2 ** 31, NaN, Infinity, -Infinity, 0.5, 40000]) {
        const window = states['with a page']();
        window.setMinimumSize(size, 10);
        window.setMaximumSize(10, size);
        window.setDefaultSize(size, size);
        assert.equal(window.open(), true);
        window.close();
    }
});

test('settings come back as they were set', () => {
    const window = states['with a page']();
    window.setTitle('Übersicht \u{1f600}');
    window.setEnterControl('box');
    window.setEscapeControl('X');
    assert.deepEqual([window.getTitle(), window.getEnterControl(), window.getEscapeControl()], ['Übersicht \u{1f600}', 'box', 'X']);
    for (const policy of [GuiSizePolicy.SCROLL, GuiSizePolicy.FIXED, GuiSizePolicy.RESIZE]) {
        window.setSizePolicy(policy);
        for (const other of ['scroll', 'Fixed', '']) {
            window.setSizePolicy(other);
        }
        assert.equal(window.getSizePolicy(), policy);
    }
});

test('show() returns null without a page, else what was set, of any kind', () => {
    assert.equal(states['without a page']().show(), null);
    for (const value of [undefined, null, 0, 'text', true, { a: 1 }, [1], () => 1]) {
        const window = states['with a page']();
        window.ePostOpen = (session) => {
            assert.equal(session, tarn.session);
            assert.equal(session.currentWindow, window);
            window.setReturnValue(value);
            window.close();
        };
        assert.equal(window.show(), value ?? null);
    }
});

test('control() gives objects of GuiControl that know their name and window', () => {
    const window = states['with a page']();
    const control = window.control('BOX');
    assert.ok(control instanceof GuiControl);
    assert.deepEqual([control.name, control.window === window], ['BOX', true]);
    window.open();
    assert.deepEqual([control.width, control.height], [144, 34]);
    for (const change of [() => { control.width = 1; }, () => { control.height = 1; }, () => { GuiSizePolicy.FIXED = 'x'; }]) {
        assert.throws(change, TypeError);
    }
    assert.deepEqual([control.width, control.height], [144, 34]);
    window.close();
});

test('control() gives the same object for the same element each time', () => {
    const window = states['with a page']();
    const first = window.control('box');
    for (let i = 0; i < 4000; ++i) {
        assert.equal(window.control(i % 2 ? 'box' : 'BOX'), first);
    }
});

test('the constructor takes the name of a page and nothing else', () => {
    for (const args of [[3], [null], [{}], [() => 1], [file('page.html'), 1]]) {
        assert.throws(() => new GuiWindow(...args), { name: 'TypeError', message: /^new GuiWindow\(path\): / });
    }
    for (const args of [[], [undefined]]) {
        assert.equal(new GuiWindow(...args).isValid(), false);
    }
    assert.equal(new GuiWindow(file('page.html')).isValid(), true);
    assert.equal(new GuiWindow(pathToFileURL(file('page.html'))).getTitle(), 'A title');
});

test('a page that cannot be read is an Error with its code and its path', () => {
    class Order extends GuiWindow {}
    fs.writeFileSync(file('secret.html'), '<body>');
    for (const [name, code, shown] of [[file('gone.html'), 'ENOENT', file('gone.html')], [scratch, 'EISDIR', scratch],
        ['gone.html', 'ENOENT', path.join(__dirname, 'gone.html')], ['vfs://Nobody/x.html', 'ENOENT', 'vfs://Nobody/x.html']]) {
        assert.throws(() => new Order(name), (error) => error.constructor === Error && error.code === code && error.path === shown
            && error.message.includes(shown));
    }
});

test('an empty name is the page itself, a name that nobody has null', () => {
    const window = states['with a page']();
    const root = window.control('');
    assert.deepEqual([root.name, root.window === window, root.isEnabled()], ['', true, true]);
    assert.equal(root.setText('<table name=New><tr><td>x</td></tr></table>'), true);
    assert.ok(window.control('new') instanceof GuiControl);
    assert.equal(states['without a page']().control(''), null);
});

test('a method of a control finds the handler that its window got just before', () => {
    fs.writeFileSync(file('menu.html'), page('Menu', '<object classid=menu name=bar><param name=save value=Save></object>'));
    const window = new GuiWindow(file('menu.html'));
    const calls = [];
    const bar = window.control('bar');
    bar.activateItem('SAVE');
    window.eMenu = (session, item) => { calls.push([session === tarn.session, item]); };
    bar.activateItem('SAVE');
    delete window.eMenu;
    bar.activateItem('SAVE');
    assert.deepEqual(calls, [[true, 'save']]);
});

const controlRows = [
    ['loadBackground', [file('paper.bmp')], true, false], ['setCaption', ['c'], null, null], ['play', [], null, null],
    ['play', [true], null, null], ['enable', [false], null, null], ['isEnabled', [], false, false], ['enable', [], null, null],
    ['isEnabled', [], true, false], ['disable', [], null, null], ['enable', [1], null, null], ['isEnabled', [], true, false],
    ['setSizePolicy', ['SCROLL'], null, null], ['getSizePolicy', [], 'SCROLL', 'RESIZE'],
    ['loadFile', [file('part.html')], true, false], ['setText', ['<p>x'], true, false],
];

const controlRefused = [
    [['loadBackground', 'loadFile', 'setText', 'setCaption', 'setSizePolicy'], [[], [1], [null], ['a', 'b']]],
    [['play', 'enable'], [['on'], [null], [true, true]]],
    [['disable', 'getSizePolicy', 'isEnabled'], [[1], [null]]],
];

test('each method of a control gives its result, also for an element that does not exist', async () => {
    assert.deepEqual(Object.getOwnPropertyNames(GuiControl.prototype).sort(),
        [...new Set(controlRows.map(([name]) => name)), 'constructor', 'width', 'height', 'value'].sort());
    const control = states['with a page']().control('box');
    const nobody = new GuiControl();
    for (const [method, args, wanted, neutral] of controlRows) {
        assert.equal(control[method](...args), wanted, method);
        assert.equal(nobody[method](...args), neutral, method);
    }
    for (const [methods, lists] of controlRefused) {
        for (const method of methods) {
            for (const args of lists) {
                assert.throws(() => control[method](...args), { name: 'TypeError', message: new RegExp(`^GuiControl\\.${method}\\(`) },
                    `${method}, ${args.length} arguments`);
            }
        }
    }
    assert.deepEqual([nobody.width, nobody.height], [0, 0]);
});

test('onLoad takes a pattern with a function or an object, or a pattern alone, and returns null', () => {
    const filter = () => '';
    for (const args of [['*.x', filter], ['*.x', { getString: () => 'x' }], ['*.x'], ['*.x', undefined]]) {
        assert.equal(GuiWindow.onLoad(...args), null);
    }
    for (const args of [[], [1], [null], ['*.x', 1], ['*.x', 'y'], ['*.x', null], [1, filter], ['*.x', filter, 1]]) {
        assert.throws(() => GuiWindow.onLoad(...args), { name: 'TypeError', message: /^GuiWindow\.onLoad\(pattern, filter\): / });
    }
    class Order extends GuiWindow {}
    assert.equal(Order.onLoad('*.x'), null);
});

test('the session knows the window, the form and no control yet', async () => {
    const { stdout } = await runScript(`
        const { isDeepStrictEqual } = require('util');
        const before = { ...tarn.session };
        const window = new tarn.GuiWindow();
        console.log(isDeepStrictEqual(before, { ...tarn.session }), tarn.session.currentControl);
        window.load('page.html');
        console.log(tarn.session.currentWindow === window, typeof tarn.session.currentForm, tarn.session.currentControl);`);
    assert.equal(stdout, 'true null\ntrue object null\n');
});

test('a worker thread that loads the package beside open windows is told whose they are, and harms nobody', async () => {
    const { stdout, code } = await runScript(`
        const { Worker } = require('worker_threads');
        const { packageFolder } = ${JSON.stringify({ packageFolder })};
        const inWorker = 'const { GuiWindow } = require(' + JSON.stringify(packageFolder) + ');'
            + 'try { GuiWindow.from("<p>x"); } catch (error) { require("worker_threads").parentPort.postMessage(error.message); }';
        const window = new tarn.GuiWindow('page.html');
        window.open();
        (async () => {
            for (let i = 0; i < 3; ++i) {
                const worker = new Worker(inWorker, { eval: true });
                const ended = new Promise((resolve) => worker.on('exit', resolve)); // which may come together with the message
                console.log(await new Promise((resolve, reject) => worker.on('message', resolve).on('error', reject)));
                await ended;
            }
            console.log(window.isOpen());
            window.close();
        })();`);
    const refusal = 'new GuiWindow(): another thread of this process has windows; only the thread that made the first one can make more\n';
    assert.deepEqual([stdout, code], [`${refusal.repeat(3)}true\n`, 0]);
});

test('after the end of the component methods give their neutral results', async () => {
    const calls = [...rows.map(([name, args, results]) => [name, args, Array.isArray(results) ? results[0] : results]),
        ['show', [], null], ['control', ['box'], null]].map(([name, args, wanted]) => (
        [name, args, /^(load|setText)/.test(name) ? false : wanted])).filter(([, args]) => !args.includes(undefined));
    const { stdout, stderr, code } = await runScript(`
        const window = new tarn.GuiWindow('page.html');
        const control = window.control('box');
        window.open();
        process.on('exit', () => {
            for (const [name, args, wanted] of ${JSON.stringify(calls)}) {
                if (window[name](...args) !== wanted) console.log(name, window[name](...args));
            }
            for (const [name, args, , wanted] of ${JSON.stringify(controlRows)}) {
                if (control[name](...args) !== wanted) console.log('control', name, control[name](...args));
            }
            console.log('checked', control.name, control.width);
        });
        setTimeout(() => process.exit(0), 10);`);
    assert.deepEqual([stdout, stderr, code], ['checked box undefined\n', '', 0]);
});

const messages = {
    'GuiWindow::load() - failed to load file AT/gone.html\n': "new tarn.GuiWindow().load('gone.html');",
    'GuiWindow::load() - unable to find <body> or <html> tag in AT/plain.html; probably not HTML\n':
        "require('fs').writeFileSync(__dirname + '/plain.html', 'plain'); new tarn.GuiWindow('plain.html');",
    'guiHtml::loadFile() - failed to load file AT/gone.html\n': "new tarn.GuiWindow('page.html').load('gone.html');",
    'GuiWindow::GetControl() - control größe not found in window\n': "new tarn.GuiWindow('page.html').control('größe');",
    'GuiWindow::GetControl() - invalid window data supplied for control box (0x': "new tarn.GuiWindow().control('box');",
    'guiLoadImage() - failed to load image AT/gone.png; file not found\n': "new tarn.GuiWindow('page.html').loadBackground('gone.png');",
};

for (const [message, source] of Object.entries(messages)) {
    test(`prints: ${message.trim()}`, async () => {
        const { stderr, code } = await runScript(source);
        const wanted = message.replace('AT', scratch);
        assert.deepEqual([wanted.endsWith('\n') ? stderr : stderr.slice(0, wanted.length), code], [wanted, 0]);
    });
}

test('a window that its own handler closes and forgets ends there, and the program goes on', async () => {
    const { stdout, stderr, code } = await runScript(`
        let ended = 0;
        const registry = new FinalizationRegistry(() => ++ended);
        const open = () => {
            const window = new (class extends tarn.GuiWindow {
                ePostOpen() {
                    this.close();
                    window = null;
                    for (let i = 0; i < 3; ++i) gc();
                }
            })('page.html');
            registry.register(window, 0);
            window.setReturnValue(ended);
            window.show();
        };
        for (let i = 0; i < 20; ++i) open();
        new tarn.GuiWindow('page.html'); // the session knows this one
        setTimeout(() => { gc(); setTimeout(() => console.log('ended', ended >= 19), 20); }, 20);`
        .replace('const window = new (class', 'let window = new (class'), { args: ['--expose-gc'] });
    assert.deepEqual([stdout, stderr, code], ['ended true\n', '', 0]);
});
