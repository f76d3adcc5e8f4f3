'use strict';
// The clipboard: text goes both ways.
const { GuiWindow, clipboard, html } = require('tarn-gui');

class Lines extends GuiWindow {
    onPaste() {
        this.form.text = clipboard.readText();
    }

    onSort() {
        this.form.text = this.form.text.split('\n').sort().join('\n');
    }

    onCopy() {
        clipboard.writeText(this.form.text);
        console.log(JSON.stringify(this.form.text));
    }
}

const button = (name) => html`<input type="button" name="${name.toLowerCase()}" value="${name}" onclick="event://on${name}"> `;
Lines.from(html`<title>Sort lines</title><body width="340" height="230" valign="top" cellpadding="10"><textarea name="text" width="100%" height="150"></textarea>
    <p>${['Paste', 'Sort', 'Copy'].map(button)}</p>`).open();
