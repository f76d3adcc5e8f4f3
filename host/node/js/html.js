'use strict';
// html`...`: page text in which the values are data, whatever they contain.

const { types } = require('node:util');

/** Page text that html`...` has made: as a value inside another one it is taken as it is. */
class Html {
    #text;

    constructor(text) {
        this.#text = text;
    }

    toString() {
        return this.#text;
    }
}

const references = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;', "'": '&#39;' };

/** In running text two brackets begin a formatting code of the page language; a word joiner, which is not seen, parts them. */
const joiner = '\u2060';

function escape(text, isRunning) {
    const escaped = text.replace(/[&<>"']/g, (character) => references[character]);
    return isRunning ? escaped.replace(/\[(?=\[|$)/g, `[${joiner}`) : escaped;
}

/** Whether what follows is running text: not inside a tag, and not what a field, an entry or the title holds. */
function isRunningText(text) {
    const open = text.lastIndexOf('<');
    return open < 0 || (open < text.lastIndexOf('>') && !/^<(?:textarea|option|title)\b/i.test(text.slice(open)));
}

/** What the program probably did not mean to show. */
function isNoText(value) {
    return typeof value === 'function' || types.isPromise(value) || String(value) === '[object Object]';
}

function refuse(value, index) {
    const article = typeof value === 'object' ? 'an' : 'a';
    const what = types.isPromise(value) ? 'a promise (is "await" missing?)' : `${article} ${typeof value}`;
    throw new TypeError(`html\`...\`: value ${index + 1} must be text, a number, html\`...\` or an array of these, not ${what}`);
}

function textOf(value, index, isRunning) {
    if (value === null || value === undefined || value === false) {
        return '';
    }
    if (value instanceof Html) {
        return String(value);
    }
    if (Array.isArray(value)) {
        return value.map((each) => textOf(each, index, isRunning)).join('');
    }
    return typeof value === 'symbol' || isNoText(value) ? refuse(value, index) : escape(String(value), isRunning);
}

function append(text, value, index) {
    const piece = textOf(value, index, isRunningText(text));
    return text + (text.endsWith('[') && piece.startsWith('[') ? joiner : '') + piece;
}

function html(strings, ...values) {
    if (!Array.isArray(strings) || !Array.isArray(strings.raw)) {
        throw new TypeError('html is a tag: write html`<p>${text}</p>`, without parentheses');
    }
    return new Html(strings.reduce((text, part, i) => append(text, values[i - 1], i - 1) + part));
}

module.exports = { Html, html };
