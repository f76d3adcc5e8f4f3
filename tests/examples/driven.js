'use strict';
// A program of examples/, used as its user would: keys are real ones, on the display of the test.

const assert = require('node:assert/strict');
const { execFileSync, spawn } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { isDeepStrictEqual } = require('node:util');
const { findActiveWindow, keys, type } = require('../node/desktop.js');
const { packageFolder, scratch, sleep, until } = require('../node/helpers.js');

const examples = path.join(__dirname, '..', '..', 'examples');

/** The recipes as somebody has them who has installed the package: in a folder of their own beside node_modules. */
function installRecipes() {
    const folder = path.join(scratch, 'recipes');
    fs.cpSync(path.join(examples, 'recipes'), folder, { recursive: true });
    fs.mkdirSync(path.join(folder, 'node_modules'));
    fs.symlinkSync(packageFolder, path.join(folder, 'node_modules', 'tarn-gui'));
    return folder;
}

class Driven {
    #child;
    #answers = new Map();
    #asked = 0;

    constructor(file, args = [], { cwd, env, limitMs = 40000 } = {}) {
        this.stdout = this.stderr = '';
        this.#child = spawn(process.execPath, ['--require', path.join(__dirname, 'drive.js'), file, ...args], {
            cwd, env: { ...process.env, ...env }, stdio: ['pipe', 'pipe', 'pipe', 'pipe'],
        });
        this.#child.stdin.on('error', () => {}); // it may have ended
        this.#child.stdout.on('data', (data) => { this.stdout += data; });
        this.#child.stderr.on('data', (data) => { this.stderr += data; });
        this.#takeAnswers();
        const limit = setTimeout(() => this.#child.kill('SIGKILL'), limitMs);
        this.ended = new Promise((resolve) => this.#child.on('close', (code, signal) => {
            clearTimeout(limit);
            resolve([code, signal]);
        }));
    }

    #takeAnswers() {
        let text = '';
        this.#child.stdio[3].on('data', (data) => {
            const lines = (text + data).split('\n');
            text = lines.pop();
            lines.map((line) => JSON.parse(line)).forEach(([id, answer]) => this.#answers.set(id, answer));
        });
    }

    kill(signal) {
        this.#child.kill(signal);
    }

    /** The value of an expression in the program, which has the package as `tarn`. */
    async ask(question) {
        const id = ++this.#asked;
        this.#child.stdin.write(`${JSON.stringify([id, question])}\n`);
        await until(() => this.#answers.has(id) || this.#child.exitCode !== null);
        const answer = this.#answers.get(id);
        assert.ok(Array.isArray(answer), `${question}: ${answer} ${this.stderr}`);
        return answer[0];
    }

    async becomes(question, wanted) {
        let answer;
        for (const end = Date.now() + 8000; Date.now() < end; await sleep(10)) {
            answer = await this.ask(question);
            if (isDeepStrictEqual(answer, wanted)) {
                return;
            }
        }
        assert.deepEqual(answer, wanted, question);
    }

    formHas(control, wanted) {
        return this.becomes(`tarn.session.currentWindow.form.${control}`, wanted);
    }

    titleIs(wanted) {
        return this.becomes('tarn.session.currentWindow.getTitle()', wanted);
    }

    /** Waits until the window with this title has the keyboard. */
    async at(title) {
        const window = await findActiveWindow(title);
        if (process.env.TARN_PICTURES) {
            await sleep(300);
            execFileSync('import', ['-window', window, path.join(process.env.TARN_PICTURES, `${title.replace(/\W+/g, '-')}.png`)]);
        }
        return window;
    }

    /**
     * Waits until no handler runs any more: keys are ignored during one. When it has returned, the second of two calls into the
     * windows' thread comes after that thread has left it behind.
     */
    async rest() {
        await this.becomes('isIdle()', true);
        await this.ask('new tarn.GuiWindow().isOpen()');
        await this.ask('new tarn.GuiWindow().isOpen()');
    }

    /** Gives the keyboard to a control, once no handler runs any more. */
    async focus(control) {
        await this.rest();
        await this.ask(`tarn.session.currentWindow.setFocus('${control}')`);
    }

    /** Presses the button of this name by the keyboard. */
    async press(control) {
        await this.focus(control);
        await keys('space');
    }

    /** Types into the field of this name, in place of what stands there. */
    async enter(control, text) {
        await this.focus(control);
        await keys('ctrl+a', 'BackSpace');
        await type(text);
    }

    /** Waits until the program has printed this line. */
    async says(line) {
        await until(() => this.stdout.split('\n').includes(line) || this.#child.exitCode !== null);
        assert.ok(this.stdout.split('\n').includes(line), `${line} is not among: ${this.stdout} ${this.stderr}`);
    }

    /** The program ends by itself, without a complaint, having printed this. */
    async ends(stdout = '') {
        const [code, signal] = await this.ended;
        assert.deepEqual([this.stderr, this.stdout, code, signal], ['', stdout, 0, null]);
    }
}

module.exports = { Driven, examples, installRecipes };
