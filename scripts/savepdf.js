'use strict';
// savepdf.js PAGE.html OUT.pdf: puts a page on A4 paper, with its title above and the number of each sheet below.

const { GuiWindow } = require('../host/node');

const [page, file] = process.argv.slice(2);
const window = new GuiWindow(page);
const header = window.getTitle() === '' ? undefined : '{title}';
window.savePdf(file, { header, footer: '{page} / {pages}' }).catch((error) => {
    process.stderr.write(`tarn: ${error.message}\n`);
    process.exitCode = 1;
});
