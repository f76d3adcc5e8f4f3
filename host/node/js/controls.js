'use strict';
// What JavaScript adds to the component's class GuiControl: the property `value`.

const { cannotTake, checkValue } = require('./forms.js');
const { classes } = require('./native.js');

const prototype = classes.GuiControl.prototype;
const { getValue, setValue } = prototype;
['getValue', 'setValue'].forEach((name) => delete prototype[name]); // for this package alone

Object.defineProperty(prototype, 'value', {
    get() {
        return getValue.call(this);
    },
    set(value) {
        const what = `the control "${this.name ?? ''}"`;
        checkValue(what, value);
        if (!setValue.call(this, value)) {
            throw cannotTake(what, value);
        }
    },
    configurable: true,
});
