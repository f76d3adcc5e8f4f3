'use strict';
// What a program tells the desktop's taskbar, as one hears it who listens on the session's bus.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const { once } = require('node:events');
const { after, before, test } = require('node:test');
const { until } = require('./helpers.js');
const { Program } = require('./program.js');

let bus;
let listener;
let heard = '';
let program;

before(async () => {
    bus = spawn('dbus-daemon', ['--session', '--nofork', '--print-address'], { stdio: ['ignore', 'pipe', 'inherit'] });
    process.env.DBUS_SESSION_BUS_ADDRESS = String((await once(bus.stdout, 'data'))[0]).trim();
    listener = spawn('dbus-monitor', ['--session', "interface='com.canonical.Unity.LauncherEntry'"]);
    listener.stdout.on('data', (text) => { heard += text; });
    await until(() => heard !== ''); // it listens
    program = await Program.start('');
});
after(async () => {
    await program.end();
    listener.kill();
    bus.kill();
});

/** Tells the taskbar; what the listener hears, on one line. */
async function told(options) {
    heard = '';
    assert.equal(await program.ask(`tarn.taskbar(${JSON.stringify(options)})`), true);
    await until(() => /member=Update[^]*"urgent"[^]*\]/.test(heard));
    return heard.replace(/\s+/g, ' ');
}

test('progress, a number and urgency are told under the name of the desktop file', async () => {
    const all = await told({ desktopFile: 'mail.desktop', progress: 0.25, count: 3, urgent: true });
    assert.match(all, /string "application:\/\/mail\.desktop"/);
    assert.match(all, /"progress" variant double 0\.25 /);
    assert.match(all, /"progress-visible" variant boolean true/);
    assert.match(all, /"count" variant int64 3 /);
    assert.match(all, /"count-visible" variant boolean true/);
    assert.match(all, /"urgent" variant boolean true/);
});

test('what is not named is taken away', async () => {
    const all = await told({ desktopFile: 'mail.desktop' });
    assert.match(all, /"progress-visible" variant boolean false/);
    assert.match(all, /"count-visible" variant boolean false/);
    assert.match(all, /"urgent" variant boolean false/);
});

test('mistakes are told', async () => {
    const thrown = (options) => program.ask(`(() => { try { tarn.taskbar(${options}); } catch (error) { return error.message; } })()`);
    assert.match(await thrown('{}'), /the option "desktopFile" is missing/);
    assert.match(await thrown("{ desktopFile: 'mail' }"), /must be the name of a desktop file, such as "mail\.desktop", not the string "mail"/);
    assert.match(await thrown("{ desktopFile: 'mail.desktop', progress: 40 }"), /must be a number from 0 to 1, or null, not the number 40/);
    assert.match(await thrown("{ desktopFile: 'mail.desktop', badge: 3 }"), /there is no option "badge"/);
});

test('without a session bus nothing is shown, and the program hears so', async () => {
    process.env.DBUS_SESSION_BUS_ADDRESS = 'unix:path=/nonexistent';
    const alone = await Program.start('');
    assert.equal(await alone.ask("tarn.taskbar({ desktopFile: 'mail.desktop', count: 1 })"), false);
    await alone.end();
});
