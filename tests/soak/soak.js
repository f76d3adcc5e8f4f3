'use strict';
// soak.js MINUTES FOLDER APP.js...: uses the applications on this display for some minutes, clicking, typing,
// scrolling, resizing and closing at random. Memory, file handles and threads of the process are written to
// FOLDER/samples.csv twice a second. Fails when the process ends, writes to standard error, shows no window for 20
// seconds, or holds more at the end than when it was warm (verdict.js).

const { spawn, execFileSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const readline = require('node:readline');
const { verdictOf } = require('./verdict.js');

const [minutes, folder, ...applications] = process.argv.slice(2);
const lifeMs = Number(minutes) * 60000;
const patienceMs = 20000; // how long no window may be there
const sleep = (ms) => new Promise((resolve) => { setTimeout(resolve, ms); });

/** Numbers from a seed, so that a run can be told from another: Marsaglia's xorshift. */
let state = Number(process.env.TARN_SOAK_SEED ?? 1) * 2654435761 >>> 0 || 1;
function below(bound) {
    state ^= state << 13;
    state ^= state >>> 17;
    state ^= state << 5;
    return (state >>> 0) % bound;
}
const oneOf = (list) => list[below(list.length)];

/**
 * The program under test. The interpreter doubles the room for its youngest objects every few hundred windows, up to
 * 32 MB, however few there are: with a fixed room, memory that grows is that of the component.
 */
const appOptions = ['--expose-gc', '--max-semi-space-size=1'];
const app = spawn(process.execPath, [...appOptions, path.join(__dirname, 'applications.js'), ...applications],
    { stdio: ['ignore', 'pipe', 'pipe'] });
let ended = null;
let complaints = '';
let opened = 0;
app.on('exit', (code, signal) => { ended = signal ?? code; });
app.stderr.on('data', (text) => { complaints += text; });
readline.createInterface(app.stdout).on('line', (line) => { opened += line.startsWith('opened ') ? 1 : 0; });

// --- the user ---

const keys = ['Tab', 'Tab', 'shift+Tab', 'Return', 'space', 'Down', 'Up', 'Left', 'Right', 'Next', 'Prior', 'End',
    'a', '7', 'BackSpace'];

/** xdotool, fed with one command after the other; a window may be gone by the time it is named, which is no fault. */
const hand = spawn('xdotool', ['-'], { stdio: ['pipe', 'ignore', 'ignore'] });
const act = (...words) => hand.stdin.write(`${words.join(' ')}\n`);

function windows() {
    const list = execFileSync('xprop', ['-root', '_NET_CLIENT_LIST'], { encoding: 'utf8' });
    return list.match(/0x[0-9a-f]+/g) ?? [];
}

function pointAt(window) {
    act('mousemove', '--window', window, below(640), below(420));
}

function useWindow(window) {
    const what = below(100);
    if (what < 55) {
        pointAt(window);
        act('click', 1);
    } else if (what < 65) {
        pointAt(window);
    } else if (what < 75) {
        pointAt(window);
        act('click', oneOf([4, 5, 5]));
    } else if (what < 90) {
        act('key', oneOf(keys));
    } else if (what < 97) {
        act('windowsize', window, 150 + below(700), 100 + below(500));
    } else {
        act('key', 'alt+F4');
    }
}

// --- what it costs ---

function sampleOf(pid, startMs) {
    const status = fs.readFileSync(`/proc/${pid}/status`, 'utf8');
    const number = (name) => Number(new RegExp(`^${name}:\\s+(\\d+)`, 'm').exec(status)[1]);
    return {
        seconds: (Date.now() - startMs) / 1000,
        memory: number('VmRSS'),
        handles: fs.readdirSync(`/proc/${pid}/fd`).length,
        threads: number('Threads'),
    };
}

async function use() {
    const startMs = Date.now();
    const samples = [];
    let lastWindowMs = startMs;
    for (let step = 0; Date.now() - startMs < lifeMs && ended === null; step += 1) {
        const open = windows();
        if (open.length > 0) {
            lastWindowMs = Date.now();
            useWindow(oneOf(open.slice(-2))); // mostly what is in front
        } else if (Date.now() - lastWindowMs > patienceMs) {
            complaints += `no window for ${patienceMs / 1000} s\n`;
            break;
        }
        if (step % 5 === 0 && ended === null) {
            samples.push(sampleOf(app.pid, startMs));
        }
        await sleep(100);
    }
    return samples;
}

function write(samples) {
    const rows = samples.map((sample) => (
        [sample.seconds.toFixed(1), sample.memory, sample.handles, sample.threads].join()));
    fs.mkdirSync(folder, { recursive: true });
    const lines = ['seconds,memory_kb,handles,threads', ...rows];
    fs.writeFileSync(path.join(folder, 'samples.csv'), `${lines.join('\n')}\n`);
}

async function main() {
    const samples = await use();
    write(samples);
    const faults = verdictOf(samples).faults;
    if (ended !== null) {
        faults.push(`the program ended with ${ended}`);
    }
    if (complaints !== '') {
        faults.push(`standard error: ${complaints.trim().split('\n').slice(0, 20).join('\n    ')}`);
    }
    app.kill();
    hand.stdin.end();
    console.log(verdictOf(samples).text);
    console.log(`${opened} times an application was opened`);
    faults.forEach((fault) => console.log(`FAULT: ${fault}`));
    console.log(faults.length === 0 ? 'nothing grew' : 'soak failed');
    process.exitCode = faults.length === 0 ? 0 : 1;
}

main();
