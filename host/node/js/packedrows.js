'use strict';
// Rows of a list packed into one text, in which they cross to the component and back in one call. docs/host-abi.md describes
// the text.

const hasParents = 1;
const hasIcons = 2;
const hasLooks = 4;
const headUnits = 4;

/** A length that is not smaller than that follows it, in two units. */
const longLength = 0xFFFF;

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

const extraFields = (kinds) => (kinds & hasParents ? 1 : 0) + (kinds & hasIcons ? 1 : 0) + (kinds & hasLooks ? 1 : 0);

/** How many units the length of a text takes besides the first. */
const moreOfLength = (length) => (length < longLength ? 0 : 2);

/**
 * What all rows need together: how many units their texts take and how many the lengths of long ones take in addition, the most
 * texts of one of them, what else some have.
 */
function measure(rows) {
    let units = 0;
    let longs = 0;
    let texts = 0;
    let kinds = 0;
    const add = (length) => {
        units += length;
        longs += moreOfLength(length);
    };
    for (const { value, texts: own, parent, icon, look } of rows) {
        texts = own.length > texts ? own.length : texts;
        kinds |= (parent === undefined ? 0 : hasParents) | (icon === undefined ? 0 : hasIcons) | (look === undefined ? 0 : hasLooks);
        add(value.length);
        add(parent?.length ?? 0);
        add(icon?.length ?? 0);
        add(look?.length ?? 0);
        for (let i = 0; i < own.length; ++i) {
            add(own[i].length);
        }
    }
    return { units, longs, texts, kinds, fields: 1 + texts + extraFields(kinds) };
}

/** What follows the value of a row: its texts, and behind as many as the others have what else any row has. */
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
    if (kinds & hasLooks) {
        fields.push(row.look ?? '');
    }
    return fields;
}

/**
 * Writes the fields of all rows and their lengths. One loop in one function: the interpreter makes machine code of it while it
 * runs, and a program usually fills a list once. A row that has fewer texts than others ends with lengths that stay 0.
 */
function writeFields(units, rows, { kinds, texts, fields }, lengths, begin) {
    let lengthAt = lengths;
    let at = begin;
    for (let i = 0; i < rows.length; ++i) {
        const behind = fieldsBehindValue(rows[i], kinds, texts);
        let text = rows[i].value;
        for (let k = 0; ; text = behind[k++]) {
            const { length } = text;
            units[lengthAt++] = length < longLength ? length : longLength;
            if (length >= longLength) {
                units[lengthAt++] = length;
                units[lengthAt++] = length >>> 16;
            }
            for (let j = 0; j < length; ++j) {
                units[at++] = text.charCodeAt(j);
            }
            if (k === behind.length) {
                break;
            }
        }
        lengthAt += fields - 1 - behind.length;
    }
}

/**
 * Packs rows that have a value and texts, all of them strings (js/listrows.js makes such rows of what script gives). The units
 * cross to the component as they are.
 */
function packRows(rows) {
    const size = measure(rows);
    const lengths = headUnits + rows.length;
    const texts = lengths + rows.length * size.fields + size.longs;
    const units = new Uint16Array(texts + size.units);
    units.set([size.kinds, size.texts, rows.length, rows.length >>> 16]);
    for (let i = 0; i < rows.length; ++i) {
        units[headUnits + i] = stateOf(rows[i]);
    }
    writeFields(units, rows, size, lengths, texts);
    return units;
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
    let lengthAt = headUnits + count;
    const nextLength = () => {
        const length = packed.charCodeAt(lengthAt++);
        if (length !== longLength) {
            return length;
        }
        lengthAt += 2;
        return numberAt(lengthAt - 2);
    };
    const lengths = Array.from({ length: count * fields }, nextLength);
    let at = lengthAt;
    const made = [];
    for (let row = 0; row < count; ++row) {
        const own = lengths.slice(row * fields, (row + 1) * fields).map((length) => packed.slice(at, at += length));
        made.push(make(own, packed.charCodeAt(headUnits + row)));
    }
    return made;
}

const colorOf = (text) => (text === '' ? null : text);

/** What a part of a row's look says about the row, or about the text that it has in a column. */
function applyLook(row, part) {
    const [column, color, bgcolor, bold] = part.split(';');
    if (column === '0') {
        Object.assign(row, { color: colorOf(color), bgcolor: colorOf(bgcolor), bold: bold === '1' });
    } else {
        row.texts[column - 1] = {
            text: row.texts[column - 1], color: colorOf(color), bgcolor: colorOf(bgcolor), bold: bold === '' ? null : bold === '1',
        };
    }
}

/** Rows as the component packs them: with parents, icons and looks. */
function unpackRows(packed) {
    return unpack(packed, (fields, state) => {
        const [value, ...texts] = fields;
        const [parent, icon, look] = texts.splice(-3);
        const row = {
            value, texts, parent: parent === '' ? null : parent, type: types[state & 3], checked: (state & bits.checked) !== 0,
            selected: (state & bits.selected) !== 0, enabled: (state & bits.disabled) === 0, expanded: (state & bits.expanded) !== 0,
            icon: icon === '' ? null : icon, color: null, bgcolor: null, bold: false,
        };
        look.split('|').filter((part) => part !== '').forEach((part) => applyLook(row, part));
        return row;
    });
}

const unpackValues = (packed) => unpack(packed, ([value]) => value);

/** Whether a row of these states is selected. */
const isSelected = (state) => (state & bits.selected) !== 0;

module.exports = { isSelected, packRows, packValues, types, unpack, unpackRows, unpackValues };
