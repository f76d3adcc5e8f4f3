'use strict';
// Puts a check of the arguments in front of the package's methods, and knows these methods again: a page may not call them.

const { checkArguments } = require('./arguments.js');
const { allowNamedFile } = require('./files.js');
const { signaturesOfClass, signaturesOfObject } = require('./signatures.js');
const { tellUnknownPolicy } = require('./words.js');

/** The names of the package's own methods, by function. */
const ownMethods = new WeakMap();

/** What goes beyond the kinds of the arguments. */
const extras = {
    load: allowNamedFile, loadFile: allowNamedFile, loadBackground: allowNamedFile, setSizePolicy: tellUnknownPolicy,
};

function named(name, method) {
    ownMethods.set(method, name);
    return Object.defineProperty(method, 'name', { value: name, configurable: true });
}

/** `find(object)` gives the signatures of the method, undefined for one that takes what it is given. */
function checked(owner, name, method, find) {
    const extra = extras[name];
    const wrapper = function (...given) {
        const signatures = find(this);
        const args = signatures === undefined ? given : checkArguments(signatures, given, wrapper);
        extra?.(owner, this, args[0]);
        return Reflect.apply(method, this, args);
    };
    return named(name, wrapper);
}

function checkedProperties(className, object) {
    for (const [name, property] of Object.entries(Object.getOwnPropertyDescriptors(object))) {
        const signatures = signaturesOfClass(className, name);
        if (typeof property.value !== 'function' || name === 'constructor') {
            continue;
        }
        const value = signatures === undefined ? named(name, property.value) : checked(className, name, property.value, () => signatures);
        Object.defineProperty(object, name, { ...property, value });
    }
}

/** All methods of a class of the package, static ones too. */
function checkClass(className, Class) {
    checkedProperties(className, Class.prototype);
    checkedProperties(className, Class);
}

/** A method that the component adds to one object. */
function checkMethod(name, method) {
    return checked('control', name, method, (object) => signaturesOfObject(object, name));
}

/** Whether the function is the package's own method of this name. */
function isOwnMethod(method, name) {
    return ownMethods.get(method) === name;
}

module.exports = { checkClass, checkMethod, isOwnMethod };
