'use strict';
// Loaded in front of a program by driven.js (node --require): answers questions about it, which come as lines of JSON on
// standard input, on file 3. The program itself stays as it is, and ends when it would end.

const fs = require('node:fs');
const vm = require('node:vm');
const { isMainThread } = require('node:worker_threads');

/** False while a handler runs, which waits for its window and so lets questions be answered. */
function isIdle() {
    Error.stackTraceLimit = Infinity;
    const { stack } = new Error();
    Error.stackTraceLimit = 10;
    return !/host.node.js.calls\.js/.test(stack);
}

if (isMainThread) {
    const tarn = require('../../host/node');
    const answer = (question) => {
        try {
            return [vm.runInThisContext(`(tarn, isIdle) => ${question}`)(tarn, isIdle) ?? null];
        } catch (error) {
            return String(error);
        }
    };
    let rest = '';
    process.stdin.setEncoding('utf8').on('data', (data) => {
        const lines = (rest + data).split('\n');
        rest = lines.pop();
        for (const [id, question] of lines.map((line) => JSON.parse(line))) {
            fs.writeSync(3, `${JSON.stringify([id, answer(question)])}\n`);
        }
    });
    process.stdin.unref();
}
