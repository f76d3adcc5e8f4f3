'use strict';
// idle-program.js PAGE: opens the page in three windows and serves them. tests/e2e/idle-test.sh measures what
// that costs.

const { GuiWindow } = require('../../host/node');

const windows = Array.from({ length: 3 }, () => new GuiWindow(process.argv[2]));
if (!windows.every((window) => window.open())) {
    process.exit(1);
}
