'use strict';
// Opening and saving: the desktop's dialogs give paths, or null when they were cancelled.
const fs = require('node:fs/promises');
const path = require('node:path');
const { GuiWindow, html, openFileAsync, saveFileAsync } = require('tarn-gui');

const filters = [{ name: 'Texts', patterns: ['*.txt', '*.md'] }, { name: 'All files', patterns: ['*'] }];

class Editor extends GuiWindow {
    async onOpen() {
        const file = await openFileAsync({ title: 'Open', folder: process.argv[2], filters });
        if (file === null) return;
        this.form.text = await fs.readFile(file, 'utf8');
        this.setTitle(path.basename(file));
    }

    async onSave() {
        const file = await saveFileAsync({ title: 'Save', folder: process.argv[2], name: 'notes.txt', filters });
        if (file !== null) await fs.writeFile(file, this.form.text);
        console.log(file ? `wrote ${path.basename(file)}` : 'not saved');
    }
}

Editor.from(html`<title>Editor</title><body width="420" height="260" valign="top" cellpadding="10"><textarea name="text" width="100%" height="190"></textarea>
    <p><input type="button" name="open" value="Open..." onclick="event://onOpen"> <input type="button" name="save" value="Save..." onclick="event://onSave"></p>`).open();
