'use strict';
// A mail program with 100,000 messages, found as one types and shown as they come into view. The messages are made up.
//
// The list asks for the rows that are seen, so it opens at once, however many there are: setSource(count, (first, count) => rows).

const { GuiWindow, html } = require('../../host/node');
const { makeMessage, summaries } = require('./messages');

const many = 100_000;

class Mail extends GuiWindow {
    constructor() {
        super('mail.html');
        this.summaries = summaries(many);
        this.setFocus('find');
        this.onFind();
    }

    /** The numbers of the messages that have all the words. */
    found() {
        const words = this.form.find.toLowerCase().split(/\s+/).filter(Boolean);
        const all = this.summaries.keys();
        if (words.length === 0) return Array.from(all);
        return Array.from(all).filter((number) => words.every((word) => this.summaries[number].includes(word)));
    }

    onFind() {
        const found = this.found();
        this.control('list').setSource(found.length, (first, count) => found.slice(first, first + count).map((number) => {
            const { from, subject, day } = makeMessage(number);
            return { value: String(number), texts: [from, subject, day], icon: 'letter.svg' };
        }));
        this.control('status').setText(`${found.length.toLocaleString('en')} of ${many.toLocaleString('en')} messages`);
    }

    onShow() {
        const [value] = this.control('list').selection;
        if (value === undefined) return;
        const { from, subject, day, lines } = makeMessage(Number(value));
        this.control('pane').setText(html`<body bgcolor="#FFFFFF" text="#222222" valign="top"><table width="100%" cellpadding="12"><tr><td>
            <h3>${subject}</h3><p><font color="#57606A">${from}, ${day}</font></p>${lines.map((line) => html`<p>${line}</p>`)}</td></tr></table></body>`);
        this.setTitle(`${subject} - Mail`);
    }

    /** Return in the field goes on to what was found. */
    onEnter() { this.setFocus('list'); }

    eMenu(session, item) {
        if (item === 'quit') this.close();
        if (item === 'search') this.setFocus('find');
    }
}

new Mail().showAsync();
