'use strict';
// What the package's test driver, its inspector, live reload and the command have of the package, besides what every program has: they
// lie in files of their own, which are loaded by whoever asks for them.

const { watchCalls } = require('./calls.js');
const { callDesktop } = require('./desktop.js');
const { dropHolds } = require('./holds.js');
const { describe } = require('./kinds.js');
const { native } = require('./native.js');
const { checkOptions } = require('./options.js');
const { unpack, unpackRows, isSelected } = require('./packedrows.js');
const { watching } = require('./watching.js');
const { meant } = require('./words.js');

/** The name of the property of the package that holds this; no program needs it. */
const insideKey = Symbol.for('tarn-gui inside');

const inside = {
    callDesktop, checkOptions, describe, dropHolds, isSelected, meant, unpack, unpackRows, watchCalls, watching,
    isOpen: (window) => native.isOpen(window),
};

module.exports = { inside, insideKey };
