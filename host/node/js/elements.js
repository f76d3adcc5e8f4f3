'use strict';
// Custom elements: the classes of the application that pages name.

const { callerFolder } = require('./callerfolder.js');
const { describe } = require('./kinds.js');
const { native } = require('./native.js');

/** For those who want to say that a class is one of a custom element. Adds nothing: any class will do. */
class CustomElement {}

/** Classes and the folders of the scripts that registered them, by name. */
const registered = new Map();

function register(name, Class) {
    if (typeof name !== 'string' || name === '') {
        throw new TypeError(`tarn.register(name, Class): "name" must be a string, not ${describe(name)}`);
    }
    if (typeof Class !== 'function' || Class.prototype === undefined) {
        throw new TypeError(`tarn.register(name, Class): "Class" must be a class, not ${describe(Class)}`);
    }
    registered.set(name, { Class, folder: callerFolder() });
}

/** For the component: a new element; null when there is no class of that name. Case does not matter. */
function construct(name) {
    const wanted = name.toLowerCase();
    const exact = registered.get(name);
    const found = exact ?? [...registered].find(([known]) => known.toLowerCase() === wanted)?.[1];
    if (found === undefined) {
        return null;
    }
    native.setNextFolder(found.folder);
    return new found.Class();
}

module.exports = { CustomElement, construct, register };
