'use strict';
// Prints addresses on sheets of labels. app.js [FILE.json]
//
// A sheet is a page of its own that is never shown: a table whose cells have the size of a label, on paper without margins. A page is
// laid out for paper with 96 pixels to an inch, so millimetres can be met. Rows are not divided between sheets.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const tarn = require('../../host/node');
const { GuiWindow, html } = tarn;

const pixels = (millimetres) => Math.floor(millimetres * 96 / 25.4);
const paper = { width: 210, height: 297 };

/** The sheets as a page. `first`: the first label that is free on the first sheet, from 1, for sheets of which some are used up. */
function sheetsOf(addresses, { columns, rows }, first) {
    const labels = [...Array(first - 1).fill([]), ...addresses];
    const [width, height] = [pixels(paper.width / columns), pixels(paper.height / rows)];
    const cell = (lines) => html`<td width="${width}" height="${height}" cellpadding="18" valign="center" scrolling="fixed">${lines.map((line) => html`${line}<br>`)}</td>`;
    const lines = Array.from({ length: Math.ceil(labels.length / columns) }, (_, row) => labels.slice(row * columns, (row + 1) * columns));
    return GuiWindow.from(html`<title>Labels</title><body valign="top"><table>${lines.map((row) => html`<tr>${row.map(cell)}</tr>`)}</table></body>`);
}

class Labels extends GuiWindow {
    constructor(file) {
        super('labels.html');
        this.file = file;
        this.addresses = JSON.parse(fs.readFileSync(fs.existsSync(file) ? file : path.join(__dirname, 'addresses.json'), 'utf8'));
        this.setEnterControl('add');
        this.setFocus('name');
    }

    /** Not earlier: a drop-down list has a value once it is shown. */
    ePostOpen() { this.refresh(); }

    get sheet() {
        const [columns, rows] = this.form.sheet.split('x').map(Number);
        return { columns, rows };
    }

    /** The first label that is free, from 1. */
    get first() { return Math.min(this.form.first ?? 1, this.sheet.columns * this.sheet.rows); }

    refresh() {
        this.control('list').setRows(this.addresses.map((texts, index) => ({ value: String(index), texts })));
        this.onChange();
    }

    onChange() {
        const { columns, rows } = this.sheet;
        const sheets = Math.ceil((this.addresses.length + this.first - 1) / (columns * rows));
        this.control('status').setText(`${this.addresses.length} addresses on ${sheets} ${sheets === 1 ? 'sheet' : 'sheets'}`);
        this.control('menu').enableItem('remove', this.control('list').selection.length > 0);
    }

    onAdd() {
        this.addresses.push([this.form.name, this.form.street, this.form.town]);
        Object.assign(this.form, { name: '', street: '', town: '' });
        this.setFocus('name');
        this.change();
    }

    /** A text that was changed in the list; an empty one is not taken. */
    onRename({ event }) {
        if (event.text.trim() === '') return false;
        this.addresses[event.row][event.column - 1] = event.text;
        this.change();
        return true;
    }

    /** What was changed is kept. */
    change() {
        fs.writeFileSync(this.file, JSON.stringify(this.addresses, null, 2));
        this.refresh();
    }

    get sheets() { return sheetsOf(this.addresses, this.sheet, this.first); }

    actions = {
        pdf: async () => {
            const file = await tarn.saveFileAsync({ title: 'Save as PDF', name: 'labels.pdf', filters: [{ name: 'PDF', patterns: ['*.pdf'] }] });
            if (file === null) return;
            await this.sheets.savePdf(file, { margins: 0 });
            this.control('status').setText(`Saved as ${path.basename(file)}`);
        },
        print: async () => {
            if (await this.sheets.print()) this.control('status').setText('Printed');
        },
        remove: () => {
            this.addresses = this.addresses.filter((_, index) => !this.control('list').isItemSelected(String(index)));
            this.change();
        },
        quit: () => this.close(),
    };

    async eMenu(session, item) {
        try {
            await this.actions[item]();
        } catch (error) { // the file can not be written, there is no printer
            tarn.alertAsync(String(error), { title: 'Labels', icon: 'error' });
        }
    }
}

new Labels(process.argv[2] ?? path.join(os.tmpdir(), 'tarn-labels.json')).showAsync();
