'use strict';
// Light, dark and own colours, fonts and sizes of what one reads.
//
// A page that gives no colours follows the desktop, light or dark. One that gives any should give ground, text and links together, and
// see to it that they can be told apart: the contrast is worked out as the WCAG define it. Controls are the desktop's in every theme.

const { GuiWindow, html } = require('../../host/node');

const themes = {
    desktop: null,
    light: { ground: '#FFFFFF', text: '#1F2328', link: '#0B57D0' },
    dark: { ground: '#1B2129', text: '#E3E8EE', link: '#8AB4F8' },
    sepia: { ground: '#F6EDDC', text: '#4B3A2A', link: '#8A4B08' },
};
const parts = ['ground', 'text', 'link'];

/** How bright a colour is, 0 to 1: linear light, weighed as the eye does. */
function luminance(color) {
    const [red, green, blue] = [1, 3, 5].map((at) => parseInt(color.slice(at, at + 2), 16) / 255)
        .map((part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

/** From 1, the same, to 21, black on white. */
function contrast(one, other) {
    const [dark, bright] = [luminance(one), luminance(other)].sort((a, b) => a - b);
    return (bright + 0.05) / (dark + 0.05);
}

const verdict = (ratio) => (ratio >= 7 ? 'very good' : ratio >= 4.5 ? 'good' : ratio >= 3 ? 'for large text only' : 'too little');

class Looks extends GuiWindow {
    constructor() {
        super('theming.html');
        Object.assign(this.form, themes.light, { theme: 'desktop', face: '', size: '3' }); // drop-down lists have no value before they are shown
        this.setFocus('theme');
    }

    ePostOpen() { this.onTheme(); }

    /** The colours, null for those of the desktop. */
    get colors() {
        return this.form.theme === 'desktop' ? null : Object.fromEntries(parts.map((part) => [part, this.control(part).value]));
    }

    onTheme() {
        const { theme } = this.form;
        for (const part of parts) {
            if (themes[theme]) this.control(part).value = themes[theme][part];
            this.control(part).enable(theme !== 'desktop');
        }
        this.onLook();
    }

    /** A colour was chosen: so the theme is the user's own. What a theme sets is told in the same way. */
    onOwn({ event }) {
        if (event === undefined) return; // not by the user
        this.control('theme').value = 'own';
        this.onLook();
    }

    onLook() {
        const { colors } = this;
        const { face, size } = this.form;
        const body = colors && html`bgcolor="${colors.ground}" text="${colors.text}" link="${colors.link}" alink="${colors.link}"`;
        this.control('preview').setText(html`<body ${body} valign="top"><table width="100%" margin="20"><tr><td><h2>The lighthouse</h2><font size="${size}" ${face && html`face="${face}"`}>
            <p>On the <b>last rock</b> before the open sea stands a tower of white stone. Its lamp is lit at dusk, and turns until the sun is up.</p>
            <p>Ships count its <a href="event://onLink">flashes</a>: two short ones, then a long one. Nobody lives there <i>any more</i>.</p></font></td></tr></table></body>`);
        const ratio = colors ? Math.min(contrast(colors.ground, colors.text), contrast(colors.ground, colors.link)) : 0;
        this.control('contrast').setText(colors ? html`<b>${ratio.toFixed(1)} : 1</b><br>${verdict(ratio)}` : 'the desktop\'s');
        this.control('status').setText(`${Math.round(this.zoom * 100)} %`);
    }

    onLink() { this.control('status').setText('Two short ones, then a long one'); }

    eMenu(session, item) {
        if (item === 'quit') {
            this.close();
            return;
        }
        const zoom = { larger: this.zoom + 0.25, smaller: this.zoom - 0.25, usual: 1 }[item];
        this.zoom = Math.min(3, Math.max(0.5, zoom));
        this.control('status').setText(`${Math.round(this.zoom * 100)} %`);
    }
}

new Looks().showAsync();
