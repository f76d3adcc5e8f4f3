'use strict';
// A table from a cursor: rows come from an async iterator, as database drivers have them, a page at a time.
const { GuiWindow, html } = require('tarn-gui');

/** Stands for `database.query('select id, name from users')`. */
async function* query() {
    for (let id = 1; id <= 250; ++id) yield { id, name: `user ${id}` };
}

class Users extends GuiWindow {
    cursor = query();
    shown = 0;

    async onMore() {
        const list = this.control('list');
        for (let i = 0; i < 100; ++i) {
            const { value, done } = await this.cursor.next();
            if (done) {
                this.control('more').disable();
                return;
            }
            list.addItem(String(value.id), `${value.id}|2|${value.name}`);
            this.setTitle(`${++this.shown} users`);
        }
    }

    /** The window closes before the end of the table: the database may forget the query. */
    eClose() {
        return this.cursor.return().then(() => true);
    }
}

const users = Users.from(html`<title>Users</title><body width="360" height="330" valign="top" cellpadding="10">
    <object classid="listview" name="list" size="16" width="100%"></object>
    <p><input type="button" name="more" value="More" onclick="event://onMore"></p>`);
['Number', 'Name'].forEach((heading, index) => users.control('list').setColumnText(index + 1, heading));
users.onMore().then(() => users.open());
