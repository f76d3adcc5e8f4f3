'use strict';
// Links to the web: eLink hears of them; a window without it leaves them to the desktop's browser.
const { GuiWindow, html } = require('tarn-gui');

class About extends GuiWindow {
    eLink(session, url) {
        const { host } = new URL(url);
        console.log(host === 'example.org' ? `open ${url}` : `not opened: ${url}`);
    }
}

About.from(html`<title>About</title><body width="300" height="120" valign="top" cellpadding="10"><p><a href="https://example.org/manual">The manual</a></p>
    <p><a href="https://example.com/">Somebody else</a></p>`).open();
