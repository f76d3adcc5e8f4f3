'use strict';
// A calendar with appointments, kept in a file. app.js [FILE [TODAY]]

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { GuiWindow, register } = require('../../host/node');
const { Month } = require('./month');

register('Month', Month);
const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-calendar.json');
const now = new Date();
const today = process.argv[3] ?? new Date(now.getTime() - now.getTimezoneOffset() * 60000).toISOString().slice(0, 10);
const inWords = (day, options) => new Intl.DateTimeFormat('en', { timeZone: 'UTC', ...options }).format(new Date(day));

class Calendar extends GuiWindow {
    constructor() {
        super('calendar.html');
        this.appointments = fs.existsSync(file) ? JSON.parse(fs.readFileSync(file, 'utf8')) : {}; // by days: lists of { time, text }
        this.month = Object.assign(this.control('month'), { today, textsOf: (day) => (this.appointments[day] ?? []).map(({ text }) => text) });
        this.month.go(today);
        this.setFocus('month');
        this.setEnterControl('add');
    }

    onDay() {
        this.setTitle(inWords(this.month.day, { month: 'long', year: 'numeric' }));
        this.control('day').setText(`<h3>${inWords(this.month.day, { weekday: 'long', day: 'numeric', month: 'long' })}</h3>`);
        this.control('list').setRows((this.appointments[this.month.day] ?? []).map(({ time, text }, index) => ({ value: String(index), texts: [time, text] })));
    }

    onAdd() {
        const { time, text } = this.form;
        if (time && text.trim()) {
            this.change([...this.appointments[this.month.day] ?? [], { time, text: text.trim() }]);
            this.form.text = '';
        }
        this.setFocus(!time ? 'time' : text.trim() ? 'month' : 'text');
    }

    /** The time or the text was changed in its place. */
    onRename({ event }) {
        const list = structuredClone(this.appointments[this.month.day]);
        if (event.column === 1 && !/^([01]\d|2[0-3]):[0-5]\d$/.test(event.text)) return false;
        list[event.row][event.column === 1 ? 'time' : 'text'] = event.text;
        this.change(list);
        return true;
    }

    change(list) {
        this.appointments[this.month.day] = list.sort((a, b) => a.time.localeCompare(b.time));
        if (list.length === 0) delete this.appointments[this.month.day];
        fs.writeFileSync(file, JSON.stringify(this.appointments, null, 2));
        this.month.go(this.month.day);
    }

    eMenu(session, item) {
        const [chosen] = this.control('list').selection;
        if (item === 'new') this.setFocus('text');
        if (item === 'today') this.month.go(today);
        if (item === 'month') this.setFocus('month');
        if (item === 'remove' && chosen !== undefined) this.change(this.appointments[this.month.day].filter((each, index) => index !== Number(chosen)));
        if (item === 'quit') this.close();
    }
}

new Calendar().showAsync();
