'use strict';
// What the tests of the Node.js host share: running a script in a process of its own and looking at how it ended.

const { spawn } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');

const packageFolder = path.join(__dirname, '..', '..', 'host', 'node');

/** A folder that is removed when the test process ends. */
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-node-test-'));
process.on('exit', () => fs.rmSync(scratch, { recursive: true, force: true }));

let scripts = 0;

function writeScript(source) {
    const file = path.join(scratch, `script${++scripts}.js`);
    fs.writeFileSync(file, `'use strict';\nconst tarn = require(${JSON.stringify(packageFolder)});\n${source}\n`);
    return file;
}

/**
 * Runs a script that has the package in `tarn`. Resolves to { code, signal, stdout, stderr, ms }; signal 'HANG' when it had
 * to be killed after `limitMs`. `onOutput(text, child)` sees standard output as it comes.
 */
function runScript(source, { env = {}, args = [], limitMs = 30000, onOutput } = {}) {
    const started = Date.now();
    const child = spawn(process.execPath, [...args, writeScript(source)], { env: { ...process.env, ...env } });
    const result = { stdout: '', stderr: '', hung: false };
    child.stdout.on('data', (data) => {
        result.stdout += data;
        onOutput?.(result.stdout, child);
    });
    child.stderr.on('data', (data) => { result.stderr += data; });
    const limit = setTimeout(() => { result.hung = true; child.kill('SIGKILL'); }, limitMs);
    return new Promise((resolve) => child.on('close', (code, signal) => {
        clearTimeout(limit);
        resolve({ ...result, code, signal: result.hung ? 'HANG' : signal, ms: Date.now() - started });
    }));
}

/** Runs `make(index)` `count` times, at most `width` at once; the results in order. */
async function runMany(count, width, make) {
    const results = new Array(count);
    let next = 0;
    const work = async () => {
        while (next < count) {
            const index = next++;
            results[index] = await make(index);
        }
    };
    await Promise.all(Array.from({ length: width }, work));
    return results;
}

const sleep = (ms) => new Promise((resolve) => { setTimeout(resolve, ms); });

/** Waits until `check()` is true, or resolves to it; throws after `limitMs`. */
async function until(check, limitMs = 10000) {
    const end = Date.now() + limitMs;
    while (!await check()) {
        if (Date.now() > end) {
            throw new Error(`not within ${limitMs} ms: ${check}`);
        }
        await sleep(2);
    }
}

module.exports = { packageFolder, scratch, runScript, runMany, sleep, until };
