'use strict';
// Methods of script objects: which of them a page may call by event://, and their names, for the threads that cannot look
// themselves. A page may call what its author's classes and objects have, and of the package's own methods only close().

const { EventEmitter } = require('node:events');
const { isOwnMethod } = require('./checked.js');

/** Prototypes of Node.js: what an application's class inherits from one of these is not the author's. */
const builtIns = new Set([Object, Function, Array, Map, Set, WeakMap, WeakSet, Promise, Error, EventEmitter, EventTarget]
    .map((each) => each.prototype));

/** The prototype behind this one, null at the end of what is the author's or the package's. */
function next(object) {
    const prototype = Object.getPrototypeOf(object);
    return prototype === null || builtIns.has(prototype) ? null : prototype;
}

/** What `event://close/1` calls: close() takes nothing that a page could pass. */
function closeThis() {
    return this.close();
}

/** The method that the object itself offers to pages; getters are not run, and offer none. */
function methodHere(object, name) {
    const value = Object.getOwnPropertyDescriptor(object, name)?.value;
    if (typeof value !== 'function' || name === 'constructor') {
        return undefined;
    }
    if (isOwnMethod(value, name)) {
        return name === 'close' ? closeThis : undefined;
    }
    return value;
}

function hasProperty(object, name) {
    return Object.getOwnPropertyDescriptor(object, name) !== undefined;
}

/** The function that a page may call by this name. The nearest property of the name decides; "" is the function itself. */
function findMethod(object, name) {
    if (name === '') {
        return typeof object === 'function' ? object : undefined;
    }
    for (let at = object; at !== null; at = next(at)) {
        if (hasProperty(at, name)) {
            return methodHere(at, name);
        }
    }
    return undefined;
}

function hasMethod(object, name) {
    return findMethod(object, name) !== undefined;
}

function ownMethods(object) {
    return Object.getOwnPropertyNames(object).filter((name) => methodHere(object, name) !== undefined);
}

/** Names and their number, by prototype object, since classes seldom change. */
const prototypeMethods = new WeakMap();

function methodsOfPrototype(prototype) {
    const count = Object.getOwnPropertyNames(prototype).length;
    let known = prototypeMethods.get(prototype);
    if (known === undefined || known.count !== count) {
        known = { count, names: ownMethods(prototype) };
        prototypeMethods.set(prototype, known);
    }
    return known;
}

/** What was last found for an object: the parts, compared one by one, and the method names. */
const scanned = new WeakMap();

function isSameScan(before, own, parts) {
    return before !== undefined && before.parts.length === parts.length && before.own.length === own.length
        && before.parts.every((part, i) => part === parts[i]) && before.own.every((name, i) => name === own[i]);
}

/** The names of all methods of an object that a page may call; undefined when they have not changed since the last call. */
function scanMethods(object) {
    const own = ownMethods(object);
    const parts = [];
    for (let at = next(object); at !== null; at = next(at)) {
        parts.push(methodsOfPrototype(at));
    }
    if (isSameScan(scanned.get(object), own, parts)) {
        return undefined;
    }
    scanned.set(object, { own, parts });
    return [...new Set(own.concat(...parts.map((part) => part.names)))].filter((name) => hasMethod(object, name));
}

module.exports = { findMethod, hasMethod, scanMethods };
