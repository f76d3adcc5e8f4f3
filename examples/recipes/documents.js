'use strict';
// One window per document: each has its own state, and the program ends with the last one.
const { GuiWindow, html } = require('tarn-gui');

const open = new Set();

class Document extends GuiWindow {
    static show(name) {
        const window = this.from(html`<title>${name}</title><body width="320" height="170" valign="top" cellpadding="10"><textarea name="text" width="100%" height="90"></textarea>
            <p><input type="button" name="new" value="New window" onclick="event://onNew"></p>`);
        open.add(window);
        window.open();
        window.setFocus('text');
    }

    onNew() {
        Document.show(`Document ${open.size + 1}`);
    }

    eClose() {
        open.delete(this);
        console.log(`${this.getTitle()}: ${this.form.text}; ${open.size} left`);
    }
}

Document.show('Document 1');
