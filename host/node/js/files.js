'use strict';
// Where the files of pages are looked for.

const path = require('node:path');
const { callerFolder } = require('./callerfolder.js');
const { native } = require('./native.js');

function mount(name, folder) {
    if (typeof name !== 'string' || !/^[^/\0]+$/.test(name) || typeof folder !== 'string') {
        throw new TypeError('tarn.mount(name, folder) needs a name without "/" and a folder');
    }
    native.mount(name, path.resolve(callerFolder(), folder));
}

/** Names that no script's folder belongs to start beside the main program; the component's own pictures have a name too. */
function mountDefaults() {
    native.setDefaultFolder(process.argv[1] ? path.dirname(path.resolve(process.argv[1])) : process.cwd());
    native.mount('GuiWindow', path.join(__dirname, '..', 'vfs', 'GuiWindow'));
}

module.exports = { mount, mountDefaults };
