'use strict';
// Something that changes by itself: a timer, which stops when the window closes.
const { GuiWindow, html } = require('tarn-gui');

class Clock extends GuiWindow {
    tick() {
        const time = new Date().toTimeString().slice(0, 8);
        this.control('time').setText(html`<font size="6">${time}</font>`);
        this.setTitle(time);
    }
}

const clock = Clock.from(html`<title>Clock</title><body width="240" height="90" valign="top" cellpadding="10"><table><tr><td name="time" height="50"></td></tr></table>`);
clock.tick();
const timer = setInterval(() => clock.tick(), 1000);
clock.showAsync().then(() => clearInterval(timer));
