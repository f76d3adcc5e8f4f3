'use strict';
// What a line such as "2 (3 + 4)^2" comes to. Each function reads one level of the grammar and leaves the rest of the line to the
// one that called it: a sum of products of powers of values.

const token = /\d+\.?\d*(?:e[+-]?\d+)?|\.\d+|[a-z]+\d*(?::[a-z]+\d+)?|\S/g;
const { PI: pi, sqrt, sin, cos, tan, abs, round } = Math;
/** @type {Map<string, any>} */
const names = new Map(Object.entries({ pi, sqrt, sin, cos, tan, abs, round }));
const isWord = (sign) => /^[a-z]/.test(sign);

/** The value of a line; throws a SyntaxError that says what is wrong with it. `find`: what a word such as "pi", "a1" or "a1:b9" stands
 * for: a number, a function of what follows, an array of arguments for one, or undefined. */
function evaluate(line, find = (word) => names.get(word)) {
    const tokens = (line.toLowerCase().match(token) ?? []).map((each) => (/\d/.test(each) && !isWord(each) ? Number(each) : each));
    const takes = (...signs) => (signs.includes(tokens[0]) ? tokens.shift() : undefined);
    const sum = () => {
        let value = product();
        for (let sign = takes('+', '-'); sign; sign = takes('+', '-')) value += sign === '+' ? product() : -product();
        return value;
    };
    const product = () => {
        for (let value = signed(); ;) {
            if (takes('*')) value *= signed();
            else if (takes('/')) value /= signed();
            else if (tokens[0] === '(' || isWord(tokens[0] ?? '')) value *= power(); // 2 (3 + 4)
            else return value;
        }
    };
    const signed = () => (takes('-') ? -signed() : power()); // -2^2 is -4
    const power = () => {
        let value = simple();
        while (takes('%')) value /= 100;
        return takes('^') ? value ** signed() : value;
    };
    const list = () => { // in brackets, set apart by commas
        const values = [];
        do values.push(sum()); while (takes(','));
        if (!takes(')')) throw new SyntaxError('a ) is missing');
        return values;
    };
    const simple = () => {
        if (typeof tokens[0] === 'number') return tokens.shift();
        if (takes('(')) return list().at(-1);
        if (!isWord(tokens[0] ?? '')) throw new SyntaxError(`a number is missing ${tokens.length > 0 ? `before ${tokens[0]}` : 'at the end'}`);
        const word = tokens.shift();
        const found = find(word);
        if (found === undefined) throw new SyntaxError(`what is "${word}"?`);
        return typeof found === 'function' ? found(...(takes('(') ? list() : [power()]).flat()) : found;
    };
    const value = sum();
    if (tokens.length > 0) throw new SyntaxError(`what is ${tokens[0]} for?`);
    if (typeof value !== 'number') throw new SyntaxError('a range is no number');
    return value;
}

module.exports = { evaluate };
