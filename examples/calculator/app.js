'use strict';
// A calculator: a line to type into, what it comes to while one types, and a tape of what was worked out. app.js [LINE...]
//
// The keyboard stays in the line: a button types what it shows and gives the keyboard back. Return and Escape are the buttons = and C.

const { GuiWindow, clipboard, html } = require('../../host/node');
const { evaluate } = require('./evaluate');

const keys = ['C()%⌫', '789÷√', '456×^', '123−π', '0.e+='].map((row) => [...row]);
const named = { C: 'onClear', '⌫': 'onBack', '=': 'onEquals' };
const typed = { '÷': '/', '×': '*', '−': '-', '√': 'sqrt ', 'π': 'pi' };
const button = (key) => html`<td width="20%"><input type="button" value="${key}" name="${named[key] ?? key}" width="100%" height="40"
    onclick="event://${named[key] ?? `onKey/${encodeURIComponent(typed[key] ?? key)}`}"></td>`;

/** Twelve digits are enough, and hide that 0.1 + 0.2 is not quite 0.3. */
const inDigits = (value) => String(Number(value.toPrecision(12)));

class Calculator extends GuiWindow {
    constructor(lines) {
        super('calculator.html');
        this.control('keys').setText(html`<table width="100%" gap="6">${keys.map((row) => html`<tr>${row.map(button)}</tr>`)}</table>`);
        this.setEnterControl('onEquals');
        this.setEscapeControl('onClear');
        this.tape = [];
        lines.forEach((line) => { this.put(line); this.onEquals(); });
        this.onLine();
    }

    /** What the line comes to, or why it comes to nothing. */
    get outcome() {
        try {
            const value = evaluate(this.form.line);
            return Number.isNaN(value) ? { problem: 'there is no such number' } : { value };
        } catch (error) {
            return { problem: /** @type {Error} */ (error).message };
        }
    }

    /** After each change. An unfinished line is no mistake yet: the last value stays, in gray. */
    onLine() {
        const { value } = this.outcome;
        this.last = value ?? this.last ?? 0;
        this.control('result').setText(html`<font color="${value === undefined ? '#9AA0A6' : '#1F2328'}" size="6">${inDigits(this.last)}</font>`);
    }

    put(line) {
        this.form.line = line;
        this.setFocus('line');
        this.onLine();
    }

    onKey(session, text) { this.put(this.form.line + text); }
    onBack() { this.put(this.form.line.slice(0, -1)); }
    onClear() { this.last = 0; this.put(''); }

    onEquals() {
        const { line } = this.form;
        const { value, problem } = this.outcome;
        if (value === undefined) {
            this.control('result').setText(html`<font color="#B3261E">${problem}</font>`);
            return;
        }
        this.tape.unshift({ line, result: inDigits(value) });
        this.control('tape').setRows(this.tape.map((each, index) => ({ value: String(index), texts: [each.line, each.result] })));
        this.put(inDigits(value));
    }

    /** Return or a double click on the tape takes the line up again. */
    onTape({ event }) { this.put(this.tape[event.row].line); }

    eMenu(session, item) {
        if (item === 'copy') clipboard.writeText(inDigits(this.last));
        if (item === 'line' || item === 'tape') this.setFocus(item);
        if (item === 'quit') this.close();
    }
}

new Calculator(process.argv.slice(2)).showAsync();
