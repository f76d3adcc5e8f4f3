'use strict';
// A spreadsheet of 100 x 100 cells with formulas such as =SUM(A1:A9) / 2, kept in a file. app.js [FILE]

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { GuiWindow, html, register } = require('../../host/node');
const { nameOf } = require('./cells');
const { Grid } = require('./grid');

register('Grid', Grid);
const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-spreadsheet.json');

class Spreadsheet extends GuiWindow {
    ePostOpen() {
        this.grid = this.control('grid');
        this.field = this.control('formula');
        const saved = fs.existsSync(file) ? JSON.parse(fs.readFileSync(file, 'utf8')) : {};
        for (const [name, text] of Object.entries(saved)) this.cells.set(name, text);
        this.setFocus('grid');
        this.grid.go(0, 0);
    }

    get cells() { return this.grid.cells; }
    textOf(name) { return this.cells.texts[name] ?? ''; }

    /** Another cell is the current one: what the field has belongs to the one before. */
    onAt() {
        if (this.name && this.field.value !== this.textOf(this.name)) {
            this.cells.set(this.name, this.field.value);
            fs.writeFileSync(file, JSON.stringify(this.cells.texts, null, 2));
        }
        this.name = nameOf(this.grid.at);
        this.control('name').setText(html`<b>${this.name}</b>`);
        this.field.setText(this.textOf(this.name));
        this.control('status').setText(this.cells.value(this.name).message ?? '');
    }

    /** Goes on in the field: with all of it, or with what was typed in the grid, where more may come before the field has the keyboard. */
    edit(text) {
        const before = text === undefined || this.getFocus() === 'formula' ? this.field.value : '';
        this.setFocus('formula');
        this.field.setText(before + (text ?? ''));
        this.field.select(this.field.value.length);
    }

    /** All but "undo" take what the field has: that is what going to a cell does, be it the same one. */
    eMenu(session, item) {
        if (item === 'undo' || item === 'clear') this.field.setText(item === 'clear' ? '' : this.textOf(this.name));
        this.grid.go(this.grid.at[0], this.grid.at[1] + (item === 'take'));
        this.setFocus('grid');
        if (item === 'quit') this.close();
    }
    onEnter() { this.eMenu(null, 'take'); }
    eClose() { this.onAt(); }
}

new Spreadsheet('spreadsheet.html').showAsync();
