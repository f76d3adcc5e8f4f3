'use strict';
// A list of expenses: the controls that a page can have, how a handler reads and sets their values, and a menu.

const { GuiWindow } = require('../../host/node');

class Expenses extends GuiWindow {
    constructor() {
        super('expenses.html');
        this.entries = new Map();
        this.added = 0;
        const list = this.control('list');
        ['What', 'Kind', 'Paid by', 'Amount'].forEach((heading, index) => {
            list.setColumnText(index + 1, heading);
            list.setColumnWidth(index + 1, [200, 80, 80, 90][index]);
        });
        this.setEnterControl('add');
        this.refresh();
    }

    /** The form's action: the button "Add", or the Enter key in a field. */
    onAdd({ currentForm: form }) {
        const amount = Number(form.amount.replace(',', '.'));
        if (!form.what || !(amount > 0)) {
            this.say('<font color="#A02020">What was it, and how much?</font>');
            this.setFocus(form.what ? 'amount' : 'what');
            return;
        }
        const key = String(++this.added);
        this.entries.set(key, amount);
        const what = form.receipt ? form.what : `${form.what} (no receipt)`;
        this.control('list').addItem(key, `${what}|2|${form.kind}|3|${form.paid}|4|${amount.toFixed(2)}`);
        form.what = form.amount = form.notes = '';
        this.setFocus('what');
        this.refresh();
    }

    /** What is selected in the list is one more value of the form. */
    onRemove({ currentForm: form }) {
        if (form.list === null) return;
        this.control('list').removeItem(form.list);
        this.entries.delete(form.list);
        this.refresh();
    }

    /** Every item of the menu comes here, by its name. */
    eMenu(session, item) {
        if (item === 'quit') this.close();
        if (item === 'clear') this.clear();
        if (item === 'headings') this.toggleHeadings();
    }

    clear() {
        for (const key of this.entries.keys()) this.control('list').removeItem(key);
        this.entries.clear();
        this.refresh();
    }

    toggleHeadings() {
        const menu = this.control('menu');
        menu.checkItem('headings', !menu.isItemChecked('headings'));
        this.control('list').setHeaderEnabled(menu.isItemChecked('headings'));
    }

    refresh() {
        const total = [...this.entries.values()].reduce((sum, amount) => sum + amount, 0);
        this.say(`${this.entries.size} entries, <b>${total.toFixed(2)}</b> in all`);
        this.setReturnValue(total);
    }

    say(markup) {
        this.control('total').setText(markup);
    }
}

const total = new Expenses().show();
console.log(`${total.toFixed(2)} in all`);
