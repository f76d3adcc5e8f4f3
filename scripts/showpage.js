'use strict';
// showpage.js PAGE.html: opens a page in a window.

const path = require('node:path');
const { GuiWindow } = require('../host/node');

new GuiWindow(path.resolve(process.argv[2])).open();
