'use strict';
// Clocks that draw themselves. app.js [TIME] begins at a time such as 2026-03-15T10:09:30Z instead of now.
//
// The program wakes only when something is to be seen: a timer is set for the next whole second, or minute when there is no hand for
// seconds, and for none at all while the clock stands. An interval would go wrong slowly and wake for nothing.

const { GuiWindow, html, register } = require('../../host/node');
const { Face } = require('./face');

register('Face', Face);

const places = [
    { face: 'here', zone: process.env.TZ || undefined }, // undefined is the zone of the machine
    { face: 'west', name: 'Lima', zone: 'America/Lima' },
    { face: 'east', name: 'Tokyo', zone: 'Asia/Tokyo' },
];

/** The time of day in a zone. */
function timeIn(timeZone, now) {
    const format = new Intl.DateTimeFormat('en', { timeZone, hour: 'numeric', minute: 'numeric', second: 'numeric', hourCycle: 'h23' });
    const part = (type) => Number(format.formatToParts(now).find((each) => each.type === type)?.value);
    return { hour: part('hour'), minute: part('minute'), second: part('second') };
}

const inFigures = ({ hour, minute }) => `${hour}:${String(minute).padStart(2, '0')}`;

class Clock extends GuiWindow {
    constructor(begin) {
        super('clock.html');
        this.ahead = begin - Date.now();
    }

    get hasSeconds() { return this.control('menu').isItemChecked('seconds'); }

    tick() {
        const now = new Date(Date.now() + this.ahead);
        for (const { face, name, zone } of places) {
            const time = timeIn(zone, now);
            const isNew = this.control(face).show({ ...time, second: face === 'here' && this.hasSeconds ? time.second : null });
            if (isNew && name) this.control(`${face}Name`).setText(`${name}, ${inFigures(time)}`);
            if (isNew && !name) this.say(now, time);
        }
        const step = this.hasSeconds ? 1000 : 60000;
        this.timer = setTimeout(() => this.tick(), step - now.getTime() % step + 1); // timers may be early by a millisecond
    }

    say(now, time) {
        this.setTitle(`${inFigures(time)} - Clock`);
        const day = now.toLocaleDateString('en', { weekday: 'long', day: 'numeric', month: 'long', timeZone: places[0].zone });
        this.control('date').setText(html`<b>${inFigures(time)}${this.hasSeconds && `:${String(time.second).padStart(2, '0')}`}</b>, ${day}`);
    }

    eMenu(session, item) {
        clearTimeout(this.timer);
        if (item === 'quit') this.close();
        else if (!this.control('menu').isItemChecked('stop')) this.tick();
    }
}

const clock = new Clock(process.argv[2] ? Date.parse(process.argv[2]) : Date.now());
clock.open();
clock.tick();
clock.eClose = () => clearTimeout(clock.timer); // the timer would keep the program
