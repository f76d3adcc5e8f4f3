'use strict';
// tarn-gui --notify as the notification service of a session bus hears it. It needs no display.

const assert = require('node:assert/strict');
const { after, before, test } = require('node:test');
const { run } = require('./command.js');
const { until } = require('./helpers.js');
const { startBus, startService } = require('./notices.js');

let bus;
before(async () => { bus = await startBus(); });
after(() => bus.end());

/** Runs the command beside a service with these capabilities; what that was to show. */
async function noticeOf(args, ...capabilities) {
    const service = await startService(bus.address, ...capabilities);
    try {
        assert.deepEqual(await notify(args), { stdout: '', stderr: '', code: 0 });
        await until(() => service.notices.length > 0);
    } finally {
        await service.end();
    }
    assert.equal(service.notices.length, 1);
    return service.notices[0];
}

const notify = (args, env = {}) => run(['--notify', ...args], undefined, '', { DBUS_SESSION_BUS_ADDRESS: bus.address, DISPLAY: '', QT_QPA_PLATFORM: 'xcb', ...env });
const plain = { replaces: 0, icon: '', body: '', actions: [], timeout: -1 };

test('the text alone is the title of the notification', async () => {
    assert.deepEqual(await noticeOf(['Über 5 < 6 & done']), { ...plain, summary: 'Über 5 < 6 & done' });
});

test('a title, an icon and a time go with the text', async () => {
    const args = ['The copy is made.', '--title', 'Backup', '--icon', 'warning', '--timeout', '2.5'];
    assert.deepEqual(await noticeOf(args), { ...plain, icon: 'dialog-warning', summary: 'Backup', body: 'The copy is made.', timeout: 2500 });
});

test('what a service would read as markup is shown as it was given', async () => {
    const args = ['<b>5 & 6</b>', '--title', '<i>'];
    assert.deepEqual(await noticeOf(args, 'body', 'body-markup'), { ...plain, summary: '<i>', body: '&lt;b&gt;5 &amp; 6&lt;/b&gt;' });
    assert.deepEqual(await noticeOf(args, 'body'), { ...plain, summary: '<i>', body: '<b>5 & 6</b>' });
});

const told = (complaint) => ({ stdout: '', stderr: `tarn-gui: --notify: ${complaint}\n`, code: 2 });

test('a bus without a service is told in one line', async () => {
    assert.deepEqual(await notify(['Hello']), told('there is no notification service on the session bus'));
});

test('no bus at all is told in one line', async () => {
    assert.deepEqual(await notify(['Hello'], { DBUS_SESSION_BUS_ADDRESS: 'unix:path=/nonexistent' }), told('there is no session bus, and so no notification service'));
});

test('a service that refuses is quoted', async (context) => {
    const service = await startService(bus.address, 'refuse');
    context.after(() => service.end());
    assert.deepEqual(await notify(['Hello']), told('the notification service says: too many at once'));
});
