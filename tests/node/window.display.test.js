'use strict';
// Windows on a display, used through the mouse and the keyboard, with the real component.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { click, closeByUser, findActiveWindow, findWindow, pixel, processorTicks, run, waitGone, xdotool } = require('./desktop.js');
const { runMany, runScript, scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

/** A page of one link that fills a window of 400 x 200 pixels' middle line; the link is hit at (40, 100). */
function writePage(title, link) {
    fs.writeFileSync(path.join(scratch, `${title}.html`), `<html><head><title>${title}</title></head>
        <body width="400" height="200" bgcolor="#208040"><a href="event://${link}">here is a link to click</a></body></html>`);
}

const clickLink = (window) => click(window, 40, 100);

writePage('Order', 'onPick/3/red');
writePage('Inner', 'onInner');
fs.writeFileSync(path.join(scratch, 'Button.html'), '<html><body><input type="button" value="a"> text</body></html>');

/** Starts a program; `child.text()` is what it printed so far, `ended` its end. */
function start(source, options) {
    const program = { text: () => '', child: null };
    program.ended = runScript(source, {
        ...options,
        onOutput: (text, child) => { program.text = () => text; program.child = child; options?.onOutput?.(text, child); },
    });
    program.prints = (text) => until(() => program.text().includes(text), 15000);
    return program;
}

/** The end of a program that must have ended well. */
async function endOf(program, stdout) {
    const result = await program.ended;
    assert.deepEqual([result.stdout, result.stderr, result.code, result.signal], [stdout, '', 0, null]);
}

test('a click on a link calls the handler with its arguments, and show() returns the value', async () => {
    const program = start(`
        class Order extends tarn.GuiWindow {
            onPick(source, ...args) { console.log(source === tarn.session, args); this.setReturnValue(args[1]); this.close(); }
        }
        console.log(new Order('Order.html').show());`);
    await clickLink(await findWindow('Order'));
    await endOf(program, "true [ '3', 'red' ]\nred\n");
});

test('a window that the user closes returns null', async () => {
    const program = start("console.log(new tarn.GuiWindow('Order.html').show());");
    await closeByUser(await findWindow('Order'));
    await endOf(program, 'null\n');
});

test('showAsync() settles with the value, and with null when the user closes the window', async () => {
    const program = start(`
        class Order extends tarn.GuiWindow { onPick() { this.setReturnValue(7); this.close(); } }
        (async () => {
            console.log(await new Order('Order.html').showAsync());
            console.log(await new Order('Order.html').showAsync());
        })();`);
    await clickLink(await findWindow('Order'));
    await program.prints('7\n');
    await closeByUser(await findWindow('Order'));
    await endOf(program, '7\nnull\n');
});

test('timers, promises and files go on during show(), and a link is served from within an async function', async () => {
    const program = start(`
        const fs = require('node:fs');
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        class Order extends tarn.GuiWindow {
            async onPick() { await fs.promises.readFile(__filename); await sleep(5); console.log('handled'); this.close(); }
        }
        (async () => {
            await sleep(1);
            (async () => { for (let i = 0; i < 3; ++i) await sleep(2); console.log('awaited'); })();
            new Order('Order.html').show();
            console.log('shown');
        })();`);
    await program.prints('awaited');
    await clickLink(await findWindow('Order'));
    await endOf(program, 'awaited\nhandled\nshown\n');
});

test('a handler that computes for two seconds: the window is painted meanwhile, and a second click is dropped', async () => {
    const program = start(`
        class Order extends tarn.GuiWindow {
            count = 0;
            onPick() {
                console.log('busy', ++this.count);
                for (const end = Date.now() + 2000; Date.now() < end;);
                console.log('done');
                setTimeout(() => { console.log('count', this.count); this.close(); }, 500);
            }
        }
        new Order('Order.html').show();`);
    const window = await findWindow('Order');
    await clickLink(window);
    await program.prints('busy 1');
    await xdotool('windowsize', '--sync', window, 700, 500);
    await clickLink(window);
    await click(window, 40, 250);
    const colour = await pixel(window, 650, 450);
    assert.equal(program.text(), 'busy 1\n', 'the handler was still running');
    assert.equal(colour, '#208040');
    await endOf(program, 'busy 1\ndone\ncount 1\n');
});

test('opening a window that is open brings it to the front', async () => {
    const program = start(`
        const [first, second] = ['First', 'Second'].map((title) => {
            const window = new tarn.GuiWindow('Order.html');
            window.setTitle(title);
            window.open();
            return window;
        });
        second.onPick = () => { console.log(first.open()); };
        first.onPick = () => { first.close(); second.close(); };`);
    await findWindow('First');
    await clickLink(await findActiveWindow('Second'));
    await clickLink(await findActiveWindow('First'));
    await endOf(program, 'true\n');
});

test('a click while an async handler has not settled is dropped', async () => {
    const program = start(`
        class Order extends tarn.GuiWindow {
            count = 0;
            async onPick() {
                console.log('started', ++this.count);
                await new Promise((resolve) => setTimeout(resolve, 700));
                setTimeout(() => { console.log('count', this.count); this.close(); }, 400);
            }
        }
        new Order('Order.html').open();`);
    const window = await findWindow('Order');
    await clickLink(window);
    await program.prints('started 1');
    await clickLink(window);
    await endOf(program, 'started 1\ncount 1\n');
});

test('a handler that throws is reported, and the window works on', async () => {
    const program = start(`
        process.on('uncaughtException', (error) => console.log('uncaught', error.message));
        let count = 0;
        class Order extends tarn.GuiWindow {
            onPick() { if (++count === 1) throw new Error('first'); console.log('second'); this.close(); }
        }
        new Order('Order.html').show();`);
    const window = await findWindow('Order');
    await clickLink(window);
    await program.prints('uncaught first');
    await clickLink(window);
    await endOf(program, 'uncaught first\nsecond\n');
});

test('a handler opens another modal window and gets its value', async () => {
    const program = start(`
        class Inner extends tarn.GuiWindow { onInner() { this.setReturnValue('inner'); this.close(); } }
        class Order extends tarn.GuiWindow {
            onPick() { this.setReturnValue(new Inner('Inner.html').show()); this.close(); }
        }
        console.log(new Order('Order.html').show());`);
    await clickLink(await findWindow('Order'));
    await clickLink(await findWindow('Inner'));
    await endOf(program, 'inner\n');
});

test('ten windows keep the program alive until the last one is closed', async () => {
    const program = start(`
        const windows = Array.from({ length: 10 }, (_, i) => {
            const window = new tarn.GuiWindow('Order.html');
            window.setTitle('Window' + i);
            window.open();
            return window;
        });
        process.on('exit', () => console.log('ended'));
        windows.slice(1).forEach((window) => window.close());
        console.log('one left');`);
    const last = await findWindow('Window0');
    await program.prints('one left');
    await waitGone('Window9');
    await sleep(300);
    assert.equal(program.text(), 'one left\n');
    await closeByUser(last);
    await endOf(program, 'one left\nended\n');
});

test('a program that waits for its windows takes no processor time', async () => {
    const program = start(`
        const order = new (class extends tarn.GuiWindow { onPick() { this.close(); } })('Order.html');
        order.open();
        console.log('open');`);
    const window = await findWindow('Order');
    await program.prints('open');
    await sleep(1000);
    const before = processorTicks(program.child.pid);
    await sleep(3000);
    assert.equal(processorTicks(program.child.pid) - before, 0);
    await clickLink(window);
    await endOf(program, 'open\n');
});

test('methods of windows that are closed or without a page give neutral results', async () => {
    const program = start(`
        const order = new tarn.GuiWindow('Order.html');
        const empty = new tarn.GuiWindow();
        console.log(order.isOpen(), order.getTitle(), order.getSizePolicy());
        console.log(empty.isValid(), empty.open(), empty.show(), empty.getTitle() === '', empty.getSizePolicy());
        order.open(); order.close(); order.close();
        console.log(order.isOpen(), order.setTitle('closed'), order.getTitle());`);
    await endOf(program, `false Order RESIZE\nfalse false null true RESIZE\nfalse null closed\n`);
});

test('a page that cannot be read is named once', async () => {
    const { stdout, stderr, code } = await runScript(`
        try { new tarn.GuiWindow('missing.html'); } catch (error) { console.log(error.code, error.path); }`);
    const missing = path.join(scratch, 'missing.html');
    assert.deepEqual([stdout, code], [`ENOENT ${missing}\n`, 0]);
    assert.equal(stderr, `GuiWindow::load() - failed to load file ${missing}\n`);
});

// --- exits, with the real component ---

const opened = `const windows = [0, 1].map(() => new tarn.GuiWindow('Order.html')); windows.forEach((window) => window.open());`;
const kill = (signal) => ({ onOutput: (text, child) => child.kill(signal) });
const worker = (source) => `const { Worker } = require('node:worker_threads');
    const thread = new Worker(\`const tarn = require(${JSON.stringify(require('./helpers.js').packageFolder)});
        const at = ${JSON.stringify(scratch)} + '/'; ${source}\`, { eval: true });
    thread.on('error', (error) => { console.error(error); process.exitCode = 99; });
    thread.on('message', () => thread.terminate());`;

const exits = {
    'the windows are closed': { source: `${opened} windows.forEach((window) => window.close());`, code: 0 },
    'process.exit() with open windows': { source: `${opened} process.exit(3);`, code: 3 },
    'process.exit() in a timer during show()': { source: `${opened} setTimeout(() => process.exit(4), 5); windows[0].show();`, code: 4 },
    'process.exit() in ePostOpen': {
        source: `${opened} windows[1].close(); windows[1].ePostOpen = () => process.exit(5); windows[1].show();`, code: 5 },
    'process.exit() in the ePostOpen of the first window': {
        source: `const window = new tarn.GuiWindow('Button.html'); window.ePostOpen = () => process.exit(6); window.show();`, code: 6 },
    'an uncaught throw': { source: `${opened} throw new Error('thrown');`, code: 1, stderr: /Error: thrown/ },
    SIGTERM: { source: `${opened} console.log('ready');`, signal: 'SIGTERM', options: kill('SIGTERM') },
    'SIGINT during show()': {
        source: `${opened} setTimeout(() => console.log('ready'), 5); windows[0].show();`, signal: 'SIGINT', options: kill('SIGINT') },
    'a worker thread with windows is terminated during show()': {
        source: worker(`const window = new tarn.GuiWindow(at + 'Order.html');
            setTimeout(() => require('worker_threads').parentPort.postMessage(1), 5); window.show();`), code: 0 },
};

for (const [name, { source, code = null, signal = null, stderr = /^$/, options }] of Object.entries(exits)) {
    test(`the program ends well, fifty times: ${name}`, async () => {
        const results = await runMany(50, 3, () => runScript(source, options));
        for (const result of results) {
            assert.deepEqual([result.code, result.signal], [code, signal], `${result.stdout}${result.stderr}`);
            assert.match(result.stderr, stderr);
            assert.doesNotMatch(result.stderr, /terminate called|FATAL|core dumped|QThread|Q[A-Z][a-z]+::/);
        }
    });
}

test('process.exit() in the handler of a click', async () => {
    const program = start(`
        const order = new (class extends tarn.GuiWindow { onPick() { process.exit(6); } })('Order.html');
        order.open();`);
    await clickLink(await findWindow('Order'));
    const result = await program.ended;
    assert.deepEqual([result.code, result.stderr], [6, '']);
});

test('a window has the picture that its body names, or script', async () => {
    fs.writeFileSync(path.join(scratch, 'mark.svg'), '<svg xmlns="http://www.w3.org/2000/svg" width="40" height="40"><rect width="9" height="9"/></svg>');
    fs.writeFileSync(path.join(scratch, 'Marked.html'), '<html><head><title>Marked</title></head><body icon="mark.svg">x</body></html>');
    const program = await Program.start('let window;');
    await program.ask("window = new tarn.GuiWindow('Marked.html'), window.open()");
    const window = await findWindow('Marked');
    const hasIt = async () => (await run('xprop', '-id', window, '-notype', '_NET_WM_ICON')).includes('128 x 128'); // drawn for the largest size
    await until(hasIt, 15000);
    await program.ask("window.setIcon('')");
    await until(async () => !await hasIt(), 15000);
    await program.ask("window.setIcon('mark.svg')");
    await until(hasIt, 15000);
    await program.ask('window.close()');
    await program.end();
});
