'use strict';
// The handbook of tarn, as a program that tarn shows: a contents column, a page beside it, and a count of
// the pages that were read.
//
// Every link is event://onOpenPage/<page>. The window's frame (frame.html) is one template; the page named in it is
// loaded by its cell, and the script fills in what only the script knows.

const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow } = require('../../host/node');

const chapters = [
    ['welcome.html', 'Welcome'],
    ['pages.html', 'Writing pages'],
    ['text.html', 'Text and colour'],
    ['tables.html', 'Tables and space'],
    ['events.html', 'Handling events'],
    ['windows.html', 'Windows'],
    ['threads.html', 'Two threads'],
];

const frame = fs.readFileSync(path.join(__dirname, 'frame.html'), 'utf8');

class Handbook extends GuiWindow {
    constructor() {
        super('start.html');
        this.read = new Set();
        this.onOpenPage(null, chapters[0][0]);
    }

    onOpenPage(session, page) {
        this.read.add(page);
        this.setText(this.compose(page));
    }

    onQuit() {
        this.setReturnValue(this.read.size);
        this.close();
    }

    compose(page) {
        const values = { page, contents: contents(page), next: next(page), read: this.progress() };
        return frame.replace(/\$(\w+)/g, (whole, name) => values[name] ?? whole);
    }

    progress() {
        return `${this.read.size} of ${chapters.length} pages read`;
    }
}

/** The contents column: a link for every chapter, the open one in bold. */
function contents(open) {
    return chapters.map(([page, title]) => (page === open ? here(title) : link(page, title))).join('\n');
}

function here(title) {
    return `<tr><td width="14" height="32" bgcolor="#FFFFFF"></td>
        <td height="32" valign="center" bgcolor="#FFFFFF"><b>${title}</b></td></tr>`;
}

function link(page, title) {
    return `<tr><td width="14" height="32"></td>
        <td height="32" valign="center"><a href="event://onOpenPage/${page}">${title}</a></td></tr>`;
}

/** What stands at the right of the footer. */
function next(open) {
    const chapter = chapters[chapters.findIndex(([page]) => page === open) + 1];
    return chapter ? `Next: <a href="event://onOpenPage/${chapter[0]}">${chapter[1]}</a>` : 'This was the last page.';
}

const count = new Handbook().show();
if (count !== null) {
    console.log(`Goodbye after ${count} pages.`);
}
