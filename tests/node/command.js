'use strict';
// The command tarn-gui in a process of its own, for tests: what it prints, and how it ends.

const { spawn } = require('node:child_process');
const path = require('node:path');
const { packageFolder } = require('./helpers.js');

const program = path.join(packageFolder, 'bin', 'tarn-gui.js');

/** What a process prints and its exit code, once `act(child)` has done what the user does. `input` null leaves standard input to `act`. */
async function follow(child, act, input) {
    const result = { stdout: '', stderr: '' };
    child.stdout.on('data', (data) => { result.stdout += data; });
    child.stderr.on('data', (data) => { result.stderr += data; });
    child.stdin.on('error', () => {}); // the command need not read what comes too late
    if (typeof input === 'string') {
        child.stdin.end(input);
    }
    const ended = new Promise((resolve) => { child.on('close', resolve); });
    await act(child);
    const code = await ended;
    return { ...result, code };
}

/** Runs the command; `act(child)` does what the user does. */
const run = (args, act = () => {}, input = '', env = {}) => follow(
    spawn(process.execPath, [program, ...args], { env: { ...process.env, ...env } }), act, input,
);

module.exports = { follow, program, run };
