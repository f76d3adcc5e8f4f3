'use strict';
// A month as a grid of days. The arrows go by days and weeks, Page Up and Page Down by months; the window hears of it by onDay().
// A day is a text such as "2026-11-23", so that days can be compared and be keys of objects.

const { CustomElement } = require('../../host/node');

const head = 26;
const names = ['Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat', 'Sun'];
const days = { Left: -1, Right: 1, Up: -7, Down: 7 };

/** So many days later. Days are counted in UTC, where each has 24 hours. */
const later = (day, count) => new Date(Date.parse(day) + count * 86400000).toISOString().slice(0, 10);

/** The same day of a month, so many months later; the last one of it where it has no such day. */
function laterMonth(day, count) {
    const [year, month, date] = day.split('-').map(Number);
    const last = new Date(Date.UTC(year, month + count, 0));
    return later(last.toISOString().slice(0, 10), Math.min(0, date - last.getUTCDate()));
}

class Month extends CustomElement {
    today = '';
    /** @type {(day: string) => string[]} */
    textsOf = () => []; // what is written on a day

    /** The Monday on which the first row begins. */
    get first() {
        const first = `${this.day.slice(0, 8)}01`;
        return later(first, -((new Date(first).getUTCDay() + 6) % 7));
    }

    go(day) {
        this.day = day;
        this.toolkit.repaint();
        /** @type {any} */ (this.window).onDay();
    }

    eKey() {
        const { key } = this.keyboard;
        if (key in days) this.go(later(this.day, days[key]));
        if (key === 'PgUp' || key === 'PgDown') this.go(laterMonth(this.day, key === 'PgUp' ? -1 : 1));
    }

    eMouseDown() {
        const { mouse: { x, y }, toolkit: { rect: { width, height } } } = this;
        if (y >= head) this.go(later(this.first, Math.floor(7 * x / width) + 7 * Math.floor(6 * (y - head) / (height - head))));
    }

    ePaint() {
        const { toolkit, first } = this;
        const xOf = (column) => Math.round(column * (toolkit.rect.width + 1) / 7);
        const yOf = (row) => Math.round(head + row * (toolkit.rect.height - head + 1) / 6);
        const write = (text, column, top, height, look) => {
            Object.assign(toolkit, { bold: false, ...look });
            toolkit.drawText(text.replaceAll(' ', '\u00A0'), { left: xOf(column) + 8, top, width: xOf(1) - 16, height });
        };
        names.forEach((name, column) => write(name, column, 4, 18, { textColor: '#6B7280', bold: true, fontSize: 8 }));
        for (let cell = 0; cell < 42; ++cell) {
            const day = later(first, cell);
            const [column, top, bottom] = [cell % 7, yOf(Math.floor(cell / 7)), yOf(Math.floor(cell / 7) + 1)];
            const isOther = day.slice(0, 7) !== this.day.slice(0, 7);
            const ground = day === this.day ? '#1F6FEB' : day === this.today ? '#DCE8FC' : isOther ? '#F4F5F7' : '#FFFFFF';
            const textColor = day === this.day ? '#FFFFFF' : isOther ? '#9AA2AE' : '#1F2328';
            toolkit.fill(ground, { left: xOf(column), top, width: xOf(column + 1) - xOf(column) - 1, height: bottom - top - 1 });
            write(String(Number(day.slice(8))), column, top + 5, 18, { textColor, bold: day === this.today, fontSize: 10 });
            this.textsOf(day).slice(0, 2).forEach((text, line) => write(text, column, top + 25 + line * 15, 12, { textColor, fontSize: 8 }));
        }
    }
}

module.exports = { Month };
