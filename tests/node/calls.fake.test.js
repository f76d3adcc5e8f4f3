'use strict';
// Calls of handlers: which methods the component sees, what a handler may do, and how a call ends.

const assert = require('node:assert/strict');
const { test } = require('node:test');
const { packageFolder, runScript, sleep, until } = require('./helpers.js');

const tarn = require(packageFolder);
const { GuiWindow } = tarn;

/** Lets the GUI thread call a handler and waits for the end of the call. */
async function fire(window, name, ...args) {
    const before = tarn.session.fires ?? 0;
    window.testFire(0, name, ...args);
    await until(() => (tarn.session.fires ?? 0) > before);
    return { known: tarn.session.lastKnown, result: tarn.session.lastResult };
}

/** Keeps this process alive and its loop turning while a test waits. */
class Base extends GuiWindow {
    onInherited() { return 'base'; }
}

class Page extends Base {
    seen = [];
    onPick(...args) { this.seen.push(args); return `picked ${args[1]}`; }
    onField = () => 'field';
    get onComputed() { return () => 'computed'; }
    async onLater() { await sleep(5); return 'later'; }
    onThenable() { return { then: (resolve) => resolve('thenable') }; }
    onSelf() { return this; }
    notAMethod = 3;
}

test('the component sees methods of the class, of its bases and of the object', () => {
    const page = new Page('page.html');
    for (const name of ['onPick', 'onInherited', 'onField', 'onLater', 'close']) {
        assert.equal(page.testHas(name), true, name);
    }
    for (const name of ['notAMethod', 'onComputed', 'show', 'setTitle', 'missing', 'toString', 'hasOwnProperty', 'constructor', '__defineGetter__', '']) {
        assert.equal(page.testHas(name), false, name);
    }
});

test('the component sees handlers that are added, replaced and removed later', () => {
    const page = new Page('page.html');
    assert.equal(page.testHas('onLate'), false);
    page.onLate = () => 1;
    assert.equal(page.testHas('onLate'), true);
    page.onLate = 'no function any more';
    assert.equal(page.testHas('onLate'), false);
    page.onLate = () => 2;
    assert.equal(page.testHas('onLate'), true);
    delete page.onLate;
    assert.equal(page.testHas('onLate'), false);
    Base.prototype.onVeryLate = () => 3;
    assert.equal(page.testHas('onVeryLate'), true);
    delete Base.prototype.onVeryLate;
    assert.equal(page.testHas('onVeryLate'), false);
});

test('a handler that is added while the program is idle is seen at the next call', async () => {
    const page = new Page('page.html');
    page.open();
    await sleep(5);
    page.onIdle = () => 'idle';
    await sleep(5);
    assert.deepEqual(await fire(page, 'onIdle'), { known: true, result: 'idle' });
    page.close();
});

test('a handler gets its arguments and this, and its result comes back', async () => {
    const page = new Page('page.html');
    const object = {};
    assert.deepEqual(await fire(page, 'onPick', object, '3', 'red'), { known: true, result: 'picked 3' });
    assert.deepEqual(page.seen, [[object, '3', 'red']]);
    assert.equal((await fire(page, 'onSelf')).result, page);
    assert.equal((await fire(page, 'onInherited')).result, 'base');
    assert.deepEqual(await fire(page, 'onComputed'), { known: false, result: null }, 'pages run no getter');
});

test('the call of an async handler ends when its promise settles', async () => {
    const page = new Page('page.html');
    assert.deepEqual(await fire(page, 'onLater'), { known: true, result: 'later' });
    assert.deepEqual(await fire(page, 'onThenable'), { known: true, result: 'thenable' });
});

test('a missing handler completes with null', async () => {
    const page = new Page('page.html');
    assert.deepEqual(await fire(page, 'missing'), { known: false, result: null });
    assert.deepEqual(await fire(page, 'notAMethod'), { known: false, result: null });
    assert.deepEqual(await fire(page, 'constructor'), { known: false, result: null });
});

test('promises and ticks of a handler have run before the next handler starts', async () => {
    const page = new Page('page.html');
    const order = [];
    page.onA = () => {
        process.nextTick(() => order.push('tick'));
        Promise.resolve().then(() => order.push('promise'));
        order.push('handler');
    };
    page.onB = () => { order.push('next handler'); };
    page.open();
    page.testFire(0, 'onA');
    page.testFire(0, 'onB');
    await until(() => order.length === 4);
    assert.deepEqual(order, ['handler', 'tick', 'promise', 'next handler']);
    page.close();
});

test('every call is completed exactly once', async () => {
    const page = new Page('page.html');
    page.open();
    const before = page.testCompletions();
    const names = ['onPick', 'onLater', 'missing', 'onThenable'];
    for (let i = 0; i < 100; ++i) {
        page.testFire(0, names[i % names.length], null, String(i));
    }
    await until(() => page.testCompletions() - before >= 100);
    await sleep(20);
    assert.equal(page.testCompletions() - before, 100);
    page.close();
});

