'use strict';
// `<select>` as data: items(), setItems() and the selection, which the component's own methods serve with packed rows.

const { readyItems, checkValues } = require('./listrows.js');
const { packRows, packValues, unpack, unpackValues, isSelected } = require('./packedrows.js');

/** Methods of the component that are for this file alone. */
const partNames = new Set(['setPackedItems', 'getPackedItems', 'getSelectedItems', 'setSelectedItems']);

function makeProperties({ call, checkMethod, read, property }) {
    function setItems(items) {
        call(this, 'setPackedItems', packRows(readyItems('ListControl.setItems(items): "items"', items, setItems)));
        return null;
    }

    function allItems() {
        return read(this, 'getPackedItems', (packed) => unpack(packed, ([value, text], state) => ({ value, text, selected: isSelected(state) })));
    }

    return {
        setItems: { value: checkMethod('setItems', setItems), writable: true, configurable: true },
        items: { value: checkMethod('items', allItems), writable: true, configurable: true },
        selection: property('selection', function () {
            return read(this, 'getSelectedItems', unpackValues);
        }, (list, wanted, method) => {
            checkValues('ListControl.selection', wanted, method);
            call(list, 'setSelectedItems', packValues(wanted));
        }),
    };
}

module.exports = { makeProperties, partNames };
