'use strict';
// scripts/lint/fingerprint.js: what decides whether a linter finds something in a C++ source, as one word: its text,
// the headers of this repository that it includes, the lists of checks, and whatever else the caller names.

const crypto = require('node:crypto');
const fs = require('node:fs');
const path = require('node:path');

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

function fingerprintOf(name, ...others) {
    const sum = crypto.createHash('sha256').update(others.join('\n'));
    for (const file of [...configurationsOf(name), ...[...closureOf(name)].sort()]) {
        sum.update(`${file}\n${textOf(file)}\n`);
    }
    return sum.digest('hex').slice(0, 40);
}

module.exports = { fingerprintOf };
