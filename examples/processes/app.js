'use strict';
// What runs on this machine, and how hard it works. app.js [MILLISECONDS BETWEEN TWO LOOKS]
//
// A timer reads /proc and sets all rows anew: the list keeps what is selected and where it was scrolled to, by the values of the rows.

const { GuiWindow, register } = require('../../host/node');
const { Chart } = require('./chart');
const { readMemory, readProcesses, readProcessors } = require('./proc');

register('Chart', Chart);
const columns = ['name', 'pid', 'user', 'share', 'memory'];

class Processes extends GuiWindow {
    processes = [];

    constructor() {
        super('processes.html');
        this.sorting = { column: 4, direction: 'descending' };
        this.before = { processors: readProcessors(), ticks: new Map() };
        this.setFocus('find');
        this.look();
    }

    /** What the processors have done since the last look, and what part of that was done for each process: percent. */
    look() {
        const processors = readProcessors();
        const memory = readMemory();
        const onePercent = Math.max(1, processors.all - this.before.processors.all) / 100;
        this.processes = readProcesses().map((each) => ({ ...each, share: (each.ticks - (this.before.ticks.get(each.pid) ?? each.ticks)) / onePercent }));
        const load = (processors.busy - this.before.processors.busy) / onePercent;
        this.before = { processors, ticks: new Map(this.processes.map(({ pid, ticks }) => [pid, ticks])) };
        this.control('load').add(load / 100, `${load.toFixed(0)} %`);
        this.control('memory').add(memory.used / memory.all, `${memory.used.toFixed(1)} of ${memory.all.toFixed(1)} GB`);
        this.onFind();
    }

    /** The processes that have the text, in the order that the headings say. */
    onFind() {
        const key = columns[this.sorting.column - 1];
        const sign = this.sorting.direction === 'ascending' ? 1 : -1;
        const words = this.form.find.toLowerCase();
        const found = this.processes.filter(({ name, pid, user }) => `${name} ${pid} ${user}`.toLowerCase().includes(words));
        found.sort((a, b) => sign * (typeof a[key] === 'string' ? a[key].localeCompare(b[key]) : a[key] - b[key]) || a.pid - b.pid);
        this.control('list').setRows(found.map(({ name, pid, user, share, memory }) => ({
            value: String(pid), texts: [name, pid, user, share < 0.05 ? '' : `${share.toFixed(1)} %`, memory.toFixed(1)],
        })));
        this.control('status').setText(`${found.length} of ${this.processes.length} processes`);
    }

    onEnter() { this.setFocus('list'); }

    onSort(session, column, direction) {
        this.sorting = { column: Number(column), direction };
        this.onFind();
    }

    /** The item "by3" is the third column; chosen again it is the other way round. */
    eMenu(session, item) {
        const column = Number(/^by(\d)$/.exec(item)?.[1]);
        const isAgain = column === this.sorting.column && this.sorting.direction === 'ascending';
        if (column) this.onSort(session, column, isAgain ? 'descending' : 'ascending');
        if (item === 'find') this.setFocus('find');
        if (item === 'quit') this.close();
    }
}

const processes = new Processes();
const timer = setInterval(() => processes.look(), Number(process.argv[2] ?? 1000));
processes.showAsync().then(() => clearInterval(timer));
