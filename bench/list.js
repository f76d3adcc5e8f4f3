'use strict';
// list.js: what a program in Node.js sees of a list with four columns: how long the calls take that fill it. What they change is
// painted within a frame behind them.
// bench/bench-list.cpp starts it; it prints lines of bench/ratioline.h.

const { performance } = require('node:perf_hooks');
const { GuiWindow } = require('../host/node');

const rounds = 5;
const window = GuiWindow.from('<html><body><object classid="listview" name="list" width="600" height="400"></object></body></html>');
const list = window.control('list');
window.open();
list.columns = [{ text: 'Name' }, { text: 'Number', align: 'right', sort: 'number' }, { text: 'Date' }, { text: 'Kind' }];

/** New texts each time: a program has just read them. */
function makeRows(first, count) {
    return Array.from({ length: count }, (_, i) => ({
        value: `v${first + i}`, texts: [`Name of row ${first + i}`, `${((first + i) * 7919) % 100003}`, '2024-05-31', `kind ${i % 13}`],
    }));
}

/** Milliseconds until the window has done the work and answers the next call. */
function timeOf(work) {
    const start = performance.now();
    work();
    list.isItemSelected('nobody');
    return performance.now() - start;
}

const median = (times) => times.sort((a, b) => a - b)[Math.floor(times.length / 2)];

function tell(name, milliseconds, limit) {
    console.log(`ratio ${name} ${(limit / milliseconds).toPrecision(3)} target 1 ours ${milliseconds.toPrecision(3)}ms peer ${limit}ms`);
}

const times = (prepare, work) => Array.from({ length: rounds }, () => {
    const prepared = prepare();
    return timeOf(() => work(prepared));
});

tell('list-node-setRows-100000', median(times(() => makeRows(0, 100000), (rows) => list.setRows(rows))), 100);
tell('list-node-setSource-10000000', median(times(() => list.clear(), () => list.setSource(1e7, makeRows))), 50);
list.setRows(makeRows(0, 100000));
tell('list-node-add-10000', timeOf(() => {
    for (let i = 0; i < 10000; ++i) {
        list.addItem(`n${i}`, `Name ${i}|2|${i}`);
    }
}), 1000);
tell('list-node-close-100000', timeOf(() => window.close()), 50);
