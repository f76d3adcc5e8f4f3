'use strict';
// The rows and columns that script gives to a list, checked and made ready for packing.

const { typeError } = require('./arguments.js');
const { describe, kinds } = require('./kinds.js');
const { types } = require('./packedrows.js');
const { meant } = require('./words.js');

const isText = (value) => typeof value === 'string' || typeof value === 'number';
const isAbsent = (value) => value === undefined || value === null;

const text = { accepts: isText, says: 'a string or a number' };
const optionalText = { accepts: (value) => isAbsent(value) || isText(value), says: 'a string, a number or null' };
const flag = { accepts: (value) => value === undefined || typeof value === 'boolean', says: 'true or false' };
const optionalFlag = { accepts: (value) => isAbsent(value) || typeof value === 'boolean', says: 'true, false or null' };
const color = { accepts: (value) => isAbsent(value) || (typeof value === 'string' && /^#?\w*$/.test(value)), says: 'a colour' };

/** A text that says how it looks. */
const ofCells = { text: optionalText, color, bgcolor: color, bold: optionalFlag };
const isCell = (value) => typeof value === 'object' && value !== null && !Array.isArray(value)
    && Object.keys(value).every((name) => Object.hasOwn(ofCells, name) && ofCells[name].accepts(value[name]));
const texts = {
    accepts: (value) => value === undefined || (Array.isArray(value) && value.every((each) => optionalText.accepts(each) || isCell(each))),
    says: 'an array of strings, numbers, nulls or objects { text, color, bgcolor, bold }',
};
const type = {
    accepts: (value) => isAbsent(value) || types.includes(value) || value === 0 || value === 1 || value === 2,
    says: '"normal", "checkbox" or "radiobutton"',
};

const ofRows = {
    value: optionalText, texts, parent: optionalText, type, checked: flag, selected: flag, enabled: flag, expanded: flag,
    icon: optionalText, color, bgcolor: color, bold: optionalFlag,
};

const oneOf = (...words) => ({
    accepts: (value) => isAbsent(value) || words.includes(value), says: words.map((word) => `"${word}"`).join(' or '),
});
const ofColumns = {
    text: optionalText,
    width: { accepts: (value) => isAbsent(value) || kinds.number.accepts(value), says: 'a number of pixels' },
    align: oneOf('left', 'right', 'center'),
    sort: oneOf('text', 'number', 'date', 'natural'),
    order: { accepts: (value) => isAbsent(value) || (Number.isInteger(value) && value >= 0), says: 'a whole number from 0' },
    editable: flag,
};

/** Mistaken names are looked for in so many objects: they are usually made by one piece of a program. */
const namesChecked = 100;

function unknownName(object, table) {
    const name = Object.keys(object).find((each) => !Object.hasOwn(table, each));
    return name === undefined ? undefined
        : `there is no "${name}"${meant(name, Object.keys(table)) || `; there are ${Object.keys(table).join(', ')}`}`;
}

/** What is wrong with an object, undefined when nothing is. */
function problemOf(object, table, index) {
    if (typeof object !== 'object' || object === null || Array.isArray(object)) {
        return `must be an object, not ${describe(object)}`;
    }
    for (const name in table) {
        if (!table[name].accepts(object[name])) {
            return `"${name}" must be ${table[name].says}, not ${describe(object[name])}`;
        }
    }
    return index < namesChecked ? unknownName(object, table) : undefined;
}

function checkObject(what, object, table, index, word, method) {
    const problem = problemOf(object, table, index);
    if (problem !== undefined) {
        throw typeError(`${what}, ${word} ${index}: ${problem}`, method);
    }
}

function checkArray(what, objects, method) {
    if (!Array.isArray(objects)) {
        throw typeError(`${what} must be an array, not ${describe(objects)}`, method);
    }
}

const isFlag = (value) => value === undefined || value === true || value === false;

function areStrings(values) {
    for (let i = 0; i < values.length; ++i) {
        if (typeof values[i] !== 'string') {
            return false;
        }
    }
    return true;
}

/** Whether a row can be packed as it is, which is asked of every row and so is asked quickly. */
function isReady(row) {
    return typeof row === 'object' && row !== null && typeof row.value === 'string' && Array.isArray(row.texts) && row.texts.length > 0
        && areStrings(row.texts) && (row.parent === undefined || typeof row.parent === 'string')
        && (row.icon === undefined || typeof row.icon === 'string') && (row.type === undefined || type.accepts(row.type))
        && row.color === undefined && row.bgcolor === undefined && row.bold === undefined && row.look === undefined
        && isFlag(row.checked) && isFlag(row.selected) && isFlag(row.enabled) && isFlag(row.expanded);
}

const stringOf = (value) => (isAbsent(value) ? '' : String(value));

const textOf = (cell) => stringOf(typeof cell === 'object' && cell !== null ? cell.text : cell);

const says = (look) => !isAbsent(look.color) || !isAbsent(look.bgcolor) || !isAbsent(look.bold);
const partOf = (column, { color: own, bgcolor, bold }) => `${column};${own ?? ''};${bgcolor ?? ''};${isAbsent(bold) ? '' : Number(bold)}`;

/** How the row and its texts look, as the component has it; undefined when nothing is said. */
function lookOf(row) {
    const parts = says(row) ? [partOf(0, row)] : [];
    row.texts?.forEach((cell, i) => {
        if (typeof cell === 'object' && cell !== null && says(cell)) {
            parts.push(partOf(i + 1, cell));
        }
    });
    return parts.length === 0 ? undefined : parts.join('|');
}

/** A row without a value has its first text as such, one without texts shows its value. */
function madeReady(row) {
    const value = isAbsent(row.value) ? textOf(row.texts?.[0]) : String(row.value);
    const own = row.texts === undefined || row.texts.length === 0 ? [value] : row.texts.map(textOf);
    const parent = isAbsent(row.parent) ? undefined : String(row.parent);
    return { ...row, value, texts: own, parent, icon: isAbsent(row.icon) ? undefined : String(row.icon), look: lookOf(row) };
}

/** The rows as they are packed. `what`: the method and the argument, for messages. `method`: what script has called. */
function readyRows(what, rows, method) {
    checkArray(what, rows, method);
    let ready = rows;
    for (let i = 0; i < rows.length; ++i) {
        const row = rows[i];
        const isRowReady = isReady(row);
        if (!isRowReady || i < namesChecked) {
            checkObject(what, row, ofRows, i, 'row', method);
        }
        if (!isRowReady) {
            ready = ready === rows ? [...rows] : ready;
            ready[i] = madeReady(row);
        }
    }
    return ready;
}

const ofItems = { value: optionalText, text: optionalText, selected: flag };

/** The items of a `<select>` as they are packed: texts alone are values that are shown as they are. */
function readyItems(what, items, method) {
    checkArray(what, items, method);
    return items.map((item, i) => {
        if (isText(item)) {
            return { value: String(item), texts: [String(item)] };
        }
        checkObject(what, item, ofItems, i, 'item', method);
        const value = stringOf(item.value ?? item.text);
        return { value, texts: [stringOf(item.text ?? value)], selected: item.selected };
    });
}

function readyColumns(what, columns, method) {
    checkArray(what, columns, method);
    columns.forEach((column, i) => checkObject(what, column, ofColumns, i, 'column', method));
    return columns.map(({ text: heading, width, align, sort, order, editable }) => ({
        value: stringOf(heading), texts: [stringOf(width), stringOf(align), stringOf(sort), stringOf(order), editable ? '1' : ''],
    }));
}

/** Values of rows. */
function checkValues(what, values, method) {
    if (!Array.isArray(values)) {
        throw typeError(`${what} must be an array of values, not ${describe(values)}`, method);
    }
    const wrong = values.findIndex((value) => !isText(value));
    if (wrong >= 0) {
        throw typeError(`${what}, element ${wrong}: must be ${text.says}, not ${describe(values[wrong])}`, method);
    }
}

module.exports = { checkValues, readyColumns, readyItems, readyRows };
