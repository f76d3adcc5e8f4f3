'use strict';
// Errors of handlers in a dialog, in place of the end of the program.
const tarn = require('tarn-gui');

tarn.onError = (error, { handler }) => {
    console.log(`${handler}: ${error.message}`);
    tarn.alertAsync(error.message, { title: 'Something went wrong', icon: 'error' });
};

class Parser extends tarn.GuiWindow {
    onParse() {
        this.setTitle(String(JSON.parse(this.form.text).name));
    }
}

Parser.from(tarn.html`<title>Parser</title><body width="360" height="100" valign="top" cellpadding="10"><p><input type="text" name="text" value="${'{"name":'}" size="30">
    <input type="button" name="parse" value="Parse" onclick="event://onParse"></p>`).open();
