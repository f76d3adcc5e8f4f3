'use strict';
// What the command tarn-gui can be asked for: its arguments, as one object.

const { parseArgs } = require('node:util');
const { readCreate } = require('./create.js');
const { UsageError } = require('./errors.js');
const { readWatch } = require('./watch.js');

const help = `usage: tarn-gui [OPTION...] PAGE.html [NAME=VALUE...]   a page, its controls filled with these values
       tarn-gui --text TEXT [--buttons YES,NO]           a message; prints the name of the button
       tarn-gui --entry TEXT [--value TEXT] [--password] a field; prints what was typed
       tarn-gui --text-info [FILE] [--edit]              a text, from a file or standard input; --edit prints what was made of it
       tarn-gui --calendar [TEXT] [--value 2026-12-24]   a day; prints it in that form
       tarn-gui --scale [TEXT] [--min 0] [--max 100] [--step 1] [--value N]  a number by a slider; prints it
       tarn-gui --color [--value "#6495ED"]              a color; prints it in that form
       tarn-gui --notify TEXT                            a notification of the desktop; waits for nothing
       tarn-gui --file [--save | --folder] [--multiple] [--filter 'Texts (*.txt *.md)']  a file; prints its path, or one in each line
       tarn-gui --list [TEXT] [--columns A,B] [--multiple]  rows from standard input, cells between tabs; prints those chosen
       tarn-gui --progress [TEXT] [--close]              percentages from standard input, "# TEXT" changes the text
       tarn-gui create NAME [--typescript]               makes a folder with a program: a page, a script, a test
       tarn-gui watch APP.js [ARGUMENT...]               runs a program; what is saved of it is shown at once

  --title TITLE      of the window
  --icon ICON        of a message or notification: info, warning, error or question
  --format FORMAT    of a page's values: json (when absent), shell or csv
  --timeout SECONDS  closes the window after that time
  --help, --version

A button or link of a page ends it: onclick="event://ok" with exit code 0, "event://cancel" with 1, "event://exit/3" with 3; its
values are printed then. Exit codes: 0 the first button; 1 another button, or closed by the user; 2 wrong arguments, or nothing that
can show it; 5 timeout.
`;

const kinds = ['text', 'entry', 'text-info', 'calendar', 'scale', 'color', 'notify', 'file', 'list', 'progress'];
/** The kinds that can be asked for without a text. */
const needNoText = ['text-info', 'calendar', 'scale', 'color', 'file', 'list', 'progress'];

const switches = [...kinds, 'password', 'edit', 'save', 'folder', 'multiple', 'close', 'help', 'version'];
const texts = ['buttons', 'value', 'min', 'max', 'step', 'columns', 'filter', 'title', 'icon', 'format', 'timeout'];
const optionsOf = (names, type) => Object.fromEntries(names.map((name) => [name, { type }]));
const options = { ...optionsOf(switches, 'boolean'), ...optionsOf(texts, 'string') };

/** The kinds that an option belongs to; the others belong to all. */
const owners = {
    buttons: ['text'], icon: ['text', 'notify'], value: ['entry', 'calendar', 'scale', 'color', 'file'], min: ['scale'], max: ['scale'],
    step: ['scale'], edit: ['text-info'], password: ['entry'], columns: ['list'], save: ['file'], folder: ['file'], filter: ['file'],
    multiple: ['file', 'list'], close: ['progress'], format: ['page'],
};
const choices = { icon: ['info', 'warning', 'error', 'question'], format: ['json', 'shell', 'csv'] };

const isNumber = (text) => text.trim() !== '' && Number.isFinite(Number(text));
const isDay = (text) => /^\d{4}-\d\d-\d\d$/.test(text) && new Date(`${text}T00:00Z`).toJSON()?.startsWith(text) === true;
const number = { accepts: isNumber, says: 'a number' };
/** What --value may be, by kind, and other options. */
const values = {
    calendar: { accepts: isDay, says: 'a day such as 2026-12-24' },
    scale: number,
    color: { accepts: (text) => /^(#[0-9a-f]{3}|#[0-9a-f]{6}|[a-z]+)$/i.test(text), says: 'a color such as "#6495ED"' },
};
const forms = {
    min: number,
    max: number,
    step: { accepts: (text) => isNumber(text) && Number(text) > 0, says: 'a number above 0' },
    timeout: { accepts: (text) => Number(text) > 0, says: 'a number of seconds' },
    filter: { accepts: (text) => filterOf(text) !== null, says: 'a name and patterns such as "Texts (*.txt *.md)"' },
};

/** { name, patterns } of "Texts (*.txt *.md)"; null for what is nothing like that. */
function filterOf(text) {
    const [, name, patterns] = /^\s*([^()]*[^()\s])\s*\(\s*([^()]*[^()\s])\s*\)\s*$/.exec(text) ?? [];
    return name === undefined ? null : { name, patterns: patterns.split(/\s+/) };
}

function parse(args) {
    try {
        return parseArgs({ args, options, allowPositionals: true });
    } catch (error) {
        throw new UsageError(error.message.split('. To specify')[0]);
    }
}

function checkOptions(given, kind) {
    for (const [name, value] of Object.entries(given)) {
        if (owners[name] && !owners[name].includes(kind)) {
            throw new UsageError(`--${name} is not for ${kind === 'page' ? 'a page' : `--${kind}`}`);
        }
        if (choices[name] && !choices[name].includes(value)) {
            throw new UsageError(`--${name} must be ${choices[name].join(', ')}, not "${value}"`);
        }
        const form = name === 'value' ? values[kind] : forms[name];
        if (form !== undefined && !form.accepts(value)) {
            throw new UsageError(`--${name} must be ${form.says}, not "${value}"`);
        }
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
 * The arguments of a call: { kind, text, page, assignments, buttons, columns, filters, timeout (milliseconds) and the other options by their
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
    const { values: given, positionals } = parse(args);
    const asked = ['help', 'version'].find((name) => given[name]);
    if (asked) {
        return { kind: asked };
    }
    const named = kinds.filter((kind) => given[kind]);
    if (named.length > 1) {
        throw new UsageError(`--${named[0]} and --${named[1]} do not go together`);
    }
    const kind = named[0] ?? 'page';
    checkOptions(given, kind);
    const [first, ...rest] = positionals;
    if (first === undefined && !needNoText.includes(kind)) {
        throw new UsageError(kind === 'page' ? 'no page is named; --help tells more' : `--${kind} needs a text`);
    }
    if (given.folder && given.filter) {
        throw new UsageError('--folder and --filter do not go together');
    }
    if (kind !== 'page' && rest.length > 0) {
        throw new UsageError(`"${rest[0]}" is one text too many`);
    }
    const split = (text) => text?.split(',').map((part) => part.trim());
    return {
        ...given, kind, text: first ?? '', page: first, assignments: kind === 'page' ? rest.map(readAssignment) : [],
        buttons: split(given.buttons), columns: split(given.columns),
        filters: given.filter && [filterOf(given.filter)], timeout: Number(given.timeout ?? 0) * 1000,
    };
}

module.exports = { UsageError, help, readArguments };
