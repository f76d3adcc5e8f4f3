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

function escape(text) {
    return text.replace(/[&<>"']/g, (character) => references[character]);
}

/** What the program probably did not mean to show. */
function isNoText(value) {
    return typeof value === 'function' || types.isPromise(value) || String(value) === '[object Object]';
}

function textOf(value, index) {
    if (value === null || value === undefined || value === false) {
        return '';
    }
    if (value instanceof Html) {
        return String(value);
    }
    if (Array.isArray(value)) {
        return value.map((each) => textOf(each, index)).join('');
    }
    if (typeof value === 'symbol' || isNoText(value)) {
        const what = types.isPromise(value) ? 'a promise (is "await" missing?)' : typeof value === 'object' ? 'an object' : `a ${typeof value}`;
        throw new TypeError(`html\`...\`: value ${index + 1} must be text, a number, html\`...\` or an array of these, not ${what}`);
    }
    return escape(String(value));
}

function html(strings, ...values) {
    if (!Array.isArray(strings) || !Array.isArray(strings.raw)) {
        throw new TypeError('html is a tag: write html`<p>${text}</p>`, without parentheses');
    }
    return new Html(strings.reduce((text, part, i) => text + textOf(values[i - 1], i - 1) + part));
}

module.exports = { Html, html };
