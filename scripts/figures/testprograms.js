'use strict';
// scripts/figures/testprograms.js: which test programs the CMake files of a checkout describe, and what each links.
// Reads only what these files do: `tarn_test(...)`, and functions of a folder that call it once.

const fs = require('node:fs');
const path = require('node:path');

function cmakeLists(folder) {
    if (!fs.existsSync(folder)) {
        return [];
    }
    return fs.readdirSync(folder, { withFileTypes: true }).flatMap((entry) => {
        const name = path.join(folder, entry.name);
        if (entry.isDirectory()) {
            return cmakeLists(name);
        }
        return entry.name === 'CMakeLists.txt' ? [fs.readFileSync(name, 'utf8').replace(/#.*/g, '')] : [];
    });
}

/** The words behind LIBS in a call, up to the next word in capitals. */
function librariesIn(words) {
    const start = words.indexOf('LIBS') + 1;
    const end = words.findIndex((word, index) => index >= start && /^(LABELS|ENV)$/.test(word));
    return start === 0 ? [] : words.slice(start, end < 0 ? words.length : end);
}

const wordsOf = (text) => text.split(/\s+/).filter((word) => word !== '');

/** What a function's variables hold when it is called with these words: one behind a flag only if the flag is there. */
function variablesOf(body, words) {
    const values = new Map();
    let isTaken = true;
    for (const [, command, text] of body.matchAll(/\b(set|if|endif)\s*\(([^()]*)\)/g)) {
        if (command === 'set' && isTaken) {
            const [name, ...value] = wordsOf(text);
            values.set(name, value);
        } else if (command !== 'set') {
            const flag = /^arg_(\w+)$/.exec(text.trim())?.[1];
            isTaken = command === 'endif' || !flag || words.includes(flag);
        }
    }
    values.set('arg_LIBS', librariesIn(words));
    return values;
}

const functions = /\bfunction\s*\(\s*(\w+)[^()]*\)([\s\S]*?)\bendfunction\s*\(\s*\)/g;

/** What each call of `tarn_test`, or of a function around it, links: a list of lists. A call in a loop counts once. */
function testProgramsIn(root) {
    return cmakeLists(path.join(root, 'tests')).flatMap((text) => {
        const makers = new Map();
        const rest = text.replace(functions, (_, name, body) => makers.set(name, body) && '');
        return [...rest.matchAll(/\b(\w+)\s*\(([^()]*)\)/g)].flatMap(([, command, argumentText]) => {
            const words = wordsOf(argumentText);
            if (command === 'tarn_test') {
                return [librariesIn(words)];
            }
            const body = makers.get(command) ?? '';
            const call = /\btarn_test\s*\(([^()]*)\)/.exec(body)?.[1];
            const values = variablesOf(body, words);
            const valueOf = (word) => values.get(/^\$\{(\w+)\}$/.exec(word)?.[1]) ?? [word];
            return call ? [librariesIn(wordsOf(call)).flatMap(valueOf)] : [];
        });
    });
}

module.exports = { testProgramsIn };
