'use strict';
// The addon, with the component loaded into it: once for the environment, for all other files of the package.

const { loadAddon, loadComponent } = require('./loader.js');

const native = loadAddon();

module.exports = { native, classes: loadComponent(native) };
