'use strict';
// A drop-down list that another one fills.
const { GuiWindow, html } = require('tarn-gui');

const cities = { Italy: ['Rome', 'Turin'], Japan: ['Kyoto', 'Osaka', 'Tokyo'], Norway: ['Bergen', 'Oslo'] };
const options = (names) => names.map((name) => html`<option value="${name}">${name}`);

class Travel extends GuiWindow {
    onCountry() {
        this.control('place').setText(html`<select name="city" width="160" onchange="event://onCity">${options(cities[this.form.country])}</select>`);
        this.form.city = cities[this.form.country][0];
        this.onCity();
    }

    onCity() {
        this.setTitle(`${this.form.city}, ${this.form.country}`);
    }
}

const travel = Travel.from(html`<body width="260" height="110" valign="top" cellpadding="10"><table><tr><td height="34">
    <select name="country" width="160" onchange="event://onCountry">${options(Object.keys(cities))}</select></td></tr>
    <tr><td name="place" height="34"></td></tr></table>`);
travel.form.country = 'Italy';
travel.onCountry();
travel.open();
