'use strict';
// What runs on this machine, and how hard it works. app.js [MILLISECONDS BETWEEN TWO LOOKS]
//
// A timer reads /proc and sets all rows anew: the list keeps what is selected and where it was scrolled to, by the values of the rows.

const { GuiWindow, register } = require('../../host/node');
const { Chart } = require('./chart');
const { readMemory, readProcesses, readProcessors } = require('./proc');

register('Chart', Chart);
const columns = ['name', 'pid', 'user', 'share', 'memory'];
const inMegabytes = (bytes) => (bytes / 2 ** 20).toFixed(1);
const inGigabytes = (bytes) => (bytes / 2 ** 30).toFixed(1);
const inPercent = (part) => `${(100 * part).toFixed(1)} %`;

class Processes extends GuiWindow {
    constructor() {
        super('processes.html');
        this.sorting = { column: 4, direction: 'descending' };
        this.before = { processors: readProcessors(), ticks: new Map() };
        this.setFocus('find');
        this.look();
    }

    /** What the processors have done since the last look, for each process as a part of 1 of all of them. */
    look() {
        const processors = readProcessors();
        const { all, used } = readMemory();
        const passed = Math.max(1, processors.all - this.before.processors.all);
        this.processes = readProcesses().map((each) => ({ ...each, share: (each.ticks - (this.before.ticks.get(each.pid) ?? each.ticks)) / passed }));
        const load = (processors.busy - this.before.processors.busy) / passed;
        this.before = { processors, ticks: new Map(this.processes.map(({ pid, ticks }) => [pid, ticks])) };
        this.control('load').add(load, inPercent(load));
        this.control('memory').add(used / all, `${inGigabytes(used)} of ${inGigabytes(all)} GB`);
        this.refresh();
    }

    /** The processes that have the text, in the order that the headings say. */
    refresh() {
        const key = columns[this.sorting.column - 1];
        const sign = this.sorting.direction === 'ascending' ? 1 : -1;
        const words = this.form.find.toLowerCase();
        const found = this.processes.filter(({ name, pid, user }) => `${name} ${pid} ${user}`.toLowerCase().includes(words));
        found.sort((a, b) => sign * (typeof a[key] === 'string' ? a[key].localeCompare(b[key]) : a[key] - b[key]) || a.pid - b.pid);
        this.control('list').setRows(found.map(({ name, pid, user, share, memory }) => ({
            value: String(pid), texts: [name, pid, user, share < 0.0005 ? '' : inPercent(share), inMegabytes(memory)],
        })));
        this.control('status').setText(`${found.length} of ${this.processes.length} processes`);
    }

    onFind() { this.refresh(); }

    onEnter() { this.setFocus('list'); }

    onSort(session, column, direction) {
        this.sorting = { column: Number(column), direction };
        this.refresh();
    }

    /** "by3": the third column, the other way round when it is that already. */
    eMenu(session, item) {
        const column = Number(/^by(\d)$/.exec(item)?.[1]);
        const isAscending = this.sorting.direction === 'ascending';
        if (column) this.onSort(session, column, column === this.sorting.column && isAscending ? 'descending' : 'ascending');
        if (item === 'find') this.setFocus('find');
        if (item === 'quit') this.close();
    }
}

const processes = new Processes();
const timer = setInterval(() => processes.look(), Number(process.argv[2] ?? 1000));
processes.showAsync().then(() => clearInterval(timer));
