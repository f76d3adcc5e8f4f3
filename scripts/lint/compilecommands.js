'use strict';
// scripts/lint/compilecommands.js: how a build folder compiles the sources of this repository, in words that clang
// takes.

const fs = require('node:fs');
const path = require('node:path');

/** The words of a command as a shell takes them apart: blanks between them, backslashes and double quotes inside. */
function wordsOf(command) {
    const words = command.match(/(?:\\.|"(?:\\.|[^"\\])*"|[^\s"\\])+/g);
    return words.map((word) => word.replace(/\\(.)|"/g, (_, sign) => sign ?? ''));
}

/**
 * The options of a command for clang, without what is read and written: equal for the sources of one target.
 * Precompiled headers are another compiler's, and its warnings that clang does not know are no findings.
 */
function optionsOf(command) {
    const [, ...words] = wordsOf(command);
    const isFile = (index) => ['-o', '-c'].includes(words[index])
        || (words[index] === '-include' && /cmake_pch/.test(words[index + 1]));
    const options = words.filter((word, index) => word !== '-Winvalid-pch' && !isFile(index) && !isFile(index - 1));
    return [...options, '-Wno-unknown-warning-option'];
}

/**
 * The options for each source, by its name from the root, which is the current folder: of its first command, since
 * programs share sources. What a build makes is left out.
 */
function readOptions(build) {
    const options = new Map();
    for (const entry of JSON.parse(fs.readFileSync(path.join(build, 'compile_commands.json'), 'utf8'))) {
        const name = path.relative('.', entry.file);
        if (!name.startsWith('..') && !name.startsWith('build/') && !options.has(name)) {
            options.set(name, optionsOf(entry.command));
        }
    }
    return options;
}

module.exports = { readOptions };
