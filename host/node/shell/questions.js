'use strict';
// Windows that ask for one thing by a control of the page language: a day, a number by a slider, a text of several lines.

const fs = require('node:fs');
const { UsageError } = require('./errors.js');

/** The window's page: the text, the control that is asked by, two buttons. `size` is the attributes of the body. */
function pageOf({ html }, { text, title }, { name, size, field }) {
    return html`<head><title>${title ?? name}</title></head><body ${size}>
<frameset rows="*,52"><td cellpadding="10"><table width="100%" height="100%" cellspacing="0">
${text === '' ? '' : html`<tr><td height="30" valign="top">${text}</td></tr>`}
<tr><td valign="top">${field}</td></tr></table></td>
<td cellpadding="10"><table width="100%"><tr><td></td>
<td width="98"><input type="button" name="okButton" value="OK" onclick="event://ok" width="92" height="28"></td>
<td width="92"><input type="button" name="cancelButton" value="Cancel" onclick="event://close" width="92" height="28"></td></tr></table></td></frameset></body>`;
}

/** Shows the question; `done(form)` hears the values. A window, and a promise of the exit code. */
function ask(tarn, options, question) {
    class Question extends tarn.GuiWindow {
        ok() {
            if (this.form.valid) {
                question.done(this.form);
                this.setReturnValue(0);
                this.close();
            }
        }
        moved() {
            this.control('now').setText(tarn.html`${this.form.number}`);
        }
    }
    const window = Question.from(pageOf(tarn, options, question));
    window.setEnterControl('okButton');
    window.setEscapeControl('X');
    return { window, result: window.showAsync().then((code) => code ?? 1) };
}

/** The day of this moment where the user is, as fields take it. */
function today() {
    const now = new Date();
    return [now.getFullYear(), now.getMonth() + 1, now.getDate()].map((part) => String(part).padStart(2, '0')).join('-');
}

/** Prints the day as "2026-12-24". */
function showCalendar(tarn, options, print) {
    const { html } = tarn;
    return ask(tarn, options, {
        name: 'Day', size: html`width="340" height="130" noresize`,
        field: html`<input type="date" name="day" required value="${options.value ?? today()}" width="160" height="28">`,
        done: ({ day }) => print(day),
    });
}

function checkRange({ min, max, value }) {
    if (min >= max) {
        throw new UsageError(`--min must be below --max, not ${min} and ${max}`);
    }
    if (value < min || value > max) {
        throw new UsageError(`--value must be from ${min} to ${max}, not ${value}`);
    }
}

/** Prints the number. */
function showScale(tarn, options, print) {
    const { html } = tarn;
    const { min, max, step } = { min: 0, max: 100, step: 1, ...options };
    const range = { min: Number(min), max: Number(max), value: Number(options.value ?? min) };
    checkRange(range);
    return ask(tarn, options, {
        name: 'Number', size: html`width="380" height="130" noresize`,
        field: html`<table width="100%"><tr>
<td><input type="range" name="number" value="${range.value}" min="${range.min}" max="${range.max}" step="${step}" onchange="event://moved" width="100%" height="28"></td>
<td name="now" width="70" align="right">${range.value}</td></tr></table>`,
        done: ({ number }) => print(String(number)),
    });
}

async function readAll(input) {
    input.setEncoding('utf8');
    let text = '';
    for await (const part of input) {
        text += part;
    }
    return text;
}

/** Shows a file, or what standard input has until its end; with `edit` prints what the user makes of it. */
async function showTextInfo(tarn, options, print, input) {
    const { html } = tarn;
    const text = options.text === '' ? await readAll(input) : fs.readFileSync(options.text, 'utf8');
    const shown = ask(tarn, { title: options.title, text: '' }, {
        name: options.text === '' ? 'Text' : options.text, size: html`width="560" height="420"`,
        field: html`<textarea name="lines" ${options.edit ? '' : html`readonly`} width="100%" height="100%"></textarea>`,
        done: ({ lines }) => options.edit && print(lines.replace(/\n$/, '')),
    });
    shown.window.form.lines = text;
    return shown;
}

/** Prints the color as "#RRGGBB". The desktop's own dialog. */
async function showColor(tarn, { title, value }, print) {
    const color = await tarn.pickColorAsync({ ...(title && { title }), ...(value && { color: value }) });
    if (color === null) {
        return 1;
    }
    print(color);
    return 0;
}

module.exports = { showCalendar, showColor, showScale, showTextInfo };
