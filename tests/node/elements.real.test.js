'use strict';
// Custom elements of JavaScript classes, with the real component off the screen: what an instance has and hears, and what
// becomes of its drawing calls. What they draw is looked at in tests/script/customelements_test.cpp.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, runScript, scratch, sleep, until } = require('./helpers.js');

const tarn = require(packageFolder);

let pages = 0;
function windowWith(content) {
    const file = path.join(scratch, `element${++pages}.html`);
    fs.writeFileSync(file, `<html><head><title>Elements</title></head><body width="300" height="200">${content}</body></html>`);
    return new tarn.GuiWindow(file);
}

const log = [];

class Probe {
    constructor() { log.push('new'); }
    eCreate(session) {
        assert.equal(session, tarn.session);
        log.push(`eCreate ${JSON.stringify([this.label, this.empty, this.bare])}`);
    }
    ePaint() {
        log.push(`ePaint ${this.toolkit.rect.width}x${this.toolkit.rect.height}`);
        this.draw?.(this.toolkit);
    }
    eDestroy() { log.push('eDestroy'); }
}
tarn.register('Probe', Probe);

const probe = `<object classid="probe" name="probe" width="100" height="60">
    <param name="label" value=" &lt;7&gt; "><param name="empty" value=""><param name="bare" value></object>`;

test('an element is an instance of its class, with its parameters, before the window is open', () => {
    log.length = 0;
    const window = windowWith(probe);
    const element = window.control('probe');
    assert.ok(element instanceof Probe);
    assert.equal(window.control('PROBE'), element);
    assert.equal(element.window, window);
    assert.equal(element.name, 'probe');
    assert.ok(element.toolkit instanceof tarn.GuiToolkit);
    assert.deepEqual([element.mouse.x, element.mouse.y], [0, 0]);
    assert.deepEqual([element.toolkit.XLEFT, element.toolkit.XCENTER, element.toolkit.XRIGHT], [0, 1, 2]);
    assert.deepEqual(log, ['new', 'eCreate [" <7> ","","1"]']);
});

test('it is drawn before the window opens, again on request, and ends with the window', async () => {
    const window = windowWith(probe);
    const first = window.control('probe');
    log.length = 0;
    assert.equal(window.open(), true);
    assert.deepEqual(log, ['ePaint 100x60']);
    first.toolkit.repaint();
    await until(() => log.length === 2);
    assert.equal(log[1], 'ePaint 100x60');
    first.setSize(80, '30');
    await until(() => log.length === 3);
    assert.equal(log[2], 'ePaint 80x30');
    log.length = 0;
    window.close();
    assert.deepEqual(log, ['eDestroy']);
    window.open();
    assert.deepEqual(log.slice(0, 3), ['eDestroy', 'new', 'eCreate [" <7> ","","1"]']);
    assert.notEqual(window.control('probe'), first);
    first.toolkit.repaint(); // belongs to no element any more
    window.close();
});

test('a page whose class nobody has registered opens, with one line', async () => {
    const { stderr, stdout } = await runScript(`
        const fs = require('node:fs');
        fs.writeFileSync(__filename + '.html', '<html><body><object classid="Nobody" width="10" height="10"></object></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        console.log(window.open());
        window.close();
        console.log(window.open());
        window.close();`);
    assert.equal(stdout, 'true\ntrue\n');
    assert.match(stderr, /^guiHtmlCustom: unable to construct instance of component Nobody in \/.*\.html:1\n$/);
});

test('a constructor that throws is an error of the program, and the page opens', async () => {
    const { stderr, stdout } = await runScript(`
        const fs = require('node:fs');
        process.on('uncaughtException', (error) => console.log('caught', error.message));
        tarn.register('Bad', class { constructor() { throw new Error('no'); } });
        fs.writeFileSync(__filename + '.html', '<html><body><object classid="Bad" width="10" height="10"></object></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        console.log(window.open());
        window.close();`);
    assert.match(stdout, /caught no/);
    assert.match(stdout, /true\n/);
    assert.match(stderr, /^guiHtmlCustom: unable to construct instance of component Bad in \/.*\.html:1\n$/);
});

test('what a handler throws is an uncaught error, and the next drawing comes', async () => {
    const { stdout } = await runScript(`
        const fs = require('node:fs');
        let paints = 0;
        process.on('uncaughtException', (error) => console.log('caught', error.message));
        tarn.register('Bad', class {
            ePaint() { if (++paints === 1) throw new Error('first'); console.log('second'); this.window.close(); }
        });
        fs.writeFileSync(__filename + '.html', '<html><body><object name="bad" classid="Bad" width="10" height="10"></object></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        window.open();
        setTimeout(() => window.control('bad').toolkit.repaint(), 50);`);
    assert.equal(stdout, 'caught first\nsecond\n');
});

