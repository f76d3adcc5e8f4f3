'use strict';
// Ask before closing: eClose is called when the user wants to close the window; false keeps it.
const { GuiWindow, alertAsync, html } = require('tarn-gui');

class Note extends GuiWindow {
    async eClose() {
        if (this.form.text === '') return true;
        const answer = await alertAsync('Save the note?', { title: 'Unsaved', icon: 'question', buttons: ['Save', 'Discard', 'Cancel'] });
        if (answer === 'Save') console.log(`saved: ${this.form.text}`);
        return answer === 'Save' || answer === 'Discard';
    }
}

const note = Note.from(html`<title>Note</title><body width="320" height="160" valign="top" cellpadding="10"><textarea name="text" width="100%" height="120"></textarea>`);
note.setFocus('text');
note.showAsync().then(() => console.log('closed'));
