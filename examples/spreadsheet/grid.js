'use strict';
// The part of a sheet that is in view: arrows, Page Up and the wheel go from cell to cell. What is typed, Return and
// F2 go to the window: edit(text).

const { Cells, columns, most, nameOf } = require('./cells');

const [wide, high, side] = [88, 22, 40];
const steps = { Left: [-1, 0], Right: [1, 0], Up: [0, -1], Down: [0, 1], PgUp: [0, -16], PgDown: [0, 16], Home: [-most, 0], End: [most, 0] };
const within = (number, from, to) => Math.max(from, Math.min(number, to));

class Grid {
    cells = new Cells();
    at = [0, 0]; // column and row
    first = [0, 0]; // the cell in the upper left corner

    /** Makes a cell the current one and brings it into view. */
    go(column, row) {
        const { width, height } = this.toolkit.rect;
        const room = [Math.floor((width - side) / wide), Math.floor(height / high) - 1];
        this.at = [column, row].map((place) => within(place, 0, most - 1));
        this.first = this.first.map((place, axis) => within(place, this.at[axis] - room[axis] + 1, this.at[axis]));
        this.window.onAt();
        this.toolkit.repaint();
    }

    eKey() {
        const { key, text, modifiers } = this.keyboard;
        if (key in steps) this.go(this.at[0] + steps[key][0], this.at[1] + steps[key][1]);
        else if (key === 'Return' || key === 'F2') this.window.edit();
        else if (/^[^\p{Cc}]+$/u.test(text) && !/ctrl|alt/.test(modifiers)) this.window.edit(text);
    }

    eMouseDown() { this.go(this.first[0] + Math.floor((this.mouse.x - side) / wide), this.first[1] + Math.floor(this.mouse.y / high) - 1); }
    eMouseWheel() { this.go(this.at[0], this.at[1] - 3 * Math.sign(this.mouse.wheel)); }

    ePaint() {
        const { toolkit, first, at } = this;
        for (let row = first[1] - 1; row < most && (row - first[1]) * high < toolkit.rect.height; ++row) {
            for (let column = first[0] - 1; column < most && (column - first[0]) * wide < toolkit.rect.width; ++column) {
                const isHead = row < first[1] || column < first[0];
                const [left, top] = [side + (column - first[0]) * wide, (row - first[1] + 1) * high];
                const value = !isHead ? this.cells.value(nameOf([column, row])) : row >= first[1] ? row + 1 : column >= first[0] ? columns[column] : '';
                const [text, color, align] = value instanceof Error ? ['#ERROR', '#B3261E', toolkit.XLEFT] : typeof value === 'number'
                    ? [String(Number(value.toPrecision(8))), '#1F2328', toolkit.XRIGHT] : [value.replaceAll(' ', '\u00A0'), '#1F2328', toolkit.XLEFT];
                toolkit.fill(isHead ? '#EEF0F3' : column === at[0] && row === at[1] ? '#CFE2FF' : '#FFFFFF', { left, top, width: wide - 1, height: high - 1 });
                toolkit.textColor = isHead ? '#57606A' : color;
                toolkit.drawText(text, { left: left + 5, top: top + 3, width: wide - 10, height: high - 6 }, isHead && column >= first[0] ? toolkit.XCENTER : align);
            }
        }
    }
}

module.exports = { Grid };