test('an async handler is not waited for, not even by its window', async () => {
    const { stdout, code, signal } = await runScript(`
        const fs = require('node:fs');
        tarn.register('Slow', class {
            async eCreate() { await new Promise(() => {}); }
            async ePaint() { this.toolkit.fill('red'); console.log('paint'); await new Promise(() => {}); }
            async eDestroy() { await new Promise(() => {}); }
        });
        fs.writeFileSync(__filename + '.html', '<html><body><object classid="Slow" width="10" height="10"></object></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        console.log(window.open());
        setTimeout(() => window.close(), 50);`);
    assert.deepEqual([stdout, code, signal], ['paint\ntrue\n', 0, null]);
});

test('a handler may show a window, and the element is drawn meanwhile', async () => {
    const { stdout } = await runScript(`
        const fs = require('node:fs');
        tarn.register('Clock', class {
            ePaint() { console.log('paint'); }
            eCreate() { this.window.control('clock'); }
        });
        fs.writeFileSync(__filename + '.html', '<html><body><object name="clock" classid="Clock" width="10" height="10"></object></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        window.open();
        const dialog = new tarn.GuiWindow();
        fs.writeFileSync(__filename + '.2.html', '<html><body>dialog</body></html>');
        dialog.load(__filename + '.2.html');
        setTimeout(() => window.control('clock').toolkit.repaint(), 30);
        setTimeout(() => { dialog.close(); window.close(); }, 200);
        dialog.show();`);
    assert.equal(stdout, 'paint\npaint\n');
});

test('points are arrays of numbers, of pairs, or typed arrays', async () => {
    const seen = [];
    const window = windowWith(probe);
    window.control('probe').draw = (toolkit) => {
        for (const points of [[0, 0, 9, 9], [[0, 0], [9, 9]], new Float64Array([0, 0, 9, 9]), new Uint8Array([0, 0, 9, 9]), []]) {
            seen.push(toolkit.drawPolygon('red', points, 1));
            seen.push(toolkit.drawPolyline('red', points, 1));
        }
        for (const points of [[1], ['1', '2', '3', '4'], [[1, [2]]], { length: 2, 0: 1, 1: 2 }, new BigInt64Array(4), Array(4), 'red']) {
            assert.throws(() => toolkit.drawPolygon('red', points, 1), TypeError);
            assert.throws(() => toolkit.drawPolyline('red', points, 1), TypeError);
        }
        assert.throws(() => toolkit.fill(Symbol('s')), TypeError);
        seen.push(toolkit.drawEllipse('red', 0, 0, 10, 10), toolkit.drawImage(new tarn.GuiImage(), 0, 0));
    };
    window.open();
    assert.deepEqual([...new Set(seen)], [null]);
    window.close();
});

test('text is measured in the font that the toolkit names, at any time', () => {
    const window = windowWith(probe);
    const sizes = [];
    window.control('probe').draw = (toolkit) => {
        sizes.push(toolkit.measureText('words'), toolkit.measureText('words and more words', 50));
        toolkit.fontSize = 24;
        sizes.push(toolkit.measureText('words'));
    };
    window.open();
    const [plain, broken, large] = sizes;
    assert.ok(broken.height >= 2 * plain.height && broken.width <= 60);
    assert.ok(large.width > 1.8 * plain.width && large.height > plain.height);
    assert.deepEqual({ ...window.control('probe').toolkit.measureText('words') }.height > 0, true);
    assert.equal(new tarn.GuiToolkit().measureText('words'), null);
    window.close();
});

test('requests for a drawing join, and each brings the newest state', async () => {
    const window = windowWith(probe);
    const element = window.control('probe');
    let state = 0;
    const drawn = [];
    element.draw = () => drawn.push(state);
    window.open();
    for (state = 1; state < 500; ++state) {
        element.toolkit.repaint();
    }
    await until(() => drawn.at(-1) === 500);
    await sleep(50);
    assert.ok(drawn.length < 10, `${drawn.length} drawings`);
    window.close();
});

test('an element that has left its page can be collected while its window lives', async () => {
    const { stdout } = await runScript(`
        const fs = require('node:fs');
        tarn.register('Probe', class { ePaint() {} });
        const gone = [];
        fs.writeFileSync(__filename + '.html', '<html><body></body></html>');
        const window = new tarn.GuiWindow(__filename + '.html');
        window.open();
        for (let i = 0; i < 20; ++i) {
            window.setText('<object name="probe" classid="Probe" width="10" height="10"></object>');
            gone.push(new WeakRef(window.control('probe')));
        }
        let turns = 0;
        const timer = setInterval(() => {
            gc();
            const left = gone.filter((each) => each.deref()).length;
            if (left <= 1 || ++turns === 50) {
                console.log(left <= 1, window.isOpen());
                clearInterval(timer);
                window.close();
            }
        }, 20);`, { args: ['--expose-gc'] });
    assert.equal(stdout, 'true true\n');
});
