'use strict';
// Loaded into a program that a test has started, in front of it: carries out what the test asks for. Costs nothing before the
// first question.

const { isMainThread } = require('node:worker_threads');

/** Windows and dialogs that the test knows, by number. */
const driven = new Map();

function keep(window) {
    driven.set(driven.size + 1, window);
    return driven.size;
}

const openers = {
    window: async ({ drive, driveAny }, title, options) => keep(await (title === null ? driveAny(options) : drive(title, options))),
    dialog: async ({ dialog }, options) => keep(await dialog(options)),
    closeAll: async ({ closeAll }, ms) => closeAll(ms),
};

async function answer({ window, verb, args }) {
    const drive = require('./drive.js');
    const { closeAll } = require('./closing.js');
    const result = window === undefined ? await openers[verb]({ ...drive, closeAll }, ...args) : await driven.get(window)[verb](...args);
    return { result: result ?? null };
}

function failure({ name, message, code }) {
    return { error: { name, message, code } };
}

function listen() {
    process.on('message', (message) => {
        if (message?.tarnDrive === undefined) {
            return;
        }
        const { id, ...request } = message.tarnDrive;
        const reply = (given) => process.connected && process.send({ tarnDrive: { id, ...given } });
        answer(request).catch(failure).then(reply);
    });
    process.channel.unref(); // the program ends when its own work does
}

if (isMainThread && process.channel) {
    // What this program starts is not the test's.
    const at = process.execArgv.indexOf(__filename);
    process.execArgv.splice(at - 1, at < 1 ? 0 : 2);
    listen();
}
