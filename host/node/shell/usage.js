'use strict';
// What the command tarn-gui can be asked for: its arguments, as one object.

const { parseArgs } = require('node:util');
const { readCreate } = require('./create.js');
const { UsageError } = require('./errors.js');
const { readWatch } = require('./watch.js');

const help = `usage: tarn-gui [OPTION...] PAGE.html [NAME=VALUE...]   a page, its controls filled with these values
       tarn-gui --text TEXT [--buttons YES,NO]           a message; prints the name of the button
       tarn-gui --entry TEXT [--value TEXT] [--password] a field; prints what was typed
       tarn-gui --file [--save | --folder] [--multiple]  a file; prints its path, or one in each line
       tarn-gui --list [TEXT] [--columns A,B] [--multiple]  rows from standard input, cells between tabs; prints those chosen
       tarn-gui --progress [TEXT] [--close]              percentages from standard input, "# TEXT" changes the text
       tarn-gui create NAME [--typescript]               makes a folder with a program: a page, a script, a test
       tarn-gui watch APP.js [ARGUMENT...]               runs a program; what is saved of it is shown at once

  --title TITLE      of the window
  --icon ICON        of a message: info, warning, error or question
  --format FORMAT    of a page's values: json (when absent), shell or csv
  --timeout SECONDS  closes the window after that time
  --help, --version

A button or link of a page ends it: onclick="event://ok" with exit code 0, "event://cancel" with 1, "event://exit/3" with 3; its
values are printed then. Exit codes: 0 the first button; 1 another button, or closed by the user; 2 wrong arguments; 5 timeout.
`;

const options = {
    text: { type: 'boolean' }, entry: { type: 'boolean' }, file: { type: 'boolean' }, list: { type: 'boolean' }, progress: { type: 'boolean' },
    buttons: { type: 'string' }, value: { type: 'string' }, columns: { type: 'string' }, title: { type: 'string' }, icon: { type: 'string' },
    format: { type: 'string' }, timeout: { type: 'string' }, password: { type: 'boolean' }, save: { type: 'boolean' },
    folder: { type: 'boolean' }, multiple: { type: 'boolean' }, close: { type: 'boolean' }, help: { type: 'boolean' }, version: { type: 'boolean' },
};

const kinds = ['text', 'entry', 'file', 'list', 'progress'];
/** The kinds that an option belongs to; the others belong to all. */
const owners = {
    buttons: ['text'], icon: ['text'], value: ['entry'], password: ['entry'], columns: ['list'], save: ['file'], folder: ['file'],
    multiple: ['file', 'list'], close: ['progress'], format: ['page'],
};
const choices = { icon: ['info', 'warning', 'error', 'question'], format: ['json', 'shell', 'csv'] };

function parse(args) {
    try {
        return parseArgs({ args, options, allowPositionals: true });
    } catch (error) {
        throw new UsageError(error.message.split('. To specify')[0]);
    }
}

function checkOptions(values, kind) {
    for (const [name, value] of Object.entries(values)) {
        if (owners[name] && !owners[name].includes(kind)) {
            throw new UsageError(`--${name} is not for ${kind === 'page' ? 'a page' : `--${kind}`}`);
        }
        if (choices[name] && !choices[name].includes(value)) {
            throw new UsageError(`--${name} must be ${choices[name].join(', ')}, not "${value}"`);
        }
    }
    if (values.timeout !== undefined && !(Number(values.timeout) > 0)) {
        throw new UsageError(`--timeout must be a number of seconds, not "${values.timeout}"`);
    }
}

function readAssignment(text) {
    const [, name, value] = /^([^=]+)=(.*)$/s.exec(text) ?? [];
    if (name === undefined) {
        throw new UsageError(`"${text}" is no NAME=VALUE`);
    }
    return [name, value];
}

/**
 * The arguments of a call: { kind, text, page, assignments, buttons, columns, timeout (milliseconds) and the other options by their
 * names }; kind is "page", one of the options that choose what is shown, "create" (see create.js), "watch"
 * (see watch.js), "help" or "version".
 *
 * @throws UsageError
 */
function readArguments(args) {
    if (args[0] === 'create' && !args.includes('--help')) {
        return readCreate(args.slice(1));
    }
    if (args[0] === 'watch' && args[1] !== '--help') {
        return readWatch(args.slice(1));
    }
    const { values, positionals } = parse(args);
    const asked = ['help', 'version'].find((name) => values[name]);
    if (asked) {
        return { kind: asked };
    }
    const named = kinds.filter((kind) => values[kind]);
    if (named.length > 1) {
        throw new UsageError(`--${named[0]} and --${named[1]} do not go together`);
    }
    const kind = named[0] ?? 'page';
    checkOptions(values, kind);
    const [first, ...rest] = positionals;
    if (first === undefined && !['file', 'list', 'progress'].includes(kind)) {
        throw new UsageError(kind === 'page' ? 'no page is named; --help tells more' : `--${kind} needs a text`);
    }
    if (kind !== 'page' && rest.length > 0) {
        throw new UsageError(`"${rest[0]}" is one text too many`);
    }
    const split = (text) => text?.split(',').map((part) => part.trim());
    return {
        ...values, kind, text: first ?? '', page: first, assignments: kind === 'page' ? rest.map(readAssignment) : [],
        buttons: split(values.buttons), columns: split(values.columns), timeout: Number(values.timeout ?? 0) * 1000,
    };
}

module.exports = { UsageError, help, readArguments };
