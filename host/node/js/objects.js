'use strict';
// What the component adds to JavaScript objects: properties, methods, and the link between a window and its controls.

const { checkMethod } = require('./checked.js');
const { takePart } = require('./flexlists.js');
const { native } = require('./native.js');

function defineAccessor(object, name) {
    Object.defineProperty(object, name, {
        get: () => native.tableGet(object, name),
        set: (value) => { native.tableSet(object, name, value); },
        enumerable: true,
        configurable: true,
    });
}

function defineMethod(object, name, method) {
    if (!takePart(object, name, method)) {
        Object.defineProperty(object, name, { value: checkMethod(name, method), writable: true, configurable: true });
    }
}

const ownedBy = new WeakMap();
const ownerOf = new WeakMap();

/** A window and its controls keep each other alive by references that the garbage collector can see. */
function tie(owner, object) {
    if (!ownedBy.has(owner)) {
        ownedBy.set(owner, new Set());
    }
    ownedBy.get(owner).add(object);
    ownerOf.set(object, owner);
}

function untie(owner, object) {
    ownedBy.get(owner)?.delete(object);
}

module.exports = { defineAccessor, defineMethod, tie, untie };
