'use strict';
// Rows of a list packed into one text, in which they cross to the component and back in one call. docs/host-abi.md describes
// the text.

const hasParents = 1;
const hasIcons = 2;
const headUnits = 4;

/** What a row's unit of states is made of; its lowest two bits are the type. */
const bits = { checked: 4, selected: 8, disabled: 16, collapsed: 32, expanded: 64 };
const types = ['normal', 'checkbox', 'radiobutton'];
const usualType = 3;

function stateOf(row) {
    const { type, expanded } = row;
    let state = type === undefined || type === null ? usualType : typeof type === 'number' ? type : types.indexOf(type);
    state |= row.checked ? bits.checked : 0;
    state |= row.selected ? bits.selected : 0;
    state |= row.enabled === false ? bits.disabled : 0;
    state |= expanded === undefined ? 0 : expanded ? bits.expanded : bits.collapsed;
    return state;
}

const extraFields = (kinds) => (kinds & hasParents ? 1 : 0) + (kinds & hasIcons ? 1 : 0);

/** What all rows need together: how many units their texts take, the most texts of one of them, what else some have. */
function measure(rows) {
    let units = 0;
    let texts = 0;
    let kinds = 0;
    for (const row of rows) {
        const own = row.texts;
        texts = own.length > texts ? own.length : texts;
        kinds |= row.parent === undefined ? 0 : hasParents;
        kinds |= row.icon === undefined ? 0 : hasIcons;
        units += row.value.length + (row.parent?.length ?? 0) + (row.icon?.length ?? 0);
        for (let i = 0; i < own.length; ++i) {
            units += own[i].length;
        }
    }
    return { units, texts, kinds, fields: 1 + texts + extraFields(kinds) };
}

/** What follows the value of a row: its texts, and behind as many as the others have its parent and icon, if any row has one. */
function fieldsBehindValue(row, kinds, texts) {
    if (kinds === 0) {
        return row.texts;
    }
    const fields = row.texts.concat(new Array(texts - row.texts.length).fill(''));
    if (kinds & hasParents) {
        fields.push(row.parent ?? '');
    }
    if (kinds & hasIcons) {
        fields.push(row.icon ?? '');
    }
    return fields;
}

/**
 * Writes the fields of all rows and their lengths. One loop in one function: the interpreter makes machine code of it while it
 * runs, and a program usually fills a list once.
 */
function writeFields(units, rows, { kinds, texts, fields }, lengths, begin) {
    let at = begin;
    for (let i = 0; i < rows.length; ++i) {
        const behind = fieldsBehindValue(rows[i], kinds, texts);
        let lengthAt = lengths + i * fields * 2;
        let text = rows[i].value;
        for (let k = 0; ; text = behind[k++]) {
            const { length } = text;
            units[lengthAt] = length;
            units[lengthAt + 1] = length >>> 16;
            lengthAt += 2;
            for (let j = 0; j < length; ++j) {
                units[at++] = text.charCodeAt(j);
            }
            if (k === behind.length) {
                break;
            }
        }
    }
}

/** Packs rows that have a value and texts, all of them strings (js/listrows.js makes such rows of what script gives). */
function packRows(rows) {
    const size = measure(rows);
    const lengths = headUnits + rows.length;
    const texts = lengths + rows.length * size.fields * 2;
    const units = new Uint16Array(texts + size.units);
    units.set([size.kinds, size.texts, rows.length, rows.length >>> 16]);
    for (let i = 0; i < rows.length; ++i) {
        units[headUnits + i] = stateOf(rows[i]);
    }
    writeFields(units, rows, size, lengths, texts);
    return Buffer.from(units.buffer).toString('utf16le');
}

const noTexts = [];

/** Values alone. */
function packValues(values) {
    return packRows(values.map((value) => ({ value: String(value), texts: noTexts })));
}

/** Calls `make(fields, state)` for each row of a packed text, `fields` being its texts in their order; returns what it made. */
function unpack(packed, make) {
    const kinds = packed.charCodeAt(0);
    const fields = 1 + packed.charCodeAt(1) + extraFields(kinds);
    const numberAt = (at) => packed.charCodeAt(at) + packed.charCodeAt(at + 1) * 65536;
    const count = numberAt(2);
    let length = headUnits + count;
    let at = length + count * fields * 2;
    const made = [];
    for (let row = 0; row < count; ++row) {
        const own = [];
        for (let i = 0; i < fields; ++i, length += 2) {
            const end = at + numberAt(length);
            own.push(packed.slice(at, end));
            at = end;
        }
        made.push(make(own, packed.charCodeAt(headUnits + row)));
    }
    return made;
}

/** Rows as the component packs them: with parents and icons. */
function unpackRows(packed) {
    return unpack(packed, (fields, state) => {
        const [value, ...texts] = fields;
        const icon = texts.pop();
        const parent = texts.pop();
        return {
            value, texts, parent: parent === '' ? null : parent, type: types[state & 3], checked: (state & bits.checked) !== 0,
            selected: (state & bits.selected) !== 0, enabled: (state & bits.disabled) === 0, expanded: (state & bits.expanded) !== 0,
            icon: icon === '' ? null : icon,
        };
    });
}

const unpackValues = (packed) => unpack(packed, ([value]) => value);

/** Whether a row of these states is selected. */
const isSelected = (state) => (state & bits.selected) !== 0;

module.exports = { isSelected, packRows, packValues, types, unpack, unpackRows, unpackValues };
