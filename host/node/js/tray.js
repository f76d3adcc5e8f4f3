'use strict';
// tarn.tray(): a picture in the desktop's tray, with a tip and a menu.

const fs = require('node:fs');
const path = require('node:path');
const { fileURLToPath } = require('node:url');
const { typeError } = require('./arguments.js');
const { callerFolder } = require('./callerfolder.js');
const { callDesktop } = require('./desktop.js');
const { describe } = require('./kinds.js');
const { checkOptions } = require('./options.js');

const isText = (value) => typeof value === 'string';
const isFunction = (value) => typeof value === 'function';
const isSwitch = (value) => typeof value === 'boolean';
const isLine = (item) => item === '-';
const itemOptions = {
    text: { accepts: isText, says: 'a string' },
    onClick: { accepts: isFunction, says: 'a function' },
    enabled: { accepts: isSwitch, says: 'true or false' },
    checked: { accepts: isSwitch, says: 'true or false' },
};
const options = {
    icon: { accepts: (value) => isText(value) || (value instanceof URL && value.protocol === 'file:'), says: 'a path or a file: URL' },
    tip: { accepts: isText, says: 'a string' },
    menu: { accepts: Array.isArray, says: 'an array of items' },
    onClick: { accepts: isFunction, says: 'a function' },
};
const signature = 'tray(options: { icon, tip, menu, onClick })';

function checkItem(item, caller, method) {
    if (isLine(item)) {
        return;
    }
    if (typeof item !== 'object' || item === null || !isText(item.text)) {
        throw typeError(`${caller}: an item of "menu" must be "-" or { text: "..." }, not ${describe(item)}`, method);
    }
    checkOptions(`${caller}: an item of "menu"`, item, itemOptions, method);
}

function check(given, caller, method) {
    const { menu = [] } = checkOptions(caller, given, options, method);
    menu.forEach((item) => checkItem(item, caller, method));
}

function fileOf(icon, folder) {
    return icon instanceof URL ? fileURLToPath(icon) : path.resolve(folder, icon);
}

function kindOf(item) {
    if (isLine(item)) {
        return 'line';
    }
    if (item.enabled === false) {
        return 'disabled';
    }
    return item.checked === undefined ? 'item' : ['unchecked', 'checked'][Number(item.checked)];
}

let latest = 0;

/** What stands in the tray. It keeps the program alive, as an open window does. */
class Tray {
    #number = ++latest;
    #shown = { tip: '', menu: [] };
    #alive = setInterval(() => {}, 2 ** 30);

    /** Only tray() makes one. */
    constructor(given, folder) {
        try {
            this.#show(given, folder, signature);
        } catch (error) {
            this.close();
            throw error;
        }
    }

    /** Changes what is named, and leaves the rest. */
    update(given) {
        check(given, 'Tray.update(options)', this.update);
        if (this.#alive !== null) {
            this.#show(given, callerFolder(), 'Tray.update(options)');
        }
    }

    close() {
        clearInterval(this.#alive);
        this.#alive = null;
        callDesktop('Tray.close()', 'removeTray', this.#number);
    }

    #show(given, folder, caller) {
        const shown = { ...this.#shown, ...given };
        if (given.icon !== undefined) {
            shown.file = fileOf(given.icon, folder);
        }
        const items = shown.menu.flatMap((item) => [kindOf(item), item.text ?? '']);
        if (!fs.existsSync(shown.file)
            || !callDesktop(caller, 'showTray', this.#number, shown.file, shown.tip, (place) => this.#hear(place), ...items)) {
            throw new Error(`tarn: ${caller}: no picture can be read from ${shown.file}`);
        }
        this.#shown = shown;
    }

    #hear(place) {
        const { menu, onClick } = this.#shown;
        return (place < 0 ? onClick : menu[place]?.onClick)?.(this);
    }
}

/** Shows a picture in the tray; null on a desktop that has none. */
function tray(given) {
    const caller = signature;
    if (given === undefined || given?.icon === undefined) {
        throw typeError(`${caller}: the option "icon" is missing`, tray);
    }
    check(given, caller, tray);
    return callDesktop(caller, 'hasTray') ? new Tray(given, callerFolder()) : null;
}

module.exports = { tray };
