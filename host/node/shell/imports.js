'use strict';
// Which scripts a script loads, as far as its text says so: what the words import and require() name by a relative path. A
// program that does not even start cannot tell, and modules that are imported tell nobody.

const fs = require('node:fs');
const path = require('node:path');

const named = /(?:\bfrom|\bimport|\brequire\s*\(|\bimport\s*\()\s*(['"])(\.{1,2}\/[^'"\n]+)\1/g;

/** What may stand behind a name, and which sources stand behind the name of what is made of them. */
const endings = ['', '.js', '.mjs', '.cjs', '.json', '.ts', '.mts', '.cts', '/index.js', '/index.mjs', '/index.ts'];

function readText(file) {
    try {
        return fs.readFileSync(file, 'utf8');
    } catch {
        return '';
    }
}

function isFile(file) {
    try {
        return fs.statSync(file).isFile();
    } catch {
        return false;
    }
}

/** The first of the files that a name may mean, if there is one. */
function fileOf(folder, name) {
    const file = path.resolve(folder, name);
    const meant = [...endings.map((ending) => file + ending), file.replace(/\.([mc]?)js$/, '.$1ts')];
    return meant.filter(isFile).slice(0, 1);
}

/** The script and all that it loads, directly or not, outside of node_modules; full paths. */
function importsOf(script) {
    const found = new Set([script]);
    for (const file of found) {
        const text = /\.[mc]?[jt]s$/.test(file) ? readText(file) : '';
        for (const [, , name] of text.matchAll(named)) {
            fileOf(path.dirname(file), name).filter((each) => !each.includes('/node_modules/')).forEach((each) => found.add(each));
        }
    }
    return [...found];
}

module.exports = { importsOf };
