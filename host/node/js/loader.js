'use strict';
// Finds the addon and the component library, and says what to install when something is missing.

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
        return `tarn: ${what} can not be loaded: ${message}`;
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

const addonFile = path.join(__dirname, '..', 'lib', 'tarn.node');
const componentFile = process.env.TARN_LIBRARY || path.join(__dirname, '..', 'lib', 'libtarn.so');

function loadAddon() {
    return orExplain('the addon (host/node/lib/tarn.node, made by the build)', () => require(addonFile));
}

function loadComponent(native) {
    return orExplain('the component (libtarn.so, made by the build)', () => native.load(componentFile));
}

module.exports = { loadAddon, loadComponent, explain };
