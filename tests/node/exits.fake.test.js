'use strict';
// How a program with windows ends. Each way is taken many times, since what goes wrong here goes wrong by chance: the exit
// code or signal must be right, nothing may be printed (the fake component reports what it must not see), nothing may hang.

const assert = require('node:assert/strict');
const { test } = require('node:test');
const { runMany, runScript } = require('./helpers.js');

/** Times each way is taken; those marked `often` are the plain ones, the others variants of them. */
const often = 50;
const sometimes = 12;
const width = 3;

const opened = `
    class Page extends tarn.GuiWindow {
        onExit() { process.exit(5); }
        onThrow() { throw new Error('thrown'); }
        async onLater() { await new Promise(() => {}); }
        onNest() { this.show(); }
        onPick() {}
    }
    const windows = [0, 1, 2].map(() => new Page('page.html'));
    windows.forEach((window) => window.open());
    const [page] = windows;`;

/** Kills the program from outside as soon as it prints. */
const kill = (signal) => ({ onOutput: (text, child) => child.kill(signal) });

const cases = {
    'the last window is closed': { isOften: true, source: `${opened} windows.forEach((window, i) => setTimeout(() => window.close(), i));`, code: 0 },
    'the user closes the only window': {
        source: 'const page = new tarn.GuiWindow("p"); page.open(); page.testCloseLater(1);', code: 0 },
    'no window was ever opened': { source: 'new tarn.GuiWindow("p").control("a");', code: 0 },
    'the package is only loaded': { source: '', code: 0 },
    'process.exit() with open windows': { isOften: true, source: `${opened} process.exit(3);`, code: 3 },
    'process.exit() while calls come in': {
        source: `${opened} for (let i = 0; i < 20; ++i) page.testFire(0, i % 2 ? 'onPick' : 'onLater');
                 setTimeout(() => process.exit(3), 3);`, code: 3 },
    'process.exit() in a handler': { isOften: true, source: `${opened} page.testFire(0, 'onExit');`, code: 5 },
    'process.exit() in a handler during show()': {
        source: `${opened} page.ePostOpen = () => page.testFire(0, 'onExit'); page.show();`, code: 5 },
    'process.exit() in ePostOpen': { source: `${opened} page.ePostOpen = () => process.exit(6); page.show();`, code: 6 },
    'process.exit() in a timer during show()': { source: `${opened} setTimeout(() => process.exit(7), 2); page.show();`, code: 7 },
    'process.exit() in nested shows': {
        source: `${opened} page.ePostOpen = () => windows[1].show(); setTimeout(() => process.exit(7), 5); page.show();`, code: 7 },
    'process.reallyExit()': { source: `${opened} process.reallyExit(4);`, code: 4 },
    'an uncaught throw': { isOften: true, source: `${opened} throw new Error('thrown');`, code: 1, stderr: /Error: thrown/ },
    'an uncaught throw in a handler': { source: `${opened} page.testFire(0, 'onThrow');`, code: 1, stderr: /Error: thrown/ },
    'an uncaught throw in a timer during show()': {
        source: `${opened} setTimeout(() => { throw new Error('thrown'); }, 2); page.show();`, code: 1, stderr: /Error: thrown/ },
    'an unhandled rejection during show()': {
        source: `${opened} setTimeout(() => Promise.reject(new Error('thrown')), 2); page.show();`, code: 1, stderr: /Error: thrown/ },
    SIGTERM: { isOften: true, source: `${opened} console.log('ready');`, signal: 'SIGTERM', options: kill('SIGTERM') },
    'SIGTERM during show()': {
        source: `${opened} setTimeout(() => console.log('ready'), 2); page.show();`, signal: 'SIGTERM', options: kill('SIGTERM') },
    SIGINT: { isOften: true, source: `${opened} console.log('ready');`, signal: 'SIGINT', options: kill('SIGINT') },
    'SIGINT during show()': {
        source: `${opened} setTimeout(() => console.log('ready'), 2); page.show();`, signal: 'SIGINT', options: kill('SIGINT') },
    'SIGINT during show(), with a listener that ends the program': {
        source: `${opened} process.on('SIGINT', () => process.exit(130));
                 setTimeout(() => console.log('ready'), 2); page.show();`, code: 130, options: kill('SIGINT') },
    'a worker thread that loaded the package is terminated': {
        source: worker('setInterval(() => {}, 10); parentPort.postMessage("ready");'), code: 0 },
    'a worker thread with open windows is terminated': {
        isOften: true, source: worker(`${opened} parentPort.postMessage("ready");`), code: 0 },
    'a worker thread is terminated during show()': {
        source: worker(`${opened} setTimeout(() => parentPort.postMessage("ready"), 2); page.show();`), code: 0 },
    'a worker thread ends by itself': {
        source: worker(`${opened} windows.forEach((window) => window.close()); parentPort.postMessage("ready");`), code: 0 },
    'process.exit() in a handler of a worker thread': {
        source: worker(`${opened} page.ePostOpen = () => page.testFire(0, 'onExit'); parentPort.postMessage("ready"); page.show();`,
            ''), code: 0 },
    'process.exit() while a worker thread shows a window': {
        source: worker(`${opened} setTimeout(() => parentPort.postMessage("ready"), 2); page.show();`, 'process.exit(9);'), code: 9 },
};

