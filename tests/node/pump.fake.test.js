'use strict';
// What goes on while script waits inside the component, above all in a modal show(), from wherever it was called.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { runScript, scratch } = require('./helpers.js');

/** `body()` runs in a process where `show()` was reached from the named place; it opens a window for a while. */
const places = {
    'the main program': 'body();',
    'a timer': 'setTimeout(body, 5);',
    'a timer of no time': 'setTimeout(body, 0);',
    'an interval': 'const again = setInterval(() => { clearInterval(again); body(); }, 5);',
    'an immediate': 'setImmediate(body);',
    'a tick': 'process.nextTick(body);',
    'a microtask': 'queueMicrotask(body);',
    'a promise': 'Promise.resolve().then(body);',
    'an async function': '(async () => { await sleep(2); body(); })();',
    'a file callback': 'fs.readFile(__filename, body);',
    'a file promise': 'fs.promises.readFile(__filename).then(body);',
    'a child process': 'cp.execFile("/bin/true", body);',
    'a handler': `const outer = new (class extends tarn.GuiWindow { onGo() { body(); this.close(); } })('page.html');
                  outer.open(); outer.testFire(1, 'onGo');`,
    'an async handler': `const outer = new (class extends tarn.GuiWindow { async onGo() { await sleep(1); body(); this.close(); } })('p');
                         outer.open(); outer.testFire(1, 'onGo');`,
    'another show': `const outer = new (class extends tarn.GuiWindow { ePostOpen() { body(); this.close(); } })('page.html');
                     outer.show();`,
};

/** Counts what happens until everything has happened, then closes the window; a watchdog in the component closes it else. */
const everything = `
    const fs = require('node:fs'), cp = require('node:child_process'), { Worker } = require('node:worker_threads');
    const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
    const missing = new Set(['old timer', 'timer', 'interval', 'immediate', 'immediate in immediate', 'tick', 'promise',
        'promise chain', 'await', 'await in a row', 'file callback', 'file promise', 'child', 'worker', 'handler', 'microtask']);
    let window;
    const happened = (what) => { missing.delete(what); if (missing.size === 0) window.close(); };
    setTimeout(() => happened('old timer'), 40);
    class Modal extends tarn.GuiWindow {
        onPing() { happened('handler'); }
        ePostOpen() { this.testFire(1, 'onPing'); this.testCloseLater(25000); }
    }
    function body() {
        window = new Modal('page.html');
        setTimeout(() => happened('timer'), 1);
        let n = 0;
        const interval = setInterval(() => { if (++n === 5) { clearInterval(interval); happened('interval'); } }, 2);
        setImmediate(() => { happened('immediate'); setImmediate(() => happened('immediate in immediate')); });
        process.nextTick(() => happened('tick'));
        queueMicrotask(() => happened('microtask'));
        Promise.resolve().then(() => happened('promise'));
        Promise.resolve().then(() => sleep(1)).then(() => fs.promises.stat('/')).then(() => happened('promise chain'));
        (async () => { await sleep(3); happened('await'); })();
        (async () => { for (let i = 0; i < 10; ++i) await sleep(1); happened('await in a row'); })();
        fs.readFile(__filename, () => happened('file callback'));
        fs.promises.readFile(__filename).then(() => happened('file promise'));
        cp.execFile('/bin/true', () => happened('child'));
        new Worker('require("worker_threads").parentPort.postMessage(1)', { eval: true }).on('message', () => happened('worker'));
        window.show();
        console.log(JSON.stringify([...missing]));
    }`;

for (const [place, start] of Object.entries(places)) {
    test(`a modal show() from ${place} keeps timers, promises, files, processes and handlers going`, async () => {
        const { stdout, stderr, code, signal } = await runScript(`${everything}\n${start}`);
        assert.deepEqual([stdout, stderr, code, signal], ['[]\n', '', 0, null]);
    });
}

