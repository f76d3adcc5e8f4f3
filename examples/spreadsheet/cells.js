'use strict';
// The cells of a sheet: what was typed into them, and what that comes to. A cell is worked out when somebody asks for it, and with it
// those that it names; what has been worked out is kept until something is typed.

const { evaluate } = require('../calculator/evaluate');

const most = 100; // columns and rows
const columns = ['', ...'ABC'].flatMap((first) => [...'ABCDEFGHIJKLMNOPQRSTUVWXYZ'].map((letter) => first + letter)).slice(0, most); // A to CV
const nameOf = ([column, row]) => `${columns[column]}${row + 1}`;
const sum = (...values) => values.reduce((total, each) => total + each, 0);
const functions = { __proto__: null, sum, average: (...values) => sum(...values) / values.length, min: Math.min, max: Math.max, count: (...values) => values.length };

class Cells {
    texts = {}; // by names: "A1"
    #values = new Map();

    set(name, text) {
        this.texts[name] = text === '' ? undefined : text;
        this.#values.clear();
    }

    /** A number, a text, or an Error that says what is wrong. */
    value(name) {
        if (this.#values.has(name)) return this.#values.get(name);
        this.#values.set(name, new SyntaxError(`${name} depends on itself`)); // so say those that ask while it is worked out
        const text = this.texts[name] ?? '';
        let value = text.trim() === '' || Number.isNaN(Number(text)) ? text : Number(text);
        try {
            if (text.startsWith('=')) value = evaluate(text.slice(1), (word) => functions[word] ?? this.#find(word.toUpperCase()));
        } catch (error) {
            value = error;
        }
        this.#values.set(name, value);
        return value;
    }

    /** "A1" is a number, "A1:B9" all numbers in there. */
    #find(word) {
        const places = word.split(':').map((name) => [columns.indexOf(name.replace(/\d+$/, '')), /\d*$/.exec(name)[0] - 1]);
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
