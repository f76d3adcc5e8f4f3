'use strict';
// scripts/lint/tidy.js BUILD-FOLDER FILE...: runs clang-tidy on the named sources, as many at a time as there are
// processors; those that the build folder does not compile are left out. Fails on any finding. Works in the root of the
// checkout.
//
// clang-tidy spends nine tenths of its time in the headers of the toolkit. So the sources of a target are first read
// together, a dozen in one: when nothing is found there, they are clean. A source in which something is found is read
// once more alone, and that counts; sources that can not be compiled together are taken apart.
//
// A source that was clean is not read again until it, a header of this repository that it includes, the way it is
// compiled or the list of checks has changed.

const { execFileSync, spawn } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { readOptions } = require('./compilecommands.js');
const { fingerprintOf } = require('./fingerprint.js');

const program = 'clang-tidy-14';
const version = execFileSync(program, ['--version'], { encoding: 'utf8' });
const [, , build, ...wanted] = process.argv;
const work = path.resolve('build/lint');
const clean = path.join(work, 'clean');
const largestGroup = 12;

/** A source that may have to be read: {name, options, stamp}. The stamp is a file that says that it was clean. */
function jobsFor(names) {
    const options = readOptions(build);
    return names.filter((name) => options.has(name)).map((name) => ({
        name, options: options.get(name), stamp: path.join(clean, fingerprintOf(name, version, ...options.get(name))),
    }));
}

/** Sources of one folder that are compiled in one way, a dozen each. */
function groupsOf(jobs) {
    const alike = new Map();
    for (const job of jobs) {
        const key = [path.dirname(job.name), ...job.options].join(' ');
        alike.set(key, [...(alike.get(key) ?? []), job]);
    }
    return [...alike.values()].flatMap((some) => (
        Array.from({ length: Math.ceil(some.length / largestGroup) }, (_, number) => (
            some.slice(number * largestGroup, (number + 1) * largestGroup)))));
}

/** The checks for sources of a folder, written where they hold for a source that includes them. */
const configured = new Set();
function configure(folder, name) {
    if (!configured.has(folder)) {
        const text = execFileSync(program, ['--dump-config', name, '--'], { encoding: 'utf8' });
        fs.mkdirSync(folder, { recursive: true });
        fs.writeFileSync(path.join(folder, '.clang-tidy'), text);
        configured.add(folder);
    }
}

/** What is read for a group: its one source, or a source that includes all. */
let groupNumber = 0;
function sourceOf(group) {
    const [{ name }] = group;
    if (group.length === 1) {
        return path.resolve(name);
    }
    const folder = path.join(work, 'groups', path.dirname(name));
    configure(folder, name);
    groupNumber += 1;
    const source = path.join(folder, `group${groupNumber}.cpp`);
    fs.writeFileSync(source, group.map((job) => `#include "${path.resolve(job.name)}"\n`).join(''));
    return source;
}

/** Runs clang-tidy: {code, output}. */
function tidy(...words) {
    return new Promise((resolve) => {
        const child = spawn(program, ['--quiet', ...words], { stdio: ['ignore', 'pipe', 'pipe'] });
        let output = '';
        let complaints = '';
        child.stdout.on('data', (data) => { output += data; });
        child.stderr.on('data', (data) => { complaints += data; });
        child.on('close', (code) => resolve({ code, output: output || (code === 0 ? '' : complaints) }));
    });
}

const finding = /^(\S+?):\d+:\d+: (?:error|warning): /;
const partsOf = (output) => output.split(/^(?=\S+:\d+:\d+: (?:error|warning):)/m);
const findingsIn = (output) => partsOf(output).filter((text) => finding.test(text));
const placeOf = (text) => path.relative('.', finding.exec(text)[1]);

/** A finding in a header is shown once, however many sources include it. */
const shown = new Set();
function show(output) {
    for (const text of partsOf(output)) {
        const head = text.split('\n', 1)[0];
        if (text.trim() && !shown.has(head)) {
            shown.add(head);
            process.stdout.write(text.replaceAll(`${process.cwd()}/`, ''));
        }
    }
}

const optionsFor = (group) => ['--', ...group[0].options];

/** The sources of a group that can not be compiled behind the others: they use the same name for something else. */
async function misfitsIn(group, source) {
    const { output } = await tidy('--checks=-*,llvm-namespace-comment', source, ...optionsFor(group));
    const places = new Set(findingsIn(output).filter((text) => text.includes('[clang-diagnostic-')).map(placeOf));
    return places.size === 0 ? [] : group.filter(({ name }) => places.has(name));
}

/** A group that was read, or parts of it that are to be read instead: {cleanJobs, failed, parts}. */
async function examine(group) {
    const source = sourceOf(group);
    if (group.length > 1) {
        const misfits = await misfitsIn(group, source);
        if (misfits.length > 0) {
            const rest = group.filter((job) => !misfits.includes(job));
            const parts = rest.length > 0 ? [rest, misfits] : group.map((job) => [job]);
            return { cleanJobs: [], failed: 0, parts };
        }
    }
    const checks = group.length > 1 ? ['--checks=-bugprone-suspicious-include'] : [];
    const { code, output } = await tidy(...checks, source, ...optionsFor(group));
    return judge(group, code, output);
}

function judge(group, code, output) {
    if (code === 0) {
        return { cleanJobs: group, failed: 0, parts: [] };
    }
    if (group.length === 1) {
        show(output);
        return { cleanJobs: [], failed: 1, parts: [] };
    }
    const places = new Set(findingsIn(output).map(placeOf));
    const suspects = group.filter(({ name }) => places.has(name));
    const rest = group.filter((job) => !suspects.includes(job));
    const parts = suspects.map((job) => [job]);
    if (places.size === suspects.length) {
        return { cleanJobs: rest, failed: 0, parts };
    }
    // In a header, or without a place: the others are not known to be clean.
    show(findingsIn(output).filter((text) => !suspects.some(({ name }) => name === placeOf(text))).join(''));
    return { cleanJobs: [], failed: rest.length, parts };
}

/** How many of the sources have findings. */
async function examineAll(jobs) {
    const waiting = groupsOf(jobs);
    let done = 0;
    let failed = 0;
    let busy = 0;
    async function takeGroups() {
        while (waiting.length > 0 || busy > 0) {
            const group = waiting.shift();
            if (!group) {
                await new Promise((resolve) => { setTimeout(resolve, 100); }); // another may leave parts
                continue;
            }
            busy += 1;
            const result = await examine(group);
            busy -= 1;
            waiting.unshift(...result.parts);
            result.cleanJobs.forEach(({ stamp }) => fs.writeFileSync(stamp, ''));
            failed += result.failed;
            done += group.length - result.parts.flat().length;
            console.log(`[${done}/${jobs.length}] ${group.map(({ name }) => name).join(' ')}`);
        }
    }
    await Promise.all(Array.from({ length: os.cpus().length }, takeGroups));
    return failed;
}

async function main() {
    fs.rmSync(path.join(work, 'groups'), { recursive: true, force: true });
    fs.mkdirSync(clean, { recursive: true });
    const all = jobsFor(wanted);
    const jobs = all.filter(({ stamp }) => !fs.existsSync(stamp));
    const failed = await examineAll(jobs);
    console.log(`${all.length} sources, ${jobs.length} of them read now, ${failed} with findings`);
    process.exitCode = failed === 0 && all.length > 0 ? 0 : 1;
}

main();
