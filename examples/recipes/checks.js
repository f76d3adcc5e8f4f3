'use strict';
// A form with checks: the window stays until all is well, and the keyboard goes to what is not.
const { GuiWindow, html } = require('tarn-gui');

class Account extends GuiWindow {
    onOk() {
        const { name, mail, age } = this.form;
        if (!name.trim()) {
            this.complain('name', 'A name is needed.');
        } else if (!/^\S+@\S+$/.test(mail)) {
            this.complain('mail', 'That is no mail address.');
        } else if (!(Number(age) >= 18)) {
            this.complain('age', 'One has to be 18.');
        } else {
            this.setReturnValue({ name, mail, age: Number(age) });
            this.close();
        }
    }

    complain(control, words) {
        this.control('problem').setText(html`<font color="#A02020">${words}</font>`);
        this.setTitle(words);
        this.setFocus(control);
    }
}

const row = (label, name) => html`<tr><td width="70" height="30">${label}</td><td height="30"><input type="text" name="${name}" width="100%"></td></tr>`;
const window = Account.from(html`<title>Account</title><body width="340" height="210" valign="top" cellpadding="10">
    <table width="100%">${[row('Name', 'name'), row('Mail', 'mail'), row('Age', 'age')]}</table>
    <table width="100%"><tr><td name="problem" height="30"></td></tr></table><input type="button" name="ok" value="OK" onclick="event://onOk">`);
window.setEnterControl('ok');
window.showAsync().then((account) => console.log(account));
