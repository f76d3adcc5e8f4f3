'use strict';
// scripts/lint/tidy.js BUILD-FOLDER FILE...: runs clang-tidy on the named sources, as many at a time as there are
// processors; those that the build folder does not compile are left out. A source that was clean is not read again
// until it, a header of this repository that it includes, the command that compiles it or the list of checks has
// changed. Fails on any finding. Works in the root of the checkout.

const { execFileSync, spawn } = require('node:child_process');
const crypto = require('node:crypto');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');

const program = 'clang-tidy-14';
const [, , build, ...wanted] = process.argv;
const work = path.resolve('build/lint');
const clean = path.join(work, 'clean');

/** Precompiled headers are another compiler's; its warnings that clang does not know are no findings. */
function forClang(command) {
    return `${command.replace(/ -Winvalid-pch| -include \S*cmake_pch\S*/g, '')} -Wno-unknown-warning-option`;
}

/** How each source is compiled: its first command, since programs share sources. What a build makes is left out. */
function readCommands() {
    const commands = new Map();
    for (const entry of JSON.parse(fs.readFileSync(path.join(build, 'compile_commands.json'), 'utf8'))) {
        const name = path.relative('.', entry.file);
        if (!name.startsWith('..') && !name.startsWith('build/') && !commands.has(name)) {
            commands.set(name, { ...entry, command: forClang(entry.command) });
        }
    }
    return commands;
}

const texts = new Map();
function textOf(name) {
    if (!texts.has(name)) {
        texts.set(name, fs.existsSync(name) ? fs.readFileSync(name, 'utf8') : null);
    }
    return texts.get(name);
}

/** The source and all headers of this repository that it includes. */
function closureOf(name, found = new Set()) {
    if (found.has(name) || textOf(name) === null) {
        return found;
    }
    found.add(name);
    for (const [, included] of textOf(name).matchAll(/^\s*#\s*include\s*"([^"]+)"/gm)) {
        closureOf(included, found);
        closureOf(path.join(path.dirname(name), included), found);
    }
    return found;
}

/** The lists of checks that hold for a source: those of its folder and of the folders above. */
function configurationsOf(name) {
    const folder = path.dirname(name);
    return [...(folder === '.' ? [] : configurationsOf(folder)), path.join(folder, '.clang-tidy')];
}

/** What decides about a source, as one word. */
function fingerprint(name, command) {
    const sum = crypto.createHash('sha256').update(version).update(command);
    for (const file of [...configurationsOf(name), ...[...closureOf(name)].sort()]) {
        sum.update(`${file}\n${textOf(file)}\n`);
    }
    return sum.digest('hex').slice(0, 40);
}

const version = execFileSync(program, ['--version'], { encoding: 'utf8' });

function examine(name) {
    return new Promise((resolve) => {
        const tidy = spawn(program, ['-p', work, '--quiet', name], { stdio: ['ignore', 'pipe', 'pipe'] });
        let output = '';
        let complaints = '';
        tidy.stdout.on('data', (data) => { output += data; });
        tidy.stderr.on('data', (data) => { complaints += data; });
        tidy.on('close', (code) => {
            const isClean = code === 0;
            resolve({ name, isClean, output: isClean || output ? output : complaints });
        });
    });
}

/** A finding in a header is shown once, however many sources include it. */
const shown = new Set();
function show(output) {
    for (const finding of output.split(/^(?=\S+:\d+:\d+: (?:error|warning):)/m)) {
        const head = finding.split('\n', 1)[0];
        if (finding.trim() && !shown.has(head)) {
            shown.add(head);
            process.stdout.write(finding.replaceAll(`${process.cwd()}/`, ''));
        }
    }
}

async function examineAll(jobs) {
    let done = 0;
    let failed = 0;
    const waiting = [...jobs];
    async function takeJobs() {
        for (let job = waiting.shift(); job; job = waiting.shift()) {
            const { name, isClean, output } = await examine(job.name);
            done += 1;
            console.log(`[${done}/${jobs.length}] ${name}`);
            show(output);
            failed += isClean ? 0 : 1;
            if (isClean) {
                fs.writeFileSync(job.stamp, '');
            }
        }
    }
    await Promise.all(Array.from({ length: os.availableParallelism?.() ?? os.cpus().length }, takeJobs));
    return failed;
}

async function main() {
    const commands = readCommands();
    fs.mkdirSync(clean, { recursive: true });
    fs.writeFileSync(path.join(work, 'compile_commands.json'), JSON.stringify([...commands.values()], null, 1));
    const names = wanted.filter((name) => commands.has(name));
    const jobs = names.map((name) => ({ name, stamp: path.join(clean, fingerprint(name, commands.get(name).command)) }))
        .filter(({ stamp }) => !fs.existsSync(stamp));
    const failed = await examineAll(jobs);
    console.log(`${names.length} sources, ${jobs.length} of them read now, ${failed} with findings`);
    process.exitCode = failed === 0 && names.length > 0 ? 0 : 1;
}

main();
