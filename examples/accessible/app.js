'use strict';
// A form for everybody: by eye, by ear, by keyboard, in large type.
//
// Each field has a label, with a letter that leads to it, and a tip. What is wrong is told behind the field in words that name it, when the
// user leaves the field or sends the form; then the keyboard is in the first field that is wrong, and the title says how many there are,
// since a screen reader says the title when it changes. No colour is given, so the desktop's strong contrast holds.

const tarn = require('../../host/node');
const { html } = tarn;

const [smallest, largest] = [0.75, 2.5];

/** What is wrong with each value, null for nothing. */
const checks = {
    name: (value) => (value.trim() === '' ? 'Name: please write your name.' : null),
    mail: (value) => (/^[^@\s]+@[^@\s]+$/.test(value) ? null : `Mail: ${value === '' ? 'please write your address' : 'an address has an @ in it'}, for example ada@example.org.`),
    voice: (value) => (value === '' ? 'Voice: please choose one, or "I do not know".' : null),
    agree: (value) => (value ? null : 'Rehearsals: without them there is no concert.'),
};

class Form extends tarn.GuiWindow {
    constructor() {
        super('accessible.html');
        this.title = this.getTitle();
        this.setFocus('name');
        this.setEnterControl('send');
    }

    /** Tells behind the field what is wrong with it; whether something is. */
    judge(field) {
        const problem = checks[field](this.form[field]);
        this.control(`${field}Problem`).setText(problem === null ? '' : html`<b>${problem}</b>`);
        return problem !== null;
    }

    /** A field that is left empty on the way is not wrong yet. */
    onLeave(session, field) { if (this.form[field] !== '') this.judge(field); }

    async onSend() {
        const wrong = Object.keys(checks).filter((field) => this.judge(field));
        this.setTitle(wrong.length === 0 ? this.title : `${wrong.length} ${wrong.length === 1 ? 'mistake' : 'mistakes'} - ${this.title}`);
        if (wrong.length > 0) {
            this.setFocus(wrong[0]);
            return;
        }
        await tarn.alertAsync(`Thank you, ${this.form.name}. We sing on Tuesdays.`, { title: 'Sent', icon: 'info' });
        this.close();
    }

    eMenu(session, item) {
        const steps = { larger: 1.25, smaller: 0.8, usual: 1 / this.zoom };
        if (item === 'quit') this.close();
        else this.zoom = Math.min(largest, Math.max(smallest, Math.round(this.zoom * steps[item] * 100) / 100));
    }
}

new Form().open();
