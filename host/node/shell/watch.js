'use strict';
// tarn-gui watch SCRIPT: runs a program, has it show its pages anew when they are saved, and starts it anew when one of its
// scripts is.

const { spawn } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { FileWatch } = require('../live/files.js');
const { Saves } = require('../live/saves.js');
const { UsageError } = require('./errors.js');
const { importsOf } = require('./imports.js');

/** How long a program may take to say where its windows are, and to end when it is asked to; milliseconds. */
const answerMs = 300;
const endMs = 2000;
/** Ctrl+C reaches the program by itself, from the terminal. If it is not gone after this time, it is asked again; milliseconds. */
const interruptMs = 500;
/** How often it is looked whether the one who started this process is still there. */
const parentMs = 1000;

/** The pipe to the program is this descriptor there. */
const link = 3;

/** The arguments behind "watch". */
function readWatch([script, ...args]) {
    if (script === undefined || script.startsWith('-')) {
        throw new UsageError('watch needs a script: tarn-gui watch app.js');
    }
    if (!fs.existsSync(script)) {
        throw new UsageError(`there is no script ${script}`);
    }
    return { kind: 'watch', script: path.resolve(script), args };
}

const say = (text) => process.stderr.write(`tarn: ${text}\n`);

class Supervisor {
    #script;
    #args;
    #onEnd;
    #child = null;
    #places = [];
    #mustStart = false;
    #isEnding = false;
    #interrupt = null;
    #saves = new Saves((file) => this.#onSaved(file));
    #files = new FileWatch((file) => this.#saves.touch(file));
    #watched = new Set();
    #onAnswer = () => {};
    #alive = null;

    /** `onEnd(code)` is called when the program has ended by itself, or was ended from outside. */
    constructor({ script, args }, onEnd) {
        this.#script = script;
        this.#args = args;
        this.#onEnd = onEnd;
        this.#watch(importsOf(script));
        this.#start();
    }

    /** Passes a signal on: it ends the program, and with it this process. */
    signal(name) {
        if (this.#child === null) {
            this.#finish(0);
            return;
        }
        this.#isEnding = true;
        const child = this.#child;
        if (name === 'SIGINT') {
            this.#interrupt ??= setTimeout(() => {
                this.#interrupt = null;
                child.kill(name);
            }, interruptMs);
        } else {
            child.kill(name);
        }
    }

    #finish(code) {
        clearInterval(this.#alive);
        clearTimeout(this.#interrupt);
        this.#files.close();
        this.#saves.close();
        this.#onEnd(code);
    }

    #watch(files) {
        for (const file of files.filter((each) => !this.#watched.has(each))) {
            this.#watched.add(file);
            this.#saves.note(file);
            this.#files.add(file);
        }
    }

    #start() {
        clearInterval(this.#alive);
        const env = { ...process.env, TARN_WATCH: '1', TARN_WATCH_LINK: String(link), TARN_WATCH_PLACES: JSON.stringify(this.#places) };
        this.#child = spawn(process.execPath, [...process.execArgv, this.#script, ...this.#args], { stdio: ['inherit', 'inherit', 'inherit', 'pipe'], env });
        const pipe = this.#child.stdio[link];
        let text = '';
        pipe.setEncoding('utf8').on('data', (part) => {
            const lines = (text + part).split('\n');
            text = lines.pop();
            lines.forEach((line) => this.#hear(JSON.parse(line)));
        });
        pipe.on('error', () => {}); // it has ended
        this.#child.on('exit', (code, signal) => this.#onExit(code, signal));
    }

    #hear({ scripts, places }) {
        this.#watch(scripts ?? []);
        if (places !== undefined) {
            this.#onAnswer(places);
        }
    }

    #onExit(code, signal) {
        this.#child = null;
        if (this.#mustStart && !this.#isEnding) {
            this.#mustStart = false;
            this.#start();
        } else if (this.#isEnding || code === 0 || signal !== null) {
            this.#finish(code ?? 1);
        } else {
            say(`the program has ended with code ${code}; it starts anew when one of its scripts is saved`);
            this.#alive = setInterval(() => {}, 2 ** 30); // the watches alone keep no process alive
        }
    }

    async #onSaved(file) {
        this.#watch(importsOf(file));
        if (this.#mustStart || this.#isEnding) {
            return; // already, or not any more
        }
        say(`${path.relative(process.cwd(), file)} was saved; the program starts anew`);
        if (this.#child === null) {
            this.#start();
            return;
        }
        this.#mustStart = true;
        const child = this.#child;
        this.#places = await this.#askPlaces(child) ?? this.#places;
        child.kill('SIGTERM');
        const limit = setTimeout(() => child.kill('SIGKILL'), endMs);
        child.once('exit', () => clearTimeout(limit));
    }

    /** Where the windows are; undefined when the program does not say. */
    #askPlaces(child) {
        return new Promise((resolve) => {
            this.#onAnswer = resolve;
            child.stdio[link].write('places\n');
            setTimeout(resolve, answerMs);
            child.once('exit', () => resolve());
        });
    }
}

/** Runs the program of readWatch(); a promise of the exit code. */
function watch(program) {
    return new Promise((resolve) => {
        const supervisor = new Supervisor(program, (code) => {
            clearInterval(parent);
            resolve(code);
        });
        ['SIGINT', 'SIGTERM', 'SIGHUP'].forEach((name) => process.on(name, () => supervisor.signal(name)));
        const first = process.ppid;
        const parent = setInterval(() => process.ppid !== first && supervisor.signal('SIGTERM'), parentMs);
        parent.unref();
    });
}

module.exports = { readWatch, watch };
