'use strict';
// The package, for all other files of the inspector: in a package that is shipped its own files are one.

/** Set before any other file of this folder is read. */
const packageOfProgram = { tarn: null };

module.exports = packageOfProgram;
