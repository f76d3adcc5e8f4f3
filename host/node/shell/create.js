'use strict';
// tarn-gui create NAME: a folder with a program that runs: a page, a script, a test.

const fs = require('node:fs');
const path = require('node:path');
const { UsageError } = require('./errors.js');

/** The package, whether this file lies in it as it is or within bin/. */
const packageFolder = path.join(__dirname, '..');

/** The arguments behind "create". */
function readCreate(args) {
    const names = args.filter((arg) => !arg.startsWith('-'));
    const wrong = args.find((arg) => arg.startsWith('-') && arg !== '--typescript');
    if (wrong !== undefined) {
        throw new UsageError(`create has no option ${wrong}; there is --typescript`);
    }
    if (names.length !== 1) {
        throw new UsageError(names.length === 0 ? 'create needs a name for the folder' : `create makes one folder, "${names[1]}" is one too many`);
    }
    return { kind: 'create', folder: names[0], language: args.includes('--typescript') ? 'typescript' : 'javascript' };
}

/** A name as npm takes it: small letters, digits and hyphens. */
function packageName(folder) {
    const name = path.basename(path.resolve(folder)).toLowerCase().replace(/[^a-z0-9-]+/g, '-').replace(/^-+|-+$/g, '');
    return name === '' ? 'program' : name;
}

function makeFolder(folder) {
    if (fs.existsSync(folder) && !fs.statSync(folder).isDirectory()) {
        throw new UsageError(`create: "${folder}" is a file`);
    }
    if (fs.existsSync(folder) && fs.readdirSync(folder).length > 0) {
        throw new UsageError(`create: the folder "${folder}" is not empty`);
    }
    try {
        fs.mkdirSync(folder, { recursive: true });
    } catch (error) {
        throw new UsageError(`create: "${folder}" cannot be made: ${error.code}`);
    }
}

/** Copies a file; @name@, @package@ and @tarn@ in it are replaced. */
function copy(from, to, words) {
    const text = fs.readFileSync(from, 'utf8').replace(/@(name|package|tarn)@/g, (_, word) => words[word]);
    fs.writeFileSync(to, text);
}

const escaped = (text) => text.replace(/[&<>"'\\]/g, '');

/** Makes the program of readCreate(); `print` tells what to do with it. */
function create({ folder, language }, print) {
    makeFolder(folder);
    const home = fs.realpathSync(folder);
    const tarn = `file:${path.relative(home, fs.realpathSync(packageFolder))}`;
    const words = { name: escaped(path.basename(home)) || 'Program', package: packageName(home), tarn };
    for (const templates of ['shared', language].map((name) => path.join(packageFolder, 'templates', name))) {
        for (const name of fs.readdirSync(templates)) {
            copy(path.join(templates, name), path.join(home, name), words);
        }
    }
    // What npm install makes of the dependency, so that the program runs without it.
    fs.mkdirSync(path.join(home, 'node_modules'));
    fs.symlinkSync(path.relative(path.join(home, 'node_modules'), fs.realpathSync(packageFolder)), path.join(home, 'node_modules', 'tarn-gui'));
    const install = language === 'typescript' ? 'npm install, ' : '';
    print(`${folder} is made; there: ${install}npm start, npm test`);
    return 0;
}

module.exports = { create, readCreate };
