'use strict';
// The package tarn-gui: native windows for a script. This file loads the addon and the component, gives the component's
// classes their JavaScript side, and holds the functions that the addon calls ("helpers").

const path = require('node:path');
const { fileURLToPath } = require('node:url');
const { inspect } = require('node:util');
const { isMainThread } = require('node:worker_threads');
const { loadAddon, loadComponent } = require('./loader.js');

const native = loadAddon();
const classes = loadComponent(native);

// --- methods of script objects ---

const builtIn = Object.prototype;

/** The function that a page may call under this name: not what every object has. */
function findMethod(object, name) {
    if (name === '') {
        return typeof object === 'function' ? object : undefined;
    }
    const method = object === null ? undefined : object[name];
    return typeof method === 'function' && method !== builtIn[name] && name !== 'constructor' ? method : undefined;
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

// --- calls from the component ---

/** Handlers whose promise has not settled, by the number of their call. */
const unsettled = new Set();
let promisesAreStuck = false;

function isThenable(value) {
    return value !== null && (typeof value === 'object' || typeof value === 'function') && typeof value.then === 'function';
}

function finish(id, value) {
    unsettled.delete(id);
    native.complete(id, value);
}

/** The call is completed before its error is reported: the report may end the process. */
function fail(id, error) {
    finish(id, null);
    native.report(error);
}

function awaitResult(id, promise) {
    unsettled.add(id);
    Promise.resolve(promise).then((value) => finish(id, value), (error) => fail(id, error));
    if (promisesAreStuck && native.isWaiting()) {
        finish(id, null);
    }
}

/** Calls a method for the component and answers under `id`, now or when the promise that it returns has settled. */
function runCall(id, target, self, name, args) {
    try {
        const method = findMethod(target, name);
        const result = method === undefined ? null : Reflect.apply(method, self, args);
        if (isThenable(result)) {
            awaitResult(id, result);
        } else {
            finish(id, result);
        }
    } catch (error) {
        fail(id, error);
    }
    return true;
}

// --- the wait inside the component ---

let probeRan = true;

/** A wait begins. When it began in a timer, that timer has disarmed the others until it returns: a new one arms them. */
function startWait() {
    setTimeout(() => {}, 1).unref();
    probeRan = false;
    queueMicrotask(() => { probeRan = true; });
}

function runTicks() {
    process._tickCallback();
    return true;
}

const stuckWarning = 'A promise waits in show() or in another call that takes long, and this version of Node.js runs no '
    + 'other promise meanwhile: async handlers are not waited for. Use "await window.showAsync()" instead.';

/** Only where the addon can not run promises inside a promise: notices when that is the case. */
function checkPromises() {
    if (!promisesAreStuck && !probeRan) {
        process.emitWarning(stuckWarning, { code: 'TARN_SHOW_IN_PROMISE' });
    }
    promisesAreStuck = !probeRan;
    if (promisesAreStuck) {
        [...unsettled].forEach((id) => finish(id, null));
    }
    return true;
}

// --- objects of the component ---

const tableTraps = {
    get: (target, name, proxy) => (isInTable(proxies.get(target), name)
        ? native.tableGet(proxies.get(target), name) : Reflect.get(target, name, proxy)),
    has: (target, name) => isInTable(proxies.get(target), name) || Reflect.has(target, name),
    set: (target, name, value) => {
        if (typeof name === 'symbol') {
            return Reflect.set(target, name, value);
        }
        native.tableSet(proxies.get(target), name, value);
        return true;
    },
    deleteProperty: (target, name) => {
        if (typeof name === 'symbol') {
            return Reflect.deleteProperty(target, name);
        }
        native.tableDelete(proxies.get(target), name);
        return true;
    },
    ownKeys: (target) => native.tableNames(proxies.get(target)).concat(Object.getOwnPropertySymbols(target)),
    getOwnPropertyDescriptor: (target, name) => (isInTable(proxies.get(target), name)
        ? { value: native.tableGet(proxies.get(target), name), writable: true, enumerable: true, configurable: true }
        : Reflect.getOwnPropertyDescriptor(target, name)),
    defineProperty: (target, name, property) => {
        if (typeof name === 'symbol' || !('value' in property)) {
            return typeof name === 'symbol' && Reflect.defineProperty(target, name, property);
        }
        native.tableSet(proxies.get(target), name, property.value);
        return true;
    },
    preventExtensions: () => false,
};

/** From the hidden object behind a proxy to the proxy, which is what the addon knows. */
const proxies = new WeakMap();

function isInTable(proxy, name) {
    return typeof name === 'string' && native.tableHas(proxy, name);
}

/** An object whose properties lie in the component's memory: the session, a form, a rectangle. */
function projectTable() {
    const target = {};
    const proxy = new Proxy(target, tableTraps);
    Object.defineProperty(target, inspect.custom, { value: () => ({ ...proxy }) });
    proxies.set(target, proxy);
    return proxy;
}

function defineAccessor(object, name) {
    Object.defineProperty(object, name, {
        get: () => native.tableGet(object, name),
        set: (value) => native.tableSet(object, name, value),
        enumerable: true,
        configurable: true,
    });
}

function defineMethod(object, name, method) {
    Object.defineProperty(object, name, { value: method, writable: true, configurable: true });
}

const ownedBy = new WeakMap();
const ownerOf = new WeakMap();

/** A window and its controls keep each other, by edges that the garbage collector can see. */
function tie(owner, object) {
    if (!ownedBy.has(owner)) {
        ownedBy.set(owner, new Set());
    }
    ownedBy.get(owner).add(object);
    ownerOf.set(object, owner);
}

// --- custom elements ---

const registered = new Map();

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

// --- windows ---

/** Promises of showAsync(), by window. */
const closeListeners = new WeakMap();

function windowClosed(window) {
    const listeners = closeListeners.get(window);
    closeListeners.delete(window);
    listeners?.forEach((listener) => listener());
}

function whenClosed(window) {
    return new Promise((resolve) => {
        closeListeners.set(window, [...closeListeners.get(window) ?? [], resolve]);
    });
}

function folderOfFrame(frame) {
    const name = frame.getFileName?.();
    if (typeof name !== 'string' || name === __filename || name.startsWith('node:')) {
        return undefined;
    }
    const file = name.startsWith('file://') ? fileURLToPath(name) : name;
    return path.isAbsolute(file) ? path.dirname(file) : undefined;
}

/** The folder of the nearest file on the stack that is not this one; "" when there is none. */
function callerFolder() {
    const { prepareStackTrace, stackTraceLimit } = Error;
    let folder = '';
    Error.stackTraceLimit = 16;
    Error.prepareStackTrace = (error, frames) => {
        folder = frames.map(folderOfFrame).find((found) => found !== undefined) ?? '';
    };
    void new Error('').stack;
    Error.prepareStackTrace = prepareStackTrace;
    Error.stackTraceLimit = stackTraceLimit;
    return folder;
}

class GuiWindow extends classes.GuiWindow {
    #returnValue = null;

    constructor(...args) {
        native.setNextFolder(callerFolder());
        super(...args);
    }

    setReturnValue(...args) {
        const result = super.setReturnValue(...args);
        if (args.length === 1 && this.isValid()) {
            this.#returnValue = args[0] ?? null;
        }
        return result;
    }

    async showAsync() {
        if (!this.open(true)) {
            return null;
        }
        const closed = whenClosed(this);
        await findMethod(this, 'ePostOpen')?.call(this, native.session());
        await closed;
        return this.#returnValue;
    }
}

native.setPublicClass('GuiWindow', GuiWindow);

// --- the package ---

const emptySession = Object.freeze({ currentWindow: null, currentControl: null, currentForm: null });

const tarn = {
    GuiWindow,
    GuiControl: classes.GuiControl,
    GuiSizePolicy: classes.GuiSizePolicy,
    GuiToolkit: classes.GuiToolkit,
    GuiImage: classes.GuiImage,

    get session() {
        return native.session() ?? emptySession;
    },

    register(name, Class) {
        if (typeof name !== 'string' || name === '' || typeof Class !== 'function') {
            throw new TypeError('tarn.register(name, Class) needs a name and a class');
        }
        registered.set(name, { Class, folder: callerFolder() });
    },

    mount(name, folder) {
        if (typeof name !== 'string' || !/^[^/\0]+$/.test(name) || typeof folder !== 'string') {
            throw new TypeError('tarn.mount(name, folder) needs a name without "/" and a folder');
        }
        native.mount(name, path.resolve(callerFolder(), folder));
    },

    pageText(form) {
        return native.pageText(form);
    },
};

native.start({
    construct, defineAccessor, defineMethod, isAlive: () => true, projectTable, runCall, runTicks, checkPromises, scanMethods,
    startWait, tie, windowClosed, hasMethod: (object, name) => findMethod(object, name) !== undefined,
});
native.setDefaultFolder(process.argv[1] ? path.dirname(path.resolve(process.argv[1])) : process.cwd());
native.mount('GuiWindow', path.join(__dirname, 'vfs', 'GuiWindow'));

// The component ends with the program, before the process tears its libraries down. A worker thread only stops calling into
// script here; what lies below it on the stack still has to return.
process.on('exit', isMainThread ? native.end : native.close);

module.exports = tarn;