test('a show() inside a promise inside a show() inside a promise keeps promises and ticks of all of them going', async () => {
    const { stdout, stderr, code } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        async function nest(depth) {
            await sleep(1);
            const window = new (class extends tarn.GuiWindow { ePostOpen() { this.testCloseLater(8000); } })('p');
            process.nextTick(() => Promise.resolve().then(() => process.nextTick(() => console.log('tick', depth))));
            if (depth < 3) nest(depth + 1).then(() => window.close());
            else sleep(20).then(() => window.close());
            window.show();
            console.log('shown', depth);
        }
        nest(1).then(() => console.log('done'));`);
    assert.deepEqual([stdout, stderr, code], ['tick 1\ntick 2\ntick 3\nshown 3\nshown 2\nshown 1\ndone\n', '', 0]);
});

test('a promise that fails during a show() inside a promise is an uncaught error, and the next ones run', async () => {
    const { stdout, stderr, code } = await runScript(`
        process.on('uncaughtException', (error) => console.log('uncaught', error.message));
        Promise.resolve().then(() => {
            const window = new tarn.GuiWindow('p');
            queueMicrotask(() => { throw new Error('one'); });
            Promise.reject(new Error('two'));
            process.nextTick(() => { throw new Error('three'); });
            setTimeout(() => queueMicrotask(() => { console.log('last'); window.close(); }), 20);
            window.show();
            console.log('shown');
        }).then(() => console.log('behind'));`);
    assert.deepEqual([stdout.split('\n').sort(), stderr, code],
        [['', 'behind', 'last', 'shown', 'uncaught one', 'uncaught three', 'uncaught two'], '', 0]);
});

test('a worker thread that waits in a show() inside a promise runs its promises and can be terminated', async () => {
    const { stdout, stderr, code } = await runScript(`
        const { Worker, isMainThread, parentPort } = require('node:worker_threads');
        if (isMainThread) {
            const worker = new Worker(__filename);
            worker.on('message', (text) => { console.log(text); worker.terminate().then(() => console.log('terminated')); });
        } else {
            Promise.resolve().then(() => {
                const window = new tarn.GuiWindow('p');
                Promise.resolve().then(() => new Promise((resolve) => setTimeout(resolve, 5))).then(() => parentPort.postMessage('promise'));
                window.show();
            });
        }`);
    assert.deepEqual([stdout, stderr, code], ['promise\nterminated\n', '', 0]);
});

test('a handle that is closed during a show() from its own callback is not destroyed beneath it', async () => {
    const { stdout, stderr, code } = await runScript(`
        const net = require('node:net'), { MessageChannel } = require('node:worker_threads');
        const show = (during) => {
            const window = new tarn.GuiWindow('page.html');
            setTimeout(() => { during(); setImmediate(() => setTimeout(() => window.close(), 10)); }, 5);
            window.show();
        };
        let left = 40;
        const next = () => {
            if (left-- === 0) return console.log('all');
            left % 2 ? onPort() : onSocket();
        };
        function onPort() {
            const { port1, port2 } = new MessageChannel();
            port1.on('message', () => { show(() => setImmediate(() => { port1.close(); port2.close(); })); setImmediate(next); });
            port2.postMessage(1);
        }
        function onSocket() {
            const server = net.createServer((socket) => {
                socket.on('data', () => { show(() => { socket.destroy(); client.destroy(); server.close(); }); setImmediate(next); });
            });
            const client = new net.Socket();
            server.listen(0, '127.0.0.1', () => client.connect(server.address().port, '127.0.0.1', () => client.write('x')));
        }
        next();`);
    assert.deepEqual([stdout, stderr, code], ['all\n', '', 0]);
});

test('the same when the script waits again in an immediate inside that show()', async () => {
    const { stdout, stderr, code } = await runScript(`
        const net = require('node:net');
        const show = (during) => {
            const window = new tarn.GuiWindow('page.html');
            setTimeout(() => { during(); setImmediate(() => setTimeout(() => window.close(), 10)); }, 5);
            window.show();
        };
        let left = 20;
        const next = () => {
            if (left-- === 0) return console.log('all');
            const server = net.createServer((socket) => {
                const end = () => { socket.destroy(); client.destroy(); server.close(); };
                socket.on('data', () => { show(() => setImmediate(() => show(end))); setImmediate(next); });
            });
            const client = new net.Socket();
            server.listen(0, '127.0.0.1', () => client.connect(server.address().port, '127.0.0.1', () => client.write('x')));
        };
        next();`, { env: { MALLOC_PERTURB_: '165' } }); // what is freed is overwritten, so that its use shows
    assert.deepEqual([stdout, stderr, code], ['all\n', '', 0]);
});

test('a program started before show() is heard of during it', async () => {
    const { stdout, code } = await runScript(`
        const window = new tarn.GuiWindow('page.html');
        require('node:child_process').execFile('/bin/true', () => { console.log('ended'); window.close(); });
        window.show();
        console.log('shown');`);
    assert.deepEqual([stdout, code], ['ended\nshown\n', 0]);
});

test('a timer that was set before goes off during a show() that a timer called', async () => {
    const { stdout, code } = await runScript(`
        class Modal extends tarn.GuiWindow { ePostOpen() { this.testCloseLater(3000); } }
        const window = new Modal('page.html');
        setTimeout(() => { window.show(); console.log('shown', Date.now() - start < 2000); }, 10);
        setTimeout(() => { console.log('timer'); window.close(); }, 60);
        const start = Date.now();`);
    // The fake user's three seconds keep its thread busy: the close() of the timer waits behind it.
    assert.match(stdout, /^timer\nshown (true|false)\n$/);
    assert.equal(code, 0);
});

test('modal windows nest and return in order', async () => {
    const { stdout, stderr, code } = await runScript(`
        class Modal extends tarn.GuiWindow {
            constructor(depth) { super('page.html'); this.depth = depth; }
            ePostOpen() {
                if (this.depth < 5) console.log('inner', new Modal(this.depth + 1).show());
                this.setReturnValue(this.depth);
                setTimeout(() => this.close(), 2);
            }
        }
        console.log('outer', new Modal(1).show());`);
    assert.equal(stderr, '');
    assert.equal(stdout, 'inner 5\ninner 4\ninner 3\ninner 2\nouter 1\n');
    assert.equal(code, 0);
});

const withoutReentry = { TARN_NO_REENTRY: '1' };

for (const [where, env] of [['', {}], [', also where the addon finds no function of the interpreter', withoutReentry]]) {
    test(`an error in a timer during show() is an uncaught error, not one of show()${where}`, async () => {
        for (const thrower of ['setTimeout(fail, 2)', 'setImmediate(fail)', 'process.nextTick(fail)', 'queueMicrotask(fail)',
            'fs.readFile("/", fail)', '(async () => { await sleep(1); fail(); })()']) {
            const { stdout, stderr, code } = await runScript(`
                const fs = require('node:fs');
                const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
                const fail = () => { throw new Error('from outside'); };
                process.on('uncaughtException', (error) => {
                    console.log('uncaught', error.message);
                    setTimeout(() => window.close(), 20);
                });
                const window = new tarn.GuiWindow('page.html');
                window.ePostOpen = () => { ${thrower}; };
                try { console.log('show', window.show()); } catch (error) { console.log('caught by show', error.message); }`, { env });
            assert.deepEqual([stdout, stderr, code], ['uncaught from outside\nshow null\n', '', 0], thrower);
        }
    });
}

test('an error during show() does not swallow the next one', async () => {
    const { stdout, stderr, code } = await runScript(`
        const fs = require('node:fs');
        const fail = (what) => () => { throw new Error(what); };
        process.on('uncaughtException', (error) => console.log(error.message));
        const window = new tarn.GuiWindow('page.html');
        window.ePostOpen = () => {
            fs.readFile('/', fail('file')); // both are refused, and heard of in one turn
            fs.readFile('/', fail('file'));
            setImmediate(fail('immediate'));
            setImmediate(fail('immediate'));
            setTimeout(fail('timer'), 100);
            setTimeout(fail('timer'), 100);
            setTimeout(() => window.close(), 200);
        };
        console.log(window.show());`);
    assert.deepEqual([stdout.split('\n').sort(), stderr, code],
        [['', 'file', 'file', 'immediate', 'immediate', 'null', 'timer', 'timer'], '', 0]);
});

/** Runs `body(window)` while a window is shown, from the place that `from(show)` calls it. */
const during = (body, from) => `
    const { AsyncLocalStorage } = require('node:async_hooks');
    const window = new (class extends tarn.GuiWindow { ePostOpen() { setTimeout(() => this.close(), 200); (${body})(this); } })('p');
    const show = () => { window.show(); console.log('shown'); };
    ${from}`;

test('an immediate may show a window whatever stands before and behind it', async () => {
    const body = 'function () { setImmediate(() => { console.log("inside"); setImmediate(() => console.log("again")); }); }';
    for (const wait of ['show()', 'Promise.resolve().then(show)', 'process.nextTick(show)']) {
        const from = `setImmediate(() => console.log('before')); setImmediate(() => { ${wait}; }); setImmediate(() => console.log('behind'));`;
        const { stdout, stderr, code } = await runScript(during(body, from));
        assert.deepEqual([stdout, stderr, code], ['before\ninside\nagain\nshown\nbehind\n', '', 0], wait);
    }
});

test('an immediate shows a window inside the show() of another immediate', async () => {
    const body = `function (outer) {
        setImmediate(() => {
            const inner = new tarn.GuiWindow('p');
            setTimeout(() => { setImmediate(() => { console.log('innermost'); inner.close(); }); }, 5);
            inner.show();
            console.log('inner shown');
        });
        setImmediate(() => console.log('behind the inner one'));
    }`;
    const { stdout, stderr, code } = await runScript(during(body, 'setImmediate(show); setImmediate(() => console.log("behind"));'));
    assert.deepEqual([stdout, stderr, code], ['behind the inner one\ninnermost\ninner shown\nshown\nbehind\n', '', 0]);
});

test('immediates run after the show() of an immediate during which a timer waited', async () => {
    const body = 'function (outer) { setTimeout(() => { outer.testSlow(60); console.log("timer"); }, 5); }';
    const from = `setImmediate(show); setImmediate(() => console.log('behind')); process.on('exit', () => console.log('end'));
        setTimeout(() => setImmediate(() => console.log('later')), 500);`;
    const { stdout, stderr, code } = await runScript(during(body, from));
    assert.deepEqual([stdout, stderr, code], ['timer\nshown\nbehind\nlater\nend\n', '', 0]);
});

test('immediates run in order during show(), with their arguments, promises between them and the context they were made in', async () => {
    const body = `function () {
        const storage = new AsyncLocalStorage();
        const say = (...what) => console.log(...what, storage.getStore());
        storage.run('a', () => setImmediate((...args) => { say(...args); clearImmediate(cleared); Promise.resolve().then(() => say('promise')); }, 1, 2));
        const cleared = setImmediate(() => say('cleared'));
        storage.run('b', () => setImmediate(() => { say(3); process.nextTick(() => say('tick')); }));
        setImmediate(() => say(4));
    }`;
    const { stdout, stderr, code } = await runScript(during(body, 'show();'));
    assert.deepEqual([stdout, stderr, code], ['1 2 a\npromise a\n3 b\ntick b\n4 undefined\nshown\n', '', 0]);
});

test('where immediates cannot be taken, Node.js runs them during show()', async () => {
    const preload = path.join(scratch, 'opaque.js');
    fs.writeFileSync(preload, `
        const timers = require('node:timers');
        const { setImmediate, clearImmediate } = timers;
        timers.setImmediate = (...args) => ({ hidden: setImmediate(...args) });
        timers.clearImmediate = ({ hidden }) => clearImmediate(hidden);`);
    const body = 'function () { setImmediate(() => { console.log("inside"); setImmediate(() => console.log("again")); }); }';
    const { stdout, stderr, code } = await runScript(during(body, 'show();'), { args: ['--require', preload] });
    assert.deepEqual([stdout, stderr, code], ['inside\nagain\nshown\n', '', 0]);
});

test('immediates that never end leave timers and files their turns during show()', async () => {
    const body = `function () {
        (function again() { setImmediate(again).unref(); })();
        require('node:fs').readFile(__filename, () => console.log('file'));
    }`;
    for (const from of ['show();', 'setImmediate(show);']) {
        const { stdout, stderr, code } = await runScript(during(body, `${from} process.on('exit', () => console.log('exit'));`));
        assert.deepEqual([stdout, stderr, code], ['file\nshown\nexit\n', '', 0], from);
    }
});

test('an error during show() that nobody listens for ends the program', async () => {
    for (const thrower of ['setTimeout(fail, 5)', 'setImmediate(fail)', 'queueMicrotask(fail)', 'Promise.reject(new Error("from outside"))']) {
        const { stdout, stderr, code } = await runScript(`
            const fail = () => { throw new Error('from outside'); };
            const window = new tarn.GuiWindow('page.html');
            ${thrower};
            window.show();
            console.log('not reached');`);
        assert.deepEqual([stdout, code], ['', 1], thrower);
        assert.match(stderr, /Error: from outside\n\s+at /);
        assert.doesNotMatch(stderr, /fake:|FATAL/);
    }
});

test('immediates that wait behind the one that called show() cost no processor time', async () => {
    const { stdout, code } = await runScript(`
        const window = new tarn.GuiWindow('page.html');
        setImmediate(() => {
            const before = process.cpuUsage();
            setTimeout(() => {
                const { user, system } = process.cpuUsage(before);
                console.log((user + system) / 1000 < 250);
                window.close();
            }, 1000);
            window.show();
        });
        setImmediate(() => console.log('second'));`);
    assert.deepEqual([stdout, code], ['true\nsecond\n', 0]);
});

test('a handler that computes for long delays nobody else than script', async () => {
    const { stdout, code } = await runScript(`
        const window = new (class extends tarn.GuiWindow {
            onBusy() { const end = Date.now() + 300; while (Date.now() < end); }
            onNext() { console.log('next'); this.close(); }
        })('page.html');
        window.open();
        window.testFire(0, 'onBusy');
        window.testFire(0, 'onNext');`);
    assert.deepEqual([stdout, code], ['next\n', 0]);
});

test('a program that waits for its windows takes no processor time', async () => {
    const { stdout, code } = await runScript(`
        const window = new (class extends tarn.GuiWindow { onPick() {} })('page.html');
        window.open();
        let before;
        setTimeout(() => { before = process.cpuUsage(); }, 500);
        setTimeout(() => {
            const { user, system } = process.cpuUsage(before);
            console.log((user + system) / 1000 < 20 ? 'idle' : user + system);
            window.close();
        }, 2500);`);
    assert.deepEqual([stdout, code], ['idle\n', 0]);
});

test('a call that is answered at once does not turn the event loop', async () => {
    const { stdout } = await runScript(`
        const window = new tarn.GuiWindow('page.html');
        let calm = 0; // a busy machine may answer late now and then
        for (let round = 0; round < 10; ++round) {
            let turned = false;
            const immediate = setImmediate(() => { turned = true; });
            for (let i = 0; i < 5; ++i) window.testEcho(i);
            clearImmediate(immediate);
            if (!turned) ++calm;
        }
        console.log(calm >= 5);`);
    assert.equal(stdout, 'true\n');
});

test('where promises cannot run inside a promise, the program is told and handlers do not hang', async () => {
    const { stdout, stderr, code } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        (async () => {
            await sleep(1);
            const window = new (class extends tarn.GuiWindow {
                async onAsync() { await sleep(1); return 'settled'; }
                ePostOpen() { this.testFire(0, 'onAsync'); }
            })('page.html');
            const timer = setInterval(() => { if (tarn.session.fires === 1) { clearInterval(timer); window.close(); } }, 5);
            window.show();
            console.log(tarn.session.lastResult);
        })();`, { env: withoutReentry });
    assert.equal(code, 0);
    assert.equal(stdout, 'null\n');
    assert.match(stderr, /^tarn: show\(\) [^\n]*"await window\.showAsync\(\)"[^\n]*\n$/);
});

