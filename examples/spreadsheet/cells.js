'use strict';
// What was typed into the cells of a sheet and what that comes to: worked out when somebody asks, and kept until something is typed.

const { evaluate } = require('../calculator/evaluate');

const most = 100; // columns and rows
const columns = ['', ...'ABC'].flatMap((first) => [...'ABCDEFGHIJKLMNOPQRSTUVWXYZ'].map((letter) => first + letter)).slice(0, most); // A to CV
const nameOf = ([column, row]) => `${columns[column]}${row + 1}`;
const sum = (...values) => values.reduce((total, each) => total + each, 0);
const functions = { __proto__: null, sum, average: (...values) => sum(...values) / values.length, min: Math.min, max: Math.max, count: (...values) => values.length };

class Cells {
    #values = new Map();

    constructor(texts = {}) { this.texts = texts; } // by names: "A1"
    text(name) { return this.texts[name] ?? ''; }
    set(name, text) { this.texts[name] = text === '' ? undefined : text; this.#values.clear(); }

    /** A number, a text, or an Error that says what is wrong. */
    value(name) {
        if (this.#values.has(name)) return this.#values.get(name);
        this.#values.set(name, new SyntaxError(`${name} depends on itself`)); // so say those that ask while it is worked out
        const text = this.text(name);
        const plain = text.trim() === '' || Number.isNaN(Number(text)) ? text : Number(text);
        try {
            this.#values.set(name, text.startsWith('=') ? evaluate(text.slice(1), (word) => functions[word] ?? this.#find(word.toUpperCase())) : plain);
        } catch (error) {
            this.#values.set(name, error);
        }
        return this.#values.get(name);
    }

    /** "A1" is a number, "A1:B9" all numbers in there. */
    #find(word) {
        const places = word.split(':').map((name) => [columns.indexOf(name.replace(/\d+$/, '')), Number(/\d*$/.exec(name)?.[0]) - 1]);
        if (places.some(([column, row]) => column < 0 || row < 0 || row >= most)) return undefined;
        const [[left, top], [right, bottom] = [left, top]] = places;
        const values = [];
        for (let row = top; row <= bottom; ++row) for (let column = left; column <= right; ++column) values.push(this.value(nameOf([column, row])));
        const wrong = values.find((value) => value instanceof Error || (places.length === 1 && Number.isNaN(Number(value))));
        if (wrong !== undefined) throw wrong instanceof Error ? wrong : new SyntaxError(`${word} is no number`);
        return places.length > 1 ? values.filter((value) => typeof value === 'number') : Number(values[0]);
    }
}

module.exports = { Cells, columns, most, nameOf };
