'use strict';
// A table browser: the files of a folder (NAME.csv) as tables, sorted, searched, a page at a time. app.js [FOLDER]

const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow, html } = require('../../host/node');

const folder = path.resolve(process.argv[2] ?? path.join(__dirname, 'tables'));
const many = 100; // rows on a page

function readTable(name) {
    const lines = fs.readFileSync(path.join(folder, `${name}.csv`), 'utf8').split(/\r?\n/).filter(Boolean);
    const [columns, ...rows] = lines.map((line) => line.split(','));
    return { name, columns, rows };
}

/** Numbers by size, everything else by the alphabet. */
const order = new Intl.Collator('en', { numeric: true });
const byColumn = (column) => (a, b) => order.compare(a[column], b[column]);

class Browser extends GuiWindow {
    constructor() {
        super('browser.html');
        /** @type {string[][]} */
        this.found = [];
        this.page = 0;
        const names = fs.readdirSync(folder).filter((each) => each.endsWith('.csv')).map((each) => path.basename(each, '.csv'));
        names.sort().forEach((name) => this.control('table').addItem(name));
        this.form.table = names[0];
        this.table = readTable(names[0]);
        this.onTable();
    }

    onTable() {
        this.table = readTable(this.form.table);
        const options = this.table.columns.map((column, index) => html`<option value="${index}" ${index === 0 && html`selected`}>${column}`);
        this.control('sorting').setText(html`<select name="sort" onchange="event://onFirst" width="170" height="26">${options}</select>`);
        this.form.find = '';
        this.onFirst();
    }

    onFirst() {
        const { table, form } = this;
        const words = form.find.toLowerCase();
        this.found = table.rows.filter((row) => row.join('\n').toLowerCase().includes(words)).sort(byColumn(Number(this.control('sort').value)));
        this.page = 0;
        this.refresh();
    }

    onTurn(session, step) {
        this.page += Number(step);
        this.refresh();
    }

    refresh() {
        const first = this.page * many;
        const shown = this.found.slice(first, first + many);
        const cells = (row) => row.map((text, index) => `text${index + 1}="${html`${text}`}"`).join(' ');
        const params = shown.map((row) => `<param value="${html`${row[0]}`}" ${cells(row)}>`).join('');
        this.control('rows').setText(`<object classid="listview" name="list" width="100%" height="100%">${params}</object>`);
        this.table.columns.forEach((column, index) => {
            this.control('list').setColumnText(index + 1, column);
            this.control('list').setColumnWidth(index + 1, 150);
        });
        this.setTitle(`${this.table.name} - Tables`);
        const range = this.found.length > many ? `, ${first + 1} to ${first + shown.length} are shown` : '';
        this.control('status').setText(html`<font color="#57606A">${this.found.length} of ${this.table.rows.length} rows${range}</font>`);
        this.control('back').enable(first > 0);
        this.control('next').enable(first + many < this.found.length);
    }
}

new Browser().showAsync();
