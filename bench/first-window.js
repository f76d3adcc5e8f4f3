'use strict';
// bench/first-window.js: the least that opens window-page.html through the Node.js host. bench-window.cpp starts it, with the
// package as it is shipped in TARN_PACKAGE.

const { GuiWindow } = require(process.env.TARN_PACKAGE ?? '../host/node');

new GuiWindow('window-page.html').open();
