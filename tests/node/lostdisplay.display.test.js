'use strict';
// Displays that are not there, and displays that go. Each test that needs a display has a server of its own, which it may
// end.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const fs = require('node:fs');
const net = require('node:net');
const path = require('node:path');
const { test } = require('node:test');
const { runScript, scratch, until } = require('./helpers.js');

const socketOf = (display) => `/tmp/.X11-unix/X${display.slice(1)}`;

/** An X server until the end of the test; `display` is its name. */
async function startServer(t, ...options) {
    const server = spawn('Xvfb', ['-displayfd', '3', '-screen', '0', '640x480x24', '-noreset', '-nolisten', 'tcp', ...options],
        { stdio: ['ignore', 'ignore', 'ignore', 'pipe'] });
    let number = '';
    server.stdio[3].on('data', (data) => { number += data; });
    await until(() => number.endsWith('\n') || server.exitCode !== null, 20000);
    const display = `:${number.trim()}`;
    t.after(() => {
        server.kill('SIGKILL');
        [socketOf(display), `/tmp/.X${display.slice(1)}-lock`].forEach((file) => fs.rmSync(file, { force: true }));
    });
    assert.equal(server.exitCode, null);
    return { server, display };
}

/** The environment without anything that names a display, and `env`. Unset: ''. */
const only = (env) => ({ QT_QPA_PLATFORM: '', DISPLAY: '', WAYLAND_DISPLAY: undefined, XDG_SESSION_TYPE: '', XAUTHORITY: undefined,
    QT_PLUGIN_PATH: '', XDG_RUNTIME_DIR: scratch, ...env });

const tries = `
    process.on('exit', () => console.log('exit'));
    try { new tarn.GuiWindow(); console.log('made'); } catch (error) { console.log(error.constructor.name, error.message); }`;
const page = 'lost.html';
fs.writeFileSync(path.join(scratch, page), '<html><body width="300" height="200"><form><input type="text" name="a"></form></body></html>');

const none = 'new GuiWindow(): there is no display: ';
const noServer = (display) => `no X server answers at DISPLAY=${display}, or it refuses this program (XAUTHORITY is not set)`;
const noPlatform = (variable, platform) => `${variable} needs the platform "${platform}", which the toolkit does not have here`;

const wrongs = [
    [{}, 'the environment variable DISPLAY is not set'],
    [{ DISPLAY: 'garbage' }, 'DISPLAY=garbage does not name one, such as :0 or :0.0'],
    [{ DISPLAY: ':93217' }, noServer(':93217')],
    [{ DISPLAY: 'localhost:47' }, noServer('localhost:47')],
    [{ DISPLAY: '/nowhere/socket:0' }, noServer('/nowhere/socket:0')],
    [{ DISPLAY: ':93217', QT_QPA_PLATFORM: 'nonsense' }, noPlatform('QT_QPA_PLATFORM=nonsense', 'nonsense')],
    [{ DISPLAY: ':93217', QT_QPA_PLATFORM: 'nonsense;xcb:option' },
        `${noPlatform('QT_QPA_PLATFORM=nonsense;xcb:option', 'nonsense')}; ${noServer(':93217')}`],
];
for (const [env, says] of wrongs) {
    test(`a window on ${JSON.stringify(env)} is an error that names the variable and its value`, async () => {
        const { stdout, stderr, code } = await runScript(tries, { env: only(env) });
        assert.deepEqual([stdout, stderr, code], [`Error ${none}${says}\nexit\n`, '', 0]);
    });
}

test('a window on a Wayland display that is not there is an error that names the variable and its value', async () => {
    const { stdout, stderr, code } = await runScript(tries, { env: only({ WAYLAND_DISPLAY: 'nowhere' }) });
    assert.match(stdout, /^Error new GuiWindow\(\): there is no display: .*WAYLAND_DISPLAY=nowhere.*; the environment variable DISPLAY is not set\nexit\n$/);
    assert.deepEqual([stderr, code], ['', 0]);
});

test('an X server that refuses the program is an error that names the variable and its value', async () => {
    const display = ':93219';
    const reason = 'not you!';
    let asked = 0;
    const server = net.createServer((client) => client.once('data', () => {
        asked += 1;
        // failed, length of the reason, protocol 11.0, length of what follows in units of four bytes
        client.end(Buffer.concat([Buffer.from([0, reason.length, 11, 0, 0, 0, reason.length / 4, 0]), Buffer.from(reason)]));
    }));
    await new Promise((resolve) => { server.listen(socketOf(display), resolve); });
    const { stdout, stderr, code } = await runScript(tries, { env: only({ DISPLAY: display }) });
    server.close();
    assert.deepEqual([stdout, code, asked], [`Error ${none}${noServer(display)}\nexit\n`, 0, 1]);
    assert.ok(['', `${reason}\n`].includes(stderr), stderr); // some versions of the X library pass the server's words on
});

