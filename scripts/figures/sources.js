'use strict';
// scripts/figures/sources.js: reads the C++ sources of a checkout and finds the functions in them, without a compiler.

const fs = require('node:fs');
const path = require('node:path');
const { codeOf } = require('./code.js');

const isSource = (name) => /\.(cpp|h)$/.test(name);

/** The sources of a folder, from all folders under it, sorted: {name: 'page/guihtml.h', text, code}. */
function readSources(root, folder) {
    const whole = path.join(root, folder);
    const entries = fs.existsSync(whole) ? fs.readdirSync(whole, { withFileTypes: true }) : [];
    return entries.sort((a, b) => (a.name < b.name ? -1 : 1)).flatMap((entry) => {
        const name = `${folder}/${entry.name}`;
        if (entry.isDirectory()) {
            return entry.name === 'node_modules' ? [] : readSources(root, name);
        }
        if (!isSource(entry.name)) {
            return [];
        }
        const text = fs.readFileSync(path.join(root, name), 'utf8');
        return [{ name, text, code: codeOf(text) }];
    });
}

const bodyWords = /(\)|\b(const|override|final|noexcept|mutable|try|else|do)|->\s*[\w:<>*&\s]+)\s*$/;

/** What a brace opens, by the text before it and by what it stands in. */
function kindOf(header, outer) {
    if (outer === 'body' || outer === 'list') {
        return outer;
    }
    if (!header.includes('(')) {
        return /\b(namespace|class|struct|union|extern)\b/.test(header) ? 'scope' : 'list';
    }
    return bodyWords.test(header) ? 'function' : 'list'; // a member that is initialised in braces, before the body
}

const nameIn = (header) => /(~?[\w:]+|operator[^(]{1,20})\s*\(/.exec(header)?.[1] ?? '?';

/** The functions of a source: {name, lines}, from the first line of what is declared to the closing brace. */
function functionsOf(source) {
    const found = [];
    const open = []; // {kind, header, line}
    let header = '';
    let headerLine = 1;
    let line = 1;
    for (const sign of source.code.replace(/^[ \t]*#(\\\n|[^\n])*/gm, (text) => text.replace(/[^\n]/g, ' '))) {
        const outer = open.at(-1)?.kind;
        const isInFunction = outer === 'function' || outer === 'body';
        if (sign === '{') {
            open.push({ kind: kindOf(header, outer === 'function' ? 'body' : outer), header, line: headerLine });
            header = open.at(-1).kind === 'list' ? header : '';
        } else if (sign === '}') {
            const closed = open.pop() ?? { kind: 'none' };
            if (closed.kind === 'function') {
                found.push({ name: nameIn(closed.header), file: source.name, lines: line - closed.line + 1 });
            }
            header = closed.kind === 'list' ? header : '';
        } else if (sign === ';' || (sign === ':' && /^\s*(public|protected|private)$/.test(header))) {
            header = '';
        } else if (!isInFunction && outer !== 'list') {
            headerLine = header.trim() ? headerLine : line;
            header += sign;
        }
        line += sign === '\n' ? 1 : 0;
    }
    return found;
}

module.exports = { readSources, functionsOf };
