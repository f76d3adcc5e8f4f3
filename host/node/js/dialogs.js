'use strict';
// The desktop's own dialogs. Each comes in two forms, one that waits for the answer and one that promises it.

const path = require('node:path');
const { typeError } = require('./arguments.js');
const { callDesktop } = require('./desktop.js');
const { hold, release } = require('./holds.js');
const { describe } = require('./kinds.js');
const { native } = require('./native.js');
const { checkOptions } = require('./options.js');

// ---- What the options may be ----

const isText = (value) => typeof value === 'string';
const areTexts = (value) => Array.isArray(value) && value.length > 0 && value.every((each) => isText(each) && each !== '');

const icons = ['info', 'warning', 'error', 'question'];
const icon = { accepts: (value) => icons.includes(value), says: icons.map((name) => `"${name}"`).join(', ') };
const buttons = { accepts: areTexts, says: 'an array of the buttons\' names' };
const isPattern = (value) => isText(value) && /^[^\s()]+$/.test(value);
const isFilter = (value) => isText(value?.name) && Array.isArray(value.patterns) && value.patterns.length > 0 && value.patterns.every(isPattern);
const filters = {
    accepts: (value) => Array.isArray(value) && value.every(isFilter),
    says: 'an array of { name: "Texts", patterns: ["*.txt"] }',
};
const color = { accepts: (value) => isText(value) && /^(#[0-9a-f]{3}|#[0-9a-f]{6}|[a-z]+)$/i.test(value), says: '"#RRGGBB" or the name of a colour' };

// ---- Showing one ----

/** A title for messages that have none: that of the window they are about, or the program's name. */
function defaultTitle() {
    const title = native.session()?.currentWindow?.getTitle();
    return title || path.basename(process.argv[1] ?? 'node', path.extname(process.argv[1] ?? ''));
}

const filterTexts = (list = []) => list.map(({ name, patterns }) => `${name} (${patterns.join(' ')})`);
const folderText = (folder) => (folder === undefined ? '' : path.resolve(folder));
const first = (answers) => answers[0] ?? null;

/** Opens a dialog; `answered` hears the answer when it has ended. */
function open(caller, { kind, title = '', text = '', value = '', option = '', names = [], read = first }, answered) {
    callDesktop(caller, 'showDialog', kind, title, text, value, option, (...answers) => answered(read(answers)), ...names);
}

function openAndWait(caller, request) {
    return native.waitFor((id) => open(caller, request, (answer) => native.complete(id, answer)));
}

/** An open dialog keeps the program alive, as an open window does. */
function openAndPromise(caller, request) {
    return new Promise((resolve, reject) => {
        const held = hold();
        try {
            open(caller, request, (answer) => { release(held); resolve(answer); });
        } catch (error) {
            release(held);
            reject(error);
        }
    });
}

/** The two forms of a dialog; `requestOf(args, caller, method)` checks what it is called with. */
function pair(name, parameters, requestOf) {
    const make = (method, run) => {
        const caller = `${method}(${parameters})`;
        return { [method]: (...args) => run(caller, requestOf(args, caller, dialogs[method])) }; // which names the function
    };
    return { ...make(name, openAndWait), ...make(`${name}Async`, openAndPromise) };
}

// ---- The dialogs ----

function textArgument(args, caller, method) {
    const [text] = args;
    if (args.length === 0 || args.length > 2) {
        throw typeError(args.length === 0 ? `${caller}: "text" is missing` : `${caller}: takes 1 or 2 arguments, not ${args.length}`, method);
    }
    if (!isText(text) && typeof text !== 'number') {
        throw typeError(`${caller}: "text" must be a string, not ${describe(text)}`, method);
    }
    return String(text);
}

/** The request of a dialog with a text and options; `more(options)` is what its kind adds. */
function message(kind, table, more) {
    return (args, caller, method) => {
        const text = textArgument(args, caller, method);
        const options = checkOptions(caller, args[1], { title: 'string', ...table }, method);
        return { kind, text, title: options.title ?? defaultTitle(), ...more(options) };
    };
}

/** The same for a dialog with options alone. */
function choice(table, more) {
    return (args, caller, method) => {
        if (args.length > 1) {
            throw typeError(`${caller}: takes 0 or 1 arguments, not ${args.length}`, method);
        }
        const options = checkOptions(caller, args[0], { title: 'string', ...table }, method);
        return { title: options.title, ...more(options) };
    };
}

const dialogs = {
    ...pair('alert', 'text, options', message('alert', { icon, buttons }, (options) => ({
        option: options.icon ?? 'info', names: options.buttons ?? [],
    }))),
    ...pair('confirm', 'text, options', message('confirm', {}, () => ({ read: (answers) => answers.length > 0 }))),
    ...pair('prompt', 'text, options', message('prompt', { value: 'string', password: 'boolean' }, ({ value, password }) => ({
        value, option: password ? 'password' : '',
    }))),
    ...pair('openFile', 'options', choice({ folder: 'string', filters, multiple: 'boolean' }, (options) => ({
        kind: options.multiple ? 'openFiles' : 'openFile', text: folderText(options.folder), names: filterTexts(options.filters),
        read: options.multiple ? (answers) => (answers.length > 0 ? answers : null) : first,
    }))),
    ...pair('saveFile', 'options', choice({ folder: 'string', name: 'string', filters }, (options) => ({
        kind: 'saveFile', text: folderText(options.folder), value: options.name, names: filterTexts(options.filters),
    }))),
    ...pair('openFolder', 'options', choice({ folder: 'string' }, (options) => ({ kind: 'openFolder', text: folderText(options.folder) }))),
    ...pair('pickColor', 'options', choice({ color }, (options) => ({ kind: 'pickColor', value: options.color }))),
};

module.exports = { dialogs };
