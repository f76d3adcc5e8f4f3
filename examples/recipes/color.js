'use strict';
// Choosing a colour, and showing it at once.
const { GuiWindow, html, pickColorAsync } = require('tarn-gui');

class Paint extends GuiWindow {
    color = '#2F6FB0';

    async onPick() {
        this.color = await pickColorAsync({ title: 'Colour', color: this.color }) ?? this.color;
        this.refresh();
    }

    refresh() {
        this.control('sample').setText(html`<table width="100%"><tr><td height="60" bgcolor="${this.color}"></td></tr></table>`);
        this.setTitle(this.color);
    }
}

const paint = Paint.from(html`<body width="260" height="140" valign="top" cellpadding="10"><table width="100%"><tr><td name="sample" height="64"></td></tr></table>
    <p><input type="button" name="pick" value="Choose..." onclick="event://onPick"></p>`);
paint.refresh();
paint.open();
