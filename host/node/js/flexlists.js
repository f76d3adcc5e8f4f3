'use strict';
// Lists with columns as data: rows(), setRows() and the like, which the component's own methods serve with packed rows.

const { checkMethod } = require('./checked.js');
const { checkValues, readyColumns, readyRows } = require('./listrows.js');
const { packRows, packValues, unpack, unpackRows, unpackValues } = require('./packedrows.js');

/** Methods of the component that are for this file alone. */
const partNames = new Set(['setPackedRows', 'getPackedRows', 'getSelection', 'setSelection', 'getChecked', 'setChecked', 'getColumns',
    'setColumns']);

/** The component's methods by list. */
const partsOf = new WeakMap();

function call(list, name, ...args) {
    return Reflect.apply(partsOf.get(list)[name], list, args);
}

/** The texts of packed rows; none when the list is gone. */
function read(list, name, unpackAll) {
    const packed = call(list, name);
    return packed === null ? [] : unpackAll(packed);
}

function setRows(rows) {
    call(this, 'setPackedRows', packRows(readyRows('FlexListControl.setRows(rows): "rows"', rows, setRows)));
    return null;
}

function allRows() {
    return read(this, 'getPackedRows', unpackRows);
}

const columnOf = ([text, width, align, sort]) => ({
    text, width: width === '' ? null : Number(width), align: align === '' ? 'left' : align, sort: sort === '' ? null : sort,
});

/** A property whose value is read from the list and shown by it at once. */
function property(name, get, set) {
    return {
        get,
        set(value) {
            set(this, value, Object.getOwnPropertyDescriptor(this, name).set);
        },
        configurable: true,
    };
}

function values(name, getter, setter) {
    return property(name, function () {
        return read(this, getter, unpackValues);
    }, (list, wanted, method) => {
        checkValues(`FlexListControl.${name}`, wanted, method);
        call(list, setter, packValues(wanted));
    });
}

const properties = {
    setRows: { value: checkMethod('setRows', setRows), writable: true, configurable: true },
    rows: { value: checkMethod('rows', allRows), writable: true, configurable: true },
    selection: values('selection', 'getSelection', 'setSelection'),
    checked: values('checked', 'getChecked', 'setChecked'),
    columns: property('columns', function () {
        return read(this, 'getColumns', (packed) => unpack(packed, columnOf));
    }, (list, columns, method) => {
        call(list, 'setColumns', packRows(readyColumns('FlexListControl.columns', columns, method)));
    }),
};

/** The component adds a method to an object: true when it is one for this file. */
function takePart(object, name, method) {
    if (!partNames.has(name)) {
        return false;
    }
    if (!partsOf.has(object)) {
        partsOf.set(object, {});
        Object.defineProperties(object, properties);
    }
    partsOf.get(object)[name] = method;
    return true;
}

module.exports = { takePart };
