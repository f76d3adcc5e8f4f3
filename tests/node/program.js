'use strict';
// A program under test that answers questions while its windows are used, so that a test waits for what the program says
// and never for time to pass.

const assert = require('node:assert/strict');
const { isDeepStrictEqual } = require('node:util');
const { runScript, sleep, until } = require('./helpers.js');

/**
 * What the program has besides its own source. `calls` lists what handlers made by `record` were called with, once they
 * are done: a label, the name of the control of the window that was used last, and the arguments behind the session; `forms` the values of
 * the form when they began.
 */
const inside = `
const calls = [], forms = [];
const controlOf = ({ currentControl: control, currentWindow }) => (control?.window === currentWindow ? control?.name : null) ?? null;
const record = (object, names, { label = (name) => name, act = () => {} } = {}) => {
    for (const name of names) {
        object[name] = function (session, ...args) {
            if (session !== tarn.session) throw new Error(name + ' was called with ' + session);
            const call = [label(name), controlOf(session), ...args];
            forms.push({ ...session.currentForm });
            const reply = act.call(this, session, ...args);
            calls.push(call);
            return reply;
        };
    }
};
require('node:readline').createInterface({ input: process.stdin }).on('line', (line) => {
    const [id, question] = JSON.parse(line);
    let answer = null;
    try { answer = JSON.stringify([id, [eval(question)]]); } catch (error) { answer = JSON.stringify([id, String(error)]); }
    console.log('answer ' + answer);
});
`;

class Program {
    #child = null;
    #answers = new Map();
    #asked = 0;
    #read = 0;
    #end = null;

    /** Runs `source` in a process of its own, with `env` added to the environment; ready when this resolves. */
    static async start(source = '', limitMs = 120000, env = {}) {
        const program = new Program();
        program.ended = runScript(`${inside}\n${source}\nconsole.log('ready');`, {
            limitMs, env, onOutput: (text, child) => program.#take(text, child),
        });
        program.ended.then((result) => { program.#end = result; });
        await until(() => program.#child !== null || program.#end !== null, 30000);
        assert.equal(program.#end, null);
        return program;
    }

    #take(text, child) {
        const end = text.lastIndexOf('\n') + 1;
        for (const line of text.slice(this.#read, end).split('\n')) {
            if (line === 'ready') {
                this.#child = child;
            } else if (line.startsWith('answer ')) {
                this.#answers.set(...JSON.parse(line.slice('answer '.length)));
            }
        }
        this.#read = end;
    }

    /** Evaluates an expression in the program, on its script thread, outside of handlers; the value as JSON has it. */
    async ask(question) {
        const id = ++this.#asked;
        this.#child.stdin.write(`${JSON.stringify([id, question])}\n`);
        await until(() => this.#answers.has(id) || this.#end !== null, 30000);
        assert.equal(this.#end, null, 'the program has ended');
        const answer = this.#answers.get(id);
        this.#answers.delete(id);
        assert.ok(Array.isArray(answer), `${question}: ${answer}`);
        return answer[0];
    }

    /** Asks until the answer is `wanted`; a test that waits in vain fails with the last answer. */
    async becomes(question, wanted) {
        let answer;
        for (const end = Date.now() + 20000; Date.now() < end; await sleep(20)) {
            answer = await this.ask(question);
            if (isDeepStrictEqual(answer, wanted)) {
                return;
            }
        }
        assert.deepEqual(answer, wanted, question);
    }

    /**
     * Waits until the handlers of `calls` after the first `from` were called as wanted, and until the program takes input
     * again: windows drop what the user does while a handler runs. The questions pass through the thread that serves the
     * windows; the second one at the latest is answered after it has left the handler behind.
     */
    async called(wanted, from = 0) {
        await this.becomes(`calls.slice(${from})`, wanted);
        for (let i = 0; i < 2; ++i) {
            await this.ask('new tarn.GuiWindow().isOpen()');
        }
    }

    /** Lets the program go when its windows are closed; what it printed by itself on standard error must be `stderr`. */
    async end(stderr = '') {
        this.#child.stdin.end();
        const result = await this.ended;
        assert.deepEqual([result.stderr, result.code, result.signal], [stderr, 0, null]);
    }
}

module.exports = { Program };
