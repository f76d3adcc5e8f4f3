'use strict';
// Lists with columns as data: rows(), setRows() and the like, which the component's own methods serve with packed rows.

const { typeError } = require('./arguments.js');
const { checkMethod } = require('./checked.js');
const { reportError } = require('./errors.js');
const { describe } = require('./kinds.js');
const { checkValues, readyColumns, readyRows } = require('./listrows.js');
const selectLists = require('./selectlists.js');
const { packRows, packValues, unpack, unpackRows, unpackValues } = require('./packedrows.js');

/** Methods of the component that are for this file alone. */
const partNames = new Set(['setPackedRows', 'getPackedRows', 'getSelection', 'setSelection', 'getChecked', 'setChecked', 'getColumns',
    'setColumns', 'setProvider', 'giveRows']);

/** A list has no more rows than that. */
const mostRows = 100000000;

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
    latestSource.delete(this);
    call(this, 'setPackedRows', packRows(readyRows('FlexListControl.setRows(rows): "rows"', rows, setRows)));
    return null;
}

function allRows() {
    return read(this, 'getPackedRows', unpackRows);
}

/** The function that answers for each list, which only the latest one does. */
const latestSource = new WeakMap();

const message = 'FlexListControl.setSource(count, source): the rows that "source" returns';

/** Shows the rows, unless the list has another source by now. */
function give(list, source, first, count, given) {
    if (latestSource.get(list) !== source) {
        return;
    }
    const ready = given === null ? null : readyRows(message, given, give);
    call(list, 'giveRows', first, ready === null ? null : packRows(ready.slice(0, count)));
}

function fail(list, source, first, count, error) {
    give(list, source, first, count, null);
    reportError(error, list, 'setSource');
}

/** What the component calls for rows: it does not wait for them. */
function providerOf(list, source) {
    const provide = async (first, count) => {
        try {
            give(list, source, first, count, await source(first, count));
        } catch (error) {
            fail(list, source, first, count, error);
        }
    };
    return (first, count) => { provide(first, count); };
}

function setSource(count, source) {
    if (!Number.isInteger(count) || count < 0 || count > mostRows) {
        throw typeError(`FlexListControl.setSource(count, source): "count" must be a whole number from 0 to ${mostRows}, not ${describe(count)}`,
            setSource);
    }
    const own = (first, wanted) => source(first, wanted);
    latestSource.set(this, own);
    call(this, 'setProvider', count, providerOf(this, own));
    return null;
}

const columnOf = ([text, width, align, sort, order, editable]) => ({
    text, width: width === '' ? null : Number(width), align: align === '' ? 'left' : align, sort: sort === '' ? null : sort,
    order: Number(order), editable: editable === '1',
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
    setSource: { value: checkMethod('setSource', setSource), writable: true, configurable: true },
    rows: { value: checkMethod('rows', allRows), writable: true, configurable: true },
    selection: values('selection', 'getSelection', 'setSelection'),
    checked: values('checked', 'getChecked', 'setChecked'),
    columns: property('columns', function () {
        return read(this, 'getColumns', (packed) => unpack(packed, columnOf));
    }, (list, columns, method) => {
        call(list, 'setColumns', packRows(readyColumns('FlexListControl.columns', columns, method)));
    }),
};

const ofSelect = selectLists.makeProperties({ call, checkMethod, read, property });

/** The component adds a method to an object: true when it is one for this file, or for that of the other lists. */
function takePart(object, name, method) {
    const isFlex = partNames.has(name);
    if (!isFlex && !selectLists.partNames.has(name)) {
        return false;
    }
    if (!partsOf.has(object)) {
        partsOf.set(object, {});
        Object.defineProperties(object, isFlex ? properties : ofSelect);
    }
    partsOf.get(object)[name] = method;
    return true;
}

module.exports = { takePart };
