'use strict';
// Several of many: a list with boxes, and a button for all of them.
const { GuiWindow, html } = require('tarn-gui');

const toppings = ['cheese', 'olives', 'mushrooms', 'peppers'];

class Pizza extends GuiWindow {
    chosen() {
        return toppings.filter((name) => this.control('list').isItemChecked(name));
    }

    onAll() {
        const on = this.chosen().length < toppings.length;
        toppings.forEach((name) => this.control('list').checkItem(name, on));
    }

    onOk() {
        this.setReturnValue(this.chosen());
        this.close();
    }
}

Pizza.from(html`<title>Pizza</title><body width="280" height="190" valign="top" cellpadding="10"><object classid="checklist" name="list" size="6" width="100%">
    ${toppings.map((name) => html`<param value="${name}" text1="${name}">`)}</object>
    <p><input type="button" name="all" value="All" onclick="event://onAll"> <input type="button" name="ok" value="OK" onclick="event://onOk"></p>`)
    .showAsync().then((chosen) => console.log(chosen?.join(', ') ?? 'nothing'));
