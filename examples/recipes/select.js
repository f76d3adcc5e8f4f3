'use strict';
// A drop-down list that another one fills.
const { GuiWindow, html } = require('tarn-gui');

const cities = { Italy: ['Rome', 'Turin'], Japan: ['Kyoto', 'Osaka', 'Tokyo'], Norway: ['Bergen', 'Oslo'] };
const option = (name, index) => html`<option value="${name}" ${index === 0 && html`selected`}>${name}`;
const options = (names) => names.map(option);

class Travel extends GuiWindow {
    onCountry() {
        this.control('place').setText(html`<select name="city" width="160" onchange="event://onCity">${options(cities[this.form.country])}</select>`);
        this.onCity();
    }

    onCity() {
        const { value } = this.control('city'); // what a new element shows: the form of a running handler is older
        this.setTitle(`${value}, ${this.form.country}`);
    }
}

const travel = Travel.from(html`<body width="260" height="110" valign="top" cellpadding="10"><table><tr><td height="34">
    <select name="country" width="160" onchange="event://onCountry">${options(Object.keys(cities))}</select></td></tr>
    <tr><td name="place" height="34"></td></tr></table>`);
travel.open();
travel.onCountry();
