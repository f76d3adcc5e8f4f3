'use strict';
// The kinds of arguments that the methods of the package take, and how messages name them.

const { fileURLToPath } = require('node:url');
const { types } = require('node:util');
const { Html } = require('./html.js');
const { classes } = require('./native.js');

/** What a value is, for a message: "the string \"x\"", "an array", "a GuiControl". */
function describe(value) {
    if (value === null || value === undefined) {
        return String(value);
    }
    if (typeof value === 'string') {
        return `the string ${JSON.stringify(value.length > 40 ? `${value.slice(0, 40)}...` : value)}`;
    }
    if (typeof value === 'number' || typeof value === 'bigint') {
        return `the number ${value}`;
    }
    if (typeof value !== 'object') {
        return typeof value === 'boolean' ? String(value) : `a ${typeof value}`;
    }
    return describeObject(value);
}

function describeObject(value) {
    if (Array.isArray(value)) {
        return 'an array';
    }
    if (types.isPromise(value)) {
        return 'a promise (is "await" missing?)';
    }
    const name = Object.getPrototypeOf(value)?.constructor?.name;
    return name && name !== 'Object' ? `an object of the class ${name}` : 'an object';
}

const isNumber = (value) => typeof value === 'number' || typeof value === 'bigint';
const isSwitch = (value) => typeof value === 'boolean' || isNumber(value);
const isText = (value) => typeof value === 'string';
const isObject = (value) => typeof value === 'object' && value !== null;
const isFileUrl = (value) => value instanceof URL && value.protocol === 'file:';
const isPair = (value) => Array.isArray(value) && value.length === 2 && value.every(isNumber);

/** Whether each is of the kind, holes too, which the method every() passes over. */
function areAll(values, isOfKind) {
    for (const value of values) {
        if (!isOfKind(value)) {
            return false;
        }
    }
    return true;
}

/** Numbers x, y, x, y, or pairs of them; typed arrays are not looked into. */
function arePoints(value) {
    if (types.isTypedArray(value)) {
        return value.length % 2 === 0 && !types.isBigInt64Array(value) && !types.isBigUint64Array(value);
    }
    return Array.isArray(value) && (areAll(value, isPair) || (value.length % 2 === 0 && areAll(value, isNumber)));
}

/** By name: whether a value is of the kind, what the kind is called, and, for some, what is handed on in place of the value. */
const kinds = {
    any: { accepts: () => true, says: 'a value' },
    string: { accepts: isText, says: 'a string' },
    number: { accepts: isNumber, says: 'a number' },
    boolean: { accepts: (value) => typeof value === 'boolean', says: 'true or false' },
    switch: { accepts: isSwitch, says: 'true or false, or a number' },
    function: { accepts: (value) => typeof value === 'function', says: 'a function' },
    null: { accepts: (value) => value === null, says: 'null' },
    object: { accepts: isObject, says: 'an object' },
    path: {
        accepts: (value) => isText(value) || isFileUrl(value),
        says: 'a path, as a string or a file URL',
        convert: (value) => (isText(value) ? value : fileURLToPath(value)),
    },
    markup: { accepts: (value) => isText(value) || value instanceof Html, says: 'a string or html`...`', convert: String },
    rect: {
        accepts: (value) => isObject(value) && ['left', 'top', 'width', 'height'].every((name) => isNumber(value[name])),
        says: 'an object with the numbers left, top, width and height',
    },
    points: { accepts: arePoints, says: 'an array of numbers x, y, x, y, ... or of pairs of them' },
    image: { accepts: (value) => value instanceof classes.GuiImage, says: 'a GuiImage' },
};

module.exports = { describe, kinds };
