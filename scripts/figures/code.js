'use strict';
// scripts/figures/code.js: what of a C++ text is code.

const comment = /\/\/[^\n]*|\/\*[\s\S]*?\*\//;
const literal = /R"(\w*)\([\s\S]*?\)\1"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])+'/;
const number = /\b\d[\w']*/; // may hold the sign that begins a literal: 1'000'000
const tokens = new RegExp([comment, literal, number].map(({ source }) => source).join('|'), 'g');

/** A comment as blanks; of a literal the quotes stay. Lines stay where they are. */
function blank(token) {
    if (/^\d/.test(token)) {
        return token;
    }
    const blanks = token.replace(/[^\n]/g, ' ');
    return token.startsWith('/') ? blanks : `${token.at(-1)}${blanks.slice(2)}${token.at(-1)}`;
}

/** The text with comments and the insides of literals as blanks, so that what is found in it is code. */
const codeOf = (text) => text.replace(tokens, blank);

module.exports = { codeOf };
