'use strict';
// click.js ADDON: shows a window in the Node.js host. For each number on standard input it clicks the window's link
// that often and prints the seconds and the number of clicks that reached the handler. bench/nodeclicks.cpp starts it.

const path = require('node:path');
const readline = require('node:readline');
const tarn = require('../host/node');
const { click } = require(process.argv[2]);

let reached = 0;

class Page extends tarn.GuiWindow {
    onPing() {
        reached += 1;
    }
}

const window = new Page(path.join(__dirname, 'click-page.html'));
if (!window.open()) {
    process.exit(1);
}
const orders = readline.createInterface(process.stdin);
orders.on('line', (count) => {
    reached = 0;
    click('Click', Number(count), (seconds) => console.log(`${seconds} ${reached}`));
});
orders.on('close', () => window.close());
console.log('ready');
