'use strict';
// A spreadsheet of 100 x 100 cells with formulas such as =SUM(A1:A9) / 2, kept in a file. app.js [FILE]

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { CustomElement, GuiWindow, html, register } = require('../../host/node');
const { Cells, columns, most, nameOf } = require('./cells');

const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-spreadsheet.json');
const cells = new Cells(fs.existsSync(file) ? JSON.parse(fs.readFileSync(file, 'utf8')) : {});
const [wide, high, side] = [88, 22, 40]; // pixels: a cell, and the numbers of the rows
const steps = { Left: [-1, 0], Right: [1, 0], Up: [0, -1], Down: [0, 1], PgUp: [0, -16], PgDown: [0, 16], Home: [-most, 0], End: [most, 0] };
const within = (number, from, to) => Math.max(from, Math.min(number, to));

/** The part of the sheet that is in view. What is typed, Return and F2 go to the window: edit(text). */
class Grid extends CustomElement {
    at = [0, 0]; // column and row
    first = [0, 0]; // the cell in the upper left corner
    get sheet() { return /** @type {Spreadsheet} */ (this.window); }

    /** Makes a cell the current one and brings it into view. */
    go(column, row) {
        const room = [Math.floor((this.toolkit.rect.width - side) / wide), Math.floor(this.toolkit.rect.height / high) - 1];
        this.at = [column, row].map((place) => within(place, 0, most - 1));
        this.first = this.first.map((place, axis) => within(place, this.at[axis] - room[axis] + 1, this.at[axis]));
        this.sheet.onAt();
        this.toolkit.repaint();
    }

    eKey() {
        const { key, text, modifiers } = this.keyboard;
        if (key in steps) this.go(this.at[0] + steps[key][0], this.at[1] + steps[key][1]);
        else if (key === 'Return' || key === 'F2') this.sheet.edit();
        else if (/^[^\p{Cc}]+$/u.test(text) && !/ctrl|alt/.test(modifiers)) this.sheet.edit(text);
    }

    eMouseDown() { this.go(this.first[0] + Math.floor((this.mouse.x - side) / wide), this.first[1] + Math.floor(this.mouse.y / high) - 1); }
    eMouseWheel() { this.go(this.at[0], this.at[1] - 3 * Math.sign(this.mouse.wheel)); }

    ePaint() {
        const { toolkit, first, at } = this;
        for (let row = first[1] - 1; row < most && (row - first[1]) * high < toolkit.rect.height; ++row) {
            for (let column = first[0] - 1; column < most && (column - first[0]) * wide < toolkit.rect.width; ++column) {
                const isHead = row < first[1] || column < first[0];
                const [left, top] = [side + (column - first[0]) * wide, (row - first[1] + 1) * high];
                const value = !isHead ? cells.value(nameOf([column, row])) : row >= first[1] ? row + 1 : column >= first[0] ? columns[column] : '';
                const text = value instanceof Error ? '#ERROR' : typeof value === 'number' ? String(Number(value.toPrecision(8))) : value.replaceAll(' ', '\u00A0');
                const align = isHead && column >= first[0] ? toolkit.XCENTER : typeof value === 'number' ? toolkit.XRIGHT : toolkit.XLEFT;
                toolkit.fill(isHead ? '#EEF0F3' : column === at[0] && row === at[1] ? '#CFE2FF' : '#FFFFFF', { left, top, width: wide - 1, height: high - 1 });
                toolkit.textColor = isHead ? '#57606A' : value instanceof Error ? '#B3261E' : '#1F2328';
                toolkit.drawText(text, { left: left + 5, top: top + 3, width: wide - 10, height: high - 6 }, align);
            }
        }
    }
}

class Spreadsheet extends GuiWindow {
    name = ''; // of the current cell
    grid = this.control('grid');
    field = this.control('formula');

    ePostOpen() { this.setFocus('grid'); this.grid.go(0, 0); }

    /** Another cell is the current one: what the field has belongs to the one before. */
    onAt() {
        if (this.field.value !== cells.text(this.name)) {
            cells.set(this.name, this.field.value);
            fs.writeFileSync(file, JSON.stringify(cells.texts, null, 2));
        }
        this.name = nameOf(this.grid.at);
        this.control('name').setText(html`<b>${this.name}</b>`);
        this.field.setText(cells.text(this.name));
        this.control('status').setText(cells.value(this.name).message ?? '');
    }

    /** Goes on in the field: with all of it, or with what was typed in the grid, where more may come before the field has the keyboard. */
    edit(typed = '') {
        const text = (typed === '' || this.getFocus() === 'formula' ? this.field.value : '') + typed;
        this.setFocus('formula');
        this.field.setText(text);
        this.field.select(text.length);
    }

    /** All but "undo" take what the field has: that is what going to a cell does, be it the same one. */
    eMenu(session, item) {
        if (item === 'undo' || item === 'clear') this.field.setText(item === 'clear' ? '' : cells.text(this.name));
        this.grid.go(this.grid.at[0], this.grid.at[1] + Number(item === 'take'));
        this.setFocus('grid');
        if (item === 'quit') this.close();
    }
    onEnter() { this.eMenu(null, 'take'); }
    eClose() { this.onAt(); }
}

register('Grid', Grid);
new Spreadsheet('spreadsheet.html').showAsync();
