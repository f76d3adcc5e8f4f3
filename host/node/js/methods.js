'use strict';
// Methods of script objects: which of them a page may call, and their names for the threads that can not look themselves.

const builtIn = Object.prototype;

/** The function that a page may call under this name: not what every object has. */
function findMethod(object, name) {
    if (name === '') {
        return typeof object === 'function' ? object : undefined;
    }
    const method = object === null ? undefined : object[name];
    return typeof method === 'function' && method !== builtIn[name] && name !== 'constructor' ? method : undefined;
}

function hasMethod(object, name) {
    return findMethod(object, name) !== undefined;
}

function isMethodHere(object, name) {
    const property = Object.getOwnPropertyDescriptor(object, name);
    return property !== undefined && (property.get !== undefined || typeof property.value === 'function');
}

function ownMethods(object) {
    return Object.getOwnPropertyNames(object).filter((name) => name !== 'constructor' && isMethodHere(object, name));
}

/** Names and their number, by prototype object: classes seldom change. */
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

/** The names of all methods of an object, undefined when they are what they were at the last call. */
function scanMethods(object) {
    const own = ownMethods(object);
    const parts = [];
    for (let at = Object.getPrototypeOf(object); at !== null && at !== builtIn; at = Object.getPrototypeOf(at)) {
        parts.push(methodsOfPrototype(at));
    }
    if (isSameScan(scanned.get(object), own, parts)) {
        return undefined;
    }
    scanned.set(object, { own, parts });
    return [...new Set(own.concat(...parts.map((part) => part.names)))];
}

module.exports = { findMethod, hasMethod, scanMethods };
