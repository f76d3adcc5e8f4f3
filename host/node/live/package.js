'use strict';
// The package, for the files of live reload: it may be about to be loaded itself, and can not be asked for by its name then.

module.exports = { tarn: null };
