'use strict';
// What the package's test driver has of the package, besides what every program has: it lies in files of its own, which are
// loaded by tests alone.

const { callDesktop } = require('./desktop.js');
const { dropHolds } = require('./holds.js');
const { describe } = require('./kinds.js');
const { checkOptions } = require('./options.js');
const { unpack, unpackRows, isSelected } = require('./packedrows.js');
const { meant } = require('./words.js');

/** The name of the property of the package that holds this; no program needs it. */
const insideKey = Symbol.for('tarn-gui inside');

const inside = { callDesktop, checkOptions, describe, dropHolds, isSelected, meant, unpack, unpackRows };

module.exports = { inside, insideKey };
