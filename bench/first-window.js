'use strict';
// bench/first-window.js: the least that opens window-page.html through the Node.js host. bench-window.cpp starts it.

const { GuiWindow } = require('../host/node');

new GuiWindow('window-page.html').open();
