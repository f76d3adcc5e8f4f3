'use strict';
// scripts/lint/rules.js FILE...: the rules of this repository that no other linter knows. Prints each place that breaks
// one and fails when there is any. Names are relative to the current folder, which is the root of the checkout.

const fs = require('node:fs');
const path = require('node:path');
const { codeOf } = require('../figures/code.js');

/** C++ is formatted to this; all else is written a little wider. */
const longestCppLine = 120;
const longestLine = 200;

const isCpp = (name) => /\.(cpp|h)$/.test(name);
const isTest = (name) => name.startsWith('tests/') && name.endsWith('.cpp');
const isText = (name) => /\.(cpp|h|js|ts|sh|cmake)$|(^|\/)CMakeLists\.txt$|^tarn$|\/run$/.test(name);

const mayNotHaveTabs = (name) => isText(name) && !name.endsWith('.sh');

const pointerTest = new RegExp([
    /\b(if|while) \(.*[!=]= nullptr/, /[!=]= nullptr *(&&|\|\||\?)/, /(&&|\|\|) [^;,]*[!=]= nullptr/, /nullptr [!=]=/,
].map(({ source }) => source).join('|'));
const westConst = /(^ *|[(<,;{] *|\b(static|inline|constexpr|extern|virtual|mutable|new) )const [A-Za-z_]/;

/** Rules about one line: of the code alone, comments and literals blanked, or of the line as it is written. */
const lineRules = [
    { of: isCpp, code: pointerTest, says: 'a pointer in a condition stands bare: p, !p' },
    { of: isCpp, code: westConst, says: 'const stands behind what it makes constant: char const*' },
    { of: isCpp, text: /^ *# *include "[^"/]*"/, says: 'an include names the folder: "page/guihtml.h"' },
    { of: isCpp, code: /\bNULL\b/, says: 'nullptr, not NULL' },
    { of: isTest, code: /^TEST(_F|_P)?\([^)]*_/, says: 'the name of a test has no underscore' },
    { of: isText, text: /\s$/, says: 'blanks at the end of the line' },
    { of: mayNotHaveTabs, text: /\t/, says: 'a tab' },
    { of: isCpp, test: ({ text }) => [...text].length > longestCppLine, says: `longer than ${longestCppLine} characters` },
    { of: isText, test: ({ text }) => [...text].length > longestLine, says: `longer than ${longestLine} characters` },
];

const hasTests = (code) => /^(TYPED_)?TEST(_F|_P)?\(/m.test(code);

const isHeader = (name) => name.endsWith('.h');
const isTestName = (name) => name.endsWith('_test.cpp');
const fileName = /^[a-z0-9]+(-[a-z0-9]+)*(_test)?\.(cpp|h)$/;

/** Rules about a whole file. */
const fileRules = [
    { of: isCpp, breaks: ({ name, text }) => !text.startsWith(`// ${name}: `),
        says: 'the first line says what the file is: // folder/file: ...' },
    { of: isHeader, breaks: ({ code }) => !/^#pragma once$/m.test(code), says: 'a header has #pragma once' },
    { of: isCpp, breaks: ({ name, code }) => hasTests(code) && !isTestName(name),
        says: 'a file with tests is NAME_test.cpp' },
    { of: isCpp, breaks: ({ name, code }) => !hasTests(code) && isTestName(name), says: 'NAME_test.cpp has tests' },
    { of: isCpp, breaks: ({ name }) => !fileName.test(path.basename(name)), says: 'a file is called class-part.cpp' },
    { of: isText, breaks: ({ text }) => !text.endsWith('\n') || text.endsWith('\n\n'),
        says: 'the file ends with one line end' },
];

function* findings(file) {
    const texts = file.text.split('\n');
    const codes = file.code.split('\n');
    for (const rule of fileRules.filter(({ of }) => of(file.name))) {
        if (rule.breaks(file)) {
            yield { line: 1, says: rule.says };
        }
    }
    for (const rule of lineRules.filter(({ of }) => of(file.name))) {
        const breaks = rule.test ?? (({ text, code }) => (rule.code ? rule.code.test(code) : rule.text.test(text)));
        for (let line = 0; line < texts.length; line += 1) {
            if (breaks({ text: texts[line], code: codes[line] })) {
                yield { line: line + 1, says: rule.says };
            }
        }
    }
}

let count = 0;
for (const name of process.argv.slice(2)) {
    const text = fs.readFileSync(name, 'utf8');
    for (const { line, says } of findings({ name, text, code: isCpp(name) ? codeOf(text) : text })) {
        console.log(`${name}:${line}: ${says}`);
        count += 1;
    }
}
console.log(`${count} places in ${process.argv.length - 2} files`);
process.exitCode = count === 0 && process.argv.length > 2 ? 0 : 1;
