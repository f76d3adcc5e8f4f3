'use strict';
// How the values of a page are printed for another program.

const textOf = (value) => (value === null ? '' : String(value));

/** One object in a line. */
const json = (values) => JSON.stringify(values);

/** Assignments that a POSIX shell can evaluate. What a name can not hold there is "_". */
const shell = (values) => Object.entries(values)
    .map(([name, value]) => `${name.replace(/\W/g, '_').replace(/^(?=\d)/, '_')}='${textOf(value).replaceAll("'", "'\\''")}'`).join('\n');

const cell = (text) => (/[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);

/** A line of names and one of values, RFC 4180. */
const csv = (values) => [Object.keys(values), Object.values(values).map(textOf)].map((line) => line.map(cell).join(',')).join('\r\n');

const formats = { json, shell, csv };

/** The values as text, in the format of that name. */
function format(values, name = 'json') {
    return formats[name](values);
}

module.exports = { format };
