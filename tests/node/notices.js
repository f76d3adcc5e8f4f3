'use strict';
// A session bus of a test's own, with a notification service or without.

const { spawn } = require('node:child_process');
const { once } = require('node:events');
const path = require('node:path');
const { until } = require('./helpers.js');

/** The address of a bus of its own, and end(). */
async function startBus() {
    const bus = spawn('dbus-daemon', ['--session', '--nofork', '--print-address'], { stdio: ['ignore', 'pipe', 'ignore'] });
    const address = String((await once(bus.stdout, 'data'))[0]).trim();
    return { address, end: () => bus.kill() };
}

/** A notification service on the bus that says it can do that: { notices: what it was to show, so far; end() }. */
async function startService(address, ...capabilities) {
    const notices = [];
    let isReady = false;
    let text = '';
    const service = spawn('/usr/bin/python3', [path.join(__dirname, 'notices.py'), ...capabilities], {
        env: { ...process.env, DBUS_SESSION_BUS_ADDRESS: address }, stdio: ['ignore', 'pipe', 'inherit'],
    });
    service.stdout.setEncoding('utf8').on('data', (part) => {
        const lines = (text + part).split('\n');
        text = lines.pop();
        isReady ||= lines.includes('ready');
        notices.push(...lines.filter((line) => line !== 'ready').map((line) => JSON.parse(line)));
    });
    await until(() => isReady);
    const end = async () => {
        service.kill();
        await once(service, 'exit');
    };
    return { notices, end };
}

module.exports = { startBus, startService };
