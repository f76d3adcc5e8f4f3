'use strict';
// A program that can be tested: the window is a class in a module, and the module opens nothing by itself.
const { GuiWindow, html } = require('tarn-gui');

class Counter extends GuiWindow {
    onAdd(session, step) {
        this.form.count = Number(this.form.count) + Number(step);
    }

    onDone() {
        this.setReturnValue(Number(this.form.count));
        this.close();
    }
}

const makeCounter = () => Counter.from(html`<title>Counter</title><body width="300" height="90" valign="top" cellpadding="10"><p><input type="text" name="count" value="0" size="6">
    <input type="button" name="add" value="+" onclick="event://onAdd/1"> <input type="button" name="done" value="Done" onclick="event://onDone"></p>`);

if (require.main === module) makeCounter().showAsync().then(console.log);

module.exports = { makeCounter };
