'use strict';
// Fields that depend on each other: window.form is live, reading and writing.
const { GuiWindow, html } = require('tarn-gui');

class Price extends GuiWindow {
    onChange() {
        const { form } = this;
        const sum = Number(form.count) * 12.5 * (form.member ? 0.9 : 1);
        form.sum = Number.isFinite(sum) ? sum.toFixed(2) : '?';
        this.control('order').enable(sum > 0);
    }

    onOrder() {
        console.log(`${this.form.count} for ${this.form.sum}`);
        this.close();
    }
}

const price = Price.from(html`<title>Price</title><body width="320" height="170" valign="top" cellpadding="10"><table>
    <tr><td width="70" height="30">Count</td><td height="30"><input type="text" name="count" size="6" onchange="event://onChange"></td></tr>
    <tr><td width="70" height="30">Member</td><td height="30"><input type="checkbox" name="member" onclick="event://onChange"></td></tr>
    <tr><td width="70" height="30">Sum</td><td height="30"><input type="text" name="sum" size="10" disabled></td></tr></table>
    <p><input type="button" name="order" value="Order" onclick="event://onOrder" disabled></p>`);
price.setFocus('count');
price.open();
