'use strict';
// Checks arguments against a signature, "GuiWindow.setMinimumSize(width: number, height: number)", before the component gets
// them: it ignores what it can not use, and a program should hear of that.

const { describe, kinds } = require('./kinds.js');

function parseParameter(text) {
    const [, name, mark, alternatives] = /^(\w+)(\??): ([\w|]+)$/.exec(text);
    return { name, isOptional: mark === '?', kinds: alternatives.split('|').map((kind) => kinds[kind]) };
}

/** A signature as the functions below take it. */
function parseSignature(text) {
    const [, name, list] = /^([^(]+)\((.*)\)$/.exec(text);
    const parameters = list === '' ? [] : list.split(', ').map(parseParameter);
    return { text: `${name}(${parameters.map((each) => each.name).join(', ')})`, parameters,
        least: parameters.filter((each) => !each.isOptional).length };
}

function countWanted(signatures) {
    const counts = [...new Set(signatures.flatMap(({ least, parameters }) => (
        Array.from({ length: parameters.length - least + 1 }, (_, i) => least + i))))].sort((a, b) => a - b);
    if (counts.length === 1) {
        return counts[0] === 0 ? 'no arguments' : `${counts[0]} argument${counts[0] === 1 ? '' : 's'}`;
    }
    return `${counts.slice(0, -1).join(', ')} or ${counts.at(-1)} arguments`;
}

function countMessage(signatures, args) {
    const [{ text, parameters }] = signatures;
    const missing = signatures.length === 1 ? parameters[args.length] : undefined;
    return missing === undefined ? `${text}: takes ${countWanted(signatures)}, not ${args.length}` : `${text}: "${missing.name}" is missing`;
}

function findKind(parameter, value) {
    return parameter.kinds.find((kind) => kind.accepts(value));
}

/** What is wrong with the arguments, undefined when nothing is. */
function problemOf(signature, args) {
    const wrong = args.findIndex((value, i) => findKind(signature.parameters[i], value) === undefined);
    if (wrong < 0) {
        return undefined;
    }
    const { name, kinds: wanted } = signature.parameters[wrong];
    return `${signature.text}: "${name}" must be ${wanted.map((kind) => kind.says).join(' or ')}, not ${describe(args[wrong])}`;
}

/** Optional arguments that are undefined at the end count as not given. */
function withoutEmptyEnd(args, least) {
    let count = args.length;
    while (count > least && args[count - 1] === undefined) {
        --count;
    }
    return count === args.length ? args : args.slice(0, count);
}

function converted(signature, args) {
    return args.map((value, i) => {
        const { convert } = findKind(signature.parameters[i], value);
        return convert === undefined ? value : convert(value);
    });
}

/** A TypeError whose stack begins at the caller of `method`. */
function typeError(message, method) {
    const error = new TypeError(message);
    Error.captureStackTrace(error, method);
    return error;
}

/** The arguments as the component takes them; throws a TypeError when no signature fits. `method`: what script has called. */
function checkArguments(signatures, given, method) {
    let problem;
    for (const signature of signatures) {
        const args = withoutEmptyEnd(given, signature.least);
        if (args.length < signature.least || args.length > signature.parameters.length) {
            continue;
        }
        const found = problemOf(signature, args);
        if (found === undefined) {
            return converted(signature, args);
        }
        problem ??= found;
    }
    throw typeError(problem ?? countMessage(signatures, given), method);
}

module.exports = { checkArguments, parseSignature, typeError };
