'use strict';
// A program that somebody else starts anew whenever one of its scripts is saved (shell/watch.js): tells which scripts these
// are, and where its windows stand.

const fs = require('node:fs');
const Module = require('node:module');
const net = require('node:net');
const path = require('node:path');
const { tarn } = require('./package.js');
const { ask, begin } = require('./watch.js');

const { watching } = tarn[Symbol.for('tarn-gui inside')];
const packageFolder = path.join(__dirname, '..') + path.sep;

const isOwn = (file) => path.isAbsolute(file) && !file.includes(`${path.sep}node_modules${path.sep}`) && !file.startsWith(packageFolder);

/** `link`: the pipe to the one who starts this program. Once it has ended, its descriptor may be a file of the program. */
function tell(link, descriptor, message) {
    if (link.destroyed) {
        return;
    }
    try {
        fs.writeSync(descriptor, `${JSON.stringify(message)}\n`);
    } catch {
        // The other end has just gone; the program goes on alone.
    }
}

/** Tells of the scripts that were loaded by require(), now and later. */
function tellScripts(tellThem) {
    const { load } = Module.prototype;
    Module.prototype.load = function (file) {
        if (isOwn(file)) {
            tellThem([file]);
        }
        return Reflect.apply(load, this, [file]);
    };
    tellThem(Object.keys(require.cache).filter(isOwn));
}

/** `descriptor`: of the pipe to the one who starts this program; `places`: of its windows when it ran before, as JSON. */
function follow(descriptor, places) {
    begin();
    const start = watching.begin;
    watching.begin = () => {
        start();
        ask({ do: 'expect', places: JSON.parse(places ?? '[]') });
    };
    const link = new net.Socket({ fd: descriptor, readable: true, writable: true });
    tellScripts((scripts) => tell(link, descriptor, { scripts }));
    link.on('data', async () => tell(link, descriptor, watching.begin === null ? await ask({ do: 'places' }) : { places: [] }));
    link.on('error', () => {});
    link.unref();
}

module.exports = { follow };
