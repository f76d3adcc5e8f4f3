'use strict';
// Text that an input method composes: words from keys that change the letters before them, shown as they grow and put in when
// they are whole. Typed through ibus with a method for Vietnamese.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const { once } = require('node:events');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { startComposing } = require('./composing.js');
const { keys, run } = require('./desktop.js');
const { scratch, sleep } = require('./helpers.js');

let bus;
let daemon;
let program;

/** Waits until ibus uses the method. */
async function choose(method) {
    for (let left = 50; left > 0; --left) {
        await run('ibus', 'engine', method).catch(() => {});
        if ((await run('ibus', 'engine').catch(() => '')).trim() === method) {
            return;
        }
        await sleep(200);
    }
    assert.fail(`ibus does not use ${method}`);
}

before(async () => {
    const home = path.join(scratch, 'ibus');
    fs.mkdirSync(home, { mode: 0o700 });
    Object.assign(process.env, { HOME: home, XDG_RUNTIME_DIR: home, XDG_CONFIG_HOME: home, XDG_CACHE_HOME: home });
    bus = spawn('dbus-daemon', ['--session', '--nofork', '--print-address'], { stdio: ['ignore', 'pipe', 'ignore'] });
    process.env.DBUS_SESSION_BUS_ADDRESS = String((await once(bus.stdout, 'data'))[0]).trim();
    bus.stdout.destroy(); // what the bus starts has it, too, and may outlive the test
    daemon = spawn('ibus-daemon', ['--replace', '--panel', 'disable', '--config', 'disable'], { stdio: 'ignore' });
    await choose('m17n:vi:telex');
    program = await startComposing({ QT_IM_MODULE: 'ibus' });
});
after(async () => {
    try {
        await program.ask('window.close()');
        await program.end();
    } finally {
        await run('ibus', 'exit').catch(() => {});
        daemon.kill();
        bus.kill();
    }
});

for (const name of ['line', 'search', 'area', 'combo']) {
    test(`${name}: letters come when they are whole, and what still grows is no change`, async () => {
        await program.ask(`window.setFocus('${name}'); window.control('${name}').value = ''; seen = []`);
        for (const key of 'vieetj') {
            await keys(key);
        }
        await keys('space');
        await program.becomes(`window.control('${name}').value`, 'việt ');
        assert.deepEqual(await program.ask('seen'), ['v', 'việt', 'việt ']);
    });

    test(`${name}: what is begun and given up changes nothing`, async () => {
        await program.ask(`window.setFocus('${name}'); window.control('${name}').value = ''; seen = []`);
        await keys('e');
        await keys('BackSpace');
        await keys('space');
        await program.becomes(`window.control('${name}').value`, ' ');
        assert.deepEqual(await program.ask('seen'), [' ']);
    });
}
