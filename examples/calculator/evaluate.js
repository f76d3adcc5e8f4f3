'use strict';
// What a line such as "2 (3 + 4)^2" comes to. Each function reads one level of the grammar and leaves the rest of the line to the
// one that called it: a sum of products of powers of values.

const token = /\s*(?:(\d+\.?\d*(?:e[+-]?\d+)?|\.\d+)|(pi|sqrt|[-+*/^()%]))/iy;

/** The numbers and signs of a line; throws a SyntaxError that names what is neither. */
function tokensOf(line) {
    const tokens = [];
    for (token.lastIndex = 0; /\S/.test(line.slice(token.lastIndex));) {
        const rest = line.slice(token.lastIndex).trim();
        const found = token.exec(line);
        if (!found) throw new SyntaxError(`what is "${rest}"?`);
        tokens.push(found[1] === undefined ? found[2].toLowerCase() : Number(found[1]));
    }
    return tokens;
}

/** The value of a line; throws a SyntaxError that says what is wrong with it. */
function evaluate(line) {
    const tokens = tokensOf(line);
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
            else if (['(', 'pi', 'sqrt'].includes(tokens[0])) value *= power(); // 2 (3 + 4)
            else return value;
        }
    };
    const signed = () => (takes('-') ? -signed() : power()); // -2^2 is -4
    const power = () => {
        let value = simple();
        while (takes('%')) value /= 100;
        return takes('^') ? value ** signed() : value;
    };
    const simple = () => {
        if (takes('pi')) return Math.PI;
        if (takes('sqrt')) return Math.sqrt(power());
        if (typeof tokens[0] === 'number') return tokens.shift();
        if (!takes('(')) throw new SyntaxError(`a number is missing ${tokens.length > 0 ? `before ${tokens[0]}` : 'at the end'}`);
        const value = sum();
        if (!takes(')')) throw new SyntaxError('a ) is missing');
        return value;
    };
    const value = sum();
    if (tokens.length > 0) throw new SyntaxError(`what is ${tokens[0]} for?`);
    return value;
}

module.exports = { evaluate };
