'use strict';
// A window from text: what stands in ${...} is data and cannot become markup.
const { GuiWindow, html } = require('tarn-gui');

const who = process.argv[2] ?? 'you & me';
const window = GuiWindow.from(html`<title>Hello</title><body width="320" height="130" valign="top" cellpadding="10">
    <h2>Hello, ${who}!</h2><p><a href="event://close">Close</a></p>`);
window.showAsync().then(() => console.log('closed'));
