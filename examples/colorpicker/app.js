'use strict';
// A colour in three ways at once, with sliders and fields, and a row of swatches to keep some. app.js [COLOUR...]
//
// What script writes calls onchange as well; session.event tells the changes of the user from these.

const { GuiWindow, clipboard, html, pickColorAsync, register } = require('../../host/node');
const { fromHex, toHex, toHsv, toRgb } = require('./colors');
const { Swatches } = require('./swatches');

register('Swatches', Swatches);
const usual = ['#2F6FB0', '#2F9E44', '#F08C00', '#C2255C', '#6741D9', '#2A2F36'];
const most = { Red: 255, Green: 255, Blue: 255, Hue: 359, Saturation: 100, Value: 100 };
const row = ([label, max]) => html`<tr><td width="80"><label for="${label}">&amp;${label}</label></td>
    <td><input type="range" name="${label}Slider" label="${label}" max="${max}" onchange="event://onPart/${label}Slider" width="100%"></td>
    <td width="76"><input type="number" name="${label}" min="0" max="${max}" onchange="event://onPart/${label}" width="100%"></td></tr>`;

class ColorPicker extends GuiWindow {
    rgb = { Red: 0, Green: 0, Blue: 0 };
    hsv = { Hue: 0, Saturation: 0, Value: 0 }; // the same colour, since a gray has forgotten its hue

    constructor(colors) {
        super('colorpicker.html');
        this.control('parts').setText(html`<table width="100%" gap="8">${Object.entries(most).map(row)}</table>`);
        this.control('swatches').colors = colors;
        this.setFocus('hex');
        this.take(fromHex(colors[0]));
    }

    /** The colour is this one from now on: everything shows it. */
    take(rgb, hsv = toHsv(rgb, this.hsv)) {
        Object.assign(this, { rgb, hsv });
        const hex = toHex(rgb);
        for (const [name, number] of Object.entries({ ...rgb, ...hsv })) this.form[name] = this.form[`${name}Slider`] = number;
        const typed = fromHex(this.form.hex); // "#369" stays as it is typed
        if (!typed || toHex(typed) !== hex) this.form.hex = hex;
        const ink = 0.299 * rgb.Red + 0.587 * rgb.Green + 0.114 * rgb.Blue > 140 ? '#000000' : '#FFFFFF';
        this.control('sample').setText(html`<table width="100%" height="100%"><tr><td height="100%" bgcolor="${hex}" align="center" valign="middle">
            <font size="5" color="${ink}">${hex}</font></td></tr></table>`);
    }

    /** A field or slider of a part: event://onPart/Red, event://onPart/RedSlider. */
    onPart({ event }, control) {
        const name = control.replace('Slider', '');
        const number = this.form[control];
        if (!event || number === null) return; // take() has written it; the field is empty while one types
        const hsv = { ...this.hsv, [name]: number };
        if (name in this.rgb) this.take({ ...this.rgb, [name]: number });
        else this.take(toRgb(hsv), hsv);
    }

    onHex({ event }) {
        const rgb = fromHex(this.form.hex);
        if (event && rgb) this.take(rgb);
    }

    onSwatch(color) { this.take(fromHex(color)); }

    async eMenu(session, item) {
        const hex = toHex(this.rgb);
        if (item === 'copy') clipboard.writeText(hex);
        if (item === 'keep') this.control('swatches').keep(hex);
        if (item === 'dialog') this.take(fromHex(await pickColorAsync({ color: hex }) ?? hex));
        if (item === 'quit') this.close();
    }
}

const given = process.argv.slice(2).filter(fromHex);
new ColorPicker(given.length > 0 ? given : usual).showAsync();
