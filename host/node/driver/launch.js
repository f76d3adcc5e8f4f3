'use strict';
// launch(): a program in a process of its own in the hands of a test.

const { spawn } = require('node:child_process');
const path = require('node:path');
const { fileURLToPath } = require('node:url');
const platform = require('./platform.js');
const { DriveError } = require('./waiting.js');
const { verbs } = require('./window.js');
const { inside } = require('./component.js');

const hook = path.join(__dirname, 'hook.js');
const lists = { accepts: (value) => Array.isArray(value) && value.every((each) => typeof each === 'string'), says: 'an array of strings' };
const variables = { accepts: (value) => typeof value === 'object' && value !== null, says: 'an object such as { HOME: "/tmp" }' };
const optionTable = { args: lists, execArgv: lists, env: variables, cwd: 'string', timeout: 'number' };

/** Stays on after the last word of the program that is told in messages. */
const lastLine = (text) => text.trimEnd().split('\n').at(-1);

class Program {
    #child;
    #timeout;
    #asked = 0;
    #waiting = new Map();
    #exit;
    #exited = null;
    #stdout = '';
    #stderr = '';

    constructor(child, timeout) {
        this.#child = child;
        this.#timeout = timeout;
        child.stdout.setEncoding('utf8').on('data', (text) => { this.#stdout += text; });
        child.stderr.setEncoding('utf8').on('data', (text) => { this.#stderr += text; });
        child.on('message', (message) => this.#take(message.tarnDrive));
        const end = () => child.kill('SIGKILL');
        process.on('exit', end);
        // A test that fails leaves the program running, and has to end.
        [child, child.channel, child.stdout, child.stderr].forEach((each) => each.unref());
        this.#exit = new Promise((resolve) => {
            child.on('close', (code, signal) => {
                process.off('exit', end);
                this.#exited = { code, signal };
                this.#waiting.forEach((each) => this.#tellEnd(each));
                resolve({ code, signal });
            });
        });
    }

    /** What the program has written so far. */
    get stdout() {
        return this.#stdout;
    }

    get stderr() {
        return this.#stderr;
    }

    /** { code, signal }, once it has ended. */
    get exit() {
        return this.#awaited(this.#exit);
    }

    get pid() {
        return this.#child.pid;
    }

    /** The window of this title, once it is there; without one the window that was opened last. */
    async window(title, options) {
        const what = `app.window(${title === undefined ? '' : JSON.stringify(title)})`;
        return new RemoteWindow(this, await this.ask(what, { verb: 'window', args: [title ?? null, this.#options(options)] }));
    }

    /** The dialog that is open, once there is one. */
    async dialog(options) {
        return new RemoteWindow(this, await this.ask('app.dialog()', { verb: 'dialog', args: [this.#options(options)] }));
    }

    /** Closes all windows as the user does and waits for the end of the program; its exit code. */
    async close() {
        const limit = setTimeout(() => this.#child.kill('SIGKILL'), this.#timeout);
        const what = 'app.close()';
        const titles = this.#exited ? [] : await this.ask(what, { verb: 'closeAll', args: [this.#timeout / 2] }).catch(() => []);
        const { code, signal } = await this.exit;
        clearTimeout(limit);
        if (signal === 'SIGKILL') {
            const open = titles.length > 0 ? `open are ${titles.map((each) => JSON.stringify(each)).join(', ')}` : 'it goes on without a window';
            throw new DriveError(`${what}: the program does not end: ${open} (waited ${this.#timeout} ms)`);
        }
        return code;
    }

    /** Ends the program at once. */
    kill() {
        this.#child.kill('SIGKILL');
        return this.exit;
    }

    /** For the driver alone: has the program carry out a request. `isAction`: it may end the program. */
    ask(what, request, isAction = false) {
        const id = ++this.#asked;
        return this.#awaited(new Promise((resolve, reject) => {
            if (this.#exited) {
                reject(new DriveError(`${what}: ${this.#ending()}`));
                return;
            }
            this.#waiting.set(id, { what, isAction, resolve, reject });
            this.#child.send({ tarnDrive: { id, ...request } }, (error) => error && this.#take({ id, error }));
        }));
    }

    /** The test does not end before the promise has settled. */
    #awaited(promise) {
        const alive = setInterval(() => {}, 2 ** 30);
        return promise.finally(() => clearInterval(alive));
    }

    #options(options) {
        return { timeout: this.#timeout, ...options };
    }

    /** What the user does may end the program; what he reads is not there any more. */
    #tellEnd({ what, isAction, resolve, reject }) {
        if (isAction && this.#exited.signal === null) {
            resolve();
        } else {
            reject(new DriveError(`${what}: ${this.#ending()}`));
        }
    }

    #ending() {
        const { code, signal } = this.#exited;
        const said = this.#stderr.trim() === '' ? '' : `: ${lastLine(this.#stderr)}`;
        return `the program has ended ${signal ? `by ${signal}` : `with exit code ${code}`}${said}`;
    }

    #take(reply) {
        const { resolve, reject } = this.#waiting.get(reply?.id) ?? {};
        this.#waiting.delete(reply?.id);
        if (reply?.error) {
            const { name, message, code } = reply.error;
            reject?.(Object.assign(name === 'TypeError' ? new TypeError(message) : new DriveError(message), code === undefined ? {} : { code }));
        } else {
            resolve?.(reply?.result);
        }
    }
}

const actions = new Set(['click', 'doubleClick', 'rightClick', 'hover', 'type', 'press', 'select', 'check', 'uncheck', 'menu', 'close']);

/** A window of another process: the same verbs, carried out there. */
class RemoteWindow {
    #program;
    #number;

    constructor(program, number) {
        this.#program = program;
        this.#number = number;
    }

    /** For the driver alone. */
    static add(verb) {
        RemoteWindow.prototype[verb] = async function (...args) {
            const what = `${verb}(${args.map((each) => JSON.stringify(each)).join(', ')})`;
            const result = await this.#program.ask(what, { window: this.#number, verb, args }, actions.has(verb));
            return result === null && verb !== 'find' && verb !== 'value' ? undefined : result;
        };
    }
}
verbs.forEach((verb) => RemoteWindow.add(verb));

const files = new Set(['screenshot', 'matches']);
for (const verb of files) { // names of files belong to the test's folder, not to the program's
    const method = RemoteWindow.prototype[verb];
    RemoteWindow.prototype[verb] = function (file, ...rest) {
        return method.call(this, path.resolve(file), ...rest);
    };
}

/** Starts a program and promises it as soon as it runs. `file`: its script, from the working folder. */
function launch(file, given) {
    const caller = 'launch(file, options)';
    if (typeof file !== 'string' && !(file instanceof URL)) {
        throw new TypeError(`${caller}: "file" must be a path or a file: URL, not ${inside.describe(file)}`);
    }
    const { args = [], execArgv = [], env = {}, cwd, timeout = 5000 } = inside.checkOptions(caller, given, optionTable);
    const script = file instanceof URL ? fileURLToPath(file) : path.resolve(cwd ?? '', file);
    const all = platform.choose({ ...process.env, ...env });
    const child = spawn(process.execPath, [...execArgv, '--require', hook, script, ...args], { cwd, env: all, stdio: ['ignore', 'pipe', 'pipe', 'ipc'] });
    return new Promise((resolve, reject) => {
        child.on('error', reject);
        child.on('spawn', () => resolve(new Program(child, timeout)));
    });
}

module.exports = { launch };
