'use strict';
// The options of a function, `{ title: 'Save', filters: [...] }`, checked by a table of their kinds.

const { typeError } = require('./arguments.js');
const { describe, kinds } = require('./kinds.js');
const { meant } = require('./words.js');

function unknownOption(caller, name, table) {
    const known = Object.keys(table);
    return `${caller}: there is no option "${name}"${meant(name, known) || `; there are ${known.join(', ')}`}`;
}

function checkOption(caller, name, value, kind, method) {
    if (kind === undefined || value === undefined) {
        return;
    }
    const { accepts, says } = typeof kind === 'string' ? kinds[kind] : kind;
    if (!accepts(value)) {
        throw typeError(`${caller}: the option "${name}" must be ${says}, not ${describe(value)}`, method);
    }
}

/** `table`: the kind of each option, by name. `method`: what script has called. Without options they are empty. */
function checkOptions(caller, options, table, method) {
    if (options === undefined) {
        return {};
    }
    if (typeof options !== 'object' || options === null || Array.isArray(options)) {
        throw typeError(`${caller}: "options" must be an object, not ${describe(options)}`, method);
    }
    for (const [name, value] of Object.entries(options)) {
        if (!Object.hasOwn(table, name)) {
            throw typeError(unknownOption(caller, name, table), method);
        }
        checkOption(caller, name, value, table[name], method);
    }
    return options;
}

module.exports = { checkOptions };
