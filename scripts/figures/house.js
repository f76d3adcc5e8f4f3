'use strict';
// scripts/figures/house.js [FOLDER]: fails when a layer of the component includes from one above it, when units of
// different folders include each other in a circle, or when a circle inside one folder is large. Names what it finds.

const path = require('node:path');
const { readSources } = require('./sources.js');
const { layers, includesAmong, includesUp, insideFolders, unitsAmong, cyclesOf, foldersIn } = require('./includes.js');

/** A class with its parts, its rare data and its services: beyond that nobody can say what depends on what. */
const largestCycle = 11;

const describe = (cycle, where) => `${cycle.length} units of ${where} include each other`;

function complaintsAbout(root) {
    const sources = layers.flatMap((layer) => readSources(root, layer));
    const includes = includesAmong(sources, readSources(root, 'host'));
    const unitOf = unitsAmong(sources);
    const across = cyclesOf(includes, unitOf).filter((cycle) => foldersIn(cycle).length > 1);
    const large = cyclesOf(insideFolders(includes), unitOf).filter((cycle) => cycle.length > largestCycle);
    const empty = layers.filter((layer) => !sources.some((source) => source.name.startsWith(`${layer}/`)));
    return [
        ...includesUp(includes).map(({ from, line, to }) => `${from}:${line}: includes ${to}, which lies above it`),
        ...across.map((cycle) => `${describe(cycle, foldersIn(cycle).join(', '))}: ${cycle.join(' ')}`),
        ...large.map((cycle) => `${describe(cycle, 'one folder')}, ${largestCycle} may: ${cycle.join(' ')}`),
        ...empty.map((layer) => `no sources in ${layer}/`),
    ];
}

const complaints = complaintsAbout(path.resolve(process.argv[2] ?? path.join(__dirname, '../..')));
complaints.forEach((complaint) => console.log(complaint));
process.exitCode = complaints.length === 0 ? 0 : 1;