function worker(source, then = 'thread.terminate().then(() => console.log("terminated"));') {
    return `const { Worker } = require('node:worker_threads');
        const thread = new Worker(${JSON.stringify(`const { parentPort } = require('node:worker_threads');
            const tarn = require(${JSON.stringify(require('./helpers.js').packageFolder)}); ${source}`)}, { eval: true });
        thread.on('error', (error) => { console.error(error); process.exitCode = 99; });
        thread.on('message', () => { ${then} });`;
}

for (const [name, { source, code = null, signal = null, stderr = /^$/, options, isOften }] of Object.entries(cases)) {
    test(`the program ends well: ${name}`, async () => {
        const results = await runMany(isOften ? often : sometimes, width, () => runScript(source, { limitMs: 15000, ...options }));
        for (const result of results) {
            assert.deepEqual([result.code, result.signal], [code, signal], `${result.stdout}${result.stderr}`);
            assert.match(result.stderr, stderr);
            assert.doesNotMatch(result.stderr, /fake:|terminate called|FATAL|core dumped/);
        }
    });
}

test('an exit destroys all windows before the component is shut down', async () => {
    const { stderr } = await runScript(`${opened} process.exit(0);`, { env: { FAKE_REPORT: '1' } });
    assert.equal(stderr, 'fake: ended with 0 windows, destroyed window window window\n');
});

test('an exit destroys the oldest objects first, so a window before its controls', async () => {
    const { stderr } = await runScript(`
        const first = new tarn.GuiWindow('page.html');
        const kept = [first.control('a'), new tarn.GuiWindow('page.html'), first.control('b'), new tarn.GuiWindow('page.html')];
        process.exit(0);`, { env: { FAKE_REPORT: '1' } });
    assert.equal(stderr, 'fake: ended with 0 windows, destroyed window control window control window\n');
});

test('listeners of "exit" may use windows', async () => {
    const { stdout, stderr, code } = await runScript(`${opened}
        process.on('exit', () => { page.close(); console.log(page.isOpen(), page.control('a')); });
        process.exit(0);`);
    assert.deepEqual([stdout, stderr, code], ['false null\n', '', 0]);
});

test('a second thread can not make windows', async () => {
    const { stdout, code } = await runScript(`${opened}
        const { Worker } = require('node:worker_threads');
        const text = ${JSON.stringify(`const { GuiWindow } = require(${JSON.stringify(require('./helpers.js').packageFolder)});
            try { new GuiWindow(); } catch (error) { require("worker_threads").parentPort.postMessage(error.message); }`)};
        new Worker(text, { eval: true }).on('message', (message) => {
            console.log(message);
            windows.forEach((window) => window.close());
        });`);
    assert.equal(stdout, 'new GuiWindow(): another thread of this process has windows; '
        + 'only the thread that made the first one can make more\n');
    assert.equal(code, 0);
});
