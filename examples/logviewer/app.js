'use strict';
// A log viewer: follows a file, newest line first, filtered as one types. app.js FILE

const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow, clipboard, html } = require('../../host/node');

const file = process.argv[2] ?? path.join(__dirname, 'example.log');
const colors = { error: '#B3261E', warn: '#9A6700', info: '#57606A' };
const most = 300; // that many lines are shown; the filters reach all of them

/** "2026-03-01 12:00:01 WARN the rest"; a line without a level belongs to "info". */
function parse(line) {
    const [, time = '', word = 'INFO', text = line] = /^(\S+ \S+) (ERROR|WARN|INFO) (.*)$/.exec(line) ?? [];
    return { line, time, level: word.toLowerCase(), text };
}

function row({ time, level, text }, index) {
    const shade = index % 2 ? '#F7F8FA' : '#FFFFFF';
    return html`<tr><td width="160" height="22" bgcolor="${shade}"><font color="#8A9099">${time}</font></td>
        <td width="64" height="22" bgcolor="${shade}"><font color="${colors[level]}"><b>${level}</b></font></td>
        <td height="22" bgcolor="${shade}">${text}</td></tr>`;
}

class LogViewer extends GuiWindow {
    constructor() {
        super('log.html');
        this.lines = [];
        this.read = 0;
        this.setTitle(path.basename(file));
        this.setFocus('find');
        this.readMore();
        this.watcher = fs.watch(file, () => this.form.follow && this.readMore());
    }

    /** Reads what was appended since the last time; a file that has become shorter is read anew. */
    readMore() {
        const { size } = fs.statSync(file);
        if (size < this.read) [this.read, this.lines] = [0, []];
        const buffer = Buffer.alloc(size - this.read);
        const handle = fs.openSync(file, 'r');
        fs.readSync(handle, buffer, 0, buffer.length, this.read);
        fs.closeSync(handle);
        const whole = buffer.lastIndexOf('\n') + 1; // the last line may still be written
        this.read += whole;
        this.lines.push(...buffer.toString('utf8', 0, whole).split('\n').filter(Boolean).map(parse));
        this.refresh();
    }

    onFilter() {
        this.refresh();
    }

    onCopy() {
        clipboard.writeText(this.found().map(({ line }) => `${line}\n`).join(''));
    }

    found() {
        const { form } = this;
        const words = form.find.toLowerCase();
        return this.lines.filter(({ level, line }) => form[level] && line.toLowerCase().includes(words));
    }

    refresh() {
        const found = this.found();
        this.control('lines').setText(html`<body valign="top"><table width="100%" cellpadding="3">${found.slice(-most).reverse().map(row)}</table></body>`);
        this.control('status').setText(html`<font color="#57606A">${found.length} of ${this.lines.length} lines</font>`);
    }
}

const viewer = new LogViewer();
viewer.showAsync().then(() => {
    viewer.watcher.close();
    console.log(`${viewer.lines.length} lines read`);
});
