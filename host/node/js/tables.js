'use strict';
// Objects whose properties are kept by the component: the session, a form, a rectangle. Script sees each through a proxy.

const { inspect } = require('node:util');
const forms = require('./forms.js');
const { native } = require('./native.js');
const { tellUnknownControl } = require('./words.js');
const { adoptSession } = require('./session.js');

/** What script sees of each target, which is all that the addon knows. */
const proxies = new WeakMap();

/** Whether there is a property of this name; of a form its value is then the one that the page shows. */
function isInTable(proxy, name) {
    if (typeof name !== 'string') {
        return false;
    }
    forms.refresh(proxy, name);
    return native.tableHas(proxy, name);
}

function setInTable(proxy, name, value) {
    forms.write(proxy, name, value);
    return true;
}

/** Tells of a property of a form that is no control. */
function checkName(proxy, name) {
    if (typeof name === 'string' && forms.isForm(proxy) && !native.tableHas(proxy, name) && !isInTable(proxy, name)) {
        forms.refreshAll(proxy);
        tellUnknownControl(proxy, name, native.tableNames(proxy));
    }
}

function getOther(target, name, proxy) {
    if (name === 'valid' && forms.isForm(proxy)) {
        return forms.isValid(proxy);
    }
    checkName(proxies.get(target), name);
    return Reflect.get(target, name, proxy);
}

const traps = {
    get: (target, name, proxy) => (isInTable(proxies.get(target), name)
        ? native.tableGet(proxies.get(target), name) : getOther(target, name, proxy)),
    has: (target, name) => isInTable(proxies.get(target), name) || Reflect.has(target, name),
    set: (target, name, value) => {
        if (typeof name === 'symbol') {
            return Reflect.set(target, name, value);
        }
        checkName(proxies.get(target), name);
        return setInTable(proxies.get(target), name, value);
    },
    deleteProperty: (target, name) => {
        if (typeof name === 'symbol') {
            return Reflect.deleteProperty(target, name);
        }
        native.tableDelete(proxies.get(target), name);
        return true;
    },
    ownKeys: (target) => {
        forms.refreshAll(proxies.get(target));
        return native.tableNames(proxies.get(target)).concat(Object.getOwnPropertySymbols(target));
    },
    getOwnPropertyDescriptor: (target, name) => (isInTable(proxies.get(target), name)
        ? { value: native.tableGet(proxies.get(target), name), writable: true, enumerable: true, configurable: true }
        : Reflect.getOwnPropertyDescriptor(target, name)),
    defineProperty: (target, name, property) => {
        if (typeof name === 'symbol' || !('value' in property)) {
            return typeof name === 'symbol' && Reflect.defineProperty(target, name, property);
        }
        return setInTable(proxies.get(target), name, property.value);
    },
    preventExtensions: () => false,
};

function makeTableProxy(_handle, isSession) {
    const target = {};
    const proxy = new Proxy(target, traps);
    Object.defineProperty(target, inspect.custom, { value: () => ({ ...proxy }), configurable: true });
    const seen = isSession ? adoptSession(proxy) : proxy;
    proxies.set(target, seen);
    return seen;
}

module.exports = { makeTableProxy };
