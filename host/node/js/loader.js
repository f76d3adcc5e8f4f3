'use strict';
// Finds the addon and the component library, and says what to install when something is missing.

const { existsSync } = require('node:fs');
const path = require('node:path');

/** Debian packages by the name of the shared library that the loader misses. */
const packages = [
    [/^libQt6Multimedia\.so/, 'libqt6multimedia6'],
    [/^libQt6(Core|Gui|Widgets|Network|DBus)\.so/, (name) => `libqt6${name[1].toLowerCase()}6`],
    [/^libQt6(OpenGL|Svg)\.so/, (name) => `libqt6${name[1].toLowerCase()}6`],
    [/^libicu[a-z0-9]+\.so\.(\d+)/, (name) => `libicu${name[1]}`],
    [/^libX11\.so/, 'libx11-6'],
    [/^libGL\.so/, 'libgl1'],
    [/^libEGL\.so/, 'libegl1'],
    [/^libuv\.so/, 'libuv1'],
    [/^libstdc\+\+\.so/, 'libstdc++6'],
    [/^libxcb(-[a-z0-9]+)?\.so\.(\d+)/, (name) => `libxcb${name[1] ?? ''}${name[1] ? name[2] : '1'}`],
];

function packageOf(library) {
    for (const [pattern, answer] of packages) {
        const match = pattern.exec(library);
        if (match) {
            return typeof answer === 'string' ? answer : answer(match);
        }
    }
    return undefined;
}

/** One line for a message of the dynamic loader such as "libX.so.1: cannot open shared object file: ...". */
function explain(message, what) {
    const library = /(?:^|\s|: )([^\s:/]+\.so[^\s:]*): cannot open shared object file/.exec(message)?.[1];
    if (library === undefined) {
        return `tarn: ${what} cannot be loaded: ${message}`;
    }
    const name = packageOf(library);
    const advice = name === undefined ? 'install the package that holds it' : `install it with "apt-get install ${name}"`;
    return `tarn: the library ${library} is missing, which ${what} needs; ${advice}`;
}

function orExplain(what, load) {
    try {
        return load();
    } catch (error) {
        throw new Error(explain(error.message, what), { cause: error });
    }
}

const folder = path.join(__dirname, '..', 'lib');
const addonFile = process.env.TARN_ADDON || path.join(folder, 'tarn.node');
const componentFile = process.env.TARN_LIBRARY || path.join(folder, 'libtarn.so');

function checkIsThere(file) {
    if (!existsSync(file)) {
        throw new Error(`tarn: the file ${file} is missing; "./tarn run" builds it in a clone of the repository, a package must have it`);
    }
}

function loadAddon() {
    checkIsThere(addonFile);
    return orExplain('the addon (tarn.node)', () => require(addonFile));
}

function loadComponent(native) {
    checkIsThere(componentFile);
    return orExplain('the component (libtarn.so)', () => native.load(componentFile));
}

module.exports = { loadAddon, loadComponent, explain };