test('a screen that the X server does not have is an error that names the variable and its value', async (t) => {
    const { display } = await startServer(t);
    const { stdout, code } = await runScript(tries, { env: only({ DISPLAY: `${display}.7` }) });
    assert.deepEqual([stdout, code], [`Error ${none}the X server at DISPLAY=${display}.7 has no such screen\nexit\n`, 0]);
});

test('an X server that listens on an abstract name alone is found', async (t) => {
    const { display } = await startServer(t, '-nolisten', 'unix');
    fs.rmSync(socketOf(display), { force: true }); // one that an earlier server has left
    const { stdout, stderr } = await runScript(tries, { env: only({ DISPLAY: display }) });
    assert.deepEqual([stdout, stderr], ['made\nexit\n', '']);
});

test('what only the toolkit knows to be wrong is an error too, as often as it is tried', async () => {
    const { stdout, stderr, code } = await runScript(`${tries}${tries}`.replace("process.on('exit', () => console.log('exit'));", ''),
        { env: only({ QT_QPA_PLATFORM: 'nonsense', QT_PLUGIN_PATH: '/nowhere' }) });
    const line = 'Error new GuiWindow(): the window system cannot start with QT_QPA_PLATFORM=nonsense, QT_PLUGIN_PATH=/nowhere, DISPLAY=\n';
    assert.deepEqual([stdout, code], [`${line}${line}exit\n`, 0]);
    assert.match(stderr, /^Could not find the Qt platform plugin "nonsense"[^\n]*\n$/);
});

test('a program may name another display and try again', async (t) => {
    const { display } = await startServer(t);
    const { stdout, stderr, code } = await runScript(`
        ${tries}
        process.env.DISPLAY = '${display}';
        const window = new tarn.GuiWindow('${page}');
        console.log(window.open());
        window.close();`, { env: only({ DISPLAY: 'garbage' }) });
    assert.deepEqual([stdout, stderr, code], [`Error ${none}DISPLAY=garbage does not name one, such as :0 or :0.0\ntrue\nexit\n`, '', 0]);
});

/** What the script does when its window is open, while the server is ended. */
const waits = {
    'the event loop': 'window.open();',
    'show()': 'window.show(); console.log("shown");',
    'a show() in a promise': '(async () => { await null; window.show(); console.log("shown"); })();',
    'showAsync()': 'window.showAsync().then(() => console.log("shown"));',
    'calls of the component': 'window.open(); setInterval(() => { for (let i = 0; i < 50; ++i) window.setTitle(`${i}`); }, 0);',
    'a computation': `window.open();
        setTimeout(() => { const end = Date.now() + 1500; while (Date.now() < end); }, 50);`,
    'a handler': `window.onGo = () => { inner.show(); console.log('shown'); };
        const inner = new tarn.GuiWindow('${page}'); window.ePostOpen = () => window.onGo(); window.show();`,
    'a listener of "exit" that uses its window': `process.on('exit', () => { window.close(); console.log(window.isOpen()); }); window.show();`,
};
for (const [place, source] of Object.entries(waits)) {
    test(`a program whose X server dies ends after its listeners of "exit" have run: ${place}`, async (t) => {
        for (const signal of ['SIGKILL', 'SIGTERM']) {
            const { server, display } = await startServer(t);
            const { stdout, stderr, code } = await runScript(`
                process.on('exit', (status) => console.log('exit', status));
                const window = new tarn.GuiWindow('${page}');
                setTimeout(() => console.log('ready'), 300);
                ${source}`, { env: only({ DISPLAY: display }), onOutput: (text) => { if (text.endsWith('ready\n')) server.kill(signal); } });
            const wanted = place.startsWith('a listener') ? 'ready\nexit 1\nfalse\n' : 'ready\nexit 1\n';
            assert.deepEqual([stdout, stderr, code],
                [wanted, `tarn: the connection to the display is lost (DISPLAY=${display}); the program ends\n`, 1], signal);
        }
    });
}

test('a worker thread whose X server dies ends the program after its listeners of "exit" have run', async (t) => {
    const { server, display } = await startServer(t);
    const { stdout, stderr, code } = await runScript(`
        const { Worker, isMainThread } = require('node:worker_threads');
        if (isMainThread) {
            new Worker(__filename);
        } else {
            process.on('exit', (status) => require('node:fs').writeSync(1, 'exit ' + status + '\\n'));
            setTimeout(() => require('node:fs').writeSync(1, 'ready\\n'), 300);
            new tarn.GuiWindow('${page}').show();
        }`, { env: only({ DISPLAY: display }), onOutput: (text) => { if (text.endsWith('ready\n')) server.kill('SIGKILL'); } });
    assert.deepEqual([stdout, code], ['ready\nexit 1\n', 1]);
    assert.match(stderr, /^(tarn: the connection to the display is lost [^\n]*\n)?$/); // what a worker prints passes through the main thread
});
