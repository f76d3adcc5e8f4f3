'use strict';
// scripts/figures/figures.js FOLDER: one table of figures about a checkout: how its sources hang together and what they
// hold. What is asked of them is in house.js; this only counts, and reads any checkout, however old.

const path = require('node:path');
const { readSources, functionsOf } = require('./sources.js');
const { testProgramsIn } = require('./testprograms.js');
const {
    layers, ground, includesAmong, includesUp, insideFolders, unitsAmong, cyclesOf, foldersIn, folderOf,
} = require('./includes.js');

/** What counts as an assertion: a call of one of these. Their definitions, which begin with `void`, do not. */
const assertion = /(?<!\bvoid\s+)\b(static_assert|assert|assert[A-Z]\w*|assertOn\w*Thread|Q_ASSERT(_X)?)\s*\(/g;

const casts = ['static_cast', 'reinterpret_cast', 'const_cast', 'dynamic_cast'];

/** [what, figure, details] for each row. */
const rows = [];
const row = (what, figure, details = '') => rows.push([what, String(figure), details]);

const matchesIn = (text, pattern) => text.match(pattern)?.length ?? 0;
const countOf = (sources, pattern) => sources.reduce((sum, source) => sum + matchesIn(source.code, pattern), 0);

function linesOf(sources) {
    return sources.reduce((sum, source) => sum + source.text.split('\n').length - 1, 0);
}

/** How often each key was seen: "19 page from controls, 14 ...". */
function tally(keys) {
    const sums = new Map();
    keys.forEach((key) => sums.set(key, (sums.get(key) ?? 0) + 1));
    return [...sums].sort((a, b) => b[1] - a[1]).map(([key, sum]) => `${sum} ${key}`).join(', ');
}

function addIncludes(sources, hosts) {
    const includes = includesAmong(sources, hosts);
    const unitOf = unitsAmong(sources);
    const up = includesUp(includes);
    const toGround = includes.filter(({ from, to }) => ground.has(to) && folderOf(from) !== folderOf(to)).length;
    row('includes that point up', up.length, tally(up.map(({ from, to }) => `${folderOf(from)} from ${folderOf(to)}`)));
    row('  and of what is ground for all', toGround, [...ground].join());
    const units = new Set(sources.map((source) => unitOf(source.name)));
    row('units of the component', units.size, 'a header, its source and its parts');
    addCycles(cyclesOf(includes, unitOf), cyclesOf(insideFolders(includes), unitOf));
}

function addCycles(cycles, inFolders) {
    const across = cycles.filter((cycle) => foldersIn(cycle).length > 1);
    const name = (cycle) => (cycle ? foldersIn(cycle).join(', ') : '');
    row('units in the largest include cycle', cycles[0]?.length ?? 0, name(cycles[0]));
    row('units in the largest within a folder', inFolders[0]?.length ?? 0, name(inFolders[0]));
    const details = across.map((cycle) => `${cycle.length} units of ${name(cycle)}`);
    row('cycles across folders', across.length, details.join('; '));
}

function addContents(sources) {
    const lines = linesOf(sources);
    const assertions = countOf(sources, assertion);
    const linesByLayer = layers.map((layer) => `${linesOf(inLayer(sources, layer))} ${layer}`);
    row('lines of the component', lines, linesByLayer.join(', '));
    row('assertions for 1,000 lines', (assertions / lines * 1000).toFixed(2), `${assertions} in all`);
    const sums = casts.map((cast) => [cast, countOf(sources, new RegExp(`\\b${cast}\\s*<`, 'g'))]);
    const all = sums.reduce((sum, [, count]) => sum + count, 0);
    row('casts', all, sums.map(([cast, count]) => `${count} ${cast}`).join(', '));
    addFunctions(sources);
}

const inLayer = (sources, layer) => sources.filter((source) => source.name.startsWith(`${layer}/`));

function addFunctions(sources) {
    const functions = sources.flatMap(functionsOf).sort((a, b) => b.lines - a.lines);
    const longest = functions[0];
    row('lines of the longest function', longest?.lines ?? 0, longest ? `${longest.name} in ${longest.file}` : '');
    row('functions over 50 lines', functions.filter((one) => one.lines > 50).length, `of ${functions.length}`);
}

/** What a test may link: all layers, what hosts load, or a layer with those below it. */
const fromTheTop = ['tarn_component', 'tarn_script', 'tarn', 'tarn_runtime', 'tarn_controls', 'tarn_page'];

function addTestPrograms(root) {
    const programs = testProgramsIn(root);
    const links = programs.map((libraries) => fromTheTop.find((name) => libraries.includes(name)) ?? 'none of them');
    const inside = links.filter((name) => name === 'tarn_component' || name === 'tarn_script').length;
    row('test programs that link all layers', `${inside} of ${programs.length}`, tally(links));
}

function print() {
    const widths = [0, 1].map((column) => Math.max(...rows.map((cells) => cells[column].length)));
    for (const [what, figure, details] of rows) {
        console.log(`${what.padEnd(widths[0])}  ${figure.padStart(widths[1])}  ${details}`.trimEnd());
    }
}

function main(root) {
    const sources = layers.flatMap((layer) => readSources(root, layer));
    if (sources.length === 0) {
        console.error(`figures: no component in ${root}`);
        process.exitCode = 2;
        return;
    }
    addIncludes(sources, readSources(root, 'host'));
    addContents(sources);
    addTestPrograms(root);
    print();
}

main(path.resolve(process.argv[2] ?? '.'));