test('a handler may call the component, which calls handlers meanwhile', async () => {
    const page = new Page('page.html');
    page.onOuter = () => {
        page.testFire(0, 'onPick', null, 'inner');
        for (let i = 0; i < 500 && page.seen.length === 0; ++i) {
            page.testSlow(1);
        }
        page.outer = page.seen.length;
    };
    page.testFire(0, 'onOuter');
    await until(() => page.outer !== undefined); // the inner call ends first, while the outer one still runs
    assert.equal(page.outer, 1);
});

test('a handler that throws is an uncaught error with its own stack, and the call completes with null', async () => {
    const { code, stdout, stderr } = await runScript(`
        process.on('uncaughtException', (error, origin) => console.log(origin, error.message, /onBroken/.test(error.stack)));
        const window = new (class extends tarn.GuiWindow { onBroken() { throw new Error('broken'); } })('page.html');
        window.open();
        window.testFire(0, 'onBroken');
        const timer = setInterval(() => {
            if (tarn.session.fires !== 1) return;
            clearInterval(timer);
            console.log(tarn.session.lastKnown, tarn.session.lastResult, window.testCompletions());
            window.close();
        }, 2);`);
    assert.deepEqual([stdout, stderr, code], ['uncaughtException broken true\ntrue null 1\n', '', 0]);
});

test('a handler whose promise rejects is an uncaught error, and the call completes with null', async () => {
    const { code, stdout, stderr } = await runScript(`
        process.on('uncaughtException', (error, origin) => console.log(origin, error.message, /onBroken/.test(error.stack)));
        const window = new (class extends tarn.GuiWindow { async onBroken() { await 1; throw new Error('broken'); } })('page.html');
        window.open();
        window.testFire(0, 'onBroken');
        const timer = setInterval(() => {
            if (tarn.session.fires !== 1) return;
            clearInterval(timer);
            console.log(tarn.session.lastKnown, tarn.session.lastResult, window.testCompletions());
            window.close();
        }, 2);`);
    assert.deepEqual([stdout, stderr, code], ['uncaughtException broken true\ntrue null 1\n', '', 0]);
});

test('an error in a handler that nobody listens for ends the program with its stack', async () => {
    const { code, stderr } = await runScript(`
        const window = new (class extends tarn.GuiWindow { onBroken() { throw new Error('broken'); } })('page.html');
        window.open();
        window.testFire(0, 'onBroken');`);
    assert.equal(code, 1);
    assert.match(stderr, /Error: broken\n\s+at .*onBroken/);
});

test('show returns the value, and null without one', async () => {
    const { stdout, stderr, code } = await runScript(`
        class Dialog extends tarn.GuiWindow {
            constructor(value) { super('page.html'); this.value = value; }
            ePostOpen(session) {
                if (this.value !== undefined) this.setReturnValue(this.value);
                console.log(session === tarn.session, this.isOpen());
                this.testCloseLater(5);
            }
        }
        console.log(new Dialog().show(), new Dialog(7).show(), new Dialog('text').show(), new tarn.GuiWindow().show());
        (async () => {
            console.log(await new Dialog().showAsync(), await new Dialog(7).showAsync(), await new tarn.GuiWindow().showAsync());
        })();`);
    assert.deepEqual([stderr, code], ['', 0]);
    assert.equal(stdout, `${'true true\n'.repeat(3)}null 7 text null\n${'true true\n'.repeat(2)}null 7 null\n`);
});

test('an async ePostOpen is waited for, and left alone when its window closes', async () => {
    const { stdout, stderr, code } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        class Clock extends tarn.GuiWindow {
            async ePostOpen() {
                for (this.ticks = 0; ; ++this.ticks) {
                    if (this.ticks === 3) this.testCloseLater(5);
                    await sleep(2);
                }
            }
        }
        const clock = new Clock('page.html');
        console.log(clock.show(), clock.ticks > 2);
        process.exit(0);`);
    assert.deepEqual([stdout, stderr, code], ['null true\n', '', 0]);
});

test('the end of a window is seen however soon it comes after its opening', async () => {
    const { stdout, stderr, code } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        class Clock extends tarn.GuiWindow {
            async ePostOpen() {
                this.testCloseLater(this.delay);
                for (;;) await sleep(1);
            }
        }
        for (let i = 0; i < 40; ++i) {
            const clock = new Clock('page.html');
            clock.delay = i % 4;
            clock.show();
        }
        console.log('all');
        process.exit(0);`);
    assert.deepEqual([stdout, stderr, code], ['all\n', '', 0]);
});