test('where ticks cannot be run during show(), they run behind it at the latest and everything else goes on', async () => {
    const { stdout, stderr, code } = await runScript(`
        delete process._tickCallback;
        const window = new tarn.GuiWindow('page.html');
        window.ePostOpen = () => {
            process.nextTick(() => console.log('tick'));
            Promise.resolve().then(() => console.log('promise'));
            setTimeout(() => window.close(), 50);
        };
        window.show();
        console.log('shown');`);
    assert.deepEqual([stderr, code], ['', 0]);
    assert.match(stdout, /^promise\n(shown\ntick|tick\nshown)\n$/); // where two timers are due at once, Node.js runs ticks between them
});

test('a handle that no callback below show() uses is closed during it', async () => {
    const { stdout, stderr, code } = await runScript(`
        const net = require('node:net');
        const server = net.createServer((socket) => socket.on('data', () => {
            const window = new (class extends tarn.GuiWindow { ePostOpen() { this.testCloseLater(5000); } })('page.html');
            other.close(() => { console.log('closed'); window.close(); });
            window.show();
            console.log('shown');
            process.exit(0);
        }));
        const other = net.createServer();
        other.listen(0, '127.0.0.1', () => server.listen(0, '127.0.0.1', () => {
            const client = net.connect(server.address().port, '127.0.0.1', () => client.write('x'));
        }));`);
    assert.deepEqual([stdout, stderr, code], ['closed\nshown\n', '', 0]);
});
